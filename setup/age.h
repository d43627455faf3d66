#pragma once

#include <chrono>

namespace tarvex::setup {

using Date = std::chrono::year_month_day;

// Whole years of age on a day. Somebody born on 29 February has the birthday on 1 March in common years.
constexpr int AgeOn(Date birth, Date day) {
  const int years = static_cast<int>(day.year()) - static_cast<int>(birth.year());
  const bool before_birthday =
      day.month() < birth.month() || (day.month() == birth.month() && day.day() < birth.day());
  return before_birthday ? years - 1 : years;
}

}  // namespace tarvex::setup
