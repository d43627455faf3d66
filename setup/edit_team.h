#pragma once

#include <span>
#include <string_view>

#include "base/outcome.h"
#include "base/user_interface.h"
#include "database/meet.h"
#include "setup/edit_row.h"

namespace tarvex::setup {

// Adds, changes or deletes the team of an abbreviation, in one transaction. A new team is called by its
// abbreviation until it gets a name. Refused: an abbreviation that another team has, a blank one, and
// deleting a team that has athletes or relays.
Outcome EditTeam(database::Meet& meet, Edit edit, std::string_view abbr, std::span<const FieldText> fields);

}  // namespace tarvex::setup
