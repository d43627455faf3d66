#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

enum class Align { Left, Right };

// Rows of cells in aligned columns, as plain text shows them. Widths are counted in characters.
class Columns {
 public:
  struct Column {
    std::string heading;
    Align align = Align::Left;
  };
  explicit Columns(std::vector<Column> columns) : columns_(std::move(columns)) {}

  void AddRow(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }
  bool IsEmpty() const { return rows_.empty(); }

  // A line of headings, then the rows, two blanks between columns, each line ended by "\n". Columns without a
  // heading and without content take no place; with no heading at all the first line is left out.
  std::string ToText(std::string_view indent = "") const;

 private:
  std::vector<Column> columns_;
  std::vector<std::vector<std::string>> rows_;
};

// How many characters a UTF-8 text has.
size_t CharacterCount(std::string_view text);

}  // namespace tarvex
