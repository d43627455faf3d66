#include "seeding/shuffle.h"

#include <algorithm>

namespace tarvex::seeding {
namespace {

// Below four entries pairs and quarters make no sense; above ten the slowest keep their order.
constexpr int kFewest = 4;
constexpr int kMost = 10;

std::vector<int> Halves(int entries) {
  return {entries / 2, entries - entries / 2};
}

std::vector<int> Pairs(int entries) {
  if (entries < kFewest) return {};
  if (entries > kMost) return {2, 2};
  std::vector<int> groups(static_cast<size_t>(entries / 2), 2);
  groups.back() += entries % 2;  // the odd one joins the slowest pair
  return groups;
}

// Six entries give 3, 1, 2: the single one in the middle keeps its place.
std::vector<int> HalfTwoAndRest(int entries) {
  if (entries < kFewest) return {};
  const int half = entries / 2;
  if (entries > kMost) return {half, 2};
  if (entries == 6) return {3, 1, 2};
  const int rest = entries - half - 2;
  return rest > 0 ? std::vector<int>{half, 2, rest} : std::vector<int>{half, 2};
}

}  // namespace

std::vector<int> ShuffleGroups(char rule, int entries) {
  switch (rule) {
    case 'C':
      return Halves(entries);
    case 'D':
      return Pairs(entries);
    case 'E':
      return HalfTwoAndRest(entries);
    default:
      return {};
  }
}

void Shuffle(std::span<Seed> seeds, std::span<const int> groups, RandomDraw& draw) {
  size_t start = 0;
  for (const int size : groups) {
    const size_t count = std::min(static_cast<size_t>(size), seeds.size() - start);
    const std::span<Seed> group = seeds.subspan(start, count);
    const std::vector<Seed> before(group.begin(), group.end());
    const std::vector<int> order = DrawOrder(static_cast<int>(count), draw);
    for (size_t i = 0; i < count; ++i) group[i] = before[static_cast<size_t>(order[i])];
    start += count;
  }
}

}  // namespace tarvex::seeding
