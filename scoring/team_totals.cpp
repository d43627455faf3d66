#include "scoring/team_totals.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "base/text.h"

namespace tarvex::scoring {
namespace {

// Totals that agree to the hundredth are equal: three thirds of 10 are 10.
constexpr int kDecimals = 2;

bool IsWanted(const TeamResult& result, const TotalRules& rules) {
  if (result.event_type == 'C' || result.event_type == 'R') return false;
  if (rules.division && *rules.division != result.division) return false;
  if (rules.thru_event_no == 0) return true;
  return std::pair(result.event_no, Upper(Trim(result.event_ltr))) <=
         std::pair(rules.thru_event_no, Upper(Trim(rules.thru_event_ltr)));
}

std::optional<Group> GroupOf(const TeamResult& result, const TotalRules& rules) {
  const bool by_event = rules.by_event_gender && result.event_gender != 'X';
  switch (by_event ? result.event_gender : result.sex) {
    case 'M':
      return Group::Male;
    case 'F':
      return Group::Female;
    default:
      return std::nullopt;
  }
}

bool IsAhead(const TeamTotal& a, const TeamTotal& b) {
  if (a.group != b.group) return a.group < b.group;
  if (a.points != b.points) return a.points > b.points;
  const int name = CompareText(a.name, b.name);
  return name != 0 ? name < 0 : a.team_no < b.team_no;
}

void Rank(std::vector<TeamTotal>& totals) {
  int position = 0;
  for (size_t i = 0; i < totals.size(); ++i) {
    const bool first = i == 0 || totals[i].group != totals[i - 1].group;
    position = first ? 1 : position + 1;
    const bool tied = !first && totals[i].points == totals[i - 1].points;
    totals[i].rank = tied ? totals[i - 1].rank : position;
  }
}

}  // namespace

bool IsScored(const TeamResult& result) {
  if (result.jdev_score > 0 || result.jdev_score == -1) return true;
  return result.relay ? result.ev_score > 0 : result.ev_score != 0;
}

Decimal TeamPoints(const TeamResult& result) {
  if (result.jdev_score > 0) return Decimal::FromSingle(result.jdev_score);
  if (result.jdev_score == -1) return Decimal();
  return Decimal::FromSingle(result.ev_score);
}

std::vector<TeamTotal> TeamTotals(std::span<const TeamResult> results, std::span<const ScoringTeam> teams,
                                  const TotalRules& rules) {
  std::map<std::pair<Group, int>, Decimal> sums;
  for (const TeamResult& result : results) {
    if (!IsScored(result) || !IsWanted(result, rules)) continue;
    const Decimal points = TeamPoints(result);
    for (const std::optional<Group> group : {GroupOf(result, rules), std::optional(Group::Combined)}) {
      if (!group) continue;
      Decimal& sum = sums[{*group, result.team_no}];
      sum = sum + points;
    }
  }
  std::map<int, const ScoringTeam*> team_by_number;
  for (const ScoringTeam& team : teams) team_by_number[team.team_no] = &team;
  std::vector<TeamTotal> totals;
  for (const auto& [key, sum] : sums) {
    const auto team = team_by_number.find(key.second);
    if (team == team_by_number.end() || team->second->no_points) continue;
    totals.push_back({key.first, 0, key.second, team->second->name, sum.RoundedTo(kDecimals)});
  }
  std::sort(totals.begin(), totals.end(), IsAhead);
  Rank(totals);
  return totals;
}

}  // namespace tarvex::scoring
