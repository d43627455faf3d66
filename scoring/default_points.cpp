#include "scoring/default_points.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"
#include "scoring/messages.h"

namespace tarvex::scoring {
namespace {

constexpr int kFewestPlaces = 3;

// Two points between first and second and second and third, one point from there on.
std::vector<int> SteppedPoints(int places) {
  std::vector<int> points = {places + 2, places, places - 2};
  while (static_cast<int>(points.size()) < places) points.push_back(points.back() - 1);
  return points;
}

float At(const std::vector<int>& points, int place) {
  const size_t index = static_cast<size_t>(place - 1);
  return index < points.size() ? static_cast<float>(points[index]) : 0.0F;
}

std::vector<ScoringRow> Rows(int division, const std::vector<int>& individual,
                             const std::vector<int>& relay) {
  const int places = std::max(kUsualPlaces, static_cast<int>(individual.size()));
  std::vector<ScoringRow> rows;
  for (int place = 1; place <= places; ++place) {
    for (const char sex : {'F', 'M'}) {
      rows.push_back({division, sex, place, At(individual, place), At(relay, place), At(individual, place)});
    }
  }
  return rows;
}

}  // namespace

std::vector<int> DefaultPoints(int places) {
  switch (places) {
    case 20:
      return {24, 21, 20, 19, 18, 17, 16, 15, 14, 13, 11, 9, 8, 7, 6, 5, 4, 3, 2, 1};
    case 18:
      return {22, 19, 18, 17, 16, 15, 14, 13, 12, 10, 8, 7, 6, 5, 4, 3, 2, 1};
    case 16:
      return {20, 18, 16, 15, 14, 13, 12, 11, 10, 8, 6, 5, 4, 3, 2, 1};
    case 14:
      return {18, 15, 14, 13, 12, 11, 10, 8, 6, 5, 4, 3, 2, 1};
    case 12:
      return {16, 13, 12, 11, 10, 9, 7, 5, 4, 3, 2, 1};
    default:
      break;
  }
  if (places < kFewestPlaces) return {};
  return SteppedPoints(std::min(places, kMostPlaces));
}

std::variant<int, Notice> ReadPlaces(std::string_view typed) {
  typed = Trim(typed);
  int places = 0;
  const char* end = typed.data() + typed.size();
  const auto [stop, error] = std::from_chars(typed.data(), end, places);
  if (stop != end || typed.empty()) return AtLeastThreePlaces();
  if (error == std::errc::result_out_of_range && typed.front() != '-') return kMostPlaces;
  if (error != std::errc() || places < kFewestPlaces) return AtLeastThreePlaces();
  return std::min(places, kMostPlaces);
}

std::vector<ScoringRow> DefaultRows(int division, int places) {
  const std::vector<int> points = DefaultPoints(places);
  return Rows(division, points, points);
}

std::vector<ScoringRow> DualDefaultRows(int division) {
  return Rows(division, {5, 3, 1}, {5});
}

}  // namespace tarvex::scoring
