#include "running/groups.h"

namespace tarvex::running {
namespace {

constexpr int kByTeam = 3;
constexpr int kByEntry = 4;

}  // namespace

Group GroupOf(const GroupRules& rules, const GroupFacts& facts) {
  Group group;
  if (rules.meet_type == kByTeam) group.division = facts.team_div;
  if (rules.meet_type == kByEntry) group.division = facts.entry_div;
  for (size_t i = 0; i < rules.age_groups.size(); ++i) {
    const setup::AgeGroup& ages = rules.age_groups[i];
    if (facts.age >= ages.low_age && facts.age <= ages.high_age) group.age_group = static_cast<int>(i) + 1;
  }
  return group;
}

}  // namespace tarvex::running
