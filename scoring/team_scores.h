#pragma once

#include <map>
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
  std::optional<int> division;  // results of this division only; 0: those of none
};

// One line with what lists show of the team.
struct TeamScoreLine {
  TeamTotal total;
  std::string team_abbr;
};

// The points of the whole meet, read once: several standings can be made of them.
class MeetPoints {
 public:
  static Expected<MeetPoints> Load(const database::Meet& meet);

  // Male, Female and Combined in this order. Empty: no scores.
  std::vector<TeamScoreLine> Standings(const TeamScoresRequest& request) const;

  // The divisions that results belong to, by number: an event's, its team's or its own, as the meet is
  // divided. Empty in a meet without divisions.
  std::vector<int> Divisions() const;

 private:
  std::vector<TeamResult> results_;
  std::vector<ScoringTeam> teams_;
  std::map<int, std::string> abbreviations_;  // by team_no
  bool by_event_gender_ = false;
};

// The standings from the points that the results have now.
Expected<std::vector<TeamScoreLine>> LoadTeamScores(const database::Meet& meet,
                                                    const TeamScoresRequest& request);

}  // namespace tarvex::scoring
