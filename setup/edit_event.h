#pragma once

#include <span>
#include <string_view>

#include "base/outcome.h"
#include "database/meet.h"
#include "setup/edit_row.h"

namespace tarvex::setup {

// Adds, changes or deletes the event of a number ("12", "12A"), in one transaction, under the checks of the
// event screen. What is not given for a new event is proposed; its kind and sex must be given. After a change
// the seed marks of the event's entries are brought to its unit of results. Deleting is refused while there
// are entries.
Outcome EditEvent(database::Meet& meet, Edit edit, std::string_view number,
                  std::span<const FieldText> fields);

}  // namespace tarvex::setup
