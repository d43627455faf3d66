#pragma once

#include <span>

#include "running/result.h"
#include "setup/event_checks.h"

namespace tarvex::running {

// How the meet and the event are divided.
struct GroupRules {
  int meet_type = 1;                            // 1 standard, 2 by event, 3 by team, 4 by entry
  std::span<const setup::AgeGroup> age_groups;  // of a multi-age event, else empty
};

// What puts a result into its group. `age` is the age chosen for the entry where there is one, else the
// athlete's; of a relay its own age.
struct GroupFacts {
  int age = 0;
  int team_div = 0;
  int entry_div = 0;
};

// Meets by team and by entry place by division, multi-age events by age group. Somebody whom no age group
// holds is in group 0 of that kind.
Group GroupOf(const GroupRules& rules, const GroupFacts& facts);

}  // namespace tarvex::running
