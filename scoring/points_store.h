#pragma once

#include <vector>

#include "database/meet.h"
#include "database/rows.h"
#include "scoring/points_table.h"

namespace tarvex::scoring {

using StoredScoringRow = database::Stored<ScoringRow>;

// All rows of the points table by division, sex and place.
Expected<std::vector<StoredScoringRow>> LoadScoringRows(const database::Meet& meet);

Expected<PointsTable> LoadPointsTable(const database::Meet& meet);

// Makes the table's rows of the divisions that occur in `rows` equal to `rows`: changed rows are written,
// missing ones added, rows of places that are not named any more deleted.
Status SaveScoringRows(jet::Transaction& write, const database::Meet& meet,
                       const std::vector<ScoringRow>& rows);

}  // namespace tarvex::scoring
