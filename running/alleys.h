#pragma once

#include <vector>

#include "database/meet.h"
#include "setup/lane_text.h"

namespace tarvex::running {

// The names that the user gave to the alleys of one event.
Expected<std::vector<setup::AlleyName>> LoadAlleyNames(const database::Meet& meet, int event_ptr);

}  // namespace tarvex::running
