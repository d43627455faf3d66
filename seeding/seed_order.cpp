#include "seeding/seed_order.h"

#include <algorithm>
#include <limits>
#include <tuple>

namespace tarvex::seeding {
namespace {

int ZeroLast(int number) {
  return number > 0 ? number : std::numeric_limits<int>::max();
}

// Smaller is better.
auto Key(const Seed& seed, const OrderRules& rules) {
  const bool last = rules.exhibition_last && seed.exhibition;
  const int first_place = rules.by_seed_place ? ZeroLast(seed.seed_place) : 0;
  const bool no_mark = !(seed.mark > 0);
  const float mark = no_mark ? 0.0F : (rules.field ? -seed.mark : seed.mark);
  return std::make_tuple(last, first_place, no_mark, mark, ZeroLast(seed.seed_place), seed.id);
}

}  // namespace

std::vector<Seed> BestFirst(std::vector<Seed> seeds, const OrderRules& rules) {
  std::sort(seeds.begin(), seeds.end(),
            [&](const Seed& a, const Seed& b) { return Key(a, rules) < Key(b, rules); });
  return seeds;
}

std::vector<Seed> DrawnOrder(std::vector<Seed> seeds, bool exhibition_last, RandomDraw& draw) {
  // The rows of a table come in no promised order; a repeatable draw must start from the same one.
  std::sort(seeds.begin(), seeds.end(), [](const Seed& a, const Seed& b) { return a.id < b.id; });
  std::vector<Seed> drawn;
  for (const int index : DrawOrder(static_cast<int>(seeds.size()), draw)) {
    drawn.push_back(std::move(seeds[static_cast<size_t>(index)]));
  }
  if (exhibition_last) {
    std::stable_partition(drawn.begin(), drawn.end(), [](const Seed& seed) { return !seed.exhibition; });
  }
  return drawn;
}

}  // namespace tarvex::seeding
