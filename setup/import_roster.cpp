#include <algorithm>

#include "base/text.h"
#include "setup/import_match.h"
#include "setup/messages.h"
#include "setup/names.h"
#include "setup/sex.h"

namespace tarvex::setup {
namespace {

using Column = ImportColumn;

constexpr int kDivisionsByTeam = 3;
constexpr int kOldest = 109;
constexpr int kLongestShortName = 16;
constexpr size_t kProposedAbbr = 3;

bool SameName(const Athlete& athlete, const ImportRow& row) {
  return SameText(athlete.last_name, row.last_name) && SameText(athlete.first_name, row.first_name);
}

// Where both say something and it differs.
std::optional<RowFault> Contradiction(const ImportRow& row, const Athlete& athlete) {
  const Notice differs = AthleteDiffers(PlainName(athlete));
  if (row.ath_sex != ' ' && athlete.sex != ' ' && row.ath_sex != athlete.sex)
    return RowFault{Column::AthSex, differs};
  if (row.comp_no != 0 && athlete.comp_no != 0 && row.comp_no != athlete.comp_no) {
    return RowFault{Column::CompNo, differs};
  }
  if (row.birth_date != 0 && athlete.birth_date != 0 && row.birth_date != athlete.birth_date) {
    return RowFault{Column::BirthDate, differs};
  }
  const bool ages_alone = row.birth_date == 0 && athlete.birth_date == 0 && row.age != 0 && athlete.age != 0;
  if (ages_alone && row.age != athlete.age) return RowFault{Column::Age, differs};
  const bool years = !row.schl_yr.empty() && !athlete.schl_yr.empty();
  if (years && !SameText(row.schl_yr, athlete.schl_yr)) return RowFault{Column::SchlYr, differs};
  return std::nullopt;
}

// Takes from the row what the athlete does not have; true when that is anything.
bool FillBlanks(const ImportRow& row, double calc_date, Athlete& athlete) {
  bool changed = false;
  const auto fill = [&](auto& member, const auto& value, const auto& blank) {
    if (member != blank || value == blank) return;
    member = value;
    changed = true;
  };
  if (athlete.birth_date == 0 && row.birth_date != 0 && calc_date != 0) {
    athlete.age = AgeOnDay(row.birth_date, calc_date);
  }
  fill(athlete.birth_date, row.birth_date, 0.0);
  fill(athlete.age, row.age, 0);
  fill(athlete.comp_no, row.comp_no, 0);
  fill(athlete.sex, row.ath_sex, ' ');
  fill(athlete.schl_yr, row.schl_yr, std::string());
  return changed;
}

int DivisionByTeam(const ImportRow& row, const ImportContext& context) {
  if (context.division_level != kDivisionsByTeam || row.division.empty()) return 0;
  const DatedDivision* dated = FindDivision(context.divisions, row.division);
  return dated == nullptr ? 0 : dated->division.div_no;
}

}  // namespace

RosterMatcher::RosterMatcher(ImportState& state, const ImportContext& context)
    : state_(state), context_(context) {
  for (size_t at = 0; at < state.teams.size(); ++at) index_.AddTeam(state.teams[at], at);
  for (size_t at = 0; at < state.athletes.size(); ++at) index_.AddAthlete(state.athletes[at], at);
}

Match<TeamChoice> RosterMatcher::TeamOf(const ImportRow& row) const {
  std::vector<size_t> found = index_.TeamsByAbbr(row.team_abbr);
  if (found.empty()) found = index_.TeamsByName(row.team_name);
  if (found.empty() && row.team_name.empty()) found = index_.TeamsByAlternateAbbr(row.team_abbr);
  return found.empty() ? MadeTeam(row) : FoundTeam(row, found.front());
}

Match<TeamChoice> RosterMatcher::FoundTeam(const ImportRow& row, size_t at) const {
  TeamChoice choice{at, state_.teams[at], false};
  Team& team = choice.row;
  const bool same_name = SameText(team.name, row.team_name) || SameText(team.short_name, row.team_name);
  if (!row.team_name.empty() && !same_name) return RowFault{Column::TeamName, TeamDiffers(team.name)};
  const bool same_abbr = SameText(team.abbr, row.team_abbr) || SameText(team.alt_abbr, row.team_abbr);
  if (!row.team_abbr.empty() && !same_abbr) {
    if (!team.abbr.empty()) return RowFault{Column::TeamAbbr, TeamDiffers(team.name)};
    team.abbr = row.team_abbr;
    choice.changed = true;
  }
  if (const int division = DivisionByTeam(row, context_); division != 0 && division != team.division) {
    if (team.division != 0) return RowFault{Column::Division, TeamDiffers(team.name)};
    team.division = division;
    choice.changed = true;
  }
  return choice;
}

Match<TeamChoice> RosterMatcher::MadeTeam(const ImportRow& row) const {
  TeamChoice choice;
  Team& team = choice.row;
  team.abbr = row.team_abbr.empty() ? ProposedAbbr(row.team_name) : row.team_abbr;
  team.name = row.team_name.empty() ? team.abbr : row.team_name;
  team.short_name = FieldCharacters(team.name) <= kLongestShortName ? team.name : team.abbr;
  team.alt_abbr = team.abbr;
  team.division = DivisionByTeam(row, context_);
  return choice;
}

// The first letters of the name; with a number behind them where another team has them.
std::string RosterMatcher::ProposedAbbr(std::string_view name) const {
  std::string letters;
  std::string rest = Upper(name);
  std::string_view left = rest;
  for (size_t count = 0; count < kProposedAbbr && !left.empty();) {
    const std::optional<Character> first = FirstCharacter(left);
    const size_t bytes = first ? first->bytes : 1;
    if (first && !IsBlank(first->code)) {
      letters += left.substr(0, bytes);
      ++count;
    }
    left.remove_prefix(bytes);
  }
  std::string abbr = letters;
  for (int number = 2; !index_.TeamsByAbbr(abbr).empty(); ++number) abbr = letters + std::to_string(number);
  return abbr;
}

std::optional<size_t> RosterMatcher::NumberOwner(int comp_no, char sex) const {
  for (const size_t at : index_.AthletesByNumber(comp_no)) {
    const char owner = state_.athletes[at].sex;
    if (!context_.numbers_per_sex || sex == ' ' || owner == sex) return at;
  }
  return std::nullopt;
}

std::vector<size_t> RosterMatcher::Namesakes(const ImportRow& row, int team_no, char sex) const {
  std::vector<size_t> found = index_.AthletesByName(team_no, row.last_name, row.first_name);
  std::erase_if(found, [&](size_t at) { return sex != ' ' && state_.athletes[at].sex != sex; });
  if (found.size() > 1 && row.birth_date != 0) {
    std::erase_if(found, [&](size_t at) { return state_.athletes[at].birth_date != row.birth_date; });
  }
  return found;
}

Match<AthleteChoice> RosterMatcher::AthleteOf(const ImportRow& row, const TeamChoice& team,
                                              const Event& event) const {
  const char event_sex = event.event_gender == 'X' ? ' ' : event.event_gender;
  const char sex = row.ath_sex == ' ' ? event_sex : row.ath_sex;
  if (const auto owner = NumberOwner(row.comp_no, sex)) {
    const Athlete& athlete = state_.athletes[*owner];
    if (!SameName(athlete, row)) return RowFault{Column::CompNo, NumberTaken(PlainName(athlete))};
    if (!team.at || athlete.team_no != state_.teams[*team.at].team_no) {
      return RowFault{Column::TeamAbbr, AthleteDiffers(PlainName(athlete))};
    }
    return Found(row, *owner);
  }
  if (!team.at) return Made(row, sex);
  const std::vector<size_t> found = Namesakes(row, state_.teams[*team.at].team_no, sex);
  if (found.size() > 1) return RowFault{Column::LastName, SeveralAthletesFit()};
  return found.empty() ? Made(row, sex) : Found(row, found.front());
}

Match<AthleteChoice> RosterMatcher::Found(const ImportRow& row, size_t at) const {
  if (auto fault = Contradiction(row, state_.athletes[at])) return *fault;
  AthleteChoice choice{at, state_.athletes[at], false};
  choice.changed = FillBlanks(row, context_.rules.calc_date, choice.row);
  return choice;
}

Match<AthleteChoice> RosterMatcher::Made(const ImportRow& row, char sex) const {
  if (row.first_name.empty()) return RowFault{Column::FirstName, ValueMissing()};
  if (sex == ' ') return RowFault{Column::AthSex, ValueMissing()};
  AthleteChoice choice;
  choice.row.last_name = row.last_name;
  choice.row.first_name = row.first_name;
  FillBlanks(row, context_.rules.calc_date, choice.row);
  choice.row.sex = sex;
  if (choice.row.age < 0 || choice.row.age > kOldest) return RowFault{Column::BirthDate, AgeOutOfRange()};
  return choice;
}

Match<AthleteChoice> RosterMatcher::RunnerOf(std::string_view typed, ImportColumn column,
                                             const TeamChoice& team, const Event& event) const {
  ImportRow row;
  const size_t comma = typed.find(',');
  const bool is_number = typed.find_first_not_of("0123456789") == std::string_view::npos;
  if (is_number) {
    const int number = typed.size() > 9 ? 0 : std::stoi(std::string(typed));
    const char sex = event.event_gender == 'X' ? ' ' : event.event_gender;
    const auto owner = NumberOwner(number, sex);
    if (!owner) return RowFault{column, NobodyHasNumber(typed)};
    const Athlete& athlete = state_.athletes[*owner];
    const bool of_team = team.at && athlete.team_no == state_.teams[*team.at].team_no;
    if (!of_team && !context_.anyone_on_relay) return RowFault{column, RunnerOfOtherTeam(PlainName(athlete))};
    return AthleteChoice{*owner, athlete, false};
  }
  if (comma == std::string_view::npos) return RowFault{column, UnreadableValue(typed)};
  row.last_name = std::string(Trim(typed.substr(0, comma)));
  row.first_name = std::string(Trim(typed.substr(comma + 1)));
  if (row.last_name.empty() || row.first_name.empty()) return RowFault{column, UnreadableValue(typed)};
  const ImportLengths& lengths = context_.lengths;
  if (FieldCharacters(row.last_name) > lengths.last_name)
    return RowFault{column, ValueTooLong(lengths.last_name)};
  if (FieldCharacters(row.first_name) > lengths.first_name)
    return RowFault{column, ValueTooLong(lengths.first_name)};
  Match<AthleteChoice> match = AthleteOf(row, team, event);
  if (RowFault* fault = std::get_if<RowFault>(&match)) fault->column = column;
  return match;
}

int RosterMatcher::Keep(TeamChoice& choice) {
  if (!choice.at) {
    choice.at = state_.teams.size();
    choice.row.team_no = -static_cast<int>(state_.teams.size()) - 1;
    state_.teams.push_back(choice.row);
    index_.AddTeam(choice.row, *choice.at);
  } else if (choice.changed) {
    Team& team = state_.teams[*choice.at];
    const bool new_abbr = team.abbr != choice.row.abbr;
    team = choice.row;
    if (new_abbr) index_.AddTeam(team, *choice.at);
  }
  return choice.row.team_no;
}

int RosterMatcher::Keep(AthleteChoice& choice, int team_no) {
  if (!choice.at) {
    choice.at = state_.athletes.size();
    choice.row.ath_no = -static_cast<int>(state_.athletes.size()) - 1;
    choice.row.team_no = team_no;
    state_.athletes.push_back(choice.row);
    index_.AddAthlete(choice.row, *choice.at);
  } else if (choice.changed) {
    Athlete& athlete = state_.athletes[*choice.at];
    if (athlete.comp_no != choice.row.comp_no) index_.AddNumber(choice.row.comp_no, *choice.at);
    athlete = choice.row;
  }
  return choice.row.ath_no;
}

}  // namespace tarvex::setup
