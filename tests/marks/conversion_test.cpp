#include "marks/conversion.h"

#include <gtest/gtest.h>

#include "base/decimal.h"
#include "marks/hand_time.h"

namespace tarvex::marks {
namespace {

TEST(HandToFat, AddsWhatTheRuleOfTheClassSays) {
  struct Case {
    int rule;
    char kind;
    float distance, seconds;
    std::string_view adjusted;
  };
  const Case cases[] = {
      {1, 'A', 100, 10.5f, "10.74"},   {2, 'B', 1500, 240.1f, "240.34"}, {3, 'D', 5000, 1500, "1500.24"},
      {1, 'Y', 4000, 600, "600.24"},   {1, 'M', 0, 6.5f, "6.5"},         {1, 'Z', 400, 60, "60"},
      {4, 'A', 100, 10.5f, "10.74"},   {4, 'B', 220, 22, "22.24"},       {4, 'B', 221, 22, "22.14"},
      {5, 'B', 400, 50.1f, "50.24"},   {6, 'E', 440, 55, "55.14"},       {4, 'B', 441, 55, "55"},
      {4, 'B', 1500, 240.1f, "240.1"}, {4, 'W', 400, 42, "42"},          {4, 'H', 100, 42, "42"},
  };
  for (const Case& c : cases) {
    const MarkSettings settings{.convert_hand_times = true, .hand_rule = c.rule};
    EXPECT_EQ(ShortText(HandToFat(c.seconds, c.distance, c.kind, true, settings)), c.adjusted)
        << c.rule << c.kind << c.distance;
  }
  const MarkSettings on{.convert_hand_times = true, .hand_rule = 1};
  EXPECT_EQ(HandToFat(10.5f, 100, 'A', false, on), 10.5f);
  EXPECT_EQ(HandToFat(0, 100, 'A', true, on), 0);
  EXPECT_EQ(HandToFat(10.5f, 100, 'A', true, {.hand_rule = 1}), 10.5f);
}

TEST(ConvertSeed, ChangesTheUnitOfFieldMarks) {
  struct Case {
    float value;
    char unit, seed_unit, result_unit;
    std::string_view converted;
  };
  const Case cases[] = {
      {255.5f, 'E', 'M', 'M', "6.49"},  // 6.4897 m
      {6.49f, 'M', 'E', 'E', "255.5"},  // 255.511 in
      {6.49f, 'M', 'E', 'M', "6.49"},  {255.6f, 'E', 'M', 'E', "255.6"},
      {255.5f, ' ', 'E', 'M', "6.49"},  // blank: the event's seed unit
      {6.5f, ' ', ' ', 'M', "6.5"},     // and blank again: its result unit
      {100, 'E', ' ', 'M', "2.54"},    {2.54f, 'M', ' ', 'E', "100"},
      {72.25f, 'E', ' ', 'M', "1.84"},  // 1.83515 m
      {1.85f, 'M', ' ', 'E', "72.75"},  // 72.834 in
      {0, 'E', ' ', 'M', "0"},
  };
  for (const Case& c : cases) {
    const ConversionEvent event{
        .track_or_field = 'F', .kind = 'M', .seed_unit = c.seed_unit, .result_unit = c.result_unit};
    const ConvertedMark mark = ConvertSeed({c.value, c.unit}, event, std::nullopt, {});
    EXPECT_EQ(ShortText(mark.value), c.converted) << c.value << c.unit;
    EXPECT_EQ(mark.unit, c.result_unit);
  }
}

TEST(ConvertSeed, LeavesTimesAloneButForHandTiming) {
  const ConversionEvent dash{.track_or_field = 'T', .kind = 'A', .distance = 100, .result_unit = 'M'};
  const MarkSettings on{.convert_hand_times = true, .hand_rule = 4};
  EXPECT_EQ(ConvertSeed({10.5f, 'E'}, dash, std::nullopt, on), (ConvertedMark{10.5f, 'M'}));
  EXPECT_EQ(ConvertSeed({10.5f, 'M', true}, dash, std::nullopt, on), (ConvertedMark{10.74f, 'M'}));
}

TEST(ConvertSeed, AppliesARuleFromLeftToRight) {
  struct Case {
    ConversionRule rule;
    char track_or_field;
    float seed;
    char result_unit;
    std::string_view converted;
  };
  const Case cases[] = {
      {{'*', 1.0072f, ' ', 0}, 'T', 240, 'M', "241.73"},  // 241.728
      {{'+', 1.5f, '*', 2}, 'T', 10.1f, 'M', "23.2"},     // (10.1 + 1.5) * 2
      {{'-', 0.5f, '/', 2}, 'T', 11.1f, 'M', "5.3"},      // exact, so nothing is rounded up
      {{'/', 3, '*', 3}, 'T', 10.25f, 'M', "10.25"},      // the last digit of a quotient is not meant
      {{'/', 3, '*', 3}, 'F', 10, 'M', "10"},
      {{'*', 1.001f, ' ', 0}, 'T', 100.05f, 'M', "100.16"},  // 100.15005
      {{' ', 9, '+', 1}, 'T', 10, 'M', "11"},                // a blank sign leaves its factor out
      {{'/', 0, ' ', 0}, 'T', 10, 'M', "10"},
      {{'-', 20, ' ', 0}, 'T', 10, 'M', "0"},
      {{'*', 1.0099f, ' ', 0}, 'F', 6.5f, 'M', "6.56"},   // 6.56435 m, cut
      {{'*', 39.37f, ' ', 0}, 'F', 6.5f, 'E', "255.75"},  // 255.905 in, cut to the quarter
  };
  for (const Case& c : cases) {
    const ConversionEvent event{
        .track_or_field = c.track_or_field, .kind = 'B', .distance = 1500, .result_unit = c.result_unit};
    EXPECT_EQ(ShortText(ConvertSeed({c.seed, 'M'}, event, c.rule, {}).value), c.converted) << c.converted;
  }
  const ConversionEvent run{.track_or_field = 'T', .kind = 'B', .distance = 1500, .result_unit = 'M'};
  const MarkSettings on{.convert_hand_times = true, .hand_rule = 1};
  EXPECT_EQ(ConvertSeed({240, 'M', true}, run, ConversionRule{'*', 1.0072f, ' ', 0}, on).value, 241.97f);
}

}  // namespace
}  // namespace tarvex::marks
