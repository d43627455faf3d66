#include "setup/edit_athlete.h"

#include <algorithm>

#include "database/identifier.h"
#include "setup/division_store.h"
#include "setup/entry_lookup.h"
#include "setup/entry_rules.h"
#include "setup/messages.h"

namespace tarvex::setup {
namespace {

using database::Meet;

constexpr int kOldest = 109;
constexpr int kDigitsOnly = 2;     // Meet_idformat
constexpr int kNumbersPerSex = 2;  // compno_uniqueness

struct Surroundings {
  std::vector<StoredAthlete> athletes;
  std::vector<StoredTeam> teams;
  std::vector<StoredDivision> divisions;
};

Expected<Surroundings> LoadSurroundings(const Meet& meet) {
  Surroundings around;
  TRY_ASSIGN(const auto athletes, Athletes(meet));
  TRY_ASSIGN(around.athletes, athletes.All());
  TRY_ASSIGN(const auto teams, Teams(meet));
  TRY_ASSIGN(around.teams, teams.All());
  TRY_ASSIGN(around.divisions, LoadDivisions(meet));
  return around;
}

bool NumberIsTaken(const Athlete& athlete, const Surroundings& around,
                   const database::MeetSettings& settings) {
  if (athlete.comp_no == 0) return false;
  const bool per_sex = settings.compno_uniqueness == kNumbersPerSex;
  return std::any_of(around.athletes.begin(), around.athletes.end(), [&](const StoredAthlete& other) {
    return other.row.ath_no != athlete.ath_no && other.row.comp_no == athlete.comp_no &&
           (!per_sex || other.row.sex == athlete.sex);
  });
}

std::optional<Notice> Check(const Athlete& athlete, const Surroundings& around,
                            const database::MeetSettings& settings) {
  if (Trim(athlete.last_name).empty()) return FieldRequired("Last_name");
  if (Trim(athlete.first_name).empty()) return FieldRequired("First_name");
  if (athlete.sex == ' ') return FieldRequired("Ath_Sex");
  if (athlete.sex != 'M' && athlete.sex != 'F') return FieldInvalid("Ath_Sex");
  if (athlete.team_no == 0) return FieldRequired("Team_no");
  const auto has_team = [&](const StoredTeam& team) { return team.row.team_no == athlete.team_no; };
  if (std::none_of(around.teams.begin(), around.teams.end(), has_team)) return FieldInvalid("Team_no");
  if (athlete.age < 0 || athlete.age > kOldest) return AgeOutOfRange();
  const auto has_division = [&](const StoredDivision& division) {
    return division.row.div_no == athlete.div_no;
  };
  if (athlete.div_no != 0 && std::none_of(around.divisions.begin(), around.divisions.end(), has_division)) {
    return NoDivision(athlete.div_no);
  }
  if (athlete.comp_no < 0) return FieldInvalid("Comp_no");
  if (NumberIsTaken(athlete, around, settings)) return ExistsAlready(std::to_string(athlete.comp_no));
  const bool digits = athlete.reg_no.find_first_not_of("0123456789") == std::string::npos;
  if (settings.Meet_idformat == kDigitsOnly && !digits) return FieldInvalid("Reg_no");
  return std::nullopt;
}

// Replaces team_abbr=CAN by the number of the team.
std::optional<Notice> NameTeam(std::vector<FieldText>& fields, const Surroundings& around) {
  const std::optional<std::string> abbr = TakeField(fields, "team_abbr");
  if (!abbr) return std::nullopt;
  for (const StoredTeam& team : around.teams) {
    if (!SameText(team.row.abbr, *abbr)) continue;
    fields.push_back({"Team_no", std::to_string(team.row.team_no)});
    return std::nullopt;
  }
  return NotFound(*abbr);
}

// `stored` null: the athlete is new.
Outcome Store(Meet& meet, const Surroundings& around, const StoredAthlete* stored,
              std::vector<FieldText> fields) {
  if (const auto wrong = NameTeam(fields, around)) return Refusal{*wrong};
  const auto table = Athletes(meet);
  if (!table.ok()) return table.status();
  auto values = database::ParseFields(*table->table, fields);
  if (const Refusal* refusal = std::get_if<Refusal>(&values)) return *refusal;
  Athlete athlete = stored ? stored->row : Athlete{};
  if (!stored) athlete.guid = database::NewIdentifier(meet.session().random_bits);
  const auto more = ApplyFields(*table->table, AthleteFields(), athlete,
                                std::move(std::get<std::vector<jet::FieldValue>>(values)));
  const double calc_date = RulesOf(meet.settings()).calc_date;
  if (athlete.birth_date != 0 && calc_date != 0) athlete.age = AgeOnDay(athlete.birth_date, calc_date);
  if (const auto wrong = Check(athlete, around, meet.settings())) return Refusal{*wrong};
  return InOneTransaction(meet, "athlete", [&](jet::Transaction& write) -> Status {
    if (stored) return UpdateRow(write, *table->table, table->fields, *stored, athlete, more);
    return InsertRow(write, *table->table, table->fields, athlete, more).status();
  });
}

Outcome Delete(Meet& meet, const StoredAthlete& stored) {
  for (const std::string_view name : {"Entry", "RelayNames", "Entrymulti"}) {
    const Expected<bool> used = HasRows(meet, name, "Ath_no", stored.row.ath_no);
    if (!used.ok()) return used.status();
    if (*used) return Refusal{AthleteHasEntries()};
  }
  const auto table = Athletes(meet);
  if (!table.ok()) return table.status();
  return InOneTransaction(meet, "athlete",
                          [&](jet::Transaction& write) { return write.Delete(*table->table, stored.id); });
}

}  // namespace

Outcome EditAthlete(Meet& meet, Edit edit, std::string_view key, std::span<const FieldText> fields) {
  const auto around = LoadSurroundings(meet);
  if (!around.ok()) return around.status();
  if (edit == Edit::Add) {
    const std::optional<AthleteKey> parsed = ParseAthleteKey(key);
    const bool no_number = Trim(key) == "0";
    if (!no_number && (!parsed || parsed->comp_no == 0)) return Refusal{UnreadableKey(key)};
    std::vector<FieldText> all(fields.begin(), fields.end());
    if (!no_number) all.push_back({"Comp_no", std::to_string(parsed->comp_no)});
    return Store(meet, *around, nullptr, std::move(all));
  }
  const auto found = LookUpAthlete(meet, key, 'X');
  if (!found.ok()) return found.status();
  if (const Notice* wrong = std::get_if<Notice>(&*found)) return Refusal{*wrong};
  const StoredAthlete& stored = std::get<StoredAthlete>(*found);
  if (edit == Edit::Delete) return Delete(meet, stored);
  return Store(meet, *around, &stored, {fields.begin(), fields.end()});
}

}  // namespace tarvex::setup
