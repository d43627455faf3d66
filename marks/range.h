#pragma once

#include <optional>

#include "base/decimal.h"
#include "base/message.h"
#include "base/user_interface.h"
#include "marks/settings.h"

// Is a mark plausible for its event? A mark out of range is never refused but asked about.
namespace tarvex::marks {

// The question about a time out of range: three lines joined by "\r", to be put with Yes and No. Empty when
// the time is plausible or not checked: 0, range checks off, or a meet type without a table (L, W, S).
// `distance` is the event's, in its own unit: miles in mile runs and in walks and relays below 100, else
// metres, or yards taken as metres.
std::optional<Notice> CheckTimeRange(float seconds, float distance, char kind, const MarkSettings& settings);

// The same for a field mark, of which only the upper limit is checked. `value` in metres for unit 'M', in
// inches for 'E'. Not checked: 0, range checks off, meet type L, kinds without a limit.
std::optional<Notice> CheckFieldRange(float value, char unit, char kind, const MarkSettings& settings);

// The event's distance in metres; miles, see above, are rounded to the whole metre.
Decimal MetresOf(float distance, char kind);

enum class Consent { Accepted, Refused, Unanswered };

// Puts a range question, if there is one, to the person.
Consent AskAboutRange(const std::optional<Notice>& question, UserInterface& user);

}  // namespace tarvex::marks
