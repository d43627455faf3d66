#pragma once

#include <variant>
#include <vector>

#include "base/message.h"
#include "running/round_store.h"
#include "running/scorers.h"

namespace tarvex::running {

// Who scores in a final under the meet's settings; the notice says why the fastest heat, when only that
// scores, cannot be told.
std::variant<ScorerRules, Notice> ScorerRulesOf(const database::MeetSettings& settings, const RoundData& data,
                                                const std::vector<Result>& results);

// Places the results of a round in their heats and over all of them; in a final also the places by which
// points are read, 0 for all where the fastest heat cannot be told.
void PlaceRound(const database::MeetSettings& settings, const RoundData& data, std::vector<Result>& results);

// The status of an event after results of the round have come or gone: done when every seeded entry has a
// mark or a status, else seeded.
char StatusAfterResults(const RoundData& data, const std::vector<Result>& results);

}  // namespace tarvex::running
