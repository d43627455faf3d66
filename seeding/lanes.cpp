#include "seeding/lanes.h"

#include <algorithm>

#include "seeding/shuffle.h"
#include "setup/lane_text.h"

namespace tarvex::seeding {
namespace {

// Which rank of the heat stands at each position after the randomization rule; ranks count from 0.
std::vector<int> RanksAfterDraw(int entries, char rule, RandomDraw& draw) {
  if (rule == 'B') return DrawOrder(entries, draw);
  std::vector<int> ranks;
  for (const int size : ShuffleGroups(rule, entries)) {
    const int start = static_cast<int>(ranks.size());
    for (const int index : DrawOrder(size, draw)) ranks.push_back(start + index);
  }
  while (static_cast<int>(ranks.size()) < entries) ranks.push_back(static_cast<int>(ranks.size()));
  return ranks;
}

// Any `entries` of the lanes.
std::vector<int> DrawLanes(const std::vector<int>& lanes, int entries, RandomDraw& draw) {
  std::vector<int> drawn;
  for (const int index : DrawOrder(static_cast<int>(lanes.size()), draw)) {
    drawn.push_back(lanes[static_cast<size_t>(index)]);
  }
  drawn.resize(static_cast<size_t>(entries));
  return drawn;
}

std::vector<int> LanesOfRow(const LaneRules& rules, const LaneTables& tables, int entries) {
  const LaneTable& table = rules.std_lanes == kCustomLanes ? tables.custom_lanes : tables.std_lanes;
  return LaneOrder(table, std::max(rules.lanes, entries));
}

// The places of the heat from the best to the worst, before anybody is put into them.
std::vector<int> PlacesInOrder(const LaneRules& rules, const LaneTables& tables, int entries) {
  if (IsInLanes(rules.std_lanes)) return LanesOfRow(rules, tables, entries);
  std::vector<int> places;
  const std::vector<int> alleys = LaneOrder(tables.std_alleys, std::max(rules.alleys, 1));
  const int count = static_cast<int>(alleys.size());
  for (int k = 0; k < entries; ++k) {
    switch (rules.std_lanes) {
      case kStandardAlleys:
        places.push_back(setup::AlleyLane(alleys[static_cast<size_t>(k % count)], 1 + k / count));
        break;
      case kWaterfallStart:
        places.push_back(tables.waterfall.PositionOf(k + 1));
        break;
      default:
        places.push_back(k + 1);  // custom alleys are named by rank
    }
  }
  return places;
}

}  // namespace

std::vector<int> AssignLanes(const Heat& heat, const LaneRules& rules, const LaneTables& tables,
                             RandomDraw& draw) {
  const int entries = static_cast<int>(heat.size());
  std::vector<int> places = PlacesInOrder(rules, tables, entries);
  const bool all_random = rules.std_lanes == kAllRandom;
  if (all_random || (rules.randomization == 'B' && IsInLanes(rules.std_lanes))) {
    if (rules.close_gaps && !all_random) places.resize(heat.size());
    return DrawLanes(places, entries, draw);
  }
  std::vector<int> lanes(heat.size());
  const std::vector<int> ranks = RanksAfterDraw(entries, rules.randomization, draw);
  for (size_t k = 0; k < ranks.size(); ++k) lanes[static_cast<size_t>(ranks[k])] = places[k];
  return lanes;
}

}  // namespace tarvex::seeding
