#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/status.h"
#include "jet/table_def.h"
#include "jet/value.h"

namespace tarvex::jet {

// The largest row, long values counted with what stands in the row.
inline constexpr size_t kLargestRow = 4060;

// A row:
//   u16            columns the row knows (the table's next column number when it was written)
//   fixed area     every fixed column has its bytes, null or not
//   variable data  in slot order, without separators
//   u16            end of the variable data, from the row's start   } only if the table
//   u16 x slots    start of each slot, the last slot first          } has variable
//   u16            number of slots                                  } slots
//   null mask      bit n = column number n, 1 = not null; a Boolean column is its bit
// A row written before a column was added knows fewer columns; the missing ones are null.
// Borrows the bytes and the definition.
class RowView {
 public:
  RowView() = default;
  // Fault::Corrupt with the reason when the parts do not fit the row's length.
  static Expected<RowView> Parse(const TableDef& def, std::span<const uint8_t> bytes);

  // The null mask's bit; for a Boolean column its value.
  bool Has(const Column& column) const {
    return column.number < columns_ && (mask_[column.number / 8] >> (column.number % 8) & 1) != 0;
  }
  // The stored bytes of a column that Has(); empty for a Boolean. Fault::Corrupt when they lie outside the
  // row.
  Expected<std::span<const uint8_t>> Raw(const Column& column) const;

  size_t columns() const { return columns_; }
  size_t slots() const { return slots_; }
  std::span<const uint8_t> bytes() const { return bytes_; }
  // Where slot `k` of slots() starts; k = slots() gives the end.
  size_t SlotStart(size_t k) const;

 private:
  std::span<const uint8_t> bytes_;
  const uint8_t* mask_ = nullptr;
  size_t columns_ = 0;
  size_t slots_ = 0;
  size_t starts_at_ = 0;  // where the start of slot 0 stands
};

// A row being put together. Can be used again for the next row of the same table.
class RowBuilder {
 public:
  explicit RowBuilder(const TableDef& def);

  void Clear();
  // Takes over what an existing row holds.
  Status Load(const RowView& row);
  void SetNull(const Column& column);
  void SetBoolean(const Column& column, bool value);
  // `bytes` as the row stores them. Fault::Range when they are too long for the column.
  Status SetRaw(const Column& column, std::span<const uint8_t> bytes);

  bool Has(const Column& column) const { return (mask_[column.number / 8] >> (column.number % 8) & 1) != 0; }
  std::span<const uint8_t> Raw(const Column& column) const;

  size_t size() const;
  // Writes size() bytes.
  void CopyTo(uint8_t* out) const;

 private:
  struct Piece {
    uint32_t at = 0;
    uint32_t size = 0;
  };
  void SetBit(const Column& column, bool value);

  const TableDef* def_;
  std::vector<uint8_t> fixed_;
  std::vector<uint8_t> mask_;
  std::vector<Piece> slots_;
  std::vector<uint8_t> arena_;
  size_t variable_size_ = 0;
};

// The bytes that a row stores for a value of a column that is no Boolean, Memo or OLE. Fault::Invalid when
// the value is of another type, Fault::Range when it does not fit.
Status EncodeValue(const Column& column, const Value& value, std::vector<uint8_t>& out);

// The value of stored bytes; for Memo and OLE, `raw` is the whole content. Fault::Corrupt when they do not
// fit the type.
Expected<Value> DecodeValue(const Column& column, std::span<const uint8_t> raw);

}  // namespace tarvex::jet
