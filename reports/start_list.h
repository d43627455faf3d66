#pragma once

#include "database/meet.h"
#include "reports/event_choice.h"
#include "reports/report.h"
#include "running/round_sheet.h"

namespace tarvex::reports {

// A seeded round: one part a heat or flight, lines by lane. A round without heats says that it is not seeded.
Section StartListSection(const running::RoundSheet& sheet, bool suppress_age);

// Data files have event_no, event_ltr, event_name, round, heat, lane, comp_no, name, schl_yr, age, team_abbr,
// team_name, seed_mark, runners.
Expected<Report> BuildStartLists(const database::Meet& meet, const EventChoice& choice);

// The start lists of the events under the title of a programme.
Expected<Report> BuildMeetProgram(const database::Meet& meet, const EventChoice& choice);

}  // namespace tarvex::reports
