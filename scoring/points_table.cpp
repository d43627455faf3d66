#include "scoring/points_table.h"

#include "setup/event_kind.h"

namespace tarvex::scoring {
namespace {

constexpr int kByEvent = 2;
constexpr int kByTeam = 3;
constexpr int kByEntry = 4;

char TableSex(char sex) {
  return sex == 'F' ? 'F' : 'M';
}

}  // namespace

PointsTable::PointsTable(std::span<const ScoringRow> rows) {
  for (const ScoringRow& row : rows) rows_[{row.score_divno, TableSex(row.score_sex), row.score_place}] = row;
}

bool PointsTable::HasDivision(int division) const {
  const auto first = rows_.lower_bound({division, '\0', 0});
  return first != rows_.end() && std::get<0>(first->first) == division;
}

float PointsTable::PointsFor(const PointsKey& key, int place) const {
  if (place < 1 || place > kMostPlaces) return 0;
  const int division = HasDivision(key.division) ? key.division : 0;
  const auto found = rows_.find({division, TableSex(key.sex), place});
  if (found == rows_.end()) return 0;
  switch (key.kind) {
    case Kind::Relay:
      return found->second.rel_score;
    case Kind::Combined:
      return found->second.combevt_score;
    case Kind::Individual:
      break;
  }
  return found->second.ind_score;
}

Kind KindOf(const setup::Event& event) {
  if (event.ind_rel == 'R') return Kind::Relay;
  return setup::IsCombinedKind(event.event_stroke) ? Kind::Combined : Kind::Individual;
}

int PointsDivision(const DivisionRules& rules, int event_div, int team_div, int entry_div) {
  if (!rules.different_points_each_division) return 0;
  switch (rules.meet_type) {
    case kByEvent:
      return event_div;
    case kByTeam:
      return team_div;
    case kByEntry:
      return entry_div;
    default:
      return 0;
  }
}

char PointsSex(char event_gender, char own_sex) {
  return (event_gender == 'X' ? own_sex : event_gender) == 'F' ? 'F' : 'M';
}

}  // namespace tarvex::scoring
