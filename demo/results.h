#pragma once

#include <vector>

#include "demo/chance.h"
#include "demo/plan.h"
#include "demo/write_roster.h"
#include "running/round_store.h"

namespace tarvex::demo {

// Gives everybody who was seeded a mark near the season's best or a status. The winds of the heats, where
// there are any, come back.
std::vector<running::HeatWind> InventResults(const Discipline& discipline, const Potentials& potentials,
                                             const marks::MarkSettings& settings, running::RoundData& data,
                                             Chance& chance);

}  // namespace tarvex::demo
