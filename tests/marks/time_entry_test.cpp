#include "marks/time_entry.h"

#include <gtest/gtest.h>

#include "base/decimal.h"
#include "marks/digits.h"
#include "tests/marks/scripted_user.h"

namespace tarvex::marks {
namespace {

// What an entry came to, in one word: the seconds with status, "hand" or "video", or the refusal.
std::string Shown(const MarkEntry& entry) {
  if (!entry.accepted) return entry.message ? entry.message->text : "refused silently";
  std::string shown = ShortText(entry.value);
  if (entry.status != kValid) shown += std::string(" ") + entry.status;
  return shown + (entry.hand ? " hand" : "") + (entry.video ? " video" : "");
}

std::string Read(std::string_view typed, const TimeEntryOptions& options = {}, char separator = '.') {
  MarkSettings settings;
  settings.decimal_separator = separator;
  return Shown(ReadTime(typed, 1500, 'B', options, settings));
}

std::string UnclearText(std::string_view typed) {
  return std::string(typed) + " meaning unclear, re-enter, please !";
}

struct TypedTime {
  std::string_view typed, shown;
};

TEST(ReadTime, TakesTheLastTwoDigitsAsHundredths) {
  const TypedTime cases[] = {
      {"45", "0.45"},
      {"4500", "45"},
      {"45.", "45"},
      {"45.2", "45.2"},
      {"45.23", "45.23"},
      {"1:45", "105"},
      {"1:45.", "105"},
      {"1:45.2", "105.2"},
      {"1:45.23", "105.23"},
      {"14523", "105.23"},
      {"1:4523", "105.23"},
      {"123.45", "83.45"},
      {"100.00", "60"},
      {"10000", "60"},
      {"9999", "99.99"},
      {"1:75", "135"},
      {"90:00", "5400"},
      {"1:45:23", "6323"},
      {":45.23", "45.23"},
      {"4A523", "45.23"},
      {"1:45,23", "105.23"},
      {"0", "0"},
      {"00:00", "0"},
      {"1:02:", "3720"},
      {"5:", "300"},
      {"1:02:03.45", "3723.45"},
      {" 1 : 45 . 23 ", "105.23"},
      // Only nine characters are read, so the first digit is lost.
      {"123456789", "85567.89"},
      {"12:34:56.78", "45296.78"},
  };
  for (const TypedTime& c : cases) EXPECT_EQ(Read(c.typed), c.shown) << c.typed;
}

TEST(ReadTime, TakesHandVideoAndExhibitionOffTheNumber) {
  const TypedTime cases[] = {
      {"10.5h", "10.5 hand"},
      {"10.5A", "10.5 video"},
      {"X10.5H", "10.5 X hand"},
      {"x1:45.2", "105.2 X"},
      {"10.5HH", "1.05 hand"},  // "5H" are two characters behind the separator
      {"10.5AH", "Time cannot be both a hand time and a video time."},
      {"10.5HA", "Time cannot be both a hand time and a video time."},
  };
  for (const TypedTime& c : cases) EXPECT_EQ(Read(c.typed), c.shown) << c.typed;
}

TEST(ReadTime, RefusesWhatIsUnclearInTheWordsTyped) {
  const std::string_view cases[] = {"45.234", "1:4",   "1:4.5",      "1:000", "1:2:03.45", "::45", "X",
                                    "H",      "A",     "XH",         "XNT",   "NH",        ".5",   "1::45",
                                    "45.2.",  "x 1:4", "1:02:03:04", "FOUL",  "P"};
  for (const std::string_view typed : cases) EXPECT_EQ(Read(typed), UnclearText(typed));
}

TEST(ReadTime, KnowsTheStatusWords) {
  const TypedTime cases[] = {{"nt", "0 N"}, {"N", "0 N"},  {"NS", "0 S"},    {"dns", "0 S"}, {"S", "0 S"},
                             {"*", "0 S"},  {"SC", "0 R"}, {"SCR", "0 R"},   {"R", "0 R"},   {"Q", "0 Q"},
                             {"DQ", "0 Q"}, {"DN", "0 D"}, {"D N F", "0 D"}, {"D", "0 D"},   {"F", "0 F"},
                             {"FS", "0 F"}, {"", "0"},     {"  ", "0"}};
  for (const TypedTime& c : cases) EXPECT_EQ(Read(c.typed), c.shown) << c.typed;
}

TEST(ReadTime, WithoutCodesOnlyNoTimePasses) {
  const TimeEntryOptions no_codes{.codes_allowed = false};
  EXPECT_EQ(Read("NT", no_codes), "0 N");
  EXPECT_EQ(Read("N", no_codes), "0");
  for (const std::string_view typed : {"DNF", "SCR", "*", "Q", "F", "FS"}) {
    EXPECT_EQ(Read(typed, no_codes), "Not a valid Time") << typed;
  }
}

TEST(ReadTime, ReadsTheDecimalComma) {
  const TypedTime cases[] = {{"1:45,23", "105.23"}, {"45,2", "45.2"}, {"45.23", "45.23"}, {"45.2", "4.52"}};
  for (const TypedTime& c : cases) EXPECT_EQ(Read(c.typed, {}, ','), c.shown) << c.typed;
  EXPECT_EQ(Read("45,234", {}, ','), UnclearText("45,234"));
}

TEST(ReadTime, ReadsThousandths) {
  const TimeEntryOptions thousandths{.thousandths = true};
  const TypedTime cases[] = {{"10", "10"},
                             {"14523", "6323"},
                             {"10.2", "10.2"},
                             {"10.23", "10.23"},
                             {"10.231H", "10.231 hand"},
                             {"10.2345", "10.234"},
                             {"1:45.234", "105.234"},
                             {"1:5.234", "15.234"},
                             {"10.", "10"},
                             {"1:02:03.456", "3723.456"}};
  for (const TypedTime& c : cases) EXPECT_EQ(Read(c.typed, thousandths), c.shown) << c.typed;
  for (const std::string_view typed : {".5", "1.2.3", "1234567890"}) {
    EXPECT_EQ(Read(typed, thousandths), UnclearText(typed));
  }
  EXPECT_EQ(Shown(ReadTime("1:45,234", 800, 'B', thousandths, {.decimal_separator = ','})), "105.234");
}

TEST(ReadTime, ThousandthsAreForTrackRaces) {
  const MarkSettings on{.thousandths = true};
  EXPECT_TRUE(UsesThousandths('T', ' ', on));
  EXPECT_FALSE(UsesThousandths('T', 'C', on));
  EXPECT_FALSE(UsesThousandths('T', 'R', on));
  EXPECT_FALSE(UsesThousandths('F', ' ', on));
  EXPECT_FALSE(UsesThousandths('T', ' ', MarkSettings{}));
}

// Rows of a file are read without a word and asked about together.
TEST(ReadTime, LeavesThePlausibilityQuestionToTheCaller) {
  const MarkEntry entry = ReadTime("45", 100, 'A', {}, {.check_ranges = true});
  EXPECT_TRUE(entry.accepted);
  ASSERT_TRUE(entry.range_question);
  EXPECT_EQ(entry.range_question->text,
            "Time entered is out of range for this event !\rRange permitted is from 7 seconds to 2:00.00\r"
            "Accept the time anyway ?");
  EXPECT_FALSE(ReadTime("0", 100, 'A', {}, {.check_ranges = true}).range_question);
}

TEST(ParseTime, TakesTheAnswerToThePlausibilityQuestion) {
  const MarkSettings settings{.check_ranges = true};
  ScriptedUser yes(Answer::Yes), no(Answer::No), nobody;
  const MarkEntry kept = ParseTime("45", 100, 'A', {}, settings, yes);
  EXPECT_TRUE(kept.accepted);
  EXPECT_EQ(kept.value, 0.45f);
  EXPECT_FALSE(ParseTime("45", 100, 'A', {}, settings, no).accepted);
  const MarkEntry open = ParseTime("45", 100, 'A', {}, settings, nobody);
  EXPECT_FALSE(open.accepted);
  EXPECT_TRUE(open.unanswered);
  EXPECT_EQ(yes.asked.size() + no.asked.size() + nobody.asked.size(), 3u);

  EXPECT_TRUE(ParseTime("11.05", 100, 'A', {}, settings, yes).accepted);
  EXPECT_EQ(yes.asked.size(), 1u);
}

TEST(ParseTime, ShowsItsMessageOnlyWhenAskedTo) {
  ScriptedUser user;
  EXPECT_FALSE(ParseTime("1:4", 800, 'B', {.show_message = false}, {}, user).accepted);
  EXPECT_TRUE(user.told.empty());
  EXPECT_FALSE(ParseTime("1:4", 800, 'B', {}, {}, user).accepted);
  EXPECT_EQ(user.told, std::vector<std::string>{UnclearText("1:4")});
  EXPECT_TRUE(user.asked.empty());
}

TEST(FieldsOf, ExhibitionHasAFieldOfItsOwn) {
  EXPECT_EQ(FieldsOf('X'), (StatusFields{' ', 'X'}));
  EXPECT_EQ(FieldsOf('Q'), (StatusFields{'Q', ' '}));
  EXPECT_EQ(FieldsOf(' '), (StatusFields{' ', ' '}));
}

TEST(PadDecimals, GivesTheSuffixThatIsMissing) {
  struct Case {
    std::string_view text;
    char separator;
    std::string_view two, three;
  };
  const Case cases[] = {{"45", '.', ".00", ".000"},  {"45", ',', ",00", ",000"}, {"45.", '.', "00", "000"},
                        {"45.2", '.', "0", "00"},    {"45.23", '.', "", "0"},    {"45.231", '.', "", ""},
                        {"45.2", ',', ",00", ",000"}};
  for (const Case& c : cases) {
    EXPECT_EQ(PadDecimals2(c.text, c.separator), c.two) << c.text;
    EXPECT_EQ(PadDecimals3(c.text, c.separator), c.three) << c.text;
  }
}

TEST(DigitsToSeconds, ReadsHoursMinutesAndSeconds) {
  const TypedTime cases[] = {{"145.23", "105.23"}, {"10203.45", "3723.45"}, {"4523", "2723"}, {"0.5", "0.5"}};
  for (const TypedTime& c : cases) {
    EXPECT_EQ(DigitsToSeconds(Decimal::Parse(c.typed).value()).ToText(), c.shown) << c.typed;
  }
}

}  // namespace
}  // namespace tarvex::marks
