#pragma once

#include <span>
#include <string>
#include <vector>

#include "database/meet.h"
#include "reports/report.h"
#include "scoring/team_scores.h"

namespace tarvex::reports {

// "Team Scores thru Event 12", or "Team Scores for All Completed Events".
std::string TeamScoresTitle(const scoring::TeamScoresRequest& request);

// The group in whose standing an event of this gender ('M', 'F', 'X') counts.
scoring::Group GroupOfGender(char event_gender);

// One part for each group that has teams, in the order Male, Female, Combined.
std::vector<Part> TeamScoreParts(std::span<const scoring::TeamScoreLine> lines);

// The standings, one set for each division in meets that have them; "No scores found" when there are none.
// Data files have, after the division, gender (M, F, C), place, team_abbr, team_name, points.
Expected<Report> BuildTeamScores(const database::Meet& meet, const scoring::TeamScoresRequest& request);

}  // namespace tarvex::reports
