#include "base/decimal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tarvex {
namespace {

Decimal D(std::string_view text) {
  return Decimal::Parse(text).value();
}

TEST(ShortText, IsTheTypedNumber) {
  struct Case {
    float value;
    std::string_view text;
  };
  const Case cases[] = {
      {10.23f, "10.23"}, {10.231f, "10.231"}, {105.23f, "105.23"},   {85567.89f, "85567.89"},   {0.0f, "0"},
      {-0.0f, "0"},      {-0.5f, "-0.5"},     {0.00001f, "0.00001"}, {16777216.0f, "16777216"}, {NAN, "0"},
      {INFINITY, "0"},
  };
  for (const Case& c : cases) EXPECT_EQ(ShortText(c.value), c.text);
}

TEST(Decimal, EverySingleBelowTenToThe28ComesBackUnchanged) {
  const float values[] = {10.23f, 0.1f, 1e-45f, 1.17549435e-38f, 9.9999e27f, -45.6f, 3723.45f, 16777217.0f};
  for (const float value : values) EXPECT_EQ(Decimal::FromSingle(value).ToSingle(), value) << value;
  const float greatest = std::numeric_limits<float>::max();
  EXPECT_EQ(Decimal::FromSingle(greatest).ToText(), std::string(28, '9'));
  EXPECT_EQ(Decimal::FromSingle(-greatest).ToText(), "-" + std::string(28, '9'));
}

TEST(Decimal, ReadsNumbersAndNothingElse) {
  struct Case {
    std::string_view typed, text;
  };
  const Case good[] = {{"10.20", "10.2"}, {"-0.50", "-0.5"}, {".5", "0.5"}, {"62.", "62"},        {"+7", "7"},
                       {"000", "0"},      {".0", "0"},       {"-0", "0"},   {"0012.340", "12.34"}};
  for (const Case& c : good) EXPECT_EQ(D(c.typed).ToText(), c.text) << c.typed;
  for (const std::string_view bad : {"", ".", "-", "1.2.3", "1e5", " 1", "1,5", "--1", "nan"}) {
    EXPECT_FALSE(Decimal::Parse(bad)) << bad;
  }
  EXPECT_TRUE(Decimal::Parse(std::string(28, '9')));
  EXPECT_FALSE(Decimal::Parse("1" + std::string(28, '0')));
  EXPECT_FALSE(Decimal::Parse(std::string(100000, '1')));
}

TEST(Decimal, AddsAndMultipliesExactly) {
  EXPECT_EQ((D("0.1") + D("0.2")).ToText(), "0.3");
  EXPECT_EQ((Decimal::FromSingle(10.2301f) + D("0.009")).ToText(), "10.2391");
  EXPECT_EQ((D("1.05") - D("1.05")).ToText(), "0");
  EXPECT_EQ((D("62.31") - D("62.32")).ToText(), "-0.01");
  EXPECT_EQ((D("255.5") * D("0.0254")).ToText(), "6.4897");
  EXPECT_EQ((D("-0.5") * 4).ToText(), "-2");
}

TEST(Decimal, DividesTo28SignificantDigits) {
  EXPECT_EQ((D("1") / 3).ToText(), "0.3333333333333333333333333333");
  EXPECT_EQ((D("2") / 3).ToText(), "0.6666666666666666666666666667");
  EXPECT_EQ((D("-20") / 3).ToText(), "-6.666666666666666666666666667");
  EXPECT_EQ((D("0.02") / 3).ToText(), "0.006666666666666666666666666667");
  EXPECT_EQ((D("11") / 2).ToText(), "5.5");
  EXPECT_EQ((D("0") / 7).ToText(), "0");
  EXPECT_EQ((D("6.4897") / D("0.0254")).ToText(), "255.5");
}

// Far beyond any mark, but files may hold anything.
TEST(Decimal, StaysInsideItsDigits) {
  const std::string nines(28, '9');
  EXPECT_EQ((D(nines) * D(nines)).ToText(), nines);
  EXPECT_EQ((D(nines) + D("1")).ToText(), nines);
  EXPECT_EQ((D("-" + nines) - D("1")).ToText(), "-" + nines);
  EXPECT_EQ((D("0.9999999999999999999999999999") + D("1")).ToText(), "2");
  EXPECT_EQ((D("1000000000000000000000000000") + Decimal::FromSingle(1e-45f)).ToText(),
            "1000000000000000000000000000");
  EXPECT_TRUE((Decimal::FromSingle(1e-45f) * Decimal::FromSingle(1e-45f)).IsZero());
}

TEST(Decimal, CutsTowardsZeroAndRoundsHalvesAway) {
  struct Case {
    std::string_view number;
    int decimals;
    std::string_view cut, rounded;
  };
  const Case cases[] = {{"10.239", 2, "10.23", "10.24"}, {"10.235", 2, "10.23", "10.24"},
                        {"-1.25", 1, "-1.2", "-1.3"},    {"59.999", 0, "59", "60"},
                        {"10.209", 2, "10.2", "10.21"},  {"3", 2, "3", "3"},
                        {"0.004", 2, "0", "0"}};
  for (const Case& c : cases) {
    EXPECT_EQ(D(c.number).CutTo(c.decimals).ToText(), c.cut) << c.number;
    EXPECT_EQ(D(c.number).RoundedTo(c.decimals).ToText(), c.rounded) << c.number;
  }
}

TEST(Decimal, ComparesByValue) {
  EXPECT_EQ(D("10.20"), D("10.2"));
  EXPECT_EQ(D("10.20").Decimals(), 1);
  EXPECT_LT(D("9.99"), D("10"));
  EXPECT_LT(D("-10"), D("-9.99"));
  EXPECT_GT(D("10.231"), D("10.23"));
  EXPECT_GT(D(std::string(28, '9')), Decimal::FromSingle(1e-45f));
  EXPECT_EQ(D("-3.99").Whole(), -3);
}

}  // namespace
}  // namespace tarvex
