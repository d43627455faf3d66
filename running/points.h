#pragma once

#include <functional>
#include <span>

#include "running/result.h"

namespace tarvex::running {

// The points of a place (1 to 100) for a result: read from the points table by its kind, sex and division.
using PointsForPlace = std::function<float(const Result& result, int place)>;

struct Scored {
  bool tie = false;  // some points were shared
};

// Writes ev_score of every result by its ptsplace. Those of one group with equal ptsplace share the points of
// as many places as they are, places beyond 100 adding nothing. The judges' points replace the share of their
// own result only, and a result short of the standard gets none.
Scored ScoreResults(std::span<Result> results, const PointsForPlace& points);

}  // namespace tarvex::running
