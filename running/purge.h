#pragma once

#include <span>

#include "base/outcome.h"
#include "base/user_interface.h"
#include "database/meet.h"
#include "setup/event_store.h"
#include "setup/rounds.h"

namespace tarvex::running {

struct PurgeOptions {
  bool results_only = false;
  std::optional<setup::Round> round;  // else each event's current round
};

// Takes the seeding of the events' rounds away with their results, or the results alone, and steps the status
// back. Asks before results go with the seeding. All events in one transaction; Done when at least one was
// changed.
Outcome PurgeRounds(database::Meet& meet, std::span<const setup::StoredEvent> events,
                    const PurgeOptions& options, UserInterface& user);

}  // namespace tarvex::running
