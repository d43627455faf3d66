#include "setup/names.h"

#include "base/text.h"

namespace tarvex::setup {
namespace {

constexpr std::string_view kUnattached = "UNA";

std::string FirstLetter(std::string_view text) {
  if (text.empty()) return "";
  const std::optional<Character> first = FirstCharacter(text);
  return std::string(text.substr(0, first ? first->bytes : 1));
}

std::string InCase(std::string text, bool upper) {
  return upper ? Upper(text) : text;
}

std::string WithBlank(std::string_view a, std::string_view b) {
  return std::string(a) + (a.empty() || b.empty() ? "" : " ") + std::string(b);
}

bool IsUnattached(const Team& team) {
  return SameText(team.alt_abbr, kUnattached) || SameText(team.abbr, kUnattached);
}

}  // namespace

Expected<NameStyle> LoadNameStyle(const database::Meet& meet) {
  TRY_ASSIGN(const jet::Table* table, meet.Table("Meet"));
  jet::TableScan rows = table->Scan();
  TRY_ASSIGN(const bool has_row, rows.Next());
  const auto is_on = [&](std::string_view field) {
    const int column = table->Column(field);
    return has_row && column >= 0 && rows.record().Boolean(column);
  };
  const database::MeetSettings& settings = meet.settings();
  return NameStyle{.last_name_first = settings.Lastname_first,
                   .first_name_as_initial = settings.firstname_asinitial,
                   .show_initial = settings.show_initial,
                   .upper_case_names = is_on("ucase_names"),
                   .upper_case_teams = is_on("ucase_teams"),
                   .alternate_abbr = settings.Use_AltTeamAbbr,
                   .suppress_unattached = settings.suppress_UNATeamName};
}

std::string AthleteName(const Athlete& athlete, const NameStyle& style) {
  const std::string first =
      style.first_name_as_initial ? FirstLetter(athlete.first_name) : athlete.first_name;
  const std::string given = style.show_initial ? WithBlank(first, athlete.initial) : first;
  const std::string comma = given.empty() ? "" : ", ";
  const std::string name =
      style.last_name_first ? athlete.last_name + comma + given : WithBlank(given, athlete.last_name);
  return InCase(name, style.upper_case_names);
}

std::string TeamName(const Team& team, const NameStyle& style) {
  if (style.suppress_unattached && IsUnattached(team)) return "";
  return InCase(team.name, style.upper_case_teams);
}

std::string TeamAbbr(const Team& team, const NameStyle& style) {
  const std::string& chosen = style.alternate_abbr ? team.alt_abbr : team.abbr;
  const std::string& other = style.alternate_abbr ? team.abbr : team.alt_abbr;
  return chosen.empty() ? other : chosen;
}

std::string NameOfRelay(const Team& team, std::string_view team_ltr, const NameStyle& style) {
  return WithBlank(TeamName(team, style), team_ltr);
}

std::string PlainName(const Athlete& athlete) {
  return AthleteName(athlete, NameStyle{.last_name_first = true});
}

}  // namespace tarvex::setup
