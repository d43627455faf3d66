#include "seeding/lane_table.h"

#include <algorithm>
#include <numeric>

#include "database/lane_order.h"
#include "seeding/messages.h"

namespace tarvex::seeding {
namespace {

bool Contains(const std::vector<int>& lanes, int lane) {
  return std::find(lanes.begin(), lanes.end(), lane) != lanes.end();
}

}  // namespace

LaneRow DefaultLaneRow(int lanes) {
  return database::DefaultLaneOrder(lanes);
}

LaneTable LaneTable::Default() {
  LaneTable table;
  for (int lanes = 1; lanes <= kMostLanes; ++lanes) {
    table.rows[static_cast<size_t>(lanes)] = DefaultLaneRow(lanes);
  }
  return table;
}

std::vector<int> LaneOrder(const LaneTable& table, int lanes) {
  std::vector<int> order;
  if (lanes >= 1 && lanes <= kMostLanes && table.rows[static_cast<size_t>(lanes)]) {
    const LaneRow& row = *table.rows[static_cast<size_t>(lanes)];
    for (int k = 0; k < lanes; ++k) {
      const int lane = row[static_cast<size_t>(k)];
      if (lane > 0 && !Contains(order, lane)) order.push_back(lane);
    }
  }
  for (int lane = 1; static_cast<int>(order.size()) < lanes; ++lane) {
    if (!Contains(order, lane)) order.push_back(lane);
  }
  return order;
}

WaterfallTable WaterfallTable::Default() {
  WaterfallTable table;
  std::iota(table.position.begin(), table.position.end(), 1);
  return table;
}

int WaterfallTable::PositionOf(int rank) const {
  if (rank < 1 || rank > kMostPositions) return rank;
  const int typed = position[static_cast<size_t>(rank - 1)];
  return typed > 0 ? typed : rank;
}

std::optional<Notice> CheckLaneRow(int row, const LaneRow& order) {
  const int cells = std::min(row, kMostLanes);
  for (int k = 0; k < cells; ++k) {
    const int lane = order[static_cast<size_t>(k)];
    if (lane < 0 || lane > kMostLanes) return LaneOutOfRange(row, k + 1);
  }
  for (int k = 1; k < cells; ++k) {
    const auto end = order.begin() + k;
    if (std::find(order.begin(), end, *end) != end) return DuplicateInRow(row);
  }
  return std::nullopt;
}

std::optional<Notice> CheckWaterfall(const WaterfallTable& table) {
  for (int i = 0; i < kMostPositions; ++i) {
    const int typed = table.position[static_cast<size_t>(i)];
    if (typed < 1 || typed > kMostPositions) return PositionOutOfRange(i + 1);
  }
  for (int i = 0; i < kMostPositions; ++i) {
    for (int j = i + 1; j < kMostPositions; ++j) {
      if (table.position[static_cast<size_t>(i)] == table.position[static_cast<size_t>(j)]) {
        return DuplicateRows(i + 1, j + 1);
      }
    }
  }
  return std::nullopt;
}

std::optional<Notice> CheckRandomizationRule(std::string_view letter) {
  if (letter.size() == 1 && letter[0] >= 'A' && letter[0] <= 'E') return std::nullopt;
  return RandomizationRuleLetter();
}

}  // namespace tarvex::seeding
