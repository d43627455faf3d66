#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

// Dates as the database holds them: days since 1899-12-30, local time. Before that day the whole part counts
// back and the fraction still counts forward inside the day: -1.25 is 1899-12-29 06:00.
namespace tarvex::database {

using CalendarDate = std::chrono::year_month_day;

// 0100-01-01 and 9999-12-31: what the file format's dates reach.
inline constexpr double kFirstDay = -657434;
inline constexpr double kLastDay = 2958465;

double DaysOf(CalendarDate date);
// The day without its time; `days` within kFirstDay and kLastDay.
CalendarDate DateOf(double days);

// The day of `days`, with its time of day taken off.
double WholeDay(double days);

// "2024-05-10", or "2024-05-10T18:30:00" when there is a time of day. A number out of range is shown as it
// is.
std::string IsoText(double days);
// Reads both forms, seconds optional, a blank in place of the T allowed. Empty for anything else.
std::optional<double> ParseIso(std::string_view text);

}  // namespace tarvex::database
