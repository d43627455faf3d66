#include "marks/format.h"

#include <gtest/gtest.h>

namespace tarvex::marks {
namespace {

constexpr DisplayFlags kTenths{.precision = Precision::Tenths};
constexpr DisplayFlags kWholeSeconds{.precision = Precision::WholeSeconds};
constexpr DisplayFlags kShortForm{.short_form = true};

std::string Running(float seconds, char status, const DisplayFlags& flags = {},
                    const MarkSettings& settings = {}) {
  return FormatMark(seconds, status, 'T', 'M', 'B', flags, settings);
}

std::string Field(float value, char unit, char kind, char status = ' ', const DisplayFlags& flags = {},
                  const MarkSettings& settings = {}) {
  return FormatMark(value, status, 'F', unit, kind, flags, settings);
}

TEST(FormatTime, LaysOutHoursMinutesAndSeconds) {
  struct Case {
    float seconds;
    std::string_view text;
  };
  const Case cases[] = {{45.23f, "45.23"},    {0.45f, "0.45"},          {9.5f, "9.50"},
                        {45, "45.00"},        {59.99f, "59.99"},        {60, "1:00.00"},
                        {105.23f, "1:45.23"}, {65.2f, "1:05.20"},       {3599.99f, "59:59.99"},
                        {3600, "1:00:00.00"}, {3723.45f, "1:02:03.45"}, {45296.78f, "12:34:56.78"},
                        {10.231f, "10.24"},   {59.995f, "1:00.00"},     {3599.995f, "1:00:00.00"}};
  for (const Case& c : cases) EXPECT_EQ(FormatTime(c.seconds, ' ', false, {}), c.text);
  EXPECT_EQ(FormatTime(105.23f, ' ', false, {.decimal_separator = ','}), "1:45,23");
}

TEST(FormatTime, ShowsAWordOnlyWithoutATime) {
  struct Case {
    char status;
    std::string_view text;
  };
  const Case cases[] = {{'Y', "NT"},  {'N', "NT"}, {'R', "NS"}, {'S', "NS"}, {'Q', "DQ"},
                        {'D', "DNF"}, {'F', "FS"}, {'P', " "},  {'X', " "},  {' ', " "}};
  for (const Case& c : cases) {
    EXPECT_EQ(FormatTime(0, c.status, false, {}), c.text) << c.status;
    EXPECT_EQ(FormatTime(12.5f, c.status, false, {}), "12.50") << c.status;
  }
  EXPECT_EQ(FormatTime(0, 'Y', true, {}), "NP");
  EXPECT_EQ(FormatTime(0, 'Q', true, {}), "DQ");
}

TEST(FormatThousandths, HasThreeDecimals) {
  EXPECT_EQ(FormatThousandths(10.231f, {}), "10.231");
  EXPECT_EQ(FormatThousandths(105.23f, {}), "1:45.230");
  EXPECT_EQ(FormatThousandths(60, {.decimal_separator = ','}), "1:00,000");
}

TEST(FormatMark, RoundsTimesUpThenLaysOut) {
  struct Case {
    float seconds;
    std::string_view hundredths, tenths, whole;
  };
  const Case cases[] = {
      {10.231f, "10.24", "10.3", "11"},
      {10.23f, "10.23", "10.3", "11"},
      {10.2301f, "10.23", "10.3", "11"},
      {105.23f, "1:45.23", "1:45.3", "1:46"},
      {45.01f, "45.01", "45.1", "46"},
      {59.5f, "59.50", "59.5", "1:00"},
      {10.21f, "10.21", "10.3", "11"},
      {59.95f, "59.95", "1:00.0", "1:00"},
      {59.995f, "1:00.00", "1:00.0", "1:00"},
      {45, "45.00", "45.0", "45"},
      {3599.5f, "59:59.50", "59:59.5", "1:00:00"},
      {8.2f, "8.20", "8.2", "9"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Running(c.seconds, ' '), c.hundredths);
    EXPECT_EQ(Running(c.seconds, ' ', kTenths), c.tenths);
    EXPECT_EQ(Running(c.seconds, ' ', kWholeSeconds), c.whole);
  }
  EXPECT_EQ(Running(8.2f, ' ', kTenths, {.decimal_separator = ','}), "8,2");
}

TEST(FormatMark, ShowsStatusWordsBeforeMarks) {
  struct Case {
    char status;
    std::string_view running, jump, height, short_jump;
  };
  const Case cases[] = {
      {'N', "NT", "ND", "NH", "ND"},     {'Y', "NT", "ND", "NH", "ND"},     {'S', "DNS", "DNS", "DNS", "DNS"},
      {'R', "SCR", "SCR", "SCR", "SCR"}, {'Z', "SCR", "SCR", "SCR", "SCR"}, {'Q', "DQ", "DQ", "DQ", "DQ"},
      {'D', "DNF", "DNF", "DNF", "DNF"}, {'F', "FS", "FOUL", "FAIL", "X"},  {'P', " ", "PASS", "PASS", "-"},
  };
  const MarkSettings short_allowed{.short_attempt_form = true};
  for (const Case& c : cases) {
    EXPECT_EQ(Running(12.5f, c.status), c.running);
    EXPECT_EQ(Field(6.5f, 'M', 'M', c.status), c.jump);
    EXPECT_EQ(Field(0, 'M', 'K', c.status), c.height);
    EXPECT_EQ(Field(0, 'M', 'M', c.status, kShortForm, short_allowed), c.short_jump);
    EXPECT_EQ(Field(0, 'M', 'M', c.status, kShortForm), c.jump);
  }
  EXPECT_EQ(Running(0, ' '), " ");
  EXPECT_EQ(Field(0, 'E', 'M'), " ");
}

TEST(FormatMark, CutsFieldMarks) {
  struct Case {
    float value;
    char unit, kind;
    std::string_view text;
  };
  const Case cases[] = {
      {255.6f, 'E', 'M', "21-03.50"},   {255.55f, 'E', 'M', "21-03.50"},
      {72.25f, 'E', 'K', "6-00.25"},    {255.24f, 'E', 'M', "21-03.00"},
      {255.25f, 'E', 'M', "21-03.25"},  {255.49f, 'E', 'M', "21-03.25"},
      {255.74f, 'E', 'M', "21-03.50"},  {255.75f, 'E', 'M', "21-03.75"},
      {255.99f, 'E', 'M', "21-03.75"},  {72, 'E', 'K', "6-00.00"},
      {6.5f, 'E', 'M', "6.50"},         {6, 'E', 'Q', "6"},
      {12, 'E', 'M', "1-00.00"},        {11.75f, 'E', 'M', "11.75"},
      {130, 'E', 'M', "10-10.00"},      {2160, 'E', 'O', "180-00"},
      {2166.9f, 'E', 'Q', "180-06.75"}, {2166.2f, 'E', 'Q', "180-06"},
      {62.3f, 'M', 'Q', "62.30"},       {6, 'M', 'M', "6.00"},
      {6.49f, 'M', 'M', "6.49"},        {6.4897f, 'M', 'M', "6.48"},
  };
  for (const Case& c : cases) EXPECT_EQ(Field(c.value, c.unit, c.kind), c.text) << c.value;
  const MarkSettings whole{.whole_inch = true};
  EXPECT_EQ(Field(2166.9f, 'E', 'Q', ' ', {}, whole), "180-06");
  EXPECT_EQ(Field(255.6f, 'E', 'R', ' ', {}, whole), "21-03.50");
  EXPECT_EQ(Field(62.3f, 'M', 'Q', ' ', {.with_unit = true}), "62.30m");
  EXPECT_EQ(Field(255.5f, 'E', 'M', ' ', {.with_unit = true}), "21-03.50");
  EXPECT_EQ(Field(6.5f, 'M', 'M', ' ', {}, {.decimal_separator = ','}), "6,50");
}

TEST(FormatMark, MarksExhibitionUnlessSuppressed) {
  EXPECT_EQ(Running(10.5f, 'X'), "X10.50");
  EXPECT_EQ(Running(10.5f, ' ', {.exhibition = true}), "X10.50");
  EXPECT_EQ(Running(10.5f, 'X', {}, {.suppress_x = true}), "10.50");
  EXPECT_EQ(Running(0, 'Q', {.exhibition = true}), "DQ");
  EXPECT_EQ(SeedExhibitionPrefix(true, {}), "x");
  EXPECT_EQ(SeedExhibitionPrefix(false, {}), "");
  EXPECT_EQ(SeedExhibitionPrefix(true, {.suppress_small_x = true}), "");
}

TEST(ResultPrecision, FollowsTheSurfaceAndTheDistance) {
  struct Case {
    char event_type;
    float distance;
    char kind;
    int meet_class;
    bool to_tenths;
    Precision precision;
  };
  const Case cases[] = {
      {' ', 100, 'A', 1, false, Precision::Hundredths},   {' ', 100, 'A', 1, true, Precision::Tenths},
      {' ', 10000, 'B', 4, false, Precision::Hundredths}, {' ', 10001, 'B', 4, false, Precision::Tenths},
      {' ', 7, 'C', 1, false, Precision::Tenths},         {' ', 6, 'C', 1, false, Precision::Hundredths},
      {' ', 20000, 'D', 4, false, Precision::Tenths},     {' ', 10000, 'D', 4, false, Precision::Hundredths},
      {'R', 5000, 'B', 1, true, Precision::WholeSeconds}, {'C', 5000, 'B', 4, true, Precision::WholeSeconds},
      {'C', 5000, 'B', 1, false, Precision::Tenths},
  };
  for (const Case& c : cases) {
    const MarkSettings settings{.meet_class = c.meet_class, .round_to_tenths = c.to_tenths};
    EXPECT_EQ(ResultPrecision(c.event_type, c.distance, c.kind, settings), c.precision)
        << c.event_type << c.distance;
  }
}

TEST(Ties, FieldMarksByWhatIsShownAndTimesByTheThousandth) {
  EXPECT_TRUE(FieldMarksTie(255.55f, 255.6f, 'E', 'M', {}));
  EXPECT_FALSE(FieldMarksTie(255.55f, 255.75f, 'E', 'M', {}));
  EXPECT_FALSE(FieldMarksTie(62.31f, 62.32f, 'M', 'Q', {}));
  EXPECT_FALSE(FieldMarksTie(2166.25f, 2166.75f, 'E', 'Q', {}));
  EXPECT_TRUE(FieldMarksTie(2166.25f, 2166.75f, 'E', 'Q', {.whole_inch = true}));
  EXPECT_FALSE(TimesTie(10.231f, 10.234f));
  EXPECT_TRUE(TimesTie(10.23f, 10.23f));
}

}  // namespace
}  // namespace tarvex::marks
