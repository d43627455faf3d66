#include "reports/report.h"

#include <algorithm>

namespace tarvex::reports {

void HideEmptyColumns(Part& part) {
  for (size_t i = 0; i < part.columns.size(); ++i) {
    const bool is_filled = std::any_of(part.rows.begin(), part.rows.end(), [&](const Row& row) {
      return i < row.cells.size() && !row.cells[i].empty();
    });
    if (!is_filled) part.columns[i].width = 0;
  }
}

int FindColumn(const Part& part, std::string_view key) {
  const auto found = std::find_if(part.columns.begin(), part.columns.end(),
                                  [&](const Column& column) { return column.key == key; });
  return found == part.columns.end() ? -1 : static_cast<int>(found - part.columns.begin());
}

void AddLine(std::vector<std::string>& lines, std::string text) {
  if (!text.empty()) lines.push_back(std::move(text));
}

}  // namespace tarvex::reports
