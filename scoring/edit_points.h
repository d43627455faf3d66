#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/outcome.h"
#include "database/meet.h"
#include "scoring/points_table.h"

namespace tarvex::scoring {

// The points of one place as they are changed, in every event kind.
struct PlacePoints {
  int place = 0;  // 1 to 100
  float individual = 0, relay = 0, combined = 0;
};

// Reads "3=6,8,6": place, then individual, relay and combined points, none negative.
std::variant<PlacePoints, Notice> ReadPlacePoints(std::string_view typed);

struct PointsChange {
  int division = 0;
  std::optional<std::string> default_places;  // refill the table for so many places, as typed
  std::vector<PlacePoints> places;            // then these, for both sexes
};

// Changes the points table of one division, in one transaction. A division without rows starts with those of
// division 0. In dual meets the defaults are those of a dual meet, whatever the number of places.
Outcome ChangePoints(database::Meet& meet, const PointsChange& change);

}  // namespace tarvex::scoring
