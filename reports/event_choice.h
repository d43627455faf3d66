#pragma once

#include <optional>
#include <vector>

#include "database/meet.h"
#include "setup/event_store.h"
#include "setup/rounds.h"

namespace tarvex::reports {

// Which events a report is about. An event that was named stands in it even when it has nothing to show, and
// says so; without names those that have something are taken, by number and letter.
struct EventChoice {
  std::vector<setup::StoredEvent> events;  // empty: all
  std::optional<setup::Round> round;       // empty: each event's current round
  bool separate_pages = false;             // every event begins a page

  bool is_named() const { return !events.empty(); }
};

// The events to walk through.
Expected<std::vector<setup::StoredEvent>> ChosenEvents(const database::Meet& meet, const EventChoice& choice);

// The round that the choice means for the event; empty when the event does not have it.
std::optional<setup::Round> ChosenRound(const setup::Event& event, const EventChoice& choice);

}  // namespace tarvex::reports
