#include "base/text.h"

#include <gtest/gtest.h>

namespace tarvex {
namespace {

TEST(Upper, KnowsTheLettersOfNames) {
  struct Case {
    std::string_view text, upper;
  };
  const Case cases[] = {
      {"o'brien-2nd", "O'BRIEN-2ND"},
      {"müller ßen", "MÜLLER ßEN"},
      {"ÿ÷×", "Ÿ÷×"},
      {"żółćřšğ", "ŻÓŁĆŘŠĞ"},
      {"ıİ", "Iİ"},
      {"nguyễn thị ơư", "NGUYỄN THỊ ƠƯ"},
      {"ставрос", "СТАВРОС"},
      {"їґ", "ЇҐ"},
      {"στάυρος", "ΣΤΆΥΡΟΣ"},
      {"șț", "ȘȚ"},
      {"\xFF"
       "a",
       "\xFF"
       "A"},
  };
  for (const Case& c : cases) EXPECT_EQ(Upper(c.text), c.upper);
}

TEST(SameText, ForgetsBlanksAroundAndCase) {
  EXPECT_TRUE(SameText("  Åse \t", "åSE\r\n"));
  EXPECT_TRUE(
      SameText("\xC2\xA0"
               "Ann",
               "ann\xC2\xA0"));
  EXPECT_FALSE(SameText("Ann Lee", "AnnLee"));
  EXPECT_FALSE(SameText("Ase", "Åse"));
  // The last byte of "à" is that of a no-break blank; it belongs to the letter.
  EXPECT_EQ(Trim("voilà"), "voilà");
  EXPECT_EQ(WithoutBlanks(" 1:\xC2\xA0 45 .2\t"), "1:45.2");
}

TEST(CompareText, SortsRegardlessOfCase) {
  EXPECT_LT(CompareText("adams", "Baker"), 0);
  EXPECT_EQ(CompareText("ZOË", "zoë"), 0);
  EXPECT_GT(CompareText("Ann", "AN"), 0);
}

TEST(IsUtf8, RefusesWhatNoEncoderWrites) {
  for (const std::string_view good : {"", "plain", "é", "€", "\xF0\x9F\x8F\x83"}) EXPECT_TRUE(IsUtf8(good));
  const std::string_view bad[] = {"\x80",
                                  "caf\xE9",
                                  "\xC0\xAF",
                                  "\xE0\x80\x80",
                                  "\xED\xA0\x80",
                                  "\xF4\x90\x80\x80",
                                  "\xF8\x88\x80\x80\x80",
                                  "\xE2\x82",
                                  "\xC3("};
  for (const std::string_view text : bad) EXPECT_FALSE(IsUtf8(text));
}

}  // namespace
}  // namespace tarvex
