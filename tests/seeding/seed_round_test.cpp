#include "seeding/seed_round.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "seeding/eligible.h"
#include "seeding/seed_order.h"

namespace tarvex::seeding {
namespace {

LaneTables DefaultTables() {
  return {LaneTable::Default(), LaneTable::Default(), LaneTable::Default(), WaterfallTable::Default()};
}

// Runners with the ids 1 to n, 1 being the fastest, in no order.
std::vector<Seed> Runners(int entries) {
  std::vector<Seed> seeds;
  for (int i = entries; i >= 1; --i) {
    Seed seed;
    seed.id = i;
    seed.mark = 10.0F + 0.1F * static_cast<float>(i);
    seeds.push_back(seed);
  }
  return seeds;
}

std::string Ids(const std::vector<Seed>& seeds) {
  std::string text;
  for (const Seed& seed : seeds) text += (text.empty() ? "" : " ") + std::to_string(seed.id);
  return text;
}

std::vector<Place> Seeded(std::vector<Seed> seeds, const RoundSetup& round, uint64_t number = 1,
                          const LaneTables& tables = DefaultTables()) {
  SeededDraw draw(number);
  return std::get<std::vector<Place>>(SeedFirstRound(std::move(seeds), round, {}, tables, false, draw));
}

// The lanes of one heat by id.
std::map<int, int> LanesOf(const std::vector<Place>& places, int heat) {
  std::map<int, int> lanes;
  for (const Place& place : places) {
    if (place.heat == heat) lanes[place.id] = place.lane;
  }
  return lanes;
}

using ById = std::map<int, int>;

TEST(IsEligible, LeavesOutScratchesAlternatesAndTheUndeclared) {
  EXPECT_TRUE(IsEligible({}, false));
  EXPECT_FALSE(IsEligible({}, true));
  EXPECT_TRUE(IsEligible({false, false, 'D'}, true));
  EXPECT_FALSE(IsEligible({true, false, 'D'}, true));
  EXPECT_FALSE(IsEligible({false, true}, false));
}

TEST(IsExhibition, ComesFromEntryAthleteTeamOrForeignRule) {
  EXPECT_TRUE(IsExhibition({false, false, ' ', 'X'}, false));
  EXPECT_TRUE(IsExhibition({false, false, ' ', ' ', 'X'}, false));
  EXPECT_TRUE(IsExhibition({false, false, ' ', ' ', ' ', 'X'}, false));
  EXPECT_FALSE(IsExhibition({false, false, ' ', ' ', '*'}, false));
  EXPECT_TRUE(IsExhibition({false, false, ' ', ' ', '*'}, true));
}

TEST(BestFirst, PutsNoMarksLastAndBreaksTiesBySeedPlaceThenId) {
  const std::vector<Seed> seeds = {{9, 0, 2},     {4, 11.2F}, {3, 11.2F},
                                   {5, 11.2F, 6}, {1, 0},     {2, 10.9F, 0, true}};
  EXPECT_EQ(Ids(BestFirst(seeds, {})), "2 5 3 4 9 1");
  EXPECT_EQ(Ids(BestFirst(seeds, {true, false, false})), "5 3 4 2 9 1");
  EXPECT_EQ(Ids(BestFirst(seeds, {false, true, false})), "5 3 4 9 1 2");
  EXPECT_EQ(Ids(BestFirst(seeds, {false, false, true})), "9 5 2 3 4 1");
}

TEST(SeedFirstRound, UsesThePreferredLanesOfTheRoundInAShortHeat) {
  RoundSetup round;
  round.per_heat = 8;
  const std::vector<Place> places = Seeded(Runners(9), round);
  EXPECT_EQ(LanesOf(places, 1), (ById{{1, 4}, {2, 5}, {3, 3}, {4, 6}, {5, 2}}));
  EXPECT_EQ(LanesOf(places, 2), (ById{{6, 4}, {7, 5}, {8, 3}, {9, 6}}));
}

TEST(SeedFirstRound, RunsTheStrongestHeatLastUnderWorstToBest) {
  RoundSetup round;
  round.per_heat = 4;
  round.heat_order = '2';
  const std::vector<Place> places = Seeded(Runners(8), round);
  EXPECT_EQ(LanesOf(places, 2), (ById{{1, 2}, {2, 3}, {3, 1}, {4, 4}}));
}

TEST(SeedFirstRound, ThrowsInReverseOrderInTheLastFlight) {
  RoundSetup round;
  round.field = true;
  round.per_heat = 4;
  round.heat_order = '2';
  // The greatest mark is the best: 6, 5, 4 are together, in the last flight, best last.
  const std::vector<Place> places = Seeded(Runners(6), round);
  EXPECT_EQ(LanesOf(places, 2), (ById{{4, 1}, {5, 2}, {6, 3}}));
  EXPECT_EQ(LanesOf(places, 1), (ById{{1, 1}, {2, 2}, {3, 3}}));
}

TEST(SeedFirstRound, FillsAlleysOneByOne) {
  RoundSetup round;
  round.std_lanes = kStandardAlleys;
  round.per_heat = 12;
  round.alleys = 4;
  EXPECT_EQ(LanesOf(Seeded(Runners(6), round), 1),
            (ById{{1, 201}, {2, 301}, {3, 101}, {4, 401}, {5, 202}, {6, 302}}));
}

TEST(SeedFirstRound, StartsArcRacesByTheWaterfallTable) {
  RoundSetup round;
  round.std_lanes = kWaterfallStart;
  LaneTables tables = DefaultTables();
  tables.waterfall.position[0] = 3;
  tables.waterfall.position[2] = 1;
  EXPECT_EQ(LanesOf(Seeded(Runners(3), round, 1, tables), 1), (ById{{1, 3}, {2, 2}, {3, 1}}));
  round.std_lanes = kCustomAlleys;
  EXPECT_EQ(LanesOf(Seeded(Runners(3), round, 1, tables), 1), (ById{{1, 1}, {2, 2}, {3, 3}}));
}

TEST(SeedFirstRound, ReadsTheCustomLanesOfTheEvent) {
  RoundSetup round;
  round.per_heat = 3;
  round.std_lanes = kCustomLanes;
  LaneTables tables = DefaultTables();
  tables.custom_lanes.rows[3] = LaneRow{7, 8, 6};
  EXPECT_EQ(LanesOf(Seeded(Runners(3), round, 1, tables), 1), (ById{{1, 7}, {2, 8}, {3, 6}}));
}

// All lanes that any of many draws uses.
std::set<int> LanesDrawn(const RoundSetup& round, int entries) {
  std::set<int> lanes;
  for (uint64_t number = 0; number < 100; ++number) {
    const ById heat = LanesOf(Seeded(Runners(entries), round, number), 1);
    std::set<int> once;
    for (const auto& [id, lane] : heat) once.insert(lane);
    EXPECT_EQ(static_cast<int>(once.size()), entries) << "a lane was given twice";
    lanes.merge(once);
  }
  return lanes;
}

TEST(SeedFirstRound, DrawsTheLanesUnderRuleB) {
  RoundSetup round;
  round.per_heat = 8;
  round.randomization = 'B';
  EXPECT_EQ(LanesDrawn(round, 5), (std::set<int>{1, 2, 3, 4, 5, 6, 7, 8}));
  round.close_gaps = true;
  EXPECT_EQ(LanesDrawn(round, 5), (std::set<int>{2, 3, 4, 5, 6}));
  round.std_lanes = kAllRandom;
  round.randomization = 'A';
  EXPECT_EQ(LanesDrawn(round, 5), (std::set<int>{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(SeedFirstRound, KeepsTheFasterHalfInTheMiddleUnderRuleC) {
  RoundSetup round;
  round.per_heat = 8;
  round.randomization = 'C';
  std::set<int> of_the_best;
  for (uint64_t number = 0; number < 100; ++number) {
    of_the_best.insert(LanesOf(Seeded(Runners(8), round, number), 1).at(1));
  }
  EXPECT_EQ(of_the_best, (std::set<int>{3, 4, 5, 6}));
}

TEST(SeedFirstRound, DrawsTheOrderWhenTheSeedingMethodIsRandom) {
  RoundSetup round;
  round.per_heat = 4;
  round.serp_type = '2';
  std::set<int> strongest;  // who stands in the first lane of the first heat
  for (uint64_t number = 0; number < 200; ++number) {
    for (const auto& [id, lane] : LanesOf(Seeded(Runners(8), round, number), 1)) {
      if (lane == 2) strongest.insert(id);
    }
  }
  EXPECT_EQ(strongest.size(), 8U);
  std::vector<Seed> turned = Runners(8);
  std::reverse(turned.begin(), turned.end());
  EXPECT_EQ(Seeded(Runners(8), round, 7), Seeded(turned, round, 7))
      << "the order of the rows must not matter";
}

TEST(SeedRound, RefusesAFixedNumberOfHeatsThatIsTooSmall) {
  RoundSetup round;
  round.per_heat = 8;
  round.fixed_heats = 2;
  SeededDraw draw(1);
  const auto refused = SeedRound(Runners(19), round, {}, DefaultTables(), draw);
  EXPECT_EQ(std::get<Notice>(refused).text, "The number of heats/flights cannot be less than 3");
  round.fixed_heats = 5;
  const auto spread = SeedRound(Runners(3), round, {}, DefaultTables(), draw);
  EXPECT_EQ(std::get<std::vector<Place>>(spread).back().heat, 3) << "never more heats than entries";
}

TEST(SetupOf, TakesTheFieldsOfTheRound) {
  setup::Event event;
  event.num_prelanes = 6;
  event.rnd_alleys = {5, 7, 0, 0};
  event.preheat_order = '3';
  event.finheat_order = '2';
  event.heats_infinal = 2;
  SeedingPreferences preferences;
  preferences.timedfinal_randrule = 'D';
  preferences.round1_randrule = 'B';
  preferences.round234_randrule = ' ';
  preferences.round1_closegaps = true;
  preferences.meet_numlanes = 9;

  const RoundSetup timed_final = SetupOf(event, setup::Round::Finals, preferences);
  EXPECT_EQ(timed_final.per_heat, 9);  // lanes of the meet where the event says none
  EXPECT_EQ(timed_final.alleys, 5);
  EXPECT_EQ(timed_final.heat_order, '2');
  EXPECT_EQ(timed_final.randomization, 'D');
  EXPECT_EQ(timed_final.fixed_heats, 0);
  EXPECT_TRUE(timed_final.close_gaps);

  event.event_rounds = 2;
  const RoundSetup prelims = SetupOf(event, setup::Round::Prelims, preferences);
  EXPECT_EQ(prelims.per_heat, 6);
  EXPECT_EQ(prelims.heat_order, '3');
  EXPECT_EQ(prelims.randomization, 'B');
  const RoundSetup final_round = SetupOf(event, setup::Round::Finals, preferences);
  EXPECT_EQ(final_round.alleys, 7);
  EXPECT_EQ(final_round.randomization, 'A');
  EXPECT_EQ(final_round.fixed_heats, 2);
  EXPECT_FALSE(final_round.close_gaps);

  event.std_lanes = '6';
  EXPECT_EQ(SetupOf(event, setup::Round::Finals, preferences).per_heat, 0);
}

}  // namespace
}  // namespace tarvex::seeding
