#include "base/columns.h"

#include <algorithm>

namespace tarvex {
namespace {

void AppendLine(std::string& out, std::string_view indent, const std::vector<std::string>& cells,
                const std::vector<size_t>& widths, const std::vector<Columns::Column>& columns) {
  std::string line(indent);
  bool is_first = true;
  for (size_t i = 0; i < widths.size(); ++i) {
    if (widths[i] == 0) continue;
    if (!is_first) line += "  ";
    is_first = false;
    const std::string_view cell = i < cells.size() ? std::string_view(cells[i]) : std::string_view();
    const std::string blanks(widths[i] - CharacterCount(cell), ' ');
    line += columns[i].align == Align::Right ? blanks + std::string(cell) : std::string(cell) + blanks;
  }
  line.erase(line.find_last_not_of(' ') + 1);
  out += line + "\n";
}

}  // namespace

size_t CharacterCount(std::string_view text) {
  return static_cast<size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::string Columns::ToText(std::string_view indent) const {
  std::vector<size_t> widths;
  std::vector<std::string> headings;
  bool has_heading = false;
  for (const Column& column : columns_) {
    widths.push_back(CharacterCount(column.heading));
    headings.push_back(column.heading);
    has_heading |= !column.heading.empty();
  }
  for (const auto& row : rows_) {
    for (size_t i = 0; i < row.size() && i < widths.size(); ++i)
      widths[i] = std::max(widths[i], CharacterCount(row[i]));
  }
  std::string out;
  if (has_heading) AppendLine(out, indent, headings, widths, columns_);
  for (const auto& row : rows_) AppendLine(out, indent, row, widths, columns_);
  return out;
}

}  // namespace tarvex
