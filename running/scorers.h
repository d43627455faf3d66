#pragma once

#include <span>
#include <variant>

#include "base/message.h"
#include "running/result.h"

namespace tarvex::running {

// Which placed results score. The points of the others pass on to the next.
struct ScorerRules {
  bool relay = false;
  bool foreign_score = true;       // foreign_getteampoints
  bool only_a_relays = false;      // score_Arelayonly: B and later relays do not
  int most_per_team = 0;           // indmaxscorers_perteam or relmaxscorers_perteam; 0: no limit
  bool fastest_heat_only = false;  // score_fastestheatonly
  int fastest_heat = 0;            // needed for it
};

// Writes ptsplace of every result: its effective place less the placed results of its group that stand before
// it and do not score; 0 for those that do not score or have no place.
void AssignPointsPlaces(std::span<Result> results, const ScorerRules& rules);

// What scoring by the fastest heat only needs to know.
struct FastestHeatFacts {
  char heat_order = '1';   // the round's order code
  bool multi_age = false;  // the event has several age groups
  bool divisions = false;  // the meet has divisions
};

// The number of the fastest heat among the heats of the results, or why it cannot be told.
std::variant<int, Notice> FastestHeat(std::span<const Result> results, const FastestHeatFacts& facts);

}  // namespace tarvex::running
