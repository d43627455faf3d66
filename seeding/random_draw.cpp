#include "seeding/random_draw.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace tarvex::seeding {
namespace {

uint64_t SplitMix64(uint64_t& state) {
  state += 0x9e3779b97f4a7c15U;
  uint64_t mixed = state;
  mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9U;
  mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111ebU;
  return mixed ^ (mixed >> 31);
}

}  // namespace

SeededDraw::SeededDraw(uint64_t seed) {
  for (uint64_t& word : state_) word = SplitMix64(seed);
}

uint64_t SeededDraw::Next() {
  const uint64_t result = std::rotl(state_[1] * 5, 7) * 9;
  const uint64_t shifted = state_[1] << 17;
  state_[2] ^= state_[0];
  state_[3] ^= state_[1];
  state_[1] ^= state_[2];
  state_[0] ^= state_[3];
  state_[2] ^= shifted;
  state_[3] = std::rotl(state_[3], 45);
  return result;
}

std::vector<int> DrawOrder(int count, RandomDraw& draw) {
  std::vector<std::pair<uint64_t, int>> keyed;
  for (int i = 0; i < count; ++i) keyed.emplace_back(draw.Next(), i);
  std::sort(keyed.begin(), keyed.end());
  std::vector<int> order;
  for (const auto& [key, index] : keyed) order.push_back(index);
  return order;
}

}  // namespace tarvex::seeding
