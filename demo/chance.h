#pragma once

#include <cstddef>
#include <cstdint>

#include "seeding/random_draw.h"

namespace tarvex::demo {

// Repeatable chance in whole numbers: the same seed gives the same sequence on every machine, which
// floating-point arithmetic would not promise.
class Chance {
 public:
  explicit Chance(uint64_t seed) : draw_(seed) {}

  uint64_t Bits() { return draw_.Next(); }
  seeding::RandomDraw& draw() { return draw_; }

  // 0 to count - 1; `count` is at least 1.
  int Below(int count) { return static_cast<int>(Bits() % static_cast<uint64_t>(count)); }
  // Both ends included.
  int Between(int low, int high) { return low + Below(high - low + 1); }
  // True `share` times in a thousand.
  bool PerMille(int share) { return Below(1000) < share; }
  // Normally distributed about 0, in thousandths of the standard deviation; never beyond 6000.
  int Normal();

  // A position in `weights`, each as often as its weight says. Their sum is above 0.
  template <class Weights>
  size_t Weighted(const Weights& weights) {
    int sum = 0;
    for (const int weight : weights) sum += weight;
    int drawn = Below(sum);
    size_t i = 0;
    while (drawn >= weights[i]) drawn -= weights[i++];
    return i;
  }
  template <class Items>
  const auto& Pick(const Items& items) {
    return items[static_cast<size_t>(Below(static_cast<int>(items.size())))];
  }

 private:
  seeding::SeededDraw draw_;
};

}  // namespace tarvex::demo
