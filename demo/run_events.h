#pragma once

#include <vector>

#include "base/outcome.h"
#include "database/meet.h"
#include "demo/chance.h"
#include "demo/plan.h"
#include "demo/progress.h"
#include "demo/write_roster.h"

namespace tarvex::demo {

// Runs all events: results, places, statuses, and jump-offs that the judges decided. One transaction for the
// results, one for each jump-off. `events` and `potentials` by number of the event, from 1.
Outcome RunEvents(database::Meet& meet, const std::vector<PlannedEvent>& events,
                  const std::vector<Potentials>& potentials, Chance& chance, Progress& progress);

}  // namespace tarvex::demo
