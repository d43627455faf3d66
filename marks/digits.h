#pragma once

#include <string>
#include <string_view>

#include "base/decimal.h"

namespace tarvex::marks {

// The suffix that brings a number's text to two decimals: nothing when it has them, "0" or "00" where they
// are missing, the separator and "00" when there is no separator at all.
std::string PadDecimals2(std::string_view text, char separator);
// The same to three decimals.
std::string PadDecimals3(std::string_view text, char separator);

// Seconds of a number written as digits hhmmss.cc: 10203.45 is 1:02:03.45, 3723.45 s. Only the last nine
// characters of its two-decimal text are read, so hours beyond 99 are lost. Nothing says that minutes and
// seconds are below 60: 9999 is 99 min 99 s.
Decimal DigitsToSeconds(const Decimal& digits);

}  // namespace tarvex::marks
