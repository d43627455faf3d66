#include "running/points.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "running/scorers.h"
#include "scoring/points_text.h"

namespace tarvex::running {
namespace {

// Results with these computed places, all in heat 1 and of different teams.
std::vector<Result> Placed(const std::vector<int>& places) {
  std::vector<Result> results;
  for (const int place : places) {
    Result result;
    result.id = result.team_no = static_cast<int>(results.size()) + 1;
    result.heat = 1;
    result.mark = 10;
    result.place = place;
    results.push_back(result);
  }
  return results;
}

// An eight-place table, unless other points are given: 10, 8, 6, 5, 4, 3, 2, 1.
float EightPlaces(const Result&, int place) {
  constexpr float kPoints[] = {0, 10, 8, 6, 5, 4, 3, 2, 1};
  return place <= 8 ? kPoints[place] : 0;
}

std::string PtsPlaces(std::vector<Result> results, const ScorerRules& rules = {}) {
  AssignPointsPlaces(results, rules);
  std::string text;
  for (const Result& result : results) text += (text.empty() ? "" : " ") + std::to_string(result.ptsplace);
  return text;
}

std::string Points(std::vector<Result>& results) {
  std::string text;
  for (const Result& result : results) {
    text += (text.empty() ? "" : " ") + scoring::PointsText(result.ev_score);
  }
  return text;
}

std::string Scores(std::vector<Result> results, const ScorerRules& rules = {}) {
  AssignPointsPlaces(results, rules);
  ScoreResults(results, EightPlaces);
  return Points(results);
}

TEST(ScoreResults, SharesThePointsOfATie) {
  EXPECT_EQ(Scores(Placed({1, 2, 3, 3, 5})), "10 8 5.5 5.5 4");
  EXPECT_EQ(Scores(Placed({1, 1, 1, 4})), "8 8 8 5");
  EXPECT_EQ(Scores(Placed({1, 2, 3, 4, 5, 6, 7, 8, 8})), "10 8 6 5 4 3 2 0.5 0.5");
}

TEST(ScoreResults, ReportsATie) {
  std::vector<Result> results = Placed({1, 2});
  AssignPointsPlaces(results, {});
  EXPECT_FALSE(ScoreResults(results, EightPlaces).tie);
  results = Placed({1, 2, 2});
  AssignPointsPlaces(results, {});
  EXPECT_TRUE(ScoreResults(results, EightPlaces).tie);
}

// Places 99 and 100 carry a point each, 101 none: two points for three.
TEST(ScoreResults, DividesByEverybodyWhereTheTableEnds) {
  std::vector<Result> results = Placed({99, 99, 99});
  for (Result& result : results) result.ptsplace = 99;
  ScoreResults(results, [](const Result&, int) { return 1.0F; });
  for (const Result& result : results) EXPECT_EQ(result.ev_score, 2.0F / 3.0F);
  results = Placed({1, 1, 1});
  AssignPointsPlaces(results, {});
  ScoreResults(results, [](const Result&, int place) { return place == 1 ? 10.0F : 0.0F; });
  EXPECT_EQ(results[0].ev_score, 3.3333333F);
}

TEST(ScoreResults, LetsTheJudgesReplaceTheirOwnResultOnly) {
  std::vector<Result> results = Placed({1, 2, 2, 4});
  results[0].jdev_score = -1;
  results[1].jdev_score = 7;
  EXPECT_EQ(Scores(results), "0 7 7 5");
  results = Placed({1, 2, 2, 4});
  results[1].jdplace = 2;
  results[2].jdplace = 3;
  EXPECT_EQ(Scores(results), "10 8 6 5");
}

TEST(ScoreResults, GivesNothingBelowTheStandardAndPassesNothingOn) {
  std::vector<Result> results = Placed({1, 2, 3});
  results[1].short_of_standard = true;
  EXPECT_EQ(Scores(results), "10 0 6");
}

TEST(AssignPointsPlaces, PassesThePointsOfExhibitionOn) {
  std::vector<Result> results = Placed({1, 2, 3});
  results[0].exhibition = true;
  EXPECT_EQ(PtsPlaces(results), "0 1 2");
  EXPECT_EQ(Scores(results), "0 10 8");
  results = Placed({1, 1, 3, 0});  // tied with an exhibition winner
  results[0].exhibition = true;
  EXPECT_EQ(PtsPlaces(results), "0 1 2 0");
}

TEST(AssignPointsPlaces, CountsWithinTheGroup) {
  std::vector<Result> results = Placed({1, 1, 2, 2});
  results[1].group.division = results[3].group.division = 5;
  results[0].exhibition = true;
  EXPECT_EQ(PtsPlaces(results), "0 1 1 2");
}

TEST(AssignPointsPlaces, LimitsTheScorersOfATeam) {
  std::vector<Result> results = Placed({1, 2, 3, 3, 5});
  for (Result& result : results) result.team_no = 1;
  results[4].team_no = 2;
  ScorerRules rules;
  rules.most_per_team = 3;
  EXPECT_EQ(PtsPlaces(results, rules), "1 2 3 0 4");
  results[1].exhibition = true;  // takes none of the three
  EXPECT_EQ(PtsPlaces(results, rules), "1 0 2 2 4");
}

TEST(AssignPointsPlaces, KnowsWhoElseDoesNotScore) {
  std::vector<Result> results = Placed({1, 2, 3});
  results[0].foreign = true;
  ScorerRules rules;
  EXPECT_EQ(PtsPlaces(results, rules), "1 2 3");
  rules.foreign_score = false;
  EXPECT_EQ(PtsPlaces(results, rules), "0 1 2");

  results = Placed({1, 2, 3});
  results[0].team_ltr = 'B';
  results[1].team_ltr = 'A';
  rules = {};
  rules.relay = rules.only_a_relays = true;
  EXPECT_EQ(PtsPlaces(results, rules), "0 1 2");

  results = Placed({1, 2, 3});
  results[0].heat = 2;
  rules = {};
  rules.fastest_heat_only = true;
  rules.fastest_heat = 1;
  EXPECT_EQ(PtsPlaces(results, rules), "0 1 2");
}

TEST(FastestHeat, IsToldByTheHeatOrder) {
  std::vector<Result> results = Placed({1, 2, 3});
  EXPECT_EQ(std::get<int>(FastestHeat(results, {'3'})), 1) << "a single heat needs no order";
  results[1].heat = 2;
  results[2].heat = 3;
  EXPECT_EQ(std::get<int>(FastestHeat(results, {'1'})), 1);
  EXPECT_EQ(std::get<int>(FastestHeat(results, {'2'})), 3);
  EXPECT_EQ(std::get<int>(FastestHeat(results, {'5'})), 1);
  EXPECT_EQ(
      std::get<Notice>(FastestHeat(results, {'3'})).text,
      "Can't figure out fastest heat because seeded with Random heat order !\nGo to the Events Menu and "
      "change the event to fast/slow or slow/fast heat order.");
  EXPECT_EQ(std::get<Notice>(FastestHeat(results, {'1', true, true})).text,
            "Cannot properly score Fastest Heat Only if event is set-up with multi-age groups.");
}

}  // namespace
}  // namespace tarvex::running
