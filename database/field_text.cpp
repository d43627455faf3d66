#include "database/field_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "base/decimal.h"
#include "base/text.h"
#include "database/date.h"
#include "database/messages.h"

namespace tarvex::database {
namespace {

using jet::Column;
using jet::ColumnType;
using jet::Value;
using Parsed = std::variant<Value, Refusal>;

constexpr int kMoneyDecimals = 4;
constexpr int64_t kMoneyUnit = 10000;

Refusal Refuse(const Column& column, const Notice& why) {
  return {Following(column.name + ": ", why)};
}

Parsed ParseYesNo(const Column& column, std::string_view text) {
  for (const std::string_view yes : {"yes", "true", "1"}) {
    if (SameText(text, yes)) return Value(true);
  }
  for (const std::string_view no : {"no", "false", "0"}) {
    if (SameText(text, no)) return Value(false);
  }
  return Refuse(column, NotYesOrNo());
}

template <class Integer>
Parsed ParseInteger(const Column& column, std::string_view text) {
  Integer number = 0;
  if (text.starts_with('+')) text.remove_prefix(1);
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc() && end == text.data() + text.size()) return Value(int32_t{number});
  using Limits = std::numeric_limits<Integer>;
  return Refuse(column, NotAWholeNumber(fmt::format("{}", int32_t{Limits::min()}),
                                        fmt::format("{}", int32_t{Limits::max()})));
}

// Fixed notation only: an exponent or a word like "inf" is a slip of the keyboard.
Parsed ParseFloating(const Column& column, std::string_view text) {
  double number = 0;
  if (text.starts_with('+')) text.remove_prefix(1);
  const auto [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
  const bool single = column.type == ColumnType::Single;
  const double most = single ? std::numeric_limits<float>::max() : std::numeric_limits<double>::max();
  if (error != std::errc() || end != text.data() + text.size() || !(std::fabs(number) <= most)) {
    return Refuse(column, NotANumber());
  }
  if (!single) return Value(number);
  float nearest = 0;
  std::from_chars(text.data(), text.data() + text.size(), nearest, std::chars_format::fixed);
  return Value(nearest);
}

Parsed ParseMoney(const Column& column, std::string_view text) {
  const auto amount = Decimal::Parse(text);
  if (!amount || amount->Decimals() > kMoneyDecimals) return Refuse(column, NotAnAmount());
  const Decimal scaled = *amount * kMoneyUnit;
  const Decimal most(std::numeric_limits<int64_t>::max());
  if (scaled > most || scaled < -most) return Refuse(column, NotAnAmount());
  return Value(jet::Currency{scaled.Whole()});
}

Parsed ParseDate(const Column& column, std::string_view text) {
  const auto days = ParseIso(text);
  if (!days) return Refuse(column, NotADate());
  return Value(jet::Date{*days});
}

// Characters as the file format counts them: those above U+FFFF take two places.
int StoredLength(std::string_view text) {
  int length = 0;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0) != 0x80) length += byte >= 0xF0 ? 2 : 1;
  }
  return length;
}

Parsed ParseText(const Column& column, std::string_view text) {
  if (!IsUtf8(text)) return Refuse(column, TextNotUnicode());
  const int most = column.length / 2;
  if (column.type == ColumnType::Text && StoredLength(text) > most) return Refuse(column, TextTooLong(most));
  return Value(std::string(text));
}

std::string MoneyText(jet::Currency money) {
  return Decimal::Of(money.ten_thousandths, kMoneyDecimals).ToText();
}

std::string HexText(std::span<const uint8_t> bytes) {
  std::string text;
  for (const uint8_t byte : bytes) text += fmt::format("{:02X}", byte);
  return text;
}

}  // namespace

std::string ValueText(const Column&, const Value& value) {
  struct Show {
    std::string operator()(jet::Null) const { return ""; }
    std::string operator()(bool flag) const { return flag ? "yes" : "no"; }
    std::string operator()(int32_t number) const { return std::to_string(number); }
    std::string operator()(jet::Currency money) const { return MoneyText(money); }
    std::string operator()(float number) const { return ShortText(number); }
    std::string operator()(double number) const { return fmt::format("{}", number); }
    std::string operator()(jet::Date date) const { return IsoText(date.days); }
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(const jet::Bytes& bytes) const { return HexText(bytes); }
    std::string operator()(const jet::Guid& guid) const { return HexText(guid.bytes); }
    std::string operator()(const jet::Numeric& number) const { return HexText(number.bytes); }
  };
  return std::visit(Show{}, value);
}

Parsed ParseValue(const Column& column, std::string_view text) {
  if (column.is_counter()) return Refuse(column, NumberedByTheProgram());
  if (column.is_text()) return ParseText(column, text);
  text = Trim(text);
  if (column.type == ColumnType::Boolean) return ParseYesNo(column, text);
  if (text.empty()) return Value(jet::Null{});
  switch (column.type) {
    case ColumnType::Byte:
      return ParseInteger<uint8_t>(column, text);
    case ColumnType::Integer:
      return ParseInteger<int16_t>(column, text);
    case ColumnType::Long:
      return ParseInteger<int32_t>(column, text);
    case ColumnType::Single:
    case ColumnType::Double:
      return ParseFloating(column, text);
    case ColumnType::Currency:
      return ParseMoney(column, text);
    case ColumnType::Date:
      return ParseDate(column, text);
    default:
      return Refuse(column, CannotBeGivenAsText());
  }
}

std::variant<std::vector<jet::FieldValue>, Refusal> ParseFields(const jet::Table& table,
                                                                std::span<const FieldText> fields) {
  std::vector<jet::FieldValue> values;
  for (const FieldText& given : fields) {
    const int position = table.Column(given.field);
    if (position < 0) return Refusal{UnknownField(table.name(), given.field)};
    const Column& column = table.def().columns[static_cast<size_t>(position)];
    const auto same = [position](const jet::FieldValue& value) { return value.column == position; };
    if (std::any_of(values.begin(), values.end(), same)) return Refusal{FieldNamedTwice(column.name)};
    Parsed parsed = ParseValue(column, given.text);
    if (const auto* refusal = std::get_if<Refusal>(&parsed)) return *refusal;
    values.push_back({position, std::get<Value>(std::move(parsed))});
  }
  return values;
}

}  // namespace tarvex::database
