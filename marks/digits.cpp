#include "marks/digits.h"

namespace tarvex::marks {

namespace {

std::string PadDecimals(std::string_view text, char separator, size_t decimals) {
  const size_t at = text.find(separator);
  if (at == std::string_view::npos) return separator + std::string(decimals, '0');
  const size_t present = text.size() - at - 1;
  return present < decimals ? std::string(decimals - present, '0') : std::string();
}

}  // namespace

std::string PadDecimals2(std::string_view text, char separator) {
  return PadDecimals(text, separator, 2);
}

std::string PadDecimals3(std::string_view text, char separator) {
  return PadDecimals(text, separator, 3);
}

Decimal DigitsToSeconds(const Decimal& digits) {
  const std::string number = digits.ToText();
  const std::string padded = "000000000" + number + PadDecimals2(number, '.');
  const std::string_view last = std::string_view(padded).substr(padded.size() - 9);
  const auto part = [&](size_t at, size_t length) {
    return Decimal::Parse(last.substr(at, length)).value_or(Decimal());
  };
  return part(0, 2) * 3600 + part(2, 2) * 60 + part(4, 5);
}

}  // namespace tarvex::marks
