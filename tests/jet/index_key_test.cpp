#include "jet/index_key.h"

#include <gtest/gtest.h>

#include "jet/text_codec.h"
#include "jet/text_key.h"
#include "tests/jet/support.h"

namespace tarvex::jet {
namespace {

// The key of a value in a column of `type`.
std::string KeyOf(ColumnType type, const Value& value, bool ascending = true) {
  Column column;
  column.name = "Field";
  column.type = type;
  column.length = 510;
  Bytes raw, key;
  bool present = !IsNull(value);
  if (const bool* flag = std::get_if<bool>(&value)) {
    present = *flag;
  } else if (present) {
    EXPECT_EQ(Described(EncodeValue(column, value, raw)), "ok");
  }
  EXPECT_EQ(Described(AppendColumnKey(column, ascending, present, raw, key)), "ok");
  return Hex(key);
}

// The bytes that a text adds after the start byte.
struct TextCase {
  const char* text;
  const char* key;
};

constexpr TextCase kTexts[] = {
    {"", "01 00"},
    {"A", "4A 01 00"},
    {"Tables", "6D 4A 4C 5E 51 6B 01 00"},
    {"MSysACEs", "60 6B 76 6B 4A 4D 51 6B 01 00"},
    {"Smith", "6B 60 59 6D 57 01 00"},
    {"smith   ", "6B 60 59 6D 57 01 00"},
    {"SMITH-JONES", "6B 60 59 6D 57 5B 64 62 51 6B 01 01 01 01 80 1B 06 82 00"},
    {"O'Brien", "64 4C 69 59 51 62 01 01 01 01 80 0B 06 80 00"},
    {"de la Cruz", "4F 51 07 5E 4A 07 4D 69 6F 78 01 00"},
    {"Müller", "60 6F 5E 5E 51 69 01 02 13 00"},
    {"MULLER", "60 6F 5E 5E 51 69 01 00"},
    {"Ångström", "4A 62 55 6B 6D 69 64 60 01 1A 02 02 02 02 02 13 00"},
    {"Núñez", "62 6F 62 51 78 01 02 0E 19 00"},
    {"Señor-Élan", "6B 51 62 64 69 51 5E 4A 62 01 02 02 19 02 02 0E 01 01 01 80 1B 06 82 00"},
    {"Straße", "6B 6D 69 4A 6B 6B 51 01 00"},
    {"Æsop", "4A 51 6B 64 66 01 00"},
    {"Øre", "64 69 51 01 21 00"},
    {"þorn", "6D 57 64 69 62 01 00"},
    {"1:23.45", "38 20 3A 3C 1C 3E 40 01 00"},
    {"4x100m", "3E 75 38 36 36 60 01 00"},
    {"-1", "38 01 01 01 01 80 07 06 82 00"},
    {"--", "01 01 01 01 80 07 06 82 80 07 06 82 00"},
    {"a-b'c", "4A 4C 4D 01 01 01 01 80 0B 06 82 80 0F 06 80 00"},
    {"co-op é", "4D 64 64 66 07 51 01 02 02 02 02 02 0E 01 01 01 80 0F 06 82 00"},
    {"tab\there", "6D 4A 4C 08 03 57 51 69 51 01 00"},
    {"x\x01y", "75 76 01 01 01 01 80 0B 06 03 00"},
    {"½", "37 16 01 00"},
    {"“Quote”", "2B 3B 68 6F 64 6D 51 2B 3C 01 00"},
    {"e\u0301", "51 01 0E 00"},
    {"ääkkösiä", "4A 4A 5C 5C 64 6B 59 4A 01 13 13 02 02 13 02 02 13 00"},
    {"Мир", "79 43 79 3B 79 48 01 00"},
    {"日本", "B7 56 B8 A9 01 00"},
};

constexpr TextCase kDescendingTexts[] = {
    {"", "FE FF 00"},
    {"Smith", "94 9F A6 92 A8 FE FF 00"},
    {"Müller", "9F 90 A1 A1 AE 96 FE FD EC FF 00"},
    {"O'Brien", "9B B3 96 A6 AE 9D FE FE FE FE 7F F4 F9 7F FF 00"},
};

TEST(IndexKey, OfTextsIsThatOfTheGeneralCollation) {
  for (const TextCase& c : kTexts)
    EXPECT_EQ(KeyOf(ColumnType::Text, std::string(c.text)), std::string("7F ") + c.key) << c.text;
  for (const TextCase& c : kDescendingTexts) {
    EXPECT_EQ(KeyOf(ColumnType::Text, std::string(c.text), false), std::string("80 ") + c.key) << c.text;
  }
}

TEST(IndexKey, CountsOnlyTheFirst255CharactersOfAText) {
  Bytes key, longer;
  AppendTextKey(std::u16string(255, u'x'), key);
  AppendTextKey(std::u16string(300, u'x'), longer);
  EXPECT_EQ(key.size(), 255u + 2);
  EXPECT_EQ(longer, key);
}

struct ValueCase {
  ColumnType type;
  Value value;
  bool ascending;
  const char* key;
};

TEST(IndexKey, OfOtherValuesComparesAsTheyDo) {
  const ValueCase cases[] = {
      {ColumnType::Long, Null{}, true, "00"},
      {ColumnType::Long, Null{}, false, "FF"},
      {ColumnType::Long, 1, true, "7F 80 00 00 01"},
      {ColumnType::Long, -1, true, "7F 7F FF FF FF"},
      {ColumnType::Long, 19, false, "80 7F FF FF EC"},
      {ColumnType::Integer, -2, true, "7F 7F FE"},
      {ColumnType::Byte, 200, true, "7F C8"},
      {ColumnType::Currency, Currency{12500}, true, "7F 80 00 00 00 00 00 30 D4"},
      {ColumnType::Double, 1.0, true, "7F BF F0 00 00 00 00 00 00"},
      {ColumnType::Double, -1.0, true, "7F 40 0F FF FF FF FF FF FF"},
      {ColumnType::Double, 1.0, false, "80 40 0F FF FF FF FF FF FF"},
      {ColumnType::Single, -100.0f, true, "7F 3D 37 FF FF"},
      {ColumnType::Date, Date{27293.0}, true, "7F C0 DA A7 40 00 00 00 00"},
      {ColumnType::Boolean, true, true, "7F 00"},
      {ColumnType::Boolean, false, true, "7F FF"},
      {ColumnType::Boolean, true, false, "80 FF"},
      {ColumnType::Binary, Bytes{0xAA, 0xBB}, true, "7F AA BB 00 00 00 00 00 00 02"},
      {ColumnType::Binary, Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9}, true,
       "7F 01 02 03 04 05 06 07 08 09 09 00 00 00 00 00 00 00 01"},
      // The 09 between groups does not turn over.
      {ColumnType::Binary, Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9}, false,
       "80 FE FD FC FB FA F9 F8 F7 09 F6 FF FF FF FF FF FF FF FE"},
      {ColumnType::Guid, Guid{{4, 3, 2, 1, 6, 5, 8, 7, 9, 10, 11, 12, 13, 14, 15, 16}}, true,
       "7F 01 02 03 04 05 06 07 08 09 09 0A 0B 0C 0D 0E 0F 10 08"},
  };
  for (const ValueCase& c : cases) EXPECT_EQ(KeyOf(c.type, c.value, c.ascending), c.key);
}

