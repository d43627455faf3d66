#pragma once

#include <vector>

#include "seeding/random_draw.h"
#include "seeding/seed.h"

namespace tarvex::seeding {

struct OrderRules {
  bool field = false;            // the greater mark is the better one
  bool exhibition_last = false;  // exhibition entries go behind all others
  bool by_seed_place = false;    // the seed place counts before the mark
};

// Best first: entries with a mark before those without, then mark, then seed place (0 last), then id.
std::vector<Seed> BestFirst(std::vector<Seed> seeds, const OrderRules& rules);

// Drawn instead of sorted; exhibition entries still go last when asked for.
std::vector<Seed> DrawnOrder(std::vector<Seed> seeds, bool exhibition_last, RandomDraw& draw);

}  // namespace tarvex::seeding
