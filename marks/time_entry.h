#pragma once

#include <string_view>

#include "base/user_interface.h"
#include "marks/entry.h"
#include "marks/settings.h"

namespace tarvex::marks {

struct TimeEntryOptions {
  bool codes_allowed = true;  // words such as DNF; NT and N pass in any case
  bool show_message = true;   // a refusal is shown, not only returned
  bool thousandths = false;   // three decimals, and whole seconds without a separator
};

// What a typed time means, in seconds, without asking or showing anything: nothing typed is value 0,
// accepted. The last two digits are hundredths: 14523, 1:45.23 and 1:4523 are 105.23 s, 45 is 0.45 s. "H"
// behind it marks a hand time, "A" a video time, "X" before it an exhibition mark. A plausibility question
// that must be answered before the time is stored comes back in `range_question`. `distance` and `kind` are
// the event's, as for CheckTimeRange.
MarkEntry ReadTime(std::string_view typed, float distance, char kind, const TimeEntryOptions& options,
                   const MarkSettings& settings);

// ReadTime, and then the message or the plausibility question put to the person.
MarkEntry ParseTime(std::string_view typed, float distance, char kind, const TimeEntryOptions& options,
                    const MarkSettings& settings, UserInterface& user);

// Whether results of the event are typed with thousandths: races on the track only, for they need a photo
// finish. `event_type` is blank, 'C' cross-country or 'R' road race.
bool UsesThousandths(char track_or_field, char event_type, const MarkSettings& settings);

}  // namespace tarvex::marks
