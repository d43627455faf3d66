#pragma once

#include <optional>
#include <vector>

#include "seeding/seed.h"

namespace tarvex::seeding {

enum class Dealing {
  Blocks,      // the best together
  Serpentine,  // dealt out one by one, to and fro
};

struct DealingRules {
  char serp_type = '1';  // the event's seeding method
  int round_number = 1;
  int rounds = 1;
  bool timed_final_serpentine = false;  // the meet deals timed finals to and fro
};

// Timed finals and final sections put the best together, earlier rounds are balanced (WA TR 20); seeding
// methods '3' and '4' turn that round for the first round.
Dealing ChooseDealing(const DealingRules& rules);

// How many heats `entries` need with at most `per_heat` each; 0 per heat puts all into one.
int HeatCount(int entries, int per_heat);

// Entries per heat in blocks, strongest heat first: sizes differ by one at most, the strongest are larger.
std::vector<int> BlockSizes(int entries, int heats);

// The heats, strongest first, each best first. `seeds` is best first. `circle_heats` limits the serpentine to
// that many of the strongest heats, the others then being blocks; 0 means all heats.
std::vector<Heat> Deal(const std::vector<Seed>& seeds, int heats, Dealing dealing, int circle_heats = 0);

}  // namespace tarvex::seeding
