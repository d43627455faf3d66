#include "marks/range.h"

#include <gtest/gtest.h>

namespace tarvex::marks {
namespace {

constexpr MarkSettings kChecking{.check_ranges = true};

// The middle line of the question, or "" when nothing is asked.
std::string Limits(const std::optional<Notice>& question) {
  if (!question) return "";
  const size_t first = question->text.find('\r');
  return question->text.substr(first + 1, question->text.rfind('\r') - first - 1);
}

// The bounds and the texts of each band, at its shortest distance.
TEST(CheckTimeRange, AsksJustOutsideTheBoundsOfEachBand) {
  struct Band {
    float distance, too_fast, fastest, slowest, too_slow;
    std::string_view limits;
  };
  const Band bands[] = {
      {1, 3.49f, 3.5f, 25, 25.01f, "3.50 to 25.00"},
      {60, 4.99f, 5, 45, 45.01f, "5.00 to 45.00"},
      {90, 6.99f, 7, 120, 120.01f, "7 seconds to 2:00.00"},
      {120, 9.99f, 10, 150, 150.01f, "10 seconds to 2:30.00"},
      {250, 19.99f, 20, 180, 180.01f, "20 seconds to 3 minutes"},
      {450, 49.99f, 50, 360, 360.01f, "50 seconds to 6 minutes"},
      {900, 89.99f, 90, 720, 720.01f, "1:30.00 to 12 minutes"},
      {1400, 119.99f, 120, 1440, 1440.01f, "2:00.00 to 24 minutes"},
      {2000, 179.99f, 180, 2400, 2400.01f, "3:00.00 to 40 minutes"},
      {3000, 359.99f, 360, 3600, 3600.01f, "6 minutes to 60 minutes"},
      {4000, 479.99f, 480, 5400, 5400.01f, "8 minutes to 1 hr 30 minutes"},
      {5000, 599.99f, 600, 7200, 7200.01f, "10 minutes to 2 hours"},
      {6000, 779.99f, 780, 10800, 10800.01f, "13 minutes to 3 hours"},
      {10000, 1319.99f, 1320, 36000, 36000.02f, "22 minutes to 10 hours"},
      {20000, 2879.99f, 2880, 36000, 36000.02f, "48 minutes to 10 hours"},
      {30000, 4799.99f, 4800, 93600, 93600.02f, "1 hr 20 minutes to 26 hours"},
  };
  for (size_t i = 0; i < std::size(bands); ++i) {
    const Band& band = bands[i];
    const std::string limits = "Range permitted is from " + std::string(band.limits);
    const auto asked = [&](float seconds, float distance) {
      return Limits(CheckTimeRange(seconds, distance, 'B', kChecking));
    };
    EXPECT_EQ(asked(band.too_fast, band.distance), limits);
    EXPECT_EQ(asked(band.fastest, band.distance), "") << band.distance;
    EXPECT_EQ(asked(band.slowest, band.distance), "") << band.distance;
    EXPECT_EQ(asked(band.too_slow, band.distance), limits);
    // A band ends just below where the next begins.
    if (i + 1 < std::size(bands)) {
      EXPECT_EQ(asked(band.too_fast, bands[i + 1].distance - 0.5f), limits);
    }
  }
}

TEST(CheckTimeRange, TakesMilesAndWalksForMetres) {
  struct Case {
    float distance;
    char kind;
    float too_fast;
    std::string_view limits;
  };
  const Case cases[] = {
      {1, 'C', 119, "2:00.00 to 24 minutes"},        // 1609 m
      {2, 'C', 359, "6 minutes to 60 minutes"},      // 3219 m
      {1, 'W', 119, "2:00.00 to 24 minutes"},        // a relay over a mile
      {100, 'W', 6, "7 seconds to 2:00.00"},         // from 100 on metres
      {10000, 'D', 1319, "22 minutes to 10 hours"},  // as 14500 m
      {7000, 'D', 1319, "22 minutes to 10 hours"},   // as 10150 m
      {1, 'D', 179, "3:00.00 to 40 minutes"},        // 1609 m, as 2333 m
      {7000, 'B', 779, "13 minutes to 3 hours"},
  };
  for (const Case& c : cases) {
    const std::string limits = "Range permitted is from " + std::string(c.limits);
    EXPECT_EQ(Limits(CheckTimeRange(c.too_fast, c.distance, c.kind, kChecking)), limits)
        << c.kind << c.distance;
  }
}

TEST(CheckTimeRange, AsksNothingWhereThereIsNoRange) {
  EXPECT_FALSE(CheckTimeRange(0, 100, 'A', kChecking));
  EXPECT_FALSE(CheckTimeRange(0.45f, 0, 'A', kChecking));
  EXPECT_FALSE(CheckTimeRange(0.45f, 100, 'A', MarkSettings{}));
  for (const char meet_type : {'L', 'W', 'S'}) {
    EXPECT_FALSE(CheckTimeRange(0.45f, 100, 'A', {.check_ranges = true, .meet_type = meet_type}));
  }
}

TEST(CheckFieldRange, AsksAboveTheLimitOfTheKind) {
  struct Case {
    char kind;
    float metres, over_metres;
    std::string_view metric;
    float inches, over_inches;
    std::string_view english;
  };
  const Case cases[] = {
      {'K', 3.5f, 3.51f, "Maximum height is 3.50 meters", 132, 132.25f, "Maximum height is 11 feet"},
      {'L', 9, 9.01f, "Maximum height is 9.00 meters", 324, 324.25f, "Maximum height is 27 feet"},
      {'M', 12, 12.01f, "Maximum jump is 12.00 meters", 480, 480.25f, "Maximum jump is 40 feet"},
      {'N', 24, 24.01f, "Maximum jump is 24.00 meters", 960, 960.25f, "Maximum jump is 80 feet"},
      {'O', 100, 100.01f, "Maximum throw is 100.00 meters", 3840, 3840.25f, "Maximum throw is 320 feet"},
      {'P', 120, 120.01f, "Maximum throw is 120.00 meters", 4500, 4500.25f, "Maximum throw is 375 feet"},
      {'Q', 120, 120.01f, "Maximum throw is 120.00 meters", 4500, 4500.25f, "Maximum throw is 375 feet"},
      {'R', 30, 30.01f, "Maximum throw is 30.00 meters", 1200, 1200.25f, "Maximum throw is 100 feet"},
      {'S', 120, 120.01f, "Maximum throw is 120.00 meters", 4500, 4500.25f, "Maximum throw is 375 feet"},
      {'U', 120, 120.01f, "Maximum throw is 120.00 meters", 4500, 4500.25f, "Maximum throw is 375 feet"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Limits(CheckFieldRange(c.metres, 'M', c.kind, kChecking)), "") << c.kind;
    EXPECT_EQ(Limits(CheckFieldRange(c.over_metres, 'M', c.kind, kChecking)), c.metric);
    EXPECT_EQ(Limits(CheckFieldRange(c.inches, 'E', c.kind, kChecking)), "") << c.kind;
    EXPECT_EQ(Limits(CheckFieldRange(c.over_inches, 'E', c.kind, kChecking)), c.english);
  }
  EXPECT_FALSE(CheckFieldRange(200, 'M', 'T', kChecking));
  EXPECT_FALSE(CheckFieldRange(200, 'M', 'K', MarkSettings{}));
  EXPECT_FALSE(CheckFieldRange(200, 'M', 'K', {.check_ranges = true, .meet_type = 'L'}));
  EXPECT_TRUE(CheckFieldRange(200, 'M', 'K', {.check_ranges = true, .meet_type = 'W'}));
}

}  // namespace
}  // namespace tarvex::marks
