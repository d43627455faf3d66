#include "marks/time_entry.h"

#include <algorithm>
#include <string>

#include "base/decimal.h"
#include "base/text.h"
#include "marks/digits.h"
#include "marks/kinds.h"
#include "marks/messages.h"
#include "marks/range.h"

namespace tarvex::marks {

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

void KeepOnly(std::string& text, std::string_view allowed) {
  std::erase_if(text, [&](char c) { return allowed.find(c) == std::string_view::npos; });
}

// Whether the whole text is a status word; fills `entry` with what it comes to.
std::optional<MarkEntry> ReadWord(std::string_view text, bool codes_allowed) {
  const bool false_start = text == "F" || text == "FS";
  const std::optional<char> status = false_start ? kFoul : StatusWord(text);
  if (!status) return std::nullopt;
  if (codes_allowed || text == "NT") return StatusOnly(*status);
  if (text == "N") return MarkEntry{};
  return Refused(Joined(kNotAValid.Shown(), kTime.Shown().text));
}

// h:mm:ss loses its first colon and at most one may be left, behind which stand mmss or ss, or nothing. Fills
// up what is missing behind the colon and takes it out.
bool ResolveColons(std::string& text) {
  const size_t first = text.find(':');
  if (first == std::string::npos) return true;
  if (text.find(':', first + 1) == first + 3) text.erase(first, 1);
  const size_t colon = text.find(':');
  if (text.find(':', colon + 1) != std::string::npos) return false;
  switch (text.size() - colon - 1) {
    case 0:
      text += "0000";
      break;
    case 2:
      text += "00";
      break;
    case 4:
      break;
    default:
      return false;
  }
  text.erase(colon, 1);
  return true;
}

std::optional<Decimal> ReadHundredths(const std::string& text, char separator) {
  std::optional<std::string> digits = FillHundredths(text, separator);
  if (!digits) return std::nullopt;
  KeepOnly(*digits, "1234567890:");
  if (!ResolveColons(*digits)) return std::nullopt;
  // DigitsToSeconds reads nine characters; what stands before them is lost in any case.
  if (digits->size() > 9) digits->erase(0, digits->size() - 9);
  const std::optional<Decimal> number = Decimal::Parse(*digits);
  if (!number) return std::nullopt;
  return DigitsToSeconds(*number * Decimal::Of(1, 2));
}

// hhmmss, with up to three decimals behind the separator.
std::optional<Decimal> ReadThousandths(std::string text, char separator) {
  KeepOnly(text, std::string("1234567890") + separator);
  const size_t at = std::min(text.find(separator), text.size());
  std::string whole = text.substr(0, at);
  std::string fraction = at < text.size() ? text.substr(at + 1, 3) : std::string();
  // Times of ten digits or more are slips of the hand; none is stored in part.
  if (whole.size() > 9) return std::nullopt;
  whole = std::string(9 - whole.size(), '0') + whole;
  const auto part = [](std::string_view digits) { return Decimal::Parse(digits).value_or(Decimal()); };
  return part(whole.substr(0, 5)) * 3600 + part(whole.substr(5, 2)) * 60 +
         part(whole.substr(7) + "." + fraction);
}

// Everything behind the suffixes and the "X": the number itself.
std::optional<Decimal> ReadNumber(const std::string& text, bool thousandths, char separator) {
  if (text.empty() || !IsDigit(text.front())) return std::nullopt;
  if (std::count(text.begin(), text.end(), separator) > 1) return std::nullopt;
  return thousandths ? ReadThousandths(text, separator) : ReadHundredths(text, separator);
}

bool TakeSuffix(std::string& text, char suffix) {
  if (!text.ends_with(suffix)) return false;
  text.pop_back();
  return true;
}

}  // namespace

MarkEntry ReadTime(std::string_view typed, float distance, char kind, const TimeEntryOptions& options,
                   const MarkSettings& settings) {
  std::string text = Upper(WithoutBlanks(typed));
  if (text.empty()) return {};
  if (const std::optional<MarkEntry> word = ReadWord(text, options.codes_allowed)) return *word;
  if (text.ends_with("HA") || text.ends_with("AH")) return Refused(kHandAndVideo.Shown());

  MarkEntry entry;
  entry.hand = TakeSuffix(text, 'H');
  entry.video = TakeSuffix(text, 'A');
  if (TakeExhibition(text)) entry.status = kExhibition;
  if (text.starts_with(':')) text.erase(0, 1);
  const std::optional<Decimal> seconds = ReadNumber(text, options.thousandths, settings.decimal_separator);
  if (!seconds) return Unclear(typed);
  entry.value = seconds->ToSingle();
  entry.range_question = CheckTimeRange(entry.value, distance, kind, settings);
  return entry;
}

MarkEntry ParseTime(std::string_view typed, float distance, char kind, const TimeEntryOptions& options,
                    const MarkSettings& settings, UserInterface& user) {
  return Settle(ReadTime(typed, distance, kind, options, settings), options.show_message, user);
}

bool UsesThousandths(char track_or_field, char event_type, const MarkSettings& settings) {
  return settings.thousandths && !IsOneOf(track_or_field, "F") && !IsOneOf(event_type, "CR");
}

}  // namespace tarvex::marks
