#include "running/places.h"

#include <gtest/gtest.h>

#include <vector>

#include "running/groups.h"
#include "running/messages.h"

namespace tarvex::running {
namespace {

// Results with the ids 1, 2, 3 ... and these marks, all in heat 1.
std::vector<Result> Marks(const std::vector<float>& marks) {
  std::vector<Result> results;
  for (const float mark : marks) {
    Result result;
    result.id = result.lane = static_cast<int>(results.size()) + 1;
    result.heat = 1;
    result.mark = mark;
    results.push_back(result);
  }
  return results;
}

std::vector<int> Places(std::vector<Result> results, const PlaceRules& rules = {}) {
  PlaceResults(results, rules);
  std::vector<int> places;
  for (const Result& result : results) places.push_back(result.place);
  return places;
}

using Numbers = std::vector<int>;

TEST(PlaceResults, NumbersTheFastestFirstAndSharesTies) {
  EXPECT_EQ(Places(Marks({11.30F, 11.20F, 11.20F, 11.10F})), (Numbers{4, 2, 2, 1}));
  EXPECT_EQ(Places(Marks({10.234F, 10.231F})), (Numbers{2, 1})) << "thousandths part them";
}

TEST(PlaceResults, NumbersTheLongestFirstInFieldEvents) {
  EXPECT_EQ(Places(Marks({6.10F, 6.49F, 6.49F, 5.80F}), {true}), (Numbers{3, 1, 1, 4}));
}

// Both read 21-03.50.
TEST(PlaceResults, TiesEnglishMarksThatShowTheSame) {
  EXPECT_EQ(Places(Marks({255.55F, 255.6F, 255.75F}), {true, 'E', 'M'}), (Numbers{2, 2, 1}));
  EXPECT_EQ(Places(Marks({2160.25F, 2160.75F}), {true, 'E', 'O'}), (Numbers{2, 1}));
  EXPECT_EQ(Places(Marks({2160.25F, 2160.75F}), {true, 'E', 'O', true}), (Numbers{1, 1}));
  EXPECT_EQ(Places(Marks({255.25F, 255.75F}), {true, 'E', 'M', true}), (Numbers{2, 1}));
}

TEST(PlaceResults, GivesNoPlaceToStatusesScratchesAndTimeTrials) {
  std::vector<Result> results = Marks({0, 11, 12, 13, 14, 15, 16});
  results[0].stat = 'N';
  results[1].stat = 'Q';
  results[2].scratched = true;
  results[3].time_trial = true;
  results[4].stat = 'P';
  results[5].stat = 'X';
  EXPECT_EQ(Places(results), (Numbers{0, 0, 0, 0, 0, 1, 2}));
}

TEST(PlaceResults, RanksExhibitionOnlyWhenTheMeetDoes) {
  std::vector<Result> results = Marks({11, 12});
  results[0].exhibition = true;
  PlaceRules rules;
  rules.exhibition_in_final = true;  // does not act in the last round
  EXPECT_EQ(Places(results, rules), (Numbers{0, 1}));
  rules.rank_exhibition = true;
  EXPECT_EQ(Places(results, rules), (Numbers{1, 2}));
  rules.last_round = false;
  rules.exhibition_in_final = false;
  EXPECT_EQ(Places(results, rules), (Numbers{0, 1}));
}

TEST(PlaceResults, PlacesByGroupAndByHeat) {
  std::vector<Result> results = Marks({11, 12, 13, 14});
  results[1].heat = results[2].heat = 2;
  results[1].group.age_group = results[3].group.age_group = 1;
  PlaceResults(results, {});
  EXPECT_EQ(Places(results), (Numbers{1, 1, 2, 2}));
  EXPECT_EQ(results[0].heatplace, 1);
  EXPECT_EQ(results[1].heatplace, 1);
  EXPECT_EQ(results[2].heatplace, 2);
  EXPECT_EQ(results[3].heatplace, 2);
}

TEST(PlaceResults, LeavesTheJudgesPlacesAlone) {
  std::vector<Result> results = Marks({11, 12, 12, 13});
  results[1].jdplace = 3;
  PlaceResults(results, {});
  EXPECT_EQ(EffectivePlace(results[0]), 1);
  EXPECT_EQ(EffectivePlace(results[1]), 3);
  EXPECT_EQ(EffectivePlace(results[2]), 2);
  EXPECT_EQ(EffectivePlace(results[3]), 4);
  EXPECT_EQ(results[1].heatplace, 2);
  EXPECT_EQ(EffectiveHeatPlace(results[1]), 2);
}

TEST(IsRoundComplete, WaitsForEverySeededEntry) {
  std::vector<Result> results = Marks({11, 0, 0});
  EXPECT_FALSE(IsRoundComplete(results));
  results[1].stat = 'S';
  results[2].scratched = true;
  EXPECT_TRUE(IsRoundComplete(results));
  results[2].scratched = false;
  results[2].heat = 0;
  EXPECT_TRUE(IsRoundComplete(results));
}

TEST(GroupOf, FollowsMeetAndEvent) {
  const setup::AgeGroup ages[] = {{30, 39}, {40, 109}};
  EXPECT_EQ(GroupOf({1, {}}, {41, 2, 3}), (Group{0, 0}));
  EXPECT_EQ(GroupOf({1, ages}, {40, 2, 3}), (Group{0, 2}));
  EXPECT_EQ(GroupOf({1, ages}, {29, 2, 3}), (Group{0, 0}));
  EXPECT_EQ(GroupOf({3, {}}, {41, 2, 3}), (Group{2, 0}));
  EXPECT_EQ(GroupOf({4, ages}, {39, 2, 3}), (Group{3, 1}));
}

}  // namespace
}  // namespace tarvex::running
