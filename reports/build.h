#pragma once

#include <optional>
#include <string_view>

#include "database/meet.h"
#include "reports/event_choice.h"
#include "reports/report.h"

namespace tarvex::reports {

enum class Kind { StartList, Results, TeamScores, Entries, MeetProgram };

// "start-list", "results", "team-scores", "entries", "meet-program"; empty for any other word.
std::optional<Kind> KindFromName(std::string_view name);

// The report of a kind. Team scores go up to the last of the events that are named.
Expected<Report> BuildReport(const database::Meet& meet, Kind kind, const EventChoice& choice);

}  // namespace tarvex::reports
