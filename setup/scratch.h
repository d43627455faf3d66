#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/outcome.h"
#include "database/meet.h"
#include "setup/edit_row.h"

namespace tarvex::setup {

// Scratches entries or relays of an event, or takes their scratches back, in one transaction: with one key
// that leads nowhere, nothing is done. A scratched entry keeps its lane.
Outcome Scratch(database::Meet& meet, std::string_view event, std::span<const std::string> keys, bool undo,
                const AfterChange& after = {});

}  // namespace tarvex::setup
