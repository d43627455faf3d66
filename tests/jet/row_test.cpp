#include "jet/row.h"

#include <gtest/gtest.h>

#include "tests/jet/support.h"

namespace tarvex::jet {
namespace {

Column MakeColumn(uint16_t number, ColumnType type, bool fixed, uint16_t place, uint16_t length) {
  Column column;
  column.name = "C" + std::to_string(number);
  column.number = number;
  column.type = type;
  column.flags = Column::kAlways | (fixed ? Column::kFixed : 0);
  (fixed ? column.fixed_offset : column.var_slot) = place;
  column.length = length;
  return column;
}

// A number and two texts, as other programs make it.
TableDef ThreeColumns() {
  TableDef def;
  def.next_column_number = 3;
  def.var_slots = 2;
  def.columns = {MakeColumn(0, ColumnType::Long, true, 0, 4), MakeColumn(1, ColumnType::Text, false, 0, 110),
                 MakeColumn(2, ColumnType::Text, false, 1, 110)};
  return def;
}

std::vector<Value> Decoded(const TableDef& def, std::span<const uint8_t> bytes) {
  std::vector<Value> values;
  const RowView row = Must(RowView::Parse(def, bytes));
  for (const Column& column : def.columns) {
    Value value = Null{};
    if (column.type == ColumnType::Boolean) {
      value.emplace<bool>(row.Has(column));
    } else if (row.Has(column)) {
      value = Must(DecodeValue(column, Must(row.Raw(column))));
    }
    values.push_back(std::move(value));
  }
  return values;
}

TEST(Row, OfAnotherProgramIsRead) {
  const Bytes bytes = FromHex("03 00 13 00 00 00 FF FE 61 62 63 FF FE 64 65 66 10 00 0B 00 06 00 02 00 07");
  EXPECT_TRUE(Decoded(ThreeColumns(), bytes) ==
              (std::vector<Value>{19, std::string("abc"), std::string("def")}));
}

TEST(Row, WithPaddingAndABooleanIsRead) {
  TableDef def;
  def.next_column_number = 9;
  def.var_slots = 2;
  def.columns = {
      MakeColumn(0, ColumnType::Text, false, 0, 100), MakeColumn(1, ColumnType::Text, false, 1, 100),
      MakeColumn(2, ColumnType::Byte, true, 0, 1),    MakeColumn(3, ColumnType::Integer, true, 1, 2),
      MakeColumn(4, ColumnType::Long, true, 3, 4),    MakeColumn(5, ColumnType::Double, true, 7, 8),
      MakeColumn(6, ColumnType::Date, true, 15, 8),   MakeColumn(7, ColumnType::Currency, true, 23, 8),
      MakeColumn(8, ColumnType::Boolean, true, 0, 1)};
  const Bytes bytes = FromHex(
      "09 00 02 DE 00 55 43 DE 13 7B 14 AE 47 E1 C8 7B 40 00 00 00 00 40 A7 DA 40 B8 88 00 00 00 00 00 00 "
      "FF FE 61 62 63 64 65 66 67 68 00 69 00 6A 00 6B 00 6C 00 6D 00 6E 00 6F 00 70 00 00 00 "
      "3C 00 2A 00 21 00 02 00 FF 01");
  EXPECT_TRUE(Decoded(def, bytes) ==
              (std::vector<Value>{std::string("abcdefg"), std::string("hijklmnop"), 2, 222, 333333333,
                                  444.555, Date{27293.0}, Currency{35000}, true}));
}

// The table has got a number, a text and a yes/no since the row was written.
TEST(Row, ThatKnowsFewerColumnsHasNullsForTheRest) {
  TableDef def = ThreeColumns();
  def.columns.push_back(MakeColumn(3, ColumnType::Double, true, 4, 8));
  def.columns.push_back(MakeColumn(4, ColumnType::Text, false, 2, 50));
  def.columns.push_back(MakeColumn(5, ColumnType::Boolean, true, 0, 1));
  def.next_column_number = 6;
  def.var_slots = 3;
  const Bytes bytes = FromHex("03 00 13 00 00 00 FF FE 61 62 63 FF FE 64 65 66 10 00 0B 00 06 00 02 00 07");
  EXPECT_TRUE(Decoded(def, bytes) ==
              (std::vector<Value>{19, std::string("abc"), std::string("def"), Null{}, Null{}, false}));
  RowBuilder builder(def);
  ASSERT_OK(builder.Load(Must(RowView::Parse(def, bytes))));
  Bytes copy(builder.size());
  builder.CopyTo(copy.data());
  EXPECT_EQ(Load16(copy.data()), 6);
  EXPECT_TRUE(Decoded(def, copy) == Decoded(def, bytes));
}

TEST(Row, IsWrittenInTheLayoutOfTheFormat) {
  const TableDef def = ThreeColumns();
  RowBuilder builder(def);
  Bytes raw = FromHex("05 00 00 00");
  ASSERT_OK(builder.SetRaw(def.columns[0], raw));
  ASSERT_OK(builder.SetRaw(def.columns[2], FromHex("41 00")));
  Bytes bytes(builder.size());
  builder.CopyTo(bytes.data());
  EXPECT_EQ(Hex(bytes), "03 00 05 00 00 00 41 00 08 00 06 00 06 00 02 00 05");
}

TEST(Row, WithPartsOutsideItIsCorrupt) {
  const TableDef def = ThreeColumns();
  const char* cases[] = {
      "03 00",
      "FF FF 13 00 00 00 FF FE 61 62 63 FF FE 64 65 66 10 00 0B 00 06 00 02 00 07",  // columns
      "03 00 13 00 00 00 FF FE 61 62 63 FF FE 64 65 66 10 00 0B 00 06 00 40 00 07",  // slots
      "03 00 13 00 00 00 FF FE 61 62 63 FF FE 64 65 66 18 00 0B 00 06 00 02 00 07",  // end behind the row's
      "03 00 13 00 00 00 FF FE 61 62 63 FF FE 64 65 66 10 00 05 00 06 00 02 00 07",  // slots out of order
  };
  for (const char* text : cases) EXPECT_FAULT(Fault::Corrupt, RowView::Parse(def, FromHex(text)).status());
}

TEST(Row, RefusesValuesThatDoNotFitTheirField) {
  Bytes out;
  const Column integer = MakeColumn(0, ColumnType::Integer, true, 0, 2);
  const Column byte = MakeColumn(0, ColumnType::Byte, true, 0, 1);
  const Column text = MakeColumn(0, ColumnType::Text, false, 0, 6);
  EXPECT_FAULT(Fault::Range, EncodeValue(integer, 32768, out));
  EXPECT_FAULT(Fault::Range, EncodeValue(byte, -1, out));
  EXPECT_FAULT(Fault::Range, EncodeValue(text, std::string("four"), out));
  EXPECT_FAULT(Fault::Invalid, EncodeValue(text, 4, out));
  EXPECT_FAULT(Fault::Invalid, EncodeValue(integer, 4.0, out));
  EXPECT_FAULT(Fault::None, EncodeValue(text, std::string("€€€"), out));
}

}  // namespace
}  // namespace tarvex::jet
