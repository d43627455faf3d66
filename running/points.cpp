#include "running/points.h"

#include <map>
#include <utility>
#include <vector>

#include "base/decimal.h"
#include "scoring/points_table.h"

namespace tarvex::running {
namespace {

// What each of `tied` results gets at `place`. The quotient has 28 digits before it is kept as a single.
float Share(const Result& first, int place, int tied, const PointsForPlace& points) {
  Decimal sum;
  for (int p = place; p < place + tied && p <= scoring::kMostPlaces; ++p) {
    sum = sum + Decimal::FromSingle(points(first, p));
  }
  return sum > Decimal() ? (sum / tied).ToSingle() : 0.0F;
}

float WithDecisions(const Result& result, float share) {
  if (result.jdev_score > 0) return result.jdev_score;
  if (result.jdev_score == -1) return 0;
  return result.short_of_standard ? 0 : share;
}

}  // namespace

Scored ScoreResults(std::span<Result> results, const PointsForPlace& points) {
  std::map<std::pair<Group, int>, std::vector<Result*>> ties;
  for (Result& result : results) {
    result.ev_score = WithDecisions(result, 0);
    if (result.ptsplace > 0) ties[{result.group, result.ptsplace}].push_back(&result);
  }
  Scored scored;
  for (const auto& [key, tied] : ties) {
    const int place = key.second;
    const int count = static_cast<int>(tied.size());
    if (count > 1 && place <= scoring::kMostPlaces) scored.tie = true;
    const float share = Share(*tied.front(), place, count, points);
    for (Result* result : tied) result->ev_score = WithDecisions(*result, share);
  }
  return scored;
}

}  // namespace tarvex::running
