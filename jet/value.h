#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace tarvex::jet {

inline constexpr size_t kPageSize = 4096;
using PageNumber = uint32_t;

// The place of a row: its page and its slot there. In the file one u32, page << 8 | slot.
struct RowId {
  PageNumber page = 0;
  uint8_t slot = 0;

  static RowId Unpack(uint32_t packed) { return {packed >> 8, static_cast<uint8_t>(packed)}; }
  uint32_t Pack() const { return page << 8 | slot; }
  auto operator<=>(const RowId&) const = default;
};

// Type codes as they stand in a column descriptor.
enum class ColumnType : uint8_t {
  Boolean = 0x01,
  Byte = 0x02,
  Integer = 0x03,
  Long = 0x04,
  Currency = 0x05,
  Single = 0x06,
  Double = 0x07,
  Date = 0x08,
  Binary = 0x09,
  Text = 0x0A,
  Ole = 0x0B,
  Memo = 0x0C,
  Guid = 0x0F,
  Numeric = 0x10,
  Internal = 0x11,  // 3992 bytes that only the original program's own tables use
};

struct Null {
  auto operator<=>(const Null&) const = default;
};

// Money in ten-thousandths of the unit.
struct Currency {
  int64_t ten_thousandths = 0;
  auto operator<=>(const Currency&) const = default;
};

// Days since 1899-12-30 00:00, local time. Before that day the whole part counts back and the fraction
// still counts forward inside the day: -1.25 is 1899-12-29 06:00.
struct Date {
  double days = 0;
  auto operator<=>(const Date&) const = default;
};

// The sixteen bytes in the order in which they are stored.
struct Guid {
  std::array<uint8_t, 16> bytes{};
  auto operator<=>(const Guid&) const = default;
};

// A scaled decimal: sign byte (0 or 0x80), then the magnitude as four u32 words, most significant first.
// The scale stands with the column.
struct Numeric {
  std::array<uint8_t, 17> bytes{};
  auto operator<=>(const Numeric&) const = default;
};

using Bytes = std::vector<uint8_t>;

// One field's content. int32_t serves Byte, Integer and Long; std::string serves Text and Memo and is UTF-8
// (an unpaired surrogate is kept as three bytes, so that any text of a file survives); Bytes serves
// Binary and OLE.
using Value =
    std::variant<Null, bool, int32_t, Currency, float, double, Date, std::string, Bytes, Guid, Numeric>;

inline bool IsNull(const Value& value) {
  return std::holds_alternative<Null>(value);
}

// A value for one column, by the column's position in its table definition.
struct FieldValue {
  int column = 0;
  Value value;
};

}  // namespace tarvex::jet