TEST(IndexKey, IsNotMadeForTextsOfAnotherCollation) {
  Column column;
  column.type = ColumnType::Text;
  column.collation_version = 1;
  Bytes key;
  EXPECT_FAULT(Fault::Unsupported, AppendColumnKey(column, true, true, {}, key));
}

TEST(TextCodec, ReadsCompressedTextWithItsSwitches) {
  EXPECT_EQ(Must(DecodeTextUtf8(FromHex("FF FE 61 62 63"))), "abc");
  EXPECT_EQ(Must(DecodeTextUtf8(FromHex("FF FE 61 00 AC 20 00 62"))), "a€b");
  EXPECT_EQ(Must(DecodeTextUtf8(FromHex("61 00 AC 20"))), "a€");
  EXPECT_FAULT(Fault::Corrupt, DecodeText(FromHex("61 00 AC")).status());
  EXPECT_FAULT(Fault::Corrupt, DecodeText(FromHex("FF FE 00 AC")).status());
}

TEST(TextCodec, KeepsUnpairedSurrogates) {
  const std::u16string text = {u'a', 0xD800, u'b', 0xDC00, 0xD83D, 0xDE00};
  EXPECT_EQ(ToUtf16(ToUtf8(text)), text);
}

}  // namespace
}  // namespace tarvex::jet
