#pragma once

#include <span>
#include <vector>

#include "seeding/random_draw.h"
#include "seeding/seed.h"

namespace tarvex::seeding {

// The groups that a randomization rule ('A' to 'E') cuts the entries of a heat into: their sizes, from the
// best entry. What the groups do not reach keeps its order; no group at all: seeded order kept. 'B' has none
// because it draws the lanes themselves.
std::vector<int> ShuffleGroups(char rule, int entries);

// Draws the order inside each group; nobody leaves the group. `seeds` is best first.
void Shuffle(std::span<Seed> seeds, std::span<const int> groups, RandomDraw& draw);

}  // namespace tarvex::seeding
