#include "running/scorers.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

#include "running/messages.h"

namespace tarvex::running {
namespace {

constexpr char kWorstToBest = '2';
constexpr char kRandomOrder = '3';

bool MayScore(const Result& result, const ScorerRules& rules) {
  if (EffectivePlace(result) <= 0 || !HasValidMark(result)) return false;
  if (result.exhibition || result.time_trial) return false;
  if (result.foreign && !rules.foreign_score) return false;
  if (rules.relay && rules.only_a_relays && result.team_ltr != 'A' && result.team_ltr != ' ') return false;
  return !rules.fastest_heat_only || result.heat == rules.fastest_heat;
}

// The placed results of one group in the order of places; the limit per team counts along it.
void AssignInGroup(std::vector<Result*>& placed, const ScorerRules& rules) {
  std::sort(placed.begin(), placed.end(), [](const Result* a, const Result* b) {
    return std::pair(EffectivePlace(*a), a->id) < std::pair(EffectivePlace(*b), b->id);
  });
  std::map<int, int> scorers_of_team;
  int passed_over = 0;    // non-scorers at smaller places
  int at_this_place = 0;  // and at the place that is being walked
  int current = 0;
  for (Result* result : placed) {
    const int place = EffectivePlace(*result);
    if (place != current) {
      passed_over += at_this_place;
      at_this_place = 0;
      current = place;
    }
    bool scores = MayScore(*result, rules);
    if (scores && rules.most_per_team > 0) scores = ++scorers_of_team[result->team_no] <= rules.most_per_team;
    if (scores) {
      result->ptsplace = place - passed_over;
    } else {
      ++at_this_place;
    }
  }
}

}  // namespace

void AssignPointsPlaces(std::span<Result> results, const ScorerRules& rules) {
  std::map<Group, std::vector<Result*>> groups;
  for (Result& result : results) {
    result.ptsplace = 0;
    if (EffectivePlace(result) > 0) groups[result.group].push_back(&result);
  }
  for (auto& [group, placed] : groups) AssignInGroup(placed, rules);
}

std::variant<int, Notice> FastestHeat(std::span<const Result> results, const FastestHeatFacts& facts) {
  if (facts.multi_age) return FastestHeatWithAgeGroups();
  if (facts.divisions) return FastestHeatWithDivisions();
  int first = 0;
  int last = 0;
  for (const Result& result : results) {
    if (result.heat <= 0) continue;
    first = first == 0 ? result.heat : std::min(first, result.heat);
    last = std::max(last, result.heat);
  }
  if (first == last) return last;
  if (facts.heat_order == kRandomOrder) return FastestHeatUnknown();
  return facts.heat_order == kWorstToBest ? last : 1;
}

}  // namespace tarvex::running
