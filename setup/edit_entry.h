#pragma once

#include <span>
#include <string_view>

#include "base/outcome.h"
#include "base/user_interface.h"
#include "database/meet.h"
#include "setup/edit_row.h"

namespace tarvex::setup {

// Adds, changes or deletes an entry ("6:101", "6:#17"), in one transaction. Beside the fields of the table,
// mark=TEXT sets the seed mark as typed. An athlete whose sex or age does not fit, or who is in the event
// already, is refused; one below the event's age, or beyond the limits of entries where the meet only warns,
// is asked about, and so is a mark out of range and the deletion of results.
Outcome EditEntry(database::Meet& meet, Edit edit, std::string_view key, std::span<const FieldText> fields,
                  UserInterface& user, const AfterChange& after = {});

// The same for a relay ("6:CAN-A").
Outcome EditRelay(database::Meet& meet, Edit edit, std::string_view key, std::span<const FieldText> fields,
                  UserInterface& user, const AfterChange& after = {});

}  // namespace tarvex::setup
