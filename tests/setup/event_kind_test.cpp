#include "setup/event_kind.h"

#include <gtest/gtest.h>

#include "setup/sex.h"

namespace tarvex::setup {
namespace {

TEST(KindName, DependsOnTheMeetType) {
  EXPECT_EQ(KindName('T', 'K'), "High Jump");
  EXPECT_EQ(KindName('S', 'J'), "Swim-Bike-Run");
  EXPECT_EQ(KindName('L', 'E'), "Intnat'l Ironwoman");
  EXPECT_EQ(KindName('W', 'P'), "Club");
  EXPECT_EQ(KindName('T', 'F'), std::nullopt);
  EXPECT_EQ(KindName('S', 'K'), std::nullopt);
  EXPECT_EQ(KindName('Q', 'A'), std::nullopt);
}

TEST(FindKind, ReadsLettersAndNamesInAnyCase) {
  EXPECT_EQ(FindKind('T', "dash"), 'A');
  EXPECT_EQ(FindKind('T', " Shot Put "), 'R');
  EXPECT_EQ(FindKind('T', "w"), 'W');
  EXPECT_EQ(FindKind('T', "1"), '1');
  EXPECT_EQ(FindKind('W', "other"), 'C');  // the first of several
  EXPECT_EQ(FindKind('T', "Club"), std::nullopt);
  EXPECT_EQ(FindKind('T', ""), std::nullopt);
}

TEST(GenderOf, ReadsTheWordsOfEveryMeet) {
  for (const char letter : {'M', 'B', 'b'}) EXPECT_EQ(GenderOf(letter), 'M') << letter;
  for (const char letter : {'F', 'W', 'G', 'w'}) EXPECT_EQ(GenderOf(letter), 'F') << letter;
  EXPECT_EQ(GenderOf('X'), 'X');
  EXPECT_EQ(GenderOf(' '), std::nullopt);
}

TEST(ProposedSex, SaysBoysAndGirlsInSchoolsAndUpToEighteen) {
  EXPECT_EQ(ProposedSex('M', 1, 109), 'B');
  EXPECT_EQ(ProposedSex('F', 3, 18), 'G');
  EXPECT_EQ(ProposedSex('F', 3, 19), 'W');
  EXPECT_EQ(ProposedSex('M', 2, 109), 'M');
  EXPECT_EQ(ProposedSex('X', 1, 12), 'X');
}

}  // namespace
}  // namespace tarvex::setup
