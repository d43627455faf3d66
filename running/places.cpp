#include "running/places.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>
#include <vector>

#include "marks/kinds.h"

namespace tarvex::running {
namespace {

bool IsBetter(const Result& a, const Result& b, const PlaceRules& rules) {
  const float mark_a = ComparedMark(a.mark, rules);
  const float mark_b = ComparedMark(b.mark, rules);
  if (mark_a != mark_b) return rules.field ? mark_a > mark_b : mark_a < mark_b;
  return std::tie(a.heat, a.lane, a.id) < std::tie(b.heat, b.lane, b.id);
}

// Numbers the results, all of which take a place, by their marks. Equal marks share the first one's place.
void Number(std::vector<Result*>& results, int Result::*place, const PlaceRules& rules) {
  std::sort(results.begin(), results.end(),
            [&](const Result* a, const Result* b) { return IsBetter(*a, *b, rules); });
  for (size_t i = 0; i < results.size(); ++i) {
    const bool tied =
        i > 0 && ComparedMark(results[i]->mark, rules) == ComparedMark(results[i - 1]->mark, rules);
    results[i]->*place = tied ? results[i - 1]->*place : static_cast<int>(i) + 1;
  }
}

}  // namespace

float ComparedMark(float mark, const PlaceRules& rules) {
  if (!rules.field || rules.unit != 'E' || marks::IsCombinedKind(rules.kind)) return mark;
  // Exact: quarters of an inch are binary fractions.
  if (rules.whole_inches && marks::IsLongThrow(rules.kind)) return std::floor(mark);
  return std::floor(mark * 4) / 4;
}

bool TakesPlace(const Result& result, const PlaceRules& rules) {
  if (!HasValidMark(result) || result.time_trial) return false;
  if (!result.exhibition) return true;
  return rules.last_round ? rules.rank_exhibition : rules.exhibition_in_final;
}

void PlaceResults(std::span<Result> results, const PlaceRules& rules) {
  std::map<int, std::vector<Result*>> heats;
  std::map<Group, std::vector<Result*>> groups;
  for (Result& result : results) {
    result.heatplace = result.place = 0;
    if (!TakesPlace(result, rules)) continue;
    heats[result.heat].push_back(&result);
    groups[result.group].push_back(&result);
  }
  for (auto& [heat, members] : heats) Number(members, &Result::heatplace, rules);
  for (auto& [group, members] : groups) Number(members, &Result::place, rules);
}

bool IsRoundComplete(std::span<const Result> results) {
  return std::all_of(results.begin(), results.end(), [](const Result& result) {
    return result.heat <= 0 || result.scratched || HasResult(result);
  });
}

}  // namespace tarvex::running
