#pragma once

#include "marks/settings.h"

namespace tarvex::marks {

// The time a hand time counts for beside fully automatic ones, in seconds; `seconds` itself when it is 0, was
// not timed by hand, or hand times are not converted. Classes 1 to 3 add 0.24 at every distance (NFHS), the
// others 0.24 up to 220, 0.14 up to 440 and nothing beyond, as the international convention has it;
// `distance` is the event's number, be it metres or yards.
float HandToFat(float seconds, float distance, char kind, bool is_hand, const MarkSettings& settings);

}  // namespace tarvex::marks
