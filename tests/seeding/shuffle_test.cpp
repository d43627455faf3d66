#include "seeding/shuffle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace tarvex::seeding {
namespace {

std::string Joined(const std::vector<int>& numbers) {
  std::string text;
  for (const int number : numbers) text += (text.empty() ? "" : " ") + std::to_string(number);
  return text;
}

struct GroupCase {
  char rule;
  int entries;
  const char* groups;
};

constexpr GroupCase kGroupCases[] = {
    {'A', 8, ""},      {'B', 8, ""},      {'C', 7, "3 4"},   {'C', 8, "4 4"},     {'D', 3, ""},
    {'D', 4, "2 2"},   {'D', 5, "2 3"},   {'D', 7, "2 2 3"}, {'D', 9, "2 2 2 3"}, {'D', 10, "2 2 2 2 2"},
    {'D', 11, "2 2"},  {'E', 3, ""},      {'E', 4, "2 2"},   {'E', 5, "2 2 1"},   {'E', 6, "3 1 2"},
    {'E', 7, "3 2 2"}, {'E', 8, "4 2 2"}, {'E', 9, "4 2 3"}, {'E', 10, "5 2 3"},  {'E', 11, "5 2"},
    {'E', 12, "6 2"},
};

TEST(ShuffleGroups, CutsTheHeatAsTheRuleSays) {
  for (const GroupCase& c : kGroupCases) {
    EXPECT_EQ(Joined(ShuffleGroups(c.rule, c.entries)), c.groups) << c.rule << c.entries;
  }
}

TEST(Shuffle, KeepsEverybodyInTheGroupAndReachesEveryPlaceOfIt) {
  const std::vector<int> groups = {3, 4};
  std::vector<std::set<int>> seen(8);
  SeededDraw draw(1);
  for (int run = 0; run < 300; ++run) {
    std::vector<Seed> seeds(8);
    for (int i = 0; i < 8; ++i) seeds[static_cast<size_t>(i)].id = i;
    Shuffle(seeds, groups, draw);
    for (size_t i = 0; i < 8; ++i) seen[i].insert(seeds[i].id);
  }
  for (size_t i = 0; i < 3; ++i) EXPECT_EQ(seen[i], (std::set<int>{0, 1, 2}));
  for (size_t i = 3; i < 7; ++i) EXPECT_EQ(seen[i], (std::set<int>{3, 4, 5, 6}));
  EXPECT_EQ(seen[7], std::set<int>{7});
}

// The published generator: splitmix64 gives the state, xoshiro256** the numbers.
TEST(SeededDraw, GivesTheSameNumbersEverywhere) {
  SeededDraw draw(0);
  EXPECT_EQ(draw.Next(), 0x99ec5f36cb75f2b4U);
  SeededDraw one(7);
  SeededDraw same(7);
  EXPECT_EQ(DrawOrder(20, one), DrawOrder(20, same));
}

}  // namespace
}  // namespace tarvex::seeding
