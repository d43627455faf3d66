#include "setup/division.h"

#include <vector>

#include "base/text.h"
#include "setup/messages.h"

namespace tarvex::setup {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::years;

constexpr int kOldest = 109;
constexpr int kMostEntries = 99;

bool IsDayLetter(char letter) {
  return letter == 'Y' || letter == 'D' || letter == 'L';
}

Date ReferenceDay(char letter, const AgeDays& days_of_meet) {
  switch (letter) {
    case 'D':
      return days_of_meet.calc_date;
    case 'L':
      return days_of_meet.meet_end;
    default:
      return Date(days_of_meet.meet_start.year(), std::chrono::December, std::chrono::day(31));
  }
}

// The same day `count` years before; 28 February where there is no 29th, because a birthday of 29 February
// is kept on 1 March in common years.
Date YearsBefore(Date day, int count) {
  const Date earlier = day - years(count);
  return earlier.ok() ? earlier : Date(earlier.year(), earlier.month(), std::chrono::day(28));
}

}  // namespace

std::optional<Notice> CheckDivision(const Division& division, std::span<const Division> others) {
  if (Trim(division.div_abbr).empty()) return DivisionCodeMissing();
  if (Trim(division.div_name).empty()) return DivisionNameMissing();
  if (division.low_age > division.high_age) return DivisionLowAgeAboveHigh();
  if (division.low_age > kOldest) return DivisionLowAgeTooHigh();
  if (division.high_age > kOldest) return DivisionHighAgeTooHigh();
  if (!IsDayLetter(division.low_yeardate)) return DivisionLowLetter();
  if (!IsDayLetter(division.high_yeardate)) return DivisionHighLetter();
  if (division.max_entries < 0 || division.max_entries > kMostEntries) return DivisionMaxEntries();
  for (const Division& other : others) {
    if (SameText(other.div_abbr, division.div_abbr)) return DivisionCodeTaken();
  }
  return std::nullopt;
}

BirthDates BirthRange(const Division& division, const AgeDays& days_of_meet) {
  const Date low_day = ReferenceDay(division.low_yeardate, days_of_meet);
  const Date high_day = ReferenceDay(division.high_yeardate, days_of_meet);
  const Date too_old = YearsBefore(high_day, division.high_age + 1);
  return {Date(sys_days(too_old) + days(1)), YearsBefore(low_day, division.low_age)};
}

std::span<const Division> UsatfDivisions() {
  static const std::vector<Division> divisions = {
      {1, "SB", "8 & Under Division", 0, 8, 'Y', 'Y', 0}, {2, "BN", "9-10 Division", 9, 10, 'Y', 'Y', 0},
      {3, "MI", "11-12 Division", 11, 12, 'Y', 'Y', 0},   {4, "YH", "13-14 Division", 13, 14, 'Y', 'Y', 0},
      {5, "IN", "15-16 Division", 15, 16, 'Y', 'Y', 0},   {6, "YG", "17-18 Division", 17, 18, 'Y', 'L', 0},
      {7, "MS", "Masters", 30, 109, 'D', 'D', 0}};
  return divisions;
}

std::span<const Division> AauDivisions() {
  static const std::vector<Division> divisions = {
      {1, "PR", "8 & Under year old", 0, 8, 'Y', 'Y', 0}, {2, "SB", "9 year old", 9, 9, 'Y', 'Y', 0},
      {3, "BN", "10 year old", 10, 10, 'Y', 'Y', 0},      {4, "SM", "11 year old", 11, 11, 'Y', 'Y', 0},
      {5, "MI", "12 year old", 12, 12, 'Y', 'Y', 0},      {6, "SY", "13 year old", 13, 13, 'Y', 'Y', 0},
      {7, "YH", "14 year old", 14, 14, 'Y', 'Y', 0},      {8, "IN", "15-16 year old", 15, 16, 'Y', 'Y', 0},
      {9, "YG", "17-19 year old", 17, 19, 'Y', 'Y', 0},   {10, "MS", "Masters", 30, 109, 'D', 'D', 0}};
  return divisions;
}

}  // namespace tarvex::setup
