#include "jet/index_key.h"

#include <algorithm>
#include <cstring>

#include "jet/bytes.h"
#include "jet/text_codec.h"
#include "jet/text_key.h"

namespace tarvex::jet {
namespace {

using Key = std::vector<uint8_t>;

void AppendBigEndian(std::span<const uint8_t> little, Key& key) {
  key.insert(key.end(), little.rbegin(), little.rend());
}

void AppendInteger(std::span<const uint8_t> raw, Key& key) {
  const size_t at = key.size();
  AppendBigEndian(raw, key);
  key[at] ^= 0x80;
}

void AppendFloating(std::span<const uint8_t> raw, Key& key) {
  const size_t at = key.size();
  AppendBigEndian(raw, key);
  if (key[at] & 0x80) {
    for (size_t i = at; i < key.size(); ++i) key[i] = static_cast<uint8_t>(~key[i]);
  } else {
    key[at] |= 0x80;
  }
}

// Groups of eight bytes, each followed by 09 while more follow and by its own length at the end. The 09 does
// not turn over in a descending key.
void AppendBinary(std::span<const uint8_t> raw, bool ascending, Key& key) {
  const auto turned = [&](uint8_t byte) { return ascending ? byte : static_cast<uint8_t>(~byte); };
  do {
    const size_t size = std::min<size_t>(8, raw.size());
    for (size_t i = 0; i < 8; ++i) key.push_back(turned(i < size ? raw[i] : 0));
    raw = raw.subspan(size);
    key.push_back(raw.empty() ? turned(static_cast<uint8_t>(size)) : 0x09);
  } while (!raw.empty());
}

void AppendGuid(std::span<const uint8_t> raw, bool ascending, Key& key) {
  uint8_t printed[16];
  std::memcpy(printed, raw.data(), 16);
  std::reverse(printed, printed + 4);
  std::reverse(printed + 4, printed + 6);
  std::reverse(printed + 6, printed + 8);
  AppendBinary(printed, ascending, key);
}

void AppendNumeric(std::span<const uint8_t> raw, bool ascending, Key& key) {
  const bool negative = raw[0] != 0;
  const size_t at = key.size();
  key.push_back(raw[0]);
  for (size_t word = 0; word < 4; ++word) AppendBigEndian(raw.subspan(1 + 4 * word, 4), key);
  if (negative == ascending) {
    for (size_t i = at; i < key.size(); ++i) key[i] = static_cast<uint8_t>(~key[i]);
  }
  key[at] = negative ? 0x00 : 0xFF;
}

void Complement(Key& key, size_t from) {
  for (size_t i = from; i < key.size(); ++i) key[i] = static_cast<uint8_t>(~key[i]);
}

}  // namespace

bool HasKnownKeys(const Column& column) {
  if (column.is_text()) return column.language == 0x0409 && column.collation_version == 0;
  return column.type != ColumnType::Ole && column.type != ColumnType::Internal;
}

Status AppendColumnKey(const Column& column, bool ascending, bool present, std::span<const uint8_t> raw,
                       Key& key) {
  if (!HasKnownKeys(column)) {
    return {Fault::Unsupported, "column " + column.name + " has a collation that is not supported"};
  }
  const bool is_boolean = column.type == ColumnType::Boolean;
  if (!present && !is_boolean) {
    key.push_back(ascending ? 0x00 : 0xFF);
    return Ok();
  }
  key.push_back(ascending ? 0x7F : 0x80);
  const size_t at = key.size();
  const size_t size = FixedSize(column.type, column.length);
  if (size > 0 && column.type != ColumnType::Binary && column.type != ColumnType::Text &&
      raw.size() != size) {
    return {Fault::Corrupt, "column " + column.name + " has a value of the wrong size"};
  }
  switch (column.type) {
    case ColumnType::Boolean:
      key.push_back(present ? 0x00 : 0xFF);
      break;
    case ColumnType::Byte:
      key.push_back(raw[0]);
      break;
    case ColumnType::Integer:
    case ColumnType::Long:
    case ColumnType::Currency:
      AppendInteger(raw, key);
      break;
    case ColumnType::Single:
    case ColumnType::Double:
    case ColumnType::Date:
      AppendFloating(raw, key);
      break;
    case ColumnType::Text:
    case ColumnType::Memo: {
      TRY_ASSIGN(const std::u16string text, DecodeText(raw));
      AppendTextKey(text, key);
      Complement(key, ascending ? key.size() : at);
      if (!ascending) key.push_back(0x00);
      return Ok();
    }
    case ColumnType::Guid:
      AppendGuid(raw, ascending, key);
      return Ok();
    case ColumnType::Numeric:
      AppendNumeric(raw, ascending, key);
      return Ok();
    default:
      AppendBinary(raw, ascending, key);
      return Ok();
  }
  if (!ascending) Complement(key, at);
  return Ok();
}

}  // namespace tarvex::jet
