#include "marks/field_entry.h"

#include <gtest/gtest.h>

#include "base/decimal.h"
#include "tests/marks/scripted_user.h"

namespace tarvex::marks {
namespace {

std::string Read(std::string_view typed, char unit, char kind = 'M', const FieldEntryOptions& options = {},
                 const MarkSettings& settings = {}) {
  const MarkEntry entry = ReadFieldMark(typed, unit, kind, options, settings);
  if (!entry.accepted) return entry.message ? entry.message->text : "refused silently";
  return ShortText(entry.value) + (entry.status == kValid ? "" : std::string(" ") + entry.status);
}

std::string UnclearText(std::string_view typed) {
  return std::string(typed) + " meaning unclear, re-enter, please !";
}

constexpr std::string_view kInches = "Inches cannot exceed 11 !";
constexpr std::string_view kFeet = "Maximum permitted is 999 feet !";

struct TypedMark {
  std::string_view typed, shown;
};

TEST(ReadFieldMark, ReadsFeetAndInches) {
  const TypedMark cases[] = {
      {"21-03.5", "255.5"},
      {"21'3.50", "255.5"},
      {"21-3.5", "255.5"},
      {"21-", "252"},
      {"-6", "6"},
      {"2103", "255"},
      {"2103.5", "255.5"},
      {"504", "64"},
      {"15006", "1806"},
      {"11", "11"},
      {"6", "6"},
      {"1206", "150"},
      {"21-11.75", "263.75"},
      {"X21-3", "255 X"},
      {"0", "0"},
      {"999-00", "11988"},
      {"2103.", "255"},
      {"21 - 3", "255"},
      {"21-12", kInches},
      {"13", kInches},
      {"210350", kInches},
      {"1000-12", kInches},
      {"999-00.25", kFeet},
      {"1000-0", kFeet},
      {"99999999999-0", kFeet},
  };
  for (const TypedMark& c : cases) EXPECT_EQ(Read(c.typed, 'E'), c.shown) << c.typed;
  const std::string_view unclear[] = {"21-3.125", "21-3-5", "21'3'5", "21-3.5.5", "3.5-2",
                                      "21-003",   "21 1/4", "21'3\"", "-",        ".5",
                                      "X",        "2103,5", "21:03",  "FOULX"};
  for (const std::string_view typed : unclear) EXPECT_EQ(Read(typed, 'E'), UnclearText(typed));
}

TEST(ReadFieldMark, ReadsMetresWithImpliedHundredths) {
  const TypedMark cases[] = {
      {"6231", "62.31"},
      {"62.3", "62.3"},
      {"185", "1.85"},
      {"62", "0.62"},
      {"62.", "62"},
      {"300.00", "300"},
      {"x7.05", "7.05 X"},
      {"0", "0"},
      {"1 85", "1.85"},
      {"300.01", "Maximum permitted is 300 meters !"},
      {"99999999999999", "Maximum permitted is 300 meters !"},
  };
  for (const TypedMark& c : cases) EXPECT_EQ(Read(c.typed, 'M'), c.shown) << c.typed;
  for (const std::string_view typed : {"62.314", "6:23", "6-23", "7.05m", "1.2.3", ".5", "-5", "X", "7,05"}) {
    EXPECT_EQ(Read(typed, 'M'), UnclearText(typed));
  }
}

TEST(ReadFieldMark, ReadsTheDecimalComma) {
  const MarkSettings comma{.decimal_separator = ','};
  EXPECT_EQ(Read("7,05", 'M', 'M', {}, comma), "7.05");
  EXPECT_EQ(Read("21-3,5", 'E', 'M', {}, comma), "255.5");
  EXPECT_EQ(Read("7.05", 'M', 'M', {}, comma), UnclearText("7.05"));
  EXPECT_EQ(Read("21-3.5", 'E', 'M', {}, comma), UnclearText("21-3.5"));
}

TEST(ReadFieldMark, KnowsTheStatusWords) {
  const TypedMark cases[] = {{"N", "0 N"},    {"nh", "0 N"},  {"ND", "0 N"},   {"NT", "0 N"},   {"P", "0 P"},
                             {"pass", "0 P"}, {"DNS", "0 S"}, {"*", "0 S"},    {"SCR", "0 R"},  {"DQ", "0 Q"},
                             {"DNF", "0 D"},  {"F", "0 F"},   {"FOUL", "0 F"}, {"FAIL", "0 F"}, {" ", "0"}};
  for (const TypedMark& c : cases) EXPECT_EQ(Read(c.typed, 'M'), c.shown) << c.typed;
  EXPECT_EQ(Read("FS", 'M'), UnclearText("FS"));

  const FieldEntryOptions no_codes{.codes_allowed = false};
  EXPECT_EQ(Read("NT", 'M', 'M', no_codes), "0 N");
  EXPECT_EQ(Read("N", 'M', 'M', no_codes), "0");
  EXPECT_EQ(Read("FOUL", 'M', 'M', no_codes), "Not a valid Mark");
}

// USATF and NFHS measure the long throws to the even centimetre.
TEST(ReadFieldMark, LowersLongThrowsToTheEvenCentimetre) {
  const MarkSettings even{.even_centimetre = true};
  EXPECT_EQ(Read("62.31", 'M', 'Q', {}, even), "62.3");
  EXPECT_EQ(Read("62.32", 'M', 'Q', {}, even), "62.32");
  EXPECT_EQ(Read("62.29", 'M', 'O', {}, even), "62.28");
  EXPECT_EQ(Read("16.31", 'M', 'R', {}, even), "16.31");
  EXPECT_EQ(Read("62.31", 'M', 'P', {.even_centimetre = false}, even), "62.31");
  EXPECT_EQ(Read("62.31", 'M', 'Q'), "62.31");
  EXPECT_EQ(Read("150-01", 'E', 'Q', {}, even), "1801");
}

TEST(ParseFieldMark, TakesTheAnswerToThePlausibilityQuestion) {
  const MarkSettings settings{.check_ranges = true};
  ScriptedUser yes(Answer::Yes), no(Answer::No);
  EXPECT_EQ(ParseFieldMark("3.51", 'M', 'K', {}, settings, yes).value, 3.51f);
  EXPECT_FALSE(ParseFieldMark("3.51", 'M', 'K', {}, settings, no).accepted);
  EXPECT_EQ(yes.asked, std::vector<std::string>{"Mark entered is out of range for this event !\r"
                                                "Maximum height is 3.50 meters\rAccept the Mark anyway ?"});
  EXPECT_FALSE(ParseFieldMark("21-12", 'E', 'M', {}, settings, yes).accepted);
  EXPECT_EQ(yes.told, std::vector<std::string>{std::string(kInches)});
}

}  // namespace
}  // namespace tarvex::marks
