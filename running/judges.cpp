#include "running/judges.h"

#include <algorithm>
#include <charconv>

#include "base/decimal.h"
#include "base/text.h"
#include "running/messages.h"
#include "running/places.h"

namespace tarvex::running {
namespace {

constexpr int kMostPoints = 999;
constexpr int kPointsDecimals = 2;

// A whole number from 0 to `most`; anything else is -1.
int ReadPlace(std::string_view typed, int most) {
  typed = Trim(typed);
  if (typed.empty()) return 0;
  int place = 0;
  const char* end = typed.data() + typed.size();
  const auto [stop, error] = std::from_chars(typed.data(), end, place);
  return error == std::errc() && stop == end && place >= 0 && place <= most ? place : -1;
}

// More than one point, one at the end, or more than two digits behind it.
bool IsPointMisplaced(std::string_view typed) {
  const size_t point = typed.find('.');
  if (point == std::string_view::npos) return false;
  const size_t behind = typed.size() - point - 1;
  return typed.find('.', point + 1) != std::string_view::npos || behind == 0 || behind > kPointsDecimals;
}

}  // namespace

std::variant<int, Notice> ReadJdPlace(std::string_view typed, int results) {
  const int place = ReadPlace(typed, results);
  if (place < 0) return JdPlaceRange(results);
  return place;
}

std::variant<int, Notice> ReadJdHeatPlace(std::string_view typed, int in_heat) {
  const int place = ReadPlace(typed, in_heat);
  if (place < 0) return JdHeatPlaceRange();
  return place;
}

std::variant<float, Notice> ReadJdPoints(std::string_view typed) {
  typed = Trim(typed);
  if (typed.empty()) return 0.0F;
  if (typed.find_first_not_of("0123456789.-+") != std::string_view::npos) return JdPointsRange();
  if (IsPointMisplaced(typed)) return InvalidDecimalPlace();
  const std::optional<Decimal> points = Decimal::Parse(typed);
  if (!points) return JdPointsRange();
  const bool in_range = !points->IsNegative() && *points <= Decimal(kMostPoints);
  if (!in_range && *points != Decimal(-1)) return JdPointsRange();
  return points->ToSingle();
}

int CountPlaceable(std::span<const Result> results) {
  return static_cast<int>(std::count_if(results.begin(), results.end(), HasValidMark));
}

int CountInHeat(std::span<const Result> results, int heat) {
  return static_cast<int>(std::count_if(results.begin(), results.end(), [heat](const Result& result) {
    return result.heat == heat && !result.scratched;
  }));
}

std::optional<Notice> CheckJudgesGrid(std::span<const Result> results) {
  if (results.empty()) return NoEntriesFound();
  if (!IsRoundComplete(results)) return RoundNotComplete();
  if (CountPlaceable(results) == 0) return NothingCanHoldAJdPlace();
  return std::nullopt;
}

void ResetDecisions(std::span<Result> results) {
  for (Result& result : results) {
    result.jdplace = result.jdheatplace = 0;
    result.jdev_score = 0;
  }
}

}  // namespace tarvex::running
