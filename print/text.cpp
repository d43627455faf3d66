#include "print/text.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <vector>

namespace tarvex::print {
namespace {

using reports::Column;
using reports::Part;
using reports::Report;
using reports::Row;
using reports::Section;

constexpr size_t kPageWidth = 100;
constexpr std::string_view kIndent = "  ";
constexpr std::string_view kDetailIndent = "            ";

void AddLines(std::string& out, const std::vector<std::string>& lines, std::string_view indent = "") {
  for (const std::string& line : lines) out += std::string(indent) + line + "\n";
}

// A line end inside a name or a note would tear the row apart.
std::string OneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return text;
}

std::vector<size_t> DrawnColumns(const Part& part) {
  std::vector<size_t> drawn;
  for (size_t i = 0; i < part.columns.size(); ++i) {
    if (part.columns[i].width > 0) drawn.push_back(i);
  }
  return drawn;
}

std::string CellOf(const Row& row, size_t column) {
  return column < row.cells.size() ? OneLine(row.cells[column]) : std::string();
}

// How wide the columns of a heading are in the whole section, so that heats stand exactly below each other.
using Widths = std::map<std::string, size_t>;

Widths WidthsOf(const Section& section) {
  Widths widths;
  for (const Part& part : section.parts) {
    for (const size_t column : DrawnColumns(part)) {
      const std::string& heading = part.columns[column].heading;
      size_t& width = widths[heading];
      width = std::max(width, CharacterCount(heading));
      for (const Row& row : part.rows) width = std::max(width, CharacterCount(CellOf(row, column)));
    }
  }
  return widths;
}

std::string Padded(const Column& column, size_t width) {
  const std::string blanks(width - CharacterCount(column.heading), ' ');
  return column.align == Align::Right ? blanks + column.heading : column.heading + blanks;
}

// As many details a line as fit.
void AddDetails(std::string& out, const std::vector<std::string>& details) {
  std::string line(kDetailIndent);
  for (const std::string& detail : details) {
    const bool is_first = line.size() == kDetailIndent.size();
    if (!is_first && CharacterCount(line) + 2 + CharacterCount(detail) > kPageWidth) {
      out += line + "\n";
      line = std::string(kDetailIndent) + OneLine(detail);
    } else {
      line += (is_first ? "" : "  ") + OneLine(detail);
    }
  }
  out += line + "\n";
}

void AddTable(std::string& out, const Part& part, const Widths& widths) {
  if (part.rows.empty()) return;
  const std::vector<size_t> drawn = DrawnColumns(part);
  std::vector<Columns::Column> columns;
  for (const size_t column : drawn) {
    const Column& definition = part.columns[column];
    columns.push_back({Padded(definition, widths.at(definition.heading)), definition.align});
  }
  Columns table(std::move(columns));
  for (const Row& row : part.rows) {
    std::vector<std::string> cells;
    for (const size_t column : drawn) cells.push_back(CellOf(row, column));
    table.AddRow(std::move(cells));
  }
  const std::string text = table.ToText(kIndent);
  size_t begin = 0;
  for (size_t line = 0; begin < text.size(); ++line) {  // the first line holds the headings
    const size_t end = text.find('\n', begin) + 1;
    out += text.substr(begin, end - begin);
    begin = end;
    if (line > 0 && !part.rows[line - 1].details.empty()) AddDetails(out, part.rows[line - 1].details);
  }
}

void AddUnderlined(std::string& out, const std::string& text, char rule) {
  out += text + "\n" + std::string(CharacterCount(text), rule) + "\n";
}

void AddSection(std::string& out, const Section& section) {
  out += section.starts_page ? "\f" : "\n";
  std::string heading = section.heading;
  if (!section.subheading.empty()) heading += "  " + section.subheading;
  if (!heading.empty()) AddUnderlined(out, heading, '-');
  AddLines(out, section.notes, kIndent);
  const Widths widths = WidthsOf(section);
  bool is_first = section.notes.empty();
  for (const Part& part : section.parts) {
    if (!is_first) out += "\n";
    is_first = false;
    if (!part.heading.empty()) out += std::string(kIndent) + part.heading + "\n";
    AddLines(out, part.notes, kIndent);
    AddTable(out, part, widths);
  }
}

}  // namespace

std::string ToText(const Report& report) {
  std::string out;
  AddLines(out, report.meet_name);
  AddLines(out, report.meet_info);
  if (!out.empty()) out += "\n";
  AddUnderlined(out, report.title, '=');
  AddLines(out, report.notes);
  for (const Section& section : report.sections) AddSection(out, section);
  return out;
}

}  // namespace tarvex::print
