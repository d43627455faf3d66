#pragma once

#include <map>
#include <span>
#include <tuple>

#include "setup/event.h"

namespace tarvex::scoring {

// Places beyond this carry no points.
inline constexpr int kMostPlaces = 100;
// How many places a new points table has, and the least that its defaults fill.
inline constexpr int kUsualPlaces = 30;

enum class Kind { Individual, Relay, Combined };

// One row of the points table. `score_sex` is 'M' or 'F'.
struct ScoringRow {
  int score_divno = 0;  // 0: every division
  char score_sex = 'M';
  int score_place = 0;  // from 1
  float ind_score = 0;
  float rel_score = 0;
  float combevt_score = 0;
};

// Which points of the table a result takes.
struct PointsKey {
  int division = 0;
  char sex = 'M';  // 'F' female; anything else scores as male
  Kind kind = Kind::Individual;
};

class PointsTable {
 public:
  PointsTable() = default;
  explicit PointsTable(std::span<const ScoringRow> rows);

  // Whether the table has rows of a division.
  bool HasDivision(int division) const;
  // The points of a place; 0 for place 0, beyond place 100 and where the table has no row. A division
  // without any row of its own takes the points of division 0.
  float PointsFor(const PointsKey& key, int place) const;

 private:
  std::map<std::tuple<int, char, int>, ScoringRow> rows_;  // by division, sex and place
};

Kind KindOf(const setup::Event& event);

// How the meet is divided: the settings that choose the division of a result.
struct DivisionRules {
  int meet_type = 1;  // 1 standard, 2 by event, 3 by team, 4 by entry
  bool different_points_each_division = false;
};

// The division in the points table: the event's, the team's or the entry's, as the meet is divided.
int PointsDivision(const DivisionRules& rules, int event_div, int team_div, int entry_div);

// The sex in the points table: the event's; in mixed events that of the athlete or relay.
char PointsSex(char event_gender, char own_sex);

}  // namespace tarvex::scoring
