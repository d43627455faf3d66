#pragma once

#include <span>
#include <string_view>

#include "base/outcome.h"
#include "database/meet.h"
#include "setup/edit_row.h"

namespace tarvex::setup {

// Adds, changes or deletes an athlete, in one transaction. The key is a competitor number or "#" and ath_no;
// a new athlete is added by a competitor number, or by "0" when he is to have none. Beside the fields of the
// table, team_abbr=CAN names the team. The age follows from a birth date. Refused: a missing name, sex or
// team, a competitor number that somebody has, and deleting an athlete who has entries or runs in a relay.
Outcome EditAthlete(database::Meet& meet, Edit edit, std::string_view key, std::span<const FieldText> fields);

}  // namespace tarvex::setup
