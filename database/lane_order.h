#pragma once

#include <array>

namespace tarvex::database {

inline constexpr int kMostLanes = 12;

// The lanes (or alleys) of the best entry, the second best, ... on a track of `lanes` lanes, 1 to 12, from
// the centre outwards: 4, 5, 3, 6, 2, 7, 1, 8 for 8. Zeros follow the last one.
constexpr std::array<int, kMostLanes> DefaultLaneOrder(int lanes) {
  std::array<int, kMostLanes> order = {};
  const int centre = (lanes + 1) / 2;
  for (int k = 0; k < lanes && k < kMostLanes; ++k) {
    const int step = (k + 1) / 2;
    order[static_cast<size_t>(k)] = k % 2 == 1 ? centre + step : centre - step;
  }
  return order;
}

}  // namespace tarvex::database
