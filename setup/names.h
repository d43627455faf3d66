#pragma once

#include <string>
#include <string_view>

#include "database/meet.h"
#include "setup/roster.h"

// Names as lists and reports print them. Stored names are never changed by these settings.
namespace tarvex::setup {

struct NameStyle {
  bool last_name_first = false;        // "Blake, Jerome" instead of "Jerome Blake"
  bool first_name_as_initial = false;  // "Blake, J"
  bool show_initial = false;           // the middle initial behind the first name
  bool upper_case_names = false;
  bool upper_case_teams = false;
  bool alternate_abbr = false;  // teams go by their alternate abbreviation
  bool suppress_unattached = false;
};

// The style that the meet's settings ask for.
Expected<NameStyle> LoadNameStyle(const database::Meet& meet);

std::string AthleteName(const Athlete& athlete, const NameStyle& style);

// "Canada"; nothing for the team of the unattached when its name is suppressed.
std::string TeamName(const Team& team, const NameStyle& style);
// "CAN"; the other abbreviation where the chosen one is blank.
std::string TeamAbbr(const Team& team, const NameStyle& style);

// The team's name and the relay's letter: "Canada A".
std::string NameOfRelay(const Team& team, std::string_view team_ltr, const NameStyle& style);

// "Blake, Jerome": how messages name an athlete, whatever the style.
std::string PlainName(const Athlete& athlete);

}  // namespace tarvex::setup
