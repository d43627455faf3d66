#pragma once

#include <unordered_map>
#include <vector>

#include "database/meet.h"
#include "demo/progress.h"
#include "demo/roster.h"
#include "demo/schedule.h"

namespace tarvex::demo {

// The season's best in hundredths by ath_no or relay_no, of one event.
using Potentials = std::unordered_map<int, int>;

// Writes events, sessions, teams, athletes, entries, relays and their runners in one transaction. Gives the
// potentials of each event.
Expected<std::vector<Potentials>> WriteRoster(const database::Meet& meet,
                                              const std::vector<PlannedEvent>& events,
                                              const std::vector<MadeSession>& sessions, const Roster& roster,
                                              Progress& progress);

}  // namespace tarvex::demo
