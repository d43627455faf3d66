#include "seeding/lane_table.h"

#include <gtest/gtest.h>

namespace tarvex::seeding {
namespace {

using Lanes = std::vector<int>;

TEST(DefaultLaneRow, GoesFromTheCentreOutwards) {
  const LaneTable table = LaneTable::Default();
  EXPECT_EQ(LaneOrder(table, 1), (Lanes{1}));
  EXPECT_EQ(LaneOrder(table, 2), (Lanes{1, 2}));
  EXPECT_EQ(LaneOrder(table, 6), (Lanes{3, 4, 2, 5, 1, 6}));
  EXPECT_EQ(LaneOrder(table, 8), (Lanes{4, 5, 3, 6, 2, 7, 1, 8}));
  EXPECT_EQ(LaneOrder(table, 9), (Lanes{5, 6, 4, 7, 3, 8, 2, 9, 1}));
  EXPECT_EQ(LaneOrder(table, 12), (Lanes{6, 7, 5, 8, 4, 9, 3, 10, 2, 11, 1, 12}));
  EXPECT_EQ(DefaultLaneRow(3), (LaneRow{2, 3, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(LaneOrder, CountsUpWithoutARow) {
  EXPECT_EQ(LaneOrder(LaneTable(), 4), (Lanes{1, 2, 3, 4}));
  EXPECT_EQ(LaneOrder(LaneTable::Default(), 14).back(), 14);
}

TEST(LaneOrder, PassesOverEmptyCells) {
  LaneTable table;
  table.rows[4] = LaneRow{3, 0, 2, 3};
  EXPECT_EQ(LaneOrder(table, 4), (Lanes{3, 2, 1, 4}));
  table.rows[8] = LaneRow{5, 6, 4, 7, 3, 8, 2, 9};  // the middle of a ten-lane track
  EXPECT_EQ(LaneOrder(table, 8), (Lanes{5, 6, 4, 7, 3, 8, 2, 9}));
}

TEST(CheckLaneRow, LooksAtTheCellsOfTheRowOnly) {
  EXPECT_FALSE(CheckLaneRow(3, {2, 3, 1, 1, 1, 1}));
  EXPECT_EQ(CheckLaneRow(4, {2, 3, 1, 1})->text, "Row 4 has duplicate numbers !");
  EXPECT_EQ(CheckLaneRow(4, {2, 3, 0, 0})->text, "Row 4 has duplicate numbers !");
  EXPECT_EQ(CheckLaneRow(3, {2, 13, 1})->text, "Please enter a number from 1 to 12 in row  3, column 2.");
}

TEST(Waterfall, MapsRanksToPositions) {
  WaterfallTable table = WaterfallTable::Default();
  EXPECT_FALSE(CheckWaterfall(table));
  EXPECT_EQ(table.PositionOf(160), 160);
  EXPECT_EQ(table.PositionOf(161), 161);
  table.position[0] = 5;
  EXPECT_EQ(table.PositionOf(1), 5);
  EXPECT_EQ(CheckWaterfall(table)->text, "Row 1 and 5 has duplicate numbers !");
}

}  // namespace
}  // namespace tarvex::seeding
