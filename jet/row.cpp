#include "jet/row.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "jet/bytes.h"
#include "jet/text_codec.h"

namespace tarvex::jet {
namespace {

Status Bad(const char* what) {
  return {Fault::Corrupt, what};
}

Status TypeMismatch(const Column& column) {
  return {Fault::Invalid, "a value for " + column.name + " has the wrong type"};
}

Status OutOfRange(const Column& column) {
  return {Fault::Range, "a value for " + column.name + " is too large"};
}

template <class T>
void Append(std::vector<uint8_t>& out, T value) {
  out.resize(out.size() + sizeof value);
  Store<T>(out.data() + out.size() - sizeof value, value);
}

template <class T>
Status AppendInteger(const Column& column, const Value& value, std::vector<uint8_t>& out) {
  const int32_t* number = std::get_if<int32_t>(&value);
  if (!number) return TypeMismatch(column);
  if (*number < std::numeric_limits<T>::min() || *number > std::numeric_limits<T>::max())
    return OutOfRange(column);
  Append<T>(out, static_cast<T>(*number));
  return Ok();
}

}  // namespace

Expected<RowView> RowView::Parse(const TableDef& def, std::span<const uint8_t> bytes) {
  RowView row;
  row.bytes_ = bytes;
  if (bytes.size() < 3) return Bad("is too short");
  row.columns_ = Load16(bytes.data());
  const size_t mask = (row.columns_ + 7) / 8;
  if (row.columns_ > 256 || bytes.size() < 2 + mask) return Bad("has a wrong column count");
  row.mask_ = bytes.data() + bytes.size() - mask;
  if (def.var_slots == 0) return row;
  if (bytes.size() < 2 + mask + 4) return Bad("is too short");
  const size_t count_at = bytes.size() - mask - 2;
  row.slots_ = Load16(bytes.data() + count_at);
  if (row.slots_ > 256 || count_at < 2 + 2 * row.slots_ + 2)
    return Bad("has a wrong count of variable columns");
  row.starts_at_ = count_at - 2;
  const size_t end_at = count_at - 2 * row.slots_ - 2;
  size_t previous = 2;
  for (size_t k = 0; k <= row.slots_; ++k) {
    const size_t start = row.SlotStart(k);
    if (start < previous || start > end_at) return Bad("has variable data outside its place");
    previous = start;
  }
  return row;
}

size_t RowView::SlotStart(size_t k) const {
  return Load16(bytes_.data() + starts_at_ - 2 * k);
}

Expected<std::span<const uint8_t>> RowView::Raw(const Column& column) const {
  if (column.type == ColumnType::Boolean) return std::span<const uint8_t>();
  if (!column.is_fixed()) {
    if (column.var_slot >= slots_) return std::span<const uint8_t>();
    const size_t begin = SlotStart(column.var_slot);
    return bytes_.subspan(begin, SlotStart(column.var_slot + size_t{1}) - begin);
  }
  const size_t size = FixedSize(column.type, column.length);
  const size_t begin = size_t{2} + column.fixed_offset;
  const size_t end = slots_ > 0 ? SlotStart(0) : static_cast<size_t>(mask_ - bytes_.data());
  if (begin + size > end) return Bad("has a fixed column outside its place");
  return bytes_.subspan(begin, size);
}

RowBuilder::RowBuilder(const TableDef& def)
    : def_(&def),
      fixed_(def.FixedEnd()),
      mask_((def.next_column_number + size_t{7}) / 8),
      slots_(def.var_slots) {}

void RowBuilder::Clear() {
  std::fill(fixed_.begin(), fixed_.end(), 0);
  std::fill(mask_.begin(), mask_.end(), 0);
  std::fill(slots_.begin(), slots_.end(), Piece{});
  arena_.clear();
  variable_size_ = 0;
}

Status RowBuilder::Load(const RowView& row) {
  Clear();
  for (const Column& column : def_->columns) {
    if (!row.Has(column)) continue;
    if (column.type == ColumnType::Boolean) {
      SetBit(column, true);
      continue;
    }
    TRY_ASSIGN(const auto raw, row.Raw(column));
    TRY(SetRaw(column, raw));
  }
  return Ok();
}

void RowBuilder::SetBit(const Column& column, bool value) {
  const auto bit = static_cast<uint8_t>(1 << (column.number % 8));
  uint8_t& byte = mask_[column.number / 8];
  byte = value ? byte | bit : byte & static_cast<uint8_t>(~bit);
}

void RowBuilder::SetNull(const Column& column) {
  SetBit(column, false);
  if (column.type == ColumnType::Boolean) return;
  if (column.is_fixed()) {
    std::memset(&fixed_[column.fixed_offset], 0, FixedSize(column.type, column.length));
  } else {
    variable_size_ -= slots_[column.var_slot].size;
    slots_[column.var_slot] = {};
  }
}

void RowBuilder::SetBoolean(const Column& column, bool value) {
  SetBit(column, value);
}

Status RowBuilder::SetRaw(const Column& column, std::span<const uint8_t> bytes) {
  if (column.is_fixed()) {
    if (bytes.size() != FixedSize(column.type, column.length)) return OutOfRange(column);
    std::copy(bytes.begin(), bytes.end(), fixed_.begin() + column.fixed_offset);
  } else {
    Piece& piece = slots_[column.var_slot];
    variable_size_ += bytes.size() - piece.size;
    piece = {static_cast<uint32_t>(arena_.size()), static_cast<uint32_t>(bytes.size())};
    arena_.insert(arena_.end(), bytes.begin(), bytes.end());
  }
  SetBit(column, true);
  return Ok();
}

std::span<const uint8_t> RowBuilder::Raw(const Column& column) const {
  if (column.type == ColumnType::Boolean) return {};
  if (column.is_fixed()) return {&fixed_[column.fixed_offset], FixedSize(column.type, column.length)};
  const Piece& piece = slots_[column.var_slot];
  return {arena_.data() + piece.at, piece.size};
}

size_t RowBuilder::size() const {
  const size_t tables = slots_.empty() ? 0 : 4 + 2 * slots_.size();
  return 2 + fixed_.size() + variable_size_ + tables + mask_.size();
}

void RowBuilder::CopyTo(uint8_t* out) const {
  Store<uint16_t>(out, def_->next_column_number);
  std::copy(fixed_.begin(), fixed_.end(), out + 2);
  uint8_t* const mask = out + size() - mask_.size();
  std::memcpy(mask, mask_.data(), mask_.size());
  if (slots_.empty()) return;
  uint8_t* starts = mask - 2;
  Store<uint16_t>(starts, static_cast<uint16_t>(slots_.size()));
  size_t at = 2 + fixed_.size();
  for (const Piece& piece : slots_) {
    starts -= 2;
    Store<uint16_t>(starts, static_cast<uint16_t>(at));
    if (piece.size > 0) std::memcpy(out + at, arena_.data() + piece.at, piece.size);
    at += piece.size;
  }
  Store<uint16_t>(starts - 2, static_cast<uint16_t>(at));
}

Status EncodeValue(const Column& column, const Value& value, std::vector<uint8_t>& out) {
  switch (column.type) {
    case ColumnType::Byte:
      return AppendInteger<uint8_t>(column, value, out);
    case ColumnType::Integer:
      return AppendInteger<int16_t>(column, value, out);
    case ColumnType::Long:
      return AppendInteger<int32_t>(column, value, out);
    case ColumnType::Currency:
      if (const auto* money = std::get_if<Currency>(&value)) return Append(out, money->ten_thousandths), Ok();
      return TypeMismatch(column);
    case ColumnType::Single:
      if (const auto* single = std::get_if<float>(&value)) return Append(out, *single), Ok();
      return TypeMismatch(column);
    case ColumnType::Double:
      if (const auto* number = std::get_if<double>(&value)) return Append(out, *number), Ok();
      return TypeMismatch(column);
    case ColumnType::Date:
      if (const auto* date = std::get_if<Date>(&value)) return Append(out, date->days), Ok();
      return TypeMismatch(column);
    case ColumnType::Text: {
      const auto* text = std::get_if<std::string>(&value);
      if (!text) return TypeMismatch(column);
      const size_t before = out.size();
      AppendText(*text, out);
      const size_t size = out.size() - before;
      if (column.is_fixed() && size < column.length) {
        while (out.size() - before < column.length) out.insert(out.end(), {u8' ', 0});
      }
      return size > column.length ? OutOfRange(column) : Ok();
    }
    case ColumnType::Binary: {
      const auto* bytes = std::get_if<Bytes>(&value);
      if (!bytes) return TypeMismatch(column);
      out.insert(out.end(), bytes->begin(), bytes->end());
      return bytes->size() > column.length ? OutOfRange(column) : Ok();
    }
    case ColumnType::Guid:
      if (const auto* guid = std::get_if<Guid>(&value)) {
        out.insert(out.end(), guid->bytes.begin(), guid->bytes.end());
        return Ok();
      }
      return TypeMismatch(column);
    case ColumnType::Numeric:
      if (const auto* number = std::get_if<Numeric>(&value)) {
        out.insert(out.end(), number->bytes.begin(), number->bytes.end());
        return Ok();
      }
      return TypeMismatch(column);
    default:
      return TypeMismatch(column);
  }
}

Expected<Value> DecodeValue(const Column& column, std::span<const uint8_t> raw) {
  const auto needs = [&](size_t size) { return raw.size() == size; };
  switch (column.type) {
    case ColumnType::Byte:
      if (needs(1)) return Value(int32_t{raw[0]});
      break;
    case ColumnType::Integer:
      if (needs(2)) return Value(int32_t{Load<int16_t>(raw.data())});
      break;
    case ColumnType::Long:
      if (needs(4)) return Value(Load<int32_t>(raw.data()));
      break;
    case ColumnType::Currency:
      if (needs(8)) return Value(Currency{Load<int64_t>(raw.data())});
      break;
    case ColumnType::Single:
      if (needs(4)) return Value(Load<float>(raw.data()));
      break;
    case ColumnType::Double:
      if (needs(8)) return Value(Load<double>(raw.data()));
      break;
    case ColumnType::Date:
      if (needs(8)) return Value(Date{Load<double>(raw.data())});
      break;
    case ColumnType::Text:
    case ColumnType::Memo: {
      TRY_ASSIGN(std::string text, DecodeTextUtf8(raw));
      return Value(std::move(text));
    }
    case ColumnType::Guid:
      if (needs(16)) return Value(Load<Guid>(raw.data()));
      break;
    case ColumnType::Numeric:
      if (needs(17)) return Value(Load<Numeric>(raw.data()));
      break;
    case ColumnType::Binary:
    case ColumnType::Ole:
    case ColumnType::Internal:
      return Value(Bytes(raw.begin(), raw.end()));
    default:
      break;
  }
  return Bad("has a value of the wrong size");
}

}  // namespace tarvex::jet
