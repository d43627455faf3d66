#pragma once

#include <string>
#include <vector>

#include "demo/plan.h"

namespace tarvex::demo {

struct ScheduledEvent {
  size_t event = 0;
  int start_s = 0;  // after midnight
};

struct MadeSession {
  int day = 1;
  std::string name;                    // "Saturday Morning"
  std::vector<ScheduledEvent> events;  // by start, never empty
};

// The track takes one event after the other, and so does every field facility; all work side by side from
// morning to evening, on as many days as it takes. `entrants` counts the entries or relays of each event.
std::vector<MadeSession> ScheduleMeet(const std::vector<PlannedEvent>& events,
                                      const std::vector<int>& entrants);

}  // namespace tarvex::demo
