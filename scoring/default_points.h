#pragma once

#include <string_view>
#include <variant>
#include <vector>

#include "base/message.h"
#include "scoring/points_table.h"

namespace tarvex::scoring {

// The points of places 1 to N when N places score: 10, 8, 6, 5, 4, 3, 2, 1 for 8. N above 100 counts as 100.
// Empty for N below 3.
std::vector<int> DefaultPoints(int places);

// Reads the number of places as typed; the notice asks for at least 3, also for what is no whole number.
std::variant<int, Notice> ReadPlaces(std::string_view typed);

// The rows of one division for both sexes, all three columns alike, up to place 30 or the last one that
// scores: place 1 "F", 1 "M", 2 "F" ... as a new table has them.
std::vector<ScoringRow> DefaultRows(int division, int places);

// The same for dual meets, where three places score in individual events and one in relays (NFHS).
std::vector<ScoringRow> DualDefaultRows(int division);

}  // namespace tarvex::scoring
