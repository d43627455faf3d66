#pragma once

#include "database/meet.h"
#include "jet/database.h"

namespace tarvex::database {

// Inserts what a new table of this name begins with: divisions, regions, the team of the unattached, scoring
// points, lane orders, waterfall positions, the settings row. Does nothing for all other tables. The session
// dates a new meet; divisions added to a meet that is there are dated by its first day.
Status InsertStartingRows(jet::Transaction& write, jet::Table& table, const Session& session);

}  // namespace tarvex::database
