#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <vector>

#include "base/message.h"
#include "database/lane_order.h"

namespace tarvex::seeding {

inline constexpr int kMostLanes = database::kMostLanes;
inline constexpr int kMostPositions = 160;

// The lane of the best entry, the second best, ... for one number of lanes; 0 beyond that number.
using LaneRow = std::array<int, kMostLanes>;

// The lanes of N entries from the centre outwards: 4, 5, 3, 6, 2, 7, 1, 8 for 8.
LaneRow DefaultLaneRow(int lanes);

// Standard lanes, standard alleys, or the custom lanes of one event. Row N is at index N; a row that the
// database does not have is empty.
struct LaneTable {
  std::array<std::optional<LaneRow>, kMostLanes + 1> rows;

  // Every row by the default rule.
  static LaneTable Default();
};

// The lanes for `lanes` lanes, from the best entry on; always `lanes` different numbers. Without a row, or
// above 12 lanes, position k gets lane k. Zeros and repeats in the row are passed over, and the lanes it
// leaves out follow in rising order.
std::vector<int> LaneOrder(const LaneTable& table, int lanes);

// Start positions by rank: index k-1 is the position of the k-th entry. Beyond the table position is rank.
struct WaterfallTable {
  std::array<int, kMostPositions> position = {};

  static WaterfallTable Default();
  int PositionOf(int rank) const;
};

// The checks of the lane editors. `row` is the number of lanes, whose first `row` cells count.
std::optional<Notice> CheckLaneRow(int row, const LaneRow& order);
std::optional<Notice> CheckWaterfall(const WaterfallTable& table);

// Refuses anything but one of the letters A to E.
std::optional<Notice> CheckRandomizationRule(std::string_view letter);

}  // namespace tarvex::seeding
