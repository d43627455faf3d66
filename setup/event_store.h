#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "database/meet.h"
#include "database/rows.h"
#include "setup/event.h"
#include "setup/event_checks.h"

namespace tarvex::setup {

using StoredEvent = database::Stored<Event>;

// All events by number and letter.
Expected<std::vector<StoredEvent>> LoadEvents(const database::Meet& meet);

// The event of a number; empty when there is none.
Expected<std::optional<StoredEvent>> FindEvent(const database::Meet& meet, const EventNumber& number);

// Adds the event and gives its event_ptr.
Expected<int> InsertEvent(jet::Transaction& write, const database::Meet& meet, const Event& event);
// Writes what differs from the stored event.
Status SaveEvent(jet::Transaction& write, const database::Meet& meet, const StoredEvent& stored,
                 const Event& event);

// Sets the fields of an event that Event knows, and gives the values of the others.
std::vector<jet::FieldValue> ApplyEventFields(const jet::Table& table, Event& event,
                                              std::vector<jet::FieldValue> values);

// The age groups of a multi-age event, from the youngest.
Expected<std::vector<AgeGroup>> LoadAgeGroups(const database::Meet& meet, int event_ptr);

// The name of a division; empty for 0 and for one that does not exist.
Expected<std::string> DivisionName(const database::Meet& meet, int div_no);

// The event's name as printed, under the meet's settings.
Expected<std::string> NameOf(const database::Meet& meet, const Event& event);

}  // namespace tarvex::setup
