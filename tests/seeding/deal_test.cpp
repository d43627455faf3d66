#include "seeding/deal.h"

#include <gtest/gtest.h>

#include <string>

#include "seeding/heat_order.h"

namespace tarvex::seeding {
namespace {

// Seeds with the ids 1 to n, best first.
std::vector<Seed> Ranked(int entries) {
  std::vector<Seed> seeds(static_cast<size_t>(entries));
  for (int i = 0; i < entries; ++i) seeds[static_cast<size_t>(i)].id = i + 1;
  return seeds;
}

// "1 2 3 / 4 5 6"
std::string Shown(const std::vector<Heat>& heats) {
  std::string text;
  for (size_t h = 0; h < heats.size(); ++h) {
    if (h > 0) text += " /";
    for (const Seed& seed : heats[h]) text += (text.empty() ? "" : " ") + std::to_string(seed.id);
  }
  return text;
}

std::string Sizes(const std::vector<Heat>& heats) {
  std::string text;
  for (const Heat& heat : heats) text += (text.empty() ? "" : " ") + std::to_string(heat.size());
  return text;
}

TEST(Deal, PutsTheBestTogetherInBlocks) {
  EXPECT_EQ(Shown(Deal(Ranked(19), 3, Dealing::Blocks)),
            "1 2 3 4 5 6 7 / 8 9 10 11 12 13 / 14 15 16 17 18 19");
}

TEST(Deal, GoesToAndFroInSerpentine) {
  EXPECT_EQ(Shown(Deal(Ranked(19), 3, Dealing::Serpentine)),
            "1 6 7 12 13 18 19 / 2 5 8 11 14 17 / 3 4 9 10 15 16");
  EXPECT_EQ(Shown(Deal(Ranked(8), 2, Dealing::Serpentine)), "1 4 5 8 / 2 3 6 7");
}

TEST(Deal, FillsHeatsAsEvenlyAsPossible) {
  EXPECT_EQ(Sizes(Deal(Ranked(9), 2, Dealing::Blocks)), "5 4");
  EXPECT_EQ(Sizes(Deal(Ranked(16), 2, Dealing::Blocks)), "8 8");
  EXPECT_EQ(Sizes(Deal(Ranked(13), 2, Dealing::Blocks)), "7 6");
  EXPECT_EQ(Sizes(Deal(Ranked(22), 3, Dealing::Serpentine)), "7 7 8");
}

// The two strongest of three heats share the 7 + 6 best.
TEST(Deal, LimitsTheSerpentineToTheStrongestHeats) {
  EXPECT_EQ(Shown(Deal(Ranked(19), 3, Dealing::Serpentine, 2)),
            "1 4 5 8 9 12 13 / 2 3 6 7 10 11 / 14 15 16 17 18 19");
  EXPECT_EQ(Shown(Deal(Ranked(8), 2, Dealing::Serpentine, 2)), "1 4 5 8 / 2 3 6 7");
  EXPECT_EQ(Shown(Deal(Ranked(8), 2, Dealing::Serpentine, 1)), "1 2 3 4 / 5 6 7 8");
}

TEST(HeatCount, NeedsRoomForEverybody) {
  EXPECT_EQ(HeatCount(19, 8), 3);
  EXPECT_EQ(HeatCount(16, 8), 2);
  EXPECT_EQ(HeatCount(19, 0), 1);
  EXPECT_EQ(HeatCount(0, 8), 0);
}

TEST(ChooseDealing, BalancesEarlyRoundsOnly) {
  EXPECT_EQ(ChooseDealing({'1', 1, 1, false}), Dealing::Blocks);
  EXPECT_EQ(ChooseDealing({'4', 1, 1, false}), Dealing::Serpentine);
  EXPECT_EQ(ChooseDealing({'1', 1, 1, true}), Dealing::Serpentine);
  EXPECT_EQ(ChooseDealing({'1', 1, 3, true}), Dealing::Serpentine);
  EXPECT_EQ(ChooseDealing({'3', 1, 3, false}), Dealing::Blocks);
  EXPECT_EQ(ChooseDealing({'3', 2, 3, false}), Dealing::Serpentine);
  EXPECT_EQ(ChooseDealing({'1', 3, 3, true}), Dealing::Blocks);
}

TEST(HeatNumbers, SayWhereTheStrongestHeatRuns) {
  SeededDraw draw(3);
  using Numbers = std::vector<int>;
  EXPECT_EQ(HeatNumbers(3, '1', false, draw), (Numbers{1, 2, 3}));
  EXPECT_EQ(HeatNumbers(3, '2', false, draw), (Numbers{3, 2, 1}));
  EXPECT_EQ(HeatNumbers(3, '4', false, draw), (Numbers{1, 2, 3}));
  EXPECT_EQ(HeatNumbers(3, '1', true, draw), (Numbers{1, 2, 3}));
  for (const char order : {'2', '3', '4', '5'}) {
    EXPECT_EQ(HeatNumbers(3, order, true, draw), (Numbers{3, 2, 1})) << order;
  }
}

TEST(FlightOrder, FollowsTheOrderCode) {
  const Heat flight = {{7, 20, 0, false, 30, "Öst", "Ann"},
                       {3, 19, 0, false, 0, "young", "Zoe"},
                       {5, 18, 0, false, 12, "Young", "Amy"},
                       {2, 17, 0, false, 12, "Abel", "Tom"}};
  SeededDraw draw(5);
  EXPECT_EQ(Shown({FlightOrder(flight, '1', draw)}), "7 3 5 2");
  EXPECT_EQ(Shown({FlightOrder(flight, '2', draw)}), "2 5 3 7");
  EXPECT_EQ(Shown({FlightOrder(flight, '4', draw)}), "2 5 3 7");
  EXPECT_EQ(Shown({FlightOrder(flight, '5', draw)}), "2 5 7 3");
}

}  // namespace
}  // namespace tarvex::seeding
