#pragma once

#include <array>
#include <vector>

#include "demo/chance.h"
#include "demo/plan.h"
#include "setup/roster.h"

// Who takes part in a made-up meet. Everybody is referred to by position; the numbers of the rows are given
// by the file.
namespace tarvex::demo {

// A seed mark before it is converted; 0: none.
struct MadeSeed {
  int hundredths = 0;      // of a second or of a metre
  int quarter_inches = 0;  // instead of metres
  bool hand = false;
};

struct MadeAthlete {
  setup::Athlete row;  // without numbers
  size_t team = 0;
  size_t group = 0;
  Family family = Family::Sprints;
  int ability = 0;  // thousandths of a standard deviation
};

// What an entry and a relay have in common.
struct MadeEntryCommon {
  size_t event = 0;
  MadeSeed seed;
  int potential = 0;  // hundredths that the athlete is good for, whether a seed was sent in or not
  bool scratched = false;
};

struct MadeEntry : MadeEntryCommon {
  size_t athlete = 0;
};

struct MadeRelay : MadeEntryCommon {
  size_t team = 0;
  char letter = 'A';
  int age = 0;  // of the oldest runner
  std::array<size_t, 4> runners = {};
};

struct Roster {
  std::vector<setup::Team> teams;     // the first stands for those without a team, which every meet has
  std::vector<MadeAthlete> athletes;  // by team, then name; numbered in this order
  std::vector<MadeEntry> entries;     // in the order of the athletes
  std::vector<MadeRelay> relays;      // by team
};

Roster InventRoster(const Plan& plan, const std::vector<PlannedEvent>& events, Chance& chance);

}  // namespace tarvex::demo
