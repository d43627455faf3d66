#pragma once

#include <string>

#include "base/decimal.h"

namespace tarvex::scoring {

// Points as shown: at most two decimals, superfluous zeros dropped ("5.5", "3.33", "10").
inline std::string PointsText(const Decimal& points) {
  return points.RoundedTo(2).ToText();
}
inline std::string PointsText(float points) {
  return PointsText(Decimal::FromSingle(points));
}

}  // namespace tarvex::scoring
