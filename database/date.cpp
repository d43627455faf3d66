#include "database/date.h"

#include <fmt/format.h>

#include <cmath>

namespace tarvex::database {
namespace {

using std::chrono::day, std::chrono::month, std::chrono::year;

constexpr std::chrono::sys_days kEpoch = year(1899) / month(12) / day(30);
constexpr int kSecondsADay = 86400;

// The number that `count` digits at the head of `text` write, which are taken off.
std::optional<int> TakeDigits(std::string_view& text, size_t count) {
  if (text.size() < count) return std::nullopt;
  int number = 0;
  for (size_t i = 0; i < count; ++i) {
    if (text[i] < '0' || text[i] > '9') return std::nullopt;
    number = number * 10 + (text[i] - '0');
  }
  text.remove_prefix(count);
  return number;
}

bool TakeOneOf(std::string_view& text, std::string_view characters) {
  if (text.empty() || characters.find(text[0]) == std::string_view::npos) return false;
  text.remove_prefix(1);
  return true;
}

// Seconds since midnight of "hh:mm" or "hh:mm:ss".
std::optional<int> TakeTime(std::string_view& text) {
  const auto hour = TakeDigits(text, 2);
  if (!hour || *hour > 23 || !TakeOneOf(text, ":")) return std::nullopt;
  const auto minute = TakeDigits(text, 2);
  if (!minute || *minute > 59) return std::nullopt;
  int seconds = *hour * 3600 + *minute * 60;
  if (text.empty()) return seconds;
  if (!TakeOneOf(text, ":")) return std::nullopt;
  const auto second = TakeDigits(text, 2);
  if (!second || *second > 59) return std::nullopt;
  return seconds + *second;
}

}  // namespace

double DaysOf(CalendarDate date) {
  return static_cast<double>((std::chrono::sys_days(date) - kEpoch).count());
}

CalendarDate DateOf(double days) {
  return CalendarDate(kEpoch + std::chrono::days(static_cast<int>(std::trunc(days))));
}

double WholeDay(double days) {
  return std::trunc(days);
}

std::string IsoText(double days) {
  if (!(days >= kFirstDay - 1 && days < kLastDay + 1)) return fmt::format("{}", days);
  double whole = std::trunc(days);
  int seconds = static_cast<int>(std::lround(std::fabs(days - whole) * kSecondsADay));
  if (seconds == kSecondsADay) {
    whole += 1;
    seconds = 0;
  }
  const CalendarDate date = DateOf(whole);
  std::string text = fmt::format("{:04}-{:02}-{:02}", static_cast<int>(date.year()),
                                 static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  if (seconds > 0) text += fmt::format("T{:02}:{:02}:{:02}", seconds / 3600, seconds / 60 % 60, seconds % 60);
  return text;
}

std::optional<double> ParseIso(std::string_view text) {
  const auto years = TakeDigits(text, 4);
  if (!years || !TakeOneOf(text, "-")) return std::nullopt;
  const auto months = TakeDigits(text, 2);
  if (!months || !TakeOneOf(text, "-")) return std::nullopt;
  const auto days = TakeDigits(text, 2);
  if (!days) return std::nullopt;
  const CalendarDate date =
      year(*years) / month(static_cast<unsigned>(*months)) / day(static_cast<unsigned>(*days));
  if (!date.ok()) return std::nullopt;
  const double whole = DaysOf(date);
  if (whole < kFirstDay) return std::nullopt;
  if (text.empty()) return whole;
  if (!TakeOneOf(text, "T ")) return std::nullopt;
  const auto seconds = TakeTime(text);
  if (!seconds || !text.empty()) return std::nullopt;
  const double part = static_cast<double>(*seconds) / kSecondsADay;
  return whole < 0 ? whole - part : whole + part;
}

}  // namespace tarvex::database
