#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/columns.h"

// A report as plain data. It says what stands where and knows nothing of characters, pixels or paper: text,
// HTML, CSV and paper are drawn from the same report.
namespace tarvex::reports {

struct Column {
  std::string heading;
  std::string key;  // the column's name in data files ("mark_value"); empty: not part of the data
  Align align = Align::Left;
  int width = 0;  // relative to the other columns of the table; 0: data only, never drawn
};

struct Row {
  std::vector<std::string> cells;    // as many as the table has columns, or fewer
  std::vector<std::string> details;  // stand below the row: the runners of a relay, a note
  bool is_faint = false;             // scratched, for instance
};

// Goes with every row of a table in data files, where there are no headings.
struct DataField {
  std::string key;
  std::string value;
};

// One table with what stands above it: a heat, a flight, an age group, a standing.
struct Part {
  std::string heading;             // may be empty
  std::vector<std::string> notes;  // lines between the heading and the table
  std::vector<Column> columns;
  std::vector<Row> rows;
  std::vector<DataField> context;
  bool is_aside = false;       // for people only: its rows are no part of the report's data
  bool keep_together = false;  // a page break inside it is worse than an empty foot of a page
};

// An event, or whatever a report has one heading for.
struct Section {
  std::string heading;
  std::string subheading;
  std::vector<std::string> notes;
  std::vector<Part> parts;
  bool starts_page = false;
};

struct Report {
  std::string title;                   // "Team Scores thru Event 12"
  std::vector<std::string> meet_name;  // one or two lines
  std::vector<std::string> meet_info;  // location, dates
  std::vector<std::string> notes;      // for the report as a whole
  std::vector<Section> sections;
  std::vector<std::string> data_keys;  // the columns of a data file that come first, in this order
};

// Takes columns that no row fills out of the drawing; the data keeps them.
void HideEmptyColumns(Part& part);

// The position of the column with this key, -1 when the part has none.
int FindColumn(const Part& part, std::string_view key);

// Adds the text unless it is empty.
void AddLine(std::vector<std::string>& lines, std::string text);

}  // namespace tarvex::reports
