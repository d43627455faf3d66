#include "setup/lane_text.h"

#include <gtest/gtest.h>

namespace tarvex::setup {
namespace {

TEST(LaneText, NamesAlleyPositionsByLetter) {
  EXPECT_EQ(LaneText(202, '4'), "2B");
  EXPECT_EQ(LaneText(1201, '4'), "12A");
  EXPECT_EQ(LaneText(7, '4'), "7");
  EXPECT_EQ(LaneText(202, '1'), "202");
  EXPECT_EQ(LaneText(120, '6'), "120");
  EXPECT_EQ(LaneText(0, '1'), "");
}

TEST(ReadLane, ReadsWhatIsShown) {
  EXPECT_EQ(ReadLane("2B", '4'), 202);
  EXPECT_EQ(ReadLane(" 12a ", '4'), 1201);
  EXPECT_EQ(ReadLane("7", '1'), 7);
  EXPECT_EQ(ReadLane("2B", '1'), std::nullopt);
  for (const char* typed : {"", "B", "0", "-1", "2BB", "2 B", "999A"}) {
    EXPECT_EQ(ReadLane(typed, '4'), std::nullopt) << typed;
  }
}

TEST(LaneText, ShowsTheNamesOfCustomAlleys) {
  const AlleyName names[] = {{1, "3A"}, {2, "2B"}, {3, " "}};
  EXPECT_EQ(LaneText(2, '5', names), "2B");
  EXPECT_EQ(LaneText(3, '5', names), "3");
  EXPECT_EQ(LaneText(9, '5', names), "9");
  EXPECT_EQ(ReadLane("2b", '5', names), 2);
  EXPECT_EQ(ReadLane("3", '5', names), 3);
  EXPECT_EQ(ReadLane("4C", '5', names), std::nullopt);
}

}  // namespace
}  // namespace tarvex::setup
