#pragma once

#include <span>

#include "base/outcome.h"
#include "base/user_interface.h"
#include "database/meet.h"
#include "setup/event_store.h"

namespace tarvex::running {

// The Score button: points for the results of each event's final round, all events in one transaction. Events
// that cannot be scored are told and passed over. Writes nothing until the last question is answered. Done
// when at least one event was scored or listed.
Outcome ScoreEvents(database::Meet& meet, std::span<const setup::StoredEvent> events, bool whole_meet,
                    UserInterface& user);

// The events that scoring the whole meet takes: those whose last round is done or scored, in their order.
std::vector<setup::StoredEvent> EventsToScore(std::span<const setup::StoredEvent> events);

}  // namespace tarvex::running
