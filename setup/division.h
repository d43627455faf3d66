#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/message.h"
#include "setup/age.h"

namespace tarvex::setup {

// A named class by age or birth date.
struct Division {
  int div_no = 0;
  std::string div_abbr;  // the code, unique
  std::string div_name;
  int low_age = 0;
  int high_age = 109;
  char low_yeardate = 'Y';  // which day the age is taken on: see BirthRange
  char high_yeardate = 'Y';
  int max_entries = 0;  // 0: no limit
};

// The first check of the division screen that fails. `others` are the divisions beside this one.
std::optional<Notice> CheckDivision(const Division& division, std::span<const Division> others);

// The days on which ages are taken: "Y" 31 December of the year in which the meet starts, "D" the age-up
// date, "L" the last day of the meet.
struct AgeDays {
  Date meet_start;
  Date calc_date;
  Date meet_end;
};

struct BirthDates {
  Date oldest;    // earliest birth date allowed (beg_date)
  Date youngest;  // latest birth date allowed (end_date)

  bool operator==(const BirthDates&) const = default;
};

// The birth dates of the ages `low_age` to `high_age`. Low age 0 lets everybody in who is born by the day.
BirthDates BirthRange(const Division& division, const AgeDays& days);

// The standard youth sets. They replace the first rows of the division list, numbered from 1.
std::span<const Division> UsatfDivisions();
std::span<const Division> AauDivisions();

}  // namespace tarvex::setup
