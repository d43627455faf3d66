#include "database/field_text.h"

#include <gtest/gtest.h>

#include "database/date.h"

namespace tarvex::database {
namespace {

using jet::ColumnType;

jet::Column ColumnOf(ColumnType type, int characters = 0) {
  jet::Column column;
  column.name = "f";
  column.type = type;
  column.length = static_cast<uint16_t>(2 * characters);
  return column;
}

struct TextCase {
  ColumnType type;
  std::string_view typed;
  std::string_view shown;  // after the value was made and shown again
};
constexpr TextCase kAccepted[] = {
    {ColumnType::Boolean, "YES", "yes"},
    {ColumnType::Boolean, "0", "no"},
    {ColumnType::Boolean, " true ", "yes"},
    {ColumnType::Integer, "-32768", "-32768"},
    {ColumnType::Integer, "+7", "7"},
    {ColumnType::Integer, "", ""},
    {ColumnType::Byte, "255", "255"},
    {ColumnType::Long, "2147483647", "2147483647"},
    {ColumnType::Single, "10.23", "10.23"},
    {ColumnType::Single, "-.5", "-0.5"},
    {ColumnType::Double, "0.1", "0.1"},
    {ColumnType::Currency, "12.50", "12.5"},
    {ColumnType::Currency, "-0.0001", "-0.0001"},
    {ColumnType::Currency, "922337203685477.5807", "922337203685477.5807"},
    {ColumnType::Currency, "5", "5"},
    {ColumnType::Date, "2024-02-29", "2024-02-29"},
    {ColumnType::Date, "2024-05-10 18:30", "2024-05-10T18:30:00"},
    {ColumnType::Date, "1899-12-29T06:00:00", "1899-12-29T06:00:00"},
    {ColumnType::Date, "1899-12-30", "1899-12-30"},
    {ColumnType::Date, "", ""},
    {ColumnType::Text, "Zoë ", "Zoë "},
    {ColumnType::Text, "12345678", "12345678"},
    {ColumnType::Text, "\xF0\x9F\x8F\x83 run", "\xF0\x9F\x8F\x83 run"},
};
constexpr TextCase kRefused[] = {
    {ColumnType::Boolean, "", "f: please give yes or no"},
    {ColumnType::Boolean, "maybe", "f: please give yes or no"},
    {ColumnType::Integer, "32768", "f: please give a whole number from -32768 to 32767"},
    {ColumnType::Integer, "1.5", "f: please give a whole number from -32768 to 32767"},
    {ColumnType::Byte, "-1", "f: please give a whole number from 0 to 255"},
    {ColumnType::Long, "2147483648", "f: please give a whole number from -2147483648 to 2147483647"},
    {ColumnType::Long, "0x10", "f: please give a whole number from -2147483648 to 2147483647"},
    {ColumnType::Single, "10,5", "f: please give a number, with a point before its decimals"},
    {ColumnType::Single, "1e5", "f: please give a number, with a point before its decimals"},
    {ColumnType::Single, "nan", "f: please give a number, with a point before its decimals"},
    {ColumnType::Single, "400000000000000000000000000000000000000",
     "f: please give a number, with a point before its decimals"},
    {ColumnType::Currency, "1.00001", "f: please give an amount of at most four decimals"},
    {ColumnType::Currency, "922337203685477.5808", "f: please give an amount of at most four decimals"},
    {ColumnType::Date, "2023-02-29", "f: please give a date as year-month-day, such as 2024-05-10"},
    {ColumnType::Date, "10.5.2024", "f: please give a date as year-month-day, such as 2024-05-10"},
    {ColumnType::Date, "2024-05-10T24:00", "f: please give a date as year-month-day, such as 2024-05-10"},
    {ColumnType::Date, "0099-12-31", "f: please give a date as year-month-day, such as 2024-05-10"},
    {ColumnType::Text, "123456789", "f: the text is too long; the most is 8 characters"},
    {ColumnType::Text, "\xF0\x9F\x8F\x83 runner", "f: the text is too long; the most is 8 characters"},
    {ColumnType::Text, "\xFF", "f: the text is not UTF-8"},
    {ColumnType::Binary, "00", "f: this kind of field cannot be given as text"},
};

TEST(ParseValue, TakesWhatFitsTheField) {
  for (const TextCase& c : kAccepted) {
    const jet::Column column = ColumnOf(c.type, 8);
    const auto parsed = ParseValue(column, c.typed);
    ASSERT_TRUE(std::holds_alternative<jet::Value>(parsed))
        << c.typed << ": " << std::get<1>(parsed).notice.text;
    EXPECT_EQ(ValueText(column, std::get<0>(parsed)), c.shown);
  }
}

TEST(ParseValue, SaysWhatDoesNotFit) {
  for (const TextCase& c : kRefused) {
    const auto parsed = ParseValue(ColumnOf(c.type, 8), c.typed);
    ASSERT_TRUE(std::holds_alternative<Refusal>(parsed)) << c.typed;
    EXPECT_EQ(std::get<1>(parsed).notice.text, c.shown) << c.typed;
  }
}

TEST(ParseValue, RefusesCounters) {
  jet::Column column = ColumnOf(ColumnType::Long);
  column.flags = jet::Column::kAutoNumber;
  EXPECT_TRUE(std::holds_alternative<Refusal>(ParseValue(column, "5")));
}

TEST(Dates, AreDaysFromTheEndOf1899) {
  const std::pair<double, std::string_view> kDates[] = {{0, "1899-12-30"},
                                                        {1, "1899-12-31"},
                                                        {45422, "2024-05-10"},
                                                        {45422.75, "2024-05-10T18:00:00"},
                                                        {-1.25, "1899-12-29T06:00:00"},
                                                        {-657434, "0100-01-01"},
                                                        {2958465, "9999-12-31"},
                                                        {36525.9999999, "2000-01-01"}};
  for (const auto& [days, text] : kDates) EXPECT_EQ(IsoText(days), text);
  EXPECT_EQ(ParseIso("1899-12-29T06:00"), -1.25);
  EXPECT_EQ(ParseIso("0100-01-01"), -657434);
  EXPECT_EQ(IsoText(1e300), "1e+300");
}

}  // namespace
}  // namespace tarvex::database
