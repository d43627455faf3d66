#pragma once

#include <vector>

#include "database/meet.h"
#include "demo/schedule.h"

namespace tarvex::demo {

// Writes sessions, numbered from 1, and their events. `event_ptrs` by position of the event.
Status WriteSessions(jet::Transaction& write, const database::Meet& meet,
                     const std::vector<MadeSession>& sessions, const std::vector<int>& event_ptrs);

}  // namespace tarvex::demo
