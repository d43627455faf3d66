#include "setup/division.h"

#include <gtest/gtest.h>

namespace tarvex::setup {
namespace {

constexpr Date Day(int year, unsigned month, unsigned day) {
  return Date(std::chrono::year(year), std::chrono::month(month), std::chrono::day(day));
}

TEST(AgeOn, CountsBirthdaysUpToTheDay) {
  EXPECT_EQ(AgeOn(Day(2008, 9, 1), Day(2024, 8, 31)), 15);
  EXPECT_EQ(AgeOn(Day(2008, 9, 1), Day(2024, 9, 1)), 16);
  EXPECT_EQ(AgeOn(Day(2008, 2, 29), Day(2023, 2, 28)), 14);
  EXPECT_EQ(AgeOn(Day(2008, 2, 29), Day(2023, 3, 1)), 15);
  EXPECT_EQ(AgeOn(Day(2008, 2, 29), Day(2024, 2, 29)), 16);
}

Division Ages(int low, int high, char low_letter, char high_letter) {
  return {1, "YG", "17-18 Division", low, high, low_letter, high_letter, 0};
}

TEST(BirthRange, TakesTheAgeOnTheDayOfTheLetter) {
  const AgeDays days = {Day(2024, 7, 22), Day(2024, 9, 1), Day(2024, 7, 28)};
  EXPECT_EQ(BirthRange(Ages(17, 18, 'Y', 'Y'), days), (BirthDates{Day(2006, 1, 1), Day(2007, 12, 31)}));
  EXPECT_EQ(BirthRange(Ages(17, 18, 'Y', 'L'), days), (BirthDates{Day(2005, 7, 29), Day(2007, 12, 31)}));
  EXPECT_EQ(BirthRange(Ages(0, 8, 'D', 'D'), days), (BirthDates{Day(2015, 9, 2), Day(2024, 9, 1)}));
}

// Whoever is born a day outside the range has another age on the day.
TEST(BirthRange, AgreesWithTheAgeOnALeapDay) {
  const Date leap_day = Day(2024, 2, 29);
  const BirthDates range = BirthRange(Ages(9, 9, 'L', 'L'), {leap_day, leap_day, leap_day});
  EXPECT_EQ(range, (BirthDates{Day(2014, 3, 1), Day(2015, 2, 28)}));
}

TEST(CheckDivision, RefusesWithTheTextOfTheScreen) {
  const Division other[] = {{2, "JV", "Junior", 0, 109, 'Y', 'Y', 0}};
  const auto refused = [&](const Division& division) {
    const std::optional<Notice> notice = CheckDivision(division, other);
    return notice ? notice->text : "";
  };
  EXPECT_EQ(refused({1, "V", "Varsity", 0, 109, 'Y', 'L', 99}), "");
  EXPECT_EQ(refused({1, " ", "Varsity", 0, 109, 'Y', 'Y', 0}), "The code must have at least one character !");
  EXPECT_EQ(refused({1, "V", "Varsity", 10, 9, 'Y', 'Y', 0}),
            "The low age cannot be older than the high age !");
  EXPECT_EQ(refused({1, "V", "Varsity", 0, 110, 'Y', 'Y', 0}), "The high age cannot be greater than 109 !");
  EXPECT_EQ(refused({1, "V", "Varsity", 0, 109, 'Y', 'A', 0}),
            "Please enter Y, D, or L for high date calculation !");
  EXPECT_EQ(refused({1, "V", "Varsity", 0, 109, 'Y', 'Y', 100}), "Max entries must be from 0 to 99 !");
  EXPECT_EQ(refused({1, "JV", "Varsity", 0, 109, 'Y', 'Y', 0}), "This code is already being used !");
}

TEST(PresetDivisions, PassTheirOwnChecks) {
  for (const auto divisions : {UsatfDivisions(), AauDivisions()}) {
    for (size_t i = 0; i < divisions.size(); ++i) {
      EXPECT_FALSE(CheckDivision(divisions[i], divisions.first(i))) << divisions[i].div_abbr;
      EXPECT_EQ(divisions[i].div_no, static_cast<int>(i) + 1);
    }
  }
  EXPECT_EQ(UsatfDivisions().size(), 7U);
  EXPECT_EQ(AauDivisions().size(), 10U);
}

}  // namespace
}  // namespace tarvex::setup
