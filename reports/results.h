#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "database/meet.h"
#include "reports/event_choice.h"
#include "reports/report.h"
#include "running/round_sheet.h"

namespace tarvex::reports {

// The age groups or divisions that are placed apart, in the order of the list. Without any the event is one
// list.
struct ResultGroups {
  std::vector<std::string> names;
  std::unordered_map<int, size_t> of_id;  // by ath_no, or relay_no of a relay: position in `names`
};

// A round by place over all its heats: those placed, then marks without a place (exhibition), then those
// without a valid mark, the scratched last. Entries that have no result yet are counted in a note, not
// listed.
Section ResultsSection(const running::RoundSheet& sheet, const ResultGroups& groups, bool suppress_age);

// Whether anybody has a mark or a status.
bool HasResults(const running::RoundSheet& sheet);

// Marked "w": with this much wind a mark counts for places but not for records. `wind` is a reading in m/s as
// it was typed; "NWI" and the like are none.
bool IsWindAssisted(std::string_view wind);

// Where the meet's settings ask for it, a scored event is followed by the standing of its gender.
// Data files have event_no, event_ltr, event_name, round, group, place, heat, lane, heatplace, comp_no, name,
// schl_yr, age, team_abbr, team_name, seed_mark, mark, mark_value, mark_unit, stat, wind, points, runners,
// note. `mark` is what lists show; `mark_value` the plain number in `mark_unit`: s, m, in or points.
Expected<Report> BuildResults(const database::Meet& meet, const EventChoice& choice);

}  // namespace tarvex::reports
