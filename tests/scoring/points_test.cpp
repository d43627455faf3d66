#include <gtest/gtest.h>

#include <string>

#include "scoring/default_points.h"
#include "scoring/points_table.h"
#include "scoring/points_text.h"

namespace tarvex::scoring {
namespace {

std::string Joined(const std::vector<int>& numbers) {
  std::string text;
  for (const int number : numbers) text += (text.empty() ? "" : " ") + std::to_string(number);
  return text;
}

TEST(DefaultPoints, AreTheListsOfTheNumberOfPlaces) {
  EXPECT_EQ(Joined(DefaultPoints(2)), "");
  EXPECT_EQ(Joined(DefaultPoints(3)), "5 3 1");
  EXPECT_EQ(Joined(DefaultPoints(4)), "6 4 2 1");
  EXPECT_EQ(Joined(DefaultPoints(6)), "8 6 4 3 2 1");
  EXPECT_EQ(Joined(DefaultPoints(8)), "10 8 6 5 4 3 2 1");
  EXPECT_EQ(Joined(DefaultPoints(11)), "13 11 9 8 7 6 5 4 3 2 1");
  EXPECT_EQ(Joined(DefaultPoints(12)), "16 13 12 11 10 9 7 5 4 3 2 1");
  EXPECT_EQ(Joined(DefaultPoints(13)), "15 13 11 10 9 8 7 6 5 4 3 2 1");
  EXPECT_EQ(Joined(DefaultPoints(20)), "24 21 20 19 18 17 16 15 14 13 11 9 8 7 6 5 4 3 2 1");
}

TEST(DefaultPoints, EndWithOnePointForTheLastPlaceThatScores) {
  for (int places = 3; places <= 100; ++places) {
    const std::vector<int> points = DefaultPoints(places);
    ASSERT_EQ(static_cast<int>(points.size()), places);
    EXPECT_EQ(points.back(), 1) << places;
    for (size_t i = 1; i < points.size(); ++i) EXPECT_LT(points[i], points[i - 1]) << places;
  }
  EXPECT_EQ(DefaultPoints(250).size(), 100U);
}

TEST(ReadPlaces, AsksForAtLeastThree) {
  EXPECT_EQ(std::get<int>(ReadPlaces(" 8 ")), 8);
  EXPECT_EQ(std::get<int>(ReadPlaces("101")), 100);
  EXPECT_EQ(std::get<int>(ReadPlaces("99999999999")), 100);
  for (const char* typed : {"2", "", "eight", "8.5", "-99999999999"}) {
    EXPECT_EQ(std::get<Notice>(ReadPlaces(typed)).text, "Please select at least 3 places for scoring.")
        << typed;
  }
}

TEST(DefaultRows, FillThirtyPlacesForBothSexes) {
  const std::vector<ScoringRow> rows = DefaultRows(0, 8);
  ASSERT_EQ(rows.size(), 60U);
  EXPECT_EQ(rows[1].score_sex, 'M');
  EXPECT_EQ(rows[15].score_place, 8);
  EXPECT_EQ(rows[15].combevt_score, 1);
  EXPECT_EQ(rows[16].ind_score, 0);
  EXPECT_EQ(DefaultRows(0, 40).size(), 80U);
}

TEST(DualDefaultRows, ScoreThreeRunnersAndOneRelay) {
  const PointsTable table(DualDefaultRows(0));
  EXPECT_EQ(table.PointsFor({0, 'M', Kind::Individual}, 3), 1);
  EXPECT_EQ(table.PointsFor({0, 'F', Kind::Relay}, 1), 5);
  EXPECT_EQ(table.PointsFor({0, 'F', Kind::Relay}, 2), 0);
  EXPECT_EQ(table.PointsFor({0, 'M', Kind::Combined}, 1), 5);
}

TEST(PointsTable, FallsBackToTheTableOfEveryDivision) {
  const ScoringRow rows[] = {{0, 'M', 1, 10, 12, 14}, {0, 'F', 1, 9, 0, 0}, {2, 'M', 1, 5, 0, 0}};
  const PointsTable table(rows);
  EXPECT_EQ(table.PointsFor({0, 'M', Kind::Relay}, 1), 12);
  EXPECT_EQ(table.PointsFor({0, 'M', Kind::Combined}, 1), 14);
  EXPECT_EQ(table.PointsFor({0, 'F', Kind::Individual}, 1), 9);
  EXPECT_EQ(table.PointsFor({2, 'M', Kind::Individual}, 1), 5);
  EXPECT_EQ(table.PointsFor({2, 'F', Kind::Individual}, 1), 0);  // the division has rows, but not this one
  EXPECT_EQ(table.PointsFor({7, 'M', Kind::Individual}, 1), 10);
  EXPECT_EQ(table.PointsFor({0, 'M', Kind::Individual}, 2), 0);
  EXPECT_EQ(table.PointsFor({0, 'M', Kind::Individual}, 0), 0);
  EXPECT_EQ(table.PointsFor({0, 'M', Kind::Individual}, 101), 0);
}

TEST(PointsDivision, IsWhatDividesTheMeet) {
  EXPECT_EQ(PointsDivision({2, false}, 1, 2, 3), 0);
  EXPECT_EQ(PointsDivision({1, true}, 1, 2, 3), 0);
  EXPECT_EQ(PointsDivision({2, true}, 1, 2, 3), 1);
  EXPECT_EQ(PointsDivision({3, true}, 1, 2, 3), 2);
  EXPECT_EQ(PointsDivision({4, true}, 1, 2, 3), 3);
  EXPECT_EQ(PointsSex('X', 'F'), 'F');
  EXPECT_EQ(PointsSex('M', 'F'), 'M');
}

TEST(PointsText, HasAtMostTwoDecimals) {
  EXPECT_EQ(PointsText(5.5F), "5.5");
  EXPECT_EQ(PointsText(3.3333333F), "3.33");
  EXPECT_EQ(PointsText(10.0F), "10");
  EXPECT_EQ(PointsText(0.125F), "0.13");
}

}  // namespace
}  // namespace tarvex::scoring
