#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "marks/kinds.h"
#include "setup/event.h"

namespace tarvex::setup {

// One kind of event as delivered. The meaning of a letter depends on the meet type letter.
struct EventKind {
  char letter;
  std::string_view name;
};

// All kinds of a meet type ("T" track and field, "S" swim-bike-run, "L" surf and beach, "W" multi-sport), by
// letter. Empty for any other meet type letter.
std::span<const EventKind> EventKinds(char meet_type);

// The name of a kind; empty when the meet type has no such letter. A lower-case letter is read upper-cased.
std::optional<std::string_view> KindName(char meet_type, char letter);

// The letter of a kind given by its letter or its name, in any case and with blanks around. Several letters
// of one name ("Other", "Host Event") give the first. Empty when the meet type has no such kind.
std::optional<char> FindKind(char meet_type, std::string_view letter_or_name);

using marks::IsCombinedKind;

// Distances, heights and points rather than times. The letter of the kind never decides it: "Other" may be
// either. The header of a combined event is neither a running nor a field event.
inline bool IsFieldEvent(const Event& event) {
  return event.trk_field == 'F' && !IsCombinedKind(event.event_stroke);
}
inline bool IsRunningEvent(const Event& event) {
  return event.trk_field != 'F' && !IsCombinedKind(event.event_stroke);
}

// The kinds whose distance is a number of miles: the mile run always, race walks and relays below 100.
bool IsInMiles(char meet_type, char letter, float distance);

// How many runners' or athletes' legs share the distance of a relay; 1 for anything else.
int Legs(const Event& event);

}  // namespace tarvex::setup
