#include "marks/field_entry.h"

#include <algorithm>
#include <string>
#include <utility>
#include <variant>

#include "base/decimal.h"
#include "base/text.h"
#include "marks/kinds.h"
#include "marks/messages.h"
#include "marks/range.h"

namespace tarvex::marks {

namespace {

constexpr std::string_view kDigits = "1234567890";

// A mark, the text that refuses it, or nothing: unclear.
using Reading = std::variant<std::monostate, Decimal, Text>;

bool IsAll(std::string_view text, std::string_view allowed) {
  return text.find_first_not_of(allowed) == std::string_view::npos;
}

// The number of a run of digits, none counting as 0. More than any mark can have come out as a million.
Decimal NumberOf(std::string_view digits) {
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  if (digits.size() > 6) return Decimal(1'000'000);
  return Decimal::Parse(digits).value_or(Decimal());
}

std::optional<MarkEntry> ReadWord(std::string_view text, bool codes_allowed) {
  const bool no_mark = text == "NH" || text == "ND" || text == "N";
  const bool foul = text == "F" || text == "FOUL" || text == "FAIL";
  const bool pass = text == "P" || text == "PASS";
  const std::optional<char> status = no_mark ? kNoMark : foul ? kFoul : pass ? kPass : StatusWord(text);
  if (!status) return std::nullopt;
  if (codes_allowed || text == "NT") return StatusOnly(*status);
  if (no_mark) return MarkEntry{};
  return Refused(Joined(kNotAValid.Shown(), kMark.Shown().text));
}

struct FeetAndInches {
  std::string_view feet, inches, fraction;  // digits, any of them empty
};

// 21-03.5 and 21'3.5, or 2103.5 whose last two whole digits are inches.
std::optional<FeetAndInches> SplitEnglish(std::string_view text, char separator) {
  const size_t point = text.find(separator);
  std::string_view whole = text.substr(0, point);
  const std::string_view fraction = point == std::string_view::npos ? "" : text.substr(point + 1);
  if (!IsAll(fraction, kDigits) || fraction.size() > 2) return std::nullopt;

  const size_t mark = whole.find_first_of("-'");
  if (mark != std::string_view::npos) {
    const FeetAndInches parts{whole.substr(0, mark), whole.substr(mark + 1), fraction};
    const bool any_digit = text.find_first_of(kDigits) != std::string_view::npos;
    const bool clear = any_digit && IsAll(parts.feet, kDigits) && IsAll(parts.inches, kDigits);
    return clear && parts.inches.size() <= 2 ? std::optional(parts) : std::nullopt;
  }
  if (whole.empty() || !IsAll(whole, kDigits)) return std::nullopt;
  const size_t feet_digits = whole.size() > 2 ? whole.size() - 2 : 0;
  return FeetAndInches{whole.substr(0, feet_digits), whole.substr(feet_digits), fraction};
}

Reading ReadEnglish(std::string_view text, char separator) {
  const std::optional<FeetAndInches> parts = SplitEnglish(text, separator);
  if (!parts) return {};
  const Decimal inches = NumberOf(parts->inches);
  if (inches > Decimal(11)) return kInchesTooMany;
  const Decimal fraction = Decimal::Parse("0." + std::string(parts->fraction)).value_or(Decimal());
  const Decimal value = NumberOf(parts->feet) * 12 + inches + fraction;
  if (value > Decimal(999 * 12)) return kFeetTooMany;
  return value;
}

Reading ReadMetric(const std::string& text, char separator) {
  const bool clear = std::count(text.begin(), text.end(), separator) <= 1 && text.front() != separator &&
                     IsAll(text, std::string(kDigits) + separator);
  if (!clear) return {};
  std::optional<std::string> digits = FillHundredths(text, separator);
  if (!digits) return {};
  std::erase(*digits, separator);
  const Decimal value = NumberOf(*digits) * Decimal::Of(1, 2);
  if (value > Decimal(300)) return kMetersTooMany;
  return value;
}

// Long throws are read to the even centimetre below.
Decimal LoweredToEven(const Decimal& metres) {
  const bool odd = (metres * 100).Whole() % 2 != 0;
  return odd ? metres - Decimal::Of(1, 2) : metres;
}

}  // namespace

MarkEntry ReadFieldMark(std::string_view typed, char unit, char kind, const FieldEntryOptions& options,
                        const MarkSettings& settings) {
  std::string text = Upper(WithoutBlanks(typed));
  if (text.empty()) return {};
  if (const std::optional<MarkEntry> word = ReadWord(text, options.codes_allowed)) return *word;

  MarkEntry entry;
  if (TakeExhibition(text)) entry.status = kExhibition;
  const bool english = IsOneOf(unit, "E");
  const char separator = settings.decimal_separator;
  const Reading reading = english ? ReadEnglish(text, separator) : ReadMetric(text, separator);
  if (const Text* refusal = std::get_if<Text>(&reading)) return Refused(refusal->Shown());
  const Decimal* value = std::get_if<Decimal>(&reading);
  if (value == nullptr) return Unclear(typed);

  const bool lower = !english && IsLongThrow(kind) && settings.even_centimetre && options.even_centimetre;
  entry.value = (lower ? LoweredToEven(*value) : *value).ToSingle();
  entry.range_question = CheckFieldRange(entry.value, unit, kind, settings);
  return entry;
}

MarkEntry ParseFieldMark(std::string_view typed, char unit, char kind, const FieldEntryOptions& options,
                         const MarkSettings& settings, UserInterface& user) {
  return Settle(ReadFieldMark(typed, unit, kind, options, settings), options.show_message, user);
}

}  // namespace tarvex::marks
