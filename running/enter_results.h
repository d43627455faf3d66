#pragma once

#include <string_view>

#include "base/outcome.h"
#include "base/user_interface.h"
#include "database/meet.h"
#include "setup/event_store.h"
#include "setup/rounds.h"

namespace tarvex::running {

// Enters the results of a CSV text into a round, places the round and sets the event done when every seeded
// entry has a result. Columns: heat, lane (as shown), comp_no, last_name, first_name, team_abbr, relay_ltr,
// mark, wind. A row is matched by heat and lane, else by competitor number, else by name and team, else by
// team and relay letter; marks are typed as at the keyboard and a blank one changes nothing. With any fault,
// each told with its line, nothing is stored. Writes nothing until the last question is answered.
Outcome EnterResults(database::Meet& meet, const setup::StoredEvent& event, setup::Round round,
                     std::string_view csv, UserInterface& user);

}  // namespace tarvex::running
