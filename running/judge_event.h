#pragma once

#include <optional>
#include <span>
#include <string>

#include "base/outcome.h"
#include "database/meet.h"
#include "setup/event_store.h"
#include "setup/rounds.h"

namespace tarvex::running {

// One line of the judges' grid as it was filled in; cells that are not given stay as they are.
struct Decision {
  std::string key;  // competitor number, "#ath_no" or "TEAM-LETTER"
  std::optional<std::string> place, heat_place, points;
};

// Enters judges' decisions into a complete round, or takes all of them away first. Points follow when the
// event is scored again. Checks everything before anything is written.
Outcome JudgeEvent(database::Meet& meet, const setup::StoredEvent& event, setup::Round round, bool reset,
                   std::span<const Decision> decisions);

}  // namespace tarvex::running
