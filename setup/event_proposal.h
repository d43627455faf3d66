#pragma once

#include <optional>

#include "setup/event.h"

namespace tarvex::setup {

// What the meet's settings say about new events.
struct MeetDefaults {
  char meet_type = 'T';
  int meet_class = 1;
  int num_lanes = 8;
  char course = 'M';  // unit of new events: 'M' metric, 'E' English
};

// What is known of an event that is about to be added.
struct EventRequest {
  char gender = 'M';  // 'M', 'F', 'X'
  char kind = 'A';
  float distance = 0;
  bool relay = false;
  int relay_size = 4;             // runners of a relay
  std::optional<char> trk_field;  // asked for where the kind letter leaves it open ("Other")
  int low_age = 0;
  int high_age = 109;
};

// Whether results of a kind are distances or heights ('F') or times ('T') by its letter alone. Combined
// events are 'F'.
char TrackOrField(char meet_type, char kind);

// An event as it is first proposed; every value can be edited before it is added. The number, letter and
// pointer stay 0 and empty.
Event ProposeEvent(const EventRequest& request, const MeetDefaults& meet);

}  // namespace tarvex::setup
