#pragma once

#include <string>
#include <utility>
#include <vector>

#include "reports/report.h"
#include "running/round_sheet.h"

// Small rounds made by hand, and what a reader of a report looks up.
namespace tarvex::reports {

inline running::SheetLine Line(int id, int heat, int lane, std::string name, std::string team) {
  running::SheetLine line;
  line.id = id;
  line.heat = heat;
  line.lane = lane;
  line.lane_text = std::to_string(lane);
  line.comp_no = 100 + id;
  line.name = std::move(name);
  line.team_abbr = team.substr(0, 3);
  line.team_name = std::move(team);
  line.seed_text = "13.00";
  return line;
}

inline running::SheetLine Placed(running::SheetLine line, int place, float mark, std::string mark_text) {
  line.place = place;
  line.heatplace = place;
  line.mark = mark;
  line.mark_text = std::move(mark_text);
  return line;
}

inline running::SheetLine WithStatus(running::SheetLine line, char stat, std::string word) {
  line.stat = stat;
  line.mark_text = std::move(word);
  return line;
}

// Girls 100 m, event 12, with the heats in the order given.
inline running::RoundSheet Sheet(std::vector<running::SheetHeat> heats) {
  running::RoundSheet sheet;
  sheet.event.event_no = 12;
  sheet.event.event_sex = 'G';
  sheet.event.event_gender = 'F';
  sheet.event.event_dist = 100;
  sheet.event.event_stroke = 'A';
  sheet.name = "Girls 100 Meter Dash";
  sheet.heats = std::move(heats);
  return sheet;
}

// The cells of a column that stands in the data under this key, one a row.
inline std::vector<std::string> Cells(const Part& part, std::string_view key) {
  std::vector<std::string> cells;
  const int column = FindColumn(part, key);
  for (const Row& row : part.rows) {
    cells.push_back(column < 0 ? "no column" : row.cells.at(static_cast<size_t>(column)));
  }
  return cells;
}

inline bool IsDrawn(const Part& part, std::string_view key) {
  const int column = FindColumn(part, key);
  return column >= 0 && part.columns[static_cast<size_t>(column)].width > 0;
}

using Texts = std::vector<std::string>;

}  // namespace tarvex::reports
