#pragma once

#include <optional>
#include <string>
#include <vector>

#include "database/meet.h"
#include "scoring/team_totals.h"
#include "setup/event_checks.h"

namespace tarvex::scoring {

// What a standing of the teams is made of.
struct TeamScoresRequest {
  std::optional<setup::EventNumber> thru_event;  // events up to this one, inclusive
  std::optional<Group> group;
};

// One line with what lists show of the team.
struct TeamScoreLine {
  TeamTotal total;
  std::string team_abbr;
};

// The standings from the points that the results have now, Male, Female and Combined in this order. Empty: no
// scores.
Expected<std::vector<TeamScoreLine>> LoadTeamScores(const database::Meet& meet,
                                                    const TeamScoresRequest& request);

}  // namespace tarvex::scoring
