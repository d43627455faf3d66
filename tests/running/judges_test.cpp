#include "running/judges.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarvex::running {
namespace {

TEST(ReadJdPlace, TakesWholeNumbersUpToTheResults) {
  EXPECT_EQ(std::get<int>(ReadJdPlace(" 8 ", 8)), 8);
  EXPECT_EQ(std::get<int>(ReadJdPlace("0", 8)), 0);
  EXPECT_EQ(std::get<int>(ReadJdPlace("", 8)), 0);
  for (const char* typed : {"9", "-1", "1.5", "x", "99999999999"}) {
    EXPECT_EQ(std::get<Notice>(ReadJdPlace(typed, 8)).text, "JD Places must be a number from 0 to 8 !")
        << typed;
  }
  EXPECT_EQ(std::get<Notice>(ReadJdHeatPlace("5", 4)).text,
            "JD Heat Places should be a number from 0 to number of athletes/relays in a heat/flight !");
}

TEST(ReadJdPoints, TakesPointsOrNone) {
  EXPECT_EQ(std::get<float>(ReadJdPoints("999")), 999);
  EXPECT_EQ(std::get<float>(ReadJdPoints("-1")), -1);
  EXPECT_EQ(std::get<float>(ReadJdPoints("5.25")), 5.25F);
  EXPECT_EQ(std::get<float>(ReadJdPoints(" ")), 0);
  for (const char* typed : {"999.01", "1000", "-2", "-0.5", "ten", "--1"}) {
    EXPECT_EQ(std::get<Notice>(ReadJdPoints(typed)).text,
              "JD Points limited to 0 to 999 or -1 to indicate no points !")
        << typed;
  }
  for (const char* typed : {"5.255", "5..2", "5.", "1.2.3"}) {
    EXPECT_EQ(std::get<Notice>(ReadJdPoints(typed)).text, "Invalid decimal place !") << typed;
  }
}

TEST(CheckJudgesGrid, NeedsACompleteRoundWithAMark) {
  std::vector<Result> results;
  EXPECT_EQ(CheckJudgesGrid(results)->text, "No entries found !");
  results.resize(2);
  results[0].heat = results[1].heat = 1;
  results[0].mark = 12;
  EXPECT_EQ(CheckJudgesGrid(results)->text,
            "Round must be completed before entering Judges Decisions or Tie Breaker results !");
  results[1].stat = 'S';
  EXPECT_FALSE(CheckJudgesGrid(results));
  results[0].stat = 'Q';
  EXPECT_EQ(CheckJudgesGrid(results)->text, "No results found that can have a JD place !");
}

TEST(ResetDecisions, TakesBackPlacesAndPoints) {
  std::vector<Result> results(1);
  results[0].jdplace = 2;
  results[0].jdheatplace = 1;
  results[0].jdev_score = -1;
  results[0].place = 3;
  ResetDecisions(results);
  EXPECT_EQ(EffectivePlace(results[0]), 3);
  EXPECT_EQ(results[0].jdheatplace, 0);
  EXPECT_EQ(results[0].jdev_score, 0);
}

}  // namespace
}  // namespace tarvex::running
