#include "seeding/heat_order.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

#include "base/text.h"

namespace tarvex::seeding {
namespace {

bool IsBefore(const Seed& a, const Seed& b) {
  if (const int name = CompareText(a.name, b.name)) return name < 0;
  if (const int second = CompareText(a.second_name, b.second_name)) return second < 0;
  return a.id < b.id;
}

auto NumberKey(const Seed& seed) {
  return std::make_pair(seed.comp_no > 0 ? seed.comp_no : std::numeric_limits<int>::max(), seed.id);
}

Heat Drawn(const Heat& flight, RandomDraw& draw) {
  Heat drawn;
  for (const int index : DrawOrder(static_cast<int>(flight.size()), draw)) {
    drawn.push_back(flight[static_cast<size_t>(index)]);
  }
  return drawn;
}

}  // namespace

std::vector<int> HeatNumbers(int heats, char order, bool field, RandomDraw& draw) {
  std::vector<int> numbers(static_cast<size_t>(heats));
  std::iota(numbers.begin(), numbers.end(), 1);
  if (order == kRandomOrder && !field) {
    const std::vector<int> drawn = DrawOrder(heats, draw);
    for (size_t h = 0; h < numbers.size(); ++h) numbers[h] = drawn[h] + 1;
    return numbers;
  }
  const bool best_last = order == kWorstToBest || (field && order != kBestToWorst);
  if (best_last) std::reverse(numbers.begin(), numbers.end());
  return numbers;
}

Heat FlightOrder(Heat flight, char order, RandomDraw& draw) {
  switch (order) {
    case kWorstToBest:
      std::reverse(flight.begin(), flight.end());
      break;
    case kRandomOrder:
      return Drawn(flight, draw);
    case kAlphabetical:
      std::sort(flight.begin(), flight.end(), IsBefore);
      break;
    case kByCompetitorNumber:
      std::sort(flight.begin(), flight.end(),
                [](const Seed& a, const Seed& b) { return NumberKey(a) < NumberKey(b); });
      break;
    default:
      break;
  }
  return flight;
}

}  // namespace tarvex::seeding
