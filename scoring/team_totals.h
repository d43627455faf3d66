#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/decimal.h"

namespace tarvex::scoring {

// A result of a team, as far as team totals go.
struct TeamResult {
  int team_no = 0;
  bool relay = false;
  char sex = 'M';           // of the athlete or relay: 'M', 'F', 'X'
  char event_gender = 'M';  // 'M', 'F', 'X'
  int event_no = 0;
  std::string event_ltr;
  char event_type = ' ';  // cross-country and road races keep a place in ev_score and are left out
  int division = 0;       // the division whose standing it belongs to; 0: none
  float ev_score = 0;
  float jdev_score = 0;
};

struct ScoringTeam {
  int team_no = 0;
  std::string name;
  bool no_points = false;  // Team_NoPoints
};

struct TotalRules {
  bool by_event_gender = false;  // the event decides between "Male" and "Female", not the athlete
  int thru_event_no = 0;         // 0: all events; else up to this one, inclusive
  std::string thru_event_ltr;
  std::optional<int> division;  // only results of this division
};

enum class Group { Male, Female, Combined };

// One line of a standing. Equal totals share the rank.
struct TeamTotal {
  Group group = Group::Male;
  int rank = 0;
  int team_no = 0;
  std::string name;
  Decimal points;  // to the hundredth
};

// Whether a result is read at all: an individual one with negative points is, a relay only with positive
// ones, and both when the judges decided on the points.
bool IsScored(const TeamResult& result);

// What it adds to its team: the judges' points when above 0, none when they are -1, else its own.
Decimal TeamPoints(const TeamResult& result);

// The standings of all three groups, Male, Female and Combined, each by rank and then team name. A result
// adds to the group of its sex, unless that is mixed, and always to Combined. Teams without any result read,
// those flagged as scoring no points, and results of unknown teams are left out. Empty: no scores.
std::vector<TeamTotal> TeamTotals(std::span<const TeamResult> results, std::span<const ScoringTeam> teams,
                                  const TotalRules& rules);

}  // namespace tarvex::scoring
