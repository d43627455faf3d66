#pragma once

#include <vector>

#include "seeding/lane_table.h"
#include "seeding/random_draw.h"
#include "seeding/seed.h"

namespace tarvex::seeding {

// The lane methods of an event.
inline constexpr char kStandardLanes = '1';
inline constexpr char kCustomLanes = '2';
inline constexpr char kAllRandom = '3';
inline constexpr char kStandardAlleys = '4';
inline constexpr char kCustomAlleys = '5';
inline constexpr char kWaterfallStart = '6';

// Races in which everybody keeps a lane of one's own.
constexpr bool IsInLanes(char std_lanes) {
  return std_lanes >= kStandardLanes && std_lanes <= kAllRandom;
}

struct LaneTables {
  LaneTable std_lanes;
  LaneTable std_alleys;
  LaneTable custom_lanes;  // of the event
  WaterfallTable waterfall;
};

struct LaneRules {
  char std_lanes = kStandardLanes;
  char randomization = 'A';  // 'A' to 'E'
  bool close_gaps = false;   // rule B draws from the preferred lanes only, so that none stays empty between
  int lanes = 0;             // of the round, not of the heat: a short heat keeps the preferred lanes
  int alleys = 0;
};

// The lane, alley position (alley x 100 + position), custom alley rank or start position of every entry of a
// running heat. `heat` is best first and has at most `rules.lanes` entries in races run in lanes. The answer
// stands in the order of `heat`.
std::vector<int> AssignLanes(const Heat& heat, const LaneRules& rules, const LaneTables& tables,
                             RandomDraw& draw);

}  // namespace tarvex::seeding
