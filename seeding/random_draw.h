#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace tarvex::seeding {

// Where the chance of a draw comes from. The program seeds it from the clock for every event; a number given
// by the user makes the draw repeatable.
class RandomDraw {
 public:
  virtual ~RandomDraw() = default;

  // 64 random bits.
  virtual uint64_t Next() = 0;
};

// xoshiro256**, seeded through splitmix64: the same number gives the same draw on every machine and with
// every compiler, which the generators of the standard library do not promise for their distributions.
class SeededDraw : public RandomDraw {
 public:
  explicit SeededDraw(uint64_t seed);
  uint64_t Next() override;

 private:
  std::array<uint64_t, 4> state_;
};

// The numbers 0 to count-1 in drawn order: every number takes a random key and the keys are sorted.
std::vector<int> DrawOrder(int count, RandomDraw& draw);

}  // namespace tarvex::seeding
