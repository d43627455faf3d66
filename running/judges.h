#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <variant>

#include "base/message.h"
#include "running/result.h"

namespace tarvex::running {

// The cells of the judges' grid as typed, with "." as decimal separator; the notice says why a cell is
// refused. An empty cell is 0, which means no decision.

// A whole number from 0 to `results`, the number of results that can hold a place.
std::variant<int, Notice> ReadJdPlace(std::string_view typed, int results);
// A whole number from 0 to the number of entries in the heat or flight.
std::variant<int, Notice> ReadJdHeatPlace(std::string_view typed, int in_heat);
// 0 to 999 with at most two decimals, or -1 for no points.
std::variant<float, Notice> ReadJdPoints(std::string_view typed);

// How many results of the round can hold a judges' place, and how many entries are in a heat.
int CountPlaceable(std::span<const Result> results);
int CountInHeat(std::span<const Result> results, int heat);

// Why the grid cannot be opened: no entries, a round that is not complete, no result with a valid mark.
std::optional<Notice> CheckJudgesGrid(std::span<const Result> results);

// Takes back all judges' decisions of the round; the points of the results stay until they are scored again.
void ResetDecisions(std::span<Result> results);

}  // namespace tarvex::running
