#pragma once

#include <string_view>

#include "base/user_interface.h"
#include "marks/entry.h"
#include "marks/settings.h"

namespace tarvex::marks {

struct FieldEntryOptions {
  bool codes_allowed = true;  // words such as FOUL; NT and N pass in any case
  bool show_message = true;   // a refusal is shown, not only returned
  bool even_centimetre =
      true;  // with the setting of that name, long throws are lowered to the even centimetre
};

// What a typed distance or height means, without asking or showing anything: metres for unit 'M', inches for
// 'E'. Metric marks have implied hundredths (6231 is 62.31 m); English marks are feet and inches, 21-03.5,
// 21'3.5 or 2103.5. The rest is as for ReadTime.
MarkEntry ReadFieldMark(std::string_view typed, char unit, char kind, const FieldEntryOptions& options,
                        const MarkSettings& settings);

// ReadFieldMark, and then the message or the plausibility question put to the person.
MarkEntry ParseFieldMark(std::string_view typed, char unit, char kind, const FieldEntryOptions& options,
                         const MarkSettings& settings, UserInterface& user);

}  // namespace tarvex::marks
