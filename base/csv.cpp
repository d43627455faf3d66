#include "base/csv.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "base/text.h"

namespace tarvex {

namespace {

using Kind = CsvFault::Kind;

// Every fault carries a copy of its column's name: a file of one huge name and many faulty rows must not
// grow into more memory than its length explains.
constexpr size_t kLongestName = 64;

// Splits the text into rows of cells; knows nothing of the header.
class Scanner {
 public:
  Scanner(std::string_view text, char separator) : text_(text), separator_(separator) {}

  // Moves over empty lines. False at the end of the text.
  bool FindRow() {
    while (at_ < text_.size() && SkipLineEnd()) {
    }
    return at_ < text_.size();
  }

  // The row at which FindRow stopped. After a fault the next row is the line behind the faulty cell's
  // first line: a forgotten quote costs one line, not the rest of the file. Each stretch of text is still
  // read at most twice, for only an odd run of quotes leaves a cell open and only an odd run ends it.
  std::optional<CsvFault> ReadRow(CsvRow& row) {
    row = CsvRow{line_, {}};
    do {
      const size_t cell_at = at_;
      const int cell_line = line_;
      std::string cell;
      if (const std::optional<Kind> wrong = ReadCell(cell)) {
        at_ = cell_at;
        line_ = cell_line;
        SkipLine();
        return CsvFault{*wrong, cell_line, static_cast<int>(row.cells.size()) + 1, {}};
      }
      row.cells.push_back(std::move(cell));
    } while (SkipSeparator());
    SkipLineEnd();
    return std::nullopt;
  }

 private:
  bool AtEnd() const { return at_ >= text_.size(); }
  bool AtLineEnd() const {
    return text_[at_] == '\n' || (text_[at_] == '\r' && (at_ + 1 == text_.size() || text_[at_ + 1] == '\n'));
  }
  bool AtCellEnd() const { return AtEnd() || text_[at_] == separator_ || AtLineEnd(); }

  bool SkipSeparator() {
    if (AtEnd() || text_[at_] != separator_) return false;
    ++at_;
    return true;
  }

  bool SkipLineEnd() {
    if (AtEnd() || !AtLineEnd()) return false;
    at_ += text_.substr(at_).starts_with("\r\n") ? 2 : 1;
    ++line_;
    return true;
  }

  void SkipLine() {
    while (!AtEnd() && !SkipLineEnd()) ++at_;
  }

  std::optional<Kind> ReadCell(std::string& cell) {
    if (!AtEnd() && text_[at_] == '"') return ReadQuoted(cell);
    const size_t begin = at_;
    for (; !AtCellEnd(); ++at_) {
      if (text_[at_] == '"') return Kind::StrayQuote;
    }
    cell = text_.substr(begin, at_ - begin);
    return std::nullopt;
  }

  std::optional<Kind> ReadQuoted(std::string& cell) {
    for (++at_; !AtEnd(); ++at_) {
      if (text_[at_] == '"') {
        ++at_;
        if (AtCellEnd()) return std::nullopt;
        if (text_[at_] != '"') return Kind::TextAfterQuote;
      }
      if (text_[at_] == '\n') ++line_;
      cell.push_back(text_[at_]);
    }
    return Kind::OpenQuote;
  }

  std::string_view text_;
  char separator_;
  size_t at_ = 0;
  int line_ = 1;
};

// The one of comma and semicolon that the header line has more of, quoted names left aside.
char FindSeparator(std::string_view text) {
  while (text.starts_with('\n') || text.starts_with('\r')) text.remove_prefix(1);
  int commas = 0;
  int semicolons = 0;
  bool quoted = false;
  for (const char c : text) {
    if (c == '"') quoted = !quoted;
    if (quoted) continue;
    if (c == '\n') break;
    if (c == ',') ++commas;
    if (c == ';') ++semicolons;
  }
  return semicolons > commas ? ';' : ',';
}

std::optional<CsvFault> CheckCells(const CsvRow& row) {
  for (size_t i = 0; i < row.cells.size(); ++i) {
    const int column = static_cast<int>(i) + 1;
    if (row.cells[i].find('\0') != std::string::npos)
      return CsvFault{Kind::NulCharacter, row.line, column, {}};
    if (!IsUtf8(row.cells[i])) return CsvFault{Kind::NotUtf8, row.line, column, {}};
  }
  return std::nullopt;
}

std::string NameFor(const std::vector<std::string>& header, size_t column) {
  if (column >= header.size() || header[column].size() > kLongestName) return {};
  return header[column];
}

std::optional<CsvFault> CheckNames(const CsvRow& row) {
  std::set<std::string> names;
  for (size_t i = 0; i < row.cells.size(); ++i) {
    if (!names.insert(Upper(Trim(row.cells[i]))).second) {
      return CsvFault{Kind::DuplicateColumn, row.line, static_cast<int>(i) + 1, NameFor(row.cells, i)};
    }
  }
  return std::nullopt;
}

std::optional<CsvFault> ReadHeader(Scanner& scanner, std::vector<std::string>& header) {
  if (!scanner.FindRow()) return CsvFault{Kind::NoHeader, 1, 1, {}};
  CsvRow row;
  std::optional<CsvFault> fault = scanner.ReadRow(row);
  if (!fault) fault = CheckCells(row);
  if (!fault) fault = CheckNames(row);
  if (fault) return fault;
  for (const std::string& name : row.cells) header.emplace_back(Trim(name));
  return std::nullopt;
}

std::optional<CsvFault> ReadSoundRow(Scanner& scanner, size_t columns, CsvRow& row) {
  if (std::optional<CsvFault> fault = scanner.ReadRow(row)) return fault;
  if (row.cells.size() > columns) {
    return CsvFault{Kind::TooManyCells, row.line, static_cast<int>(columns) + 1, {}};
  }
  return CheckCells(row);
}

std::string_view Words(Kind kind) {
  switch (kind) {
    case Kind::NoHeader:
      return "there is no header line";
    case Kind::DuplicateColumn:
      return "two columns have this name";
    case Kind::OpenQuote:
      return "the quote is not closed";
    case Kind::TextAfterQuote:
      return "text follows the closing quote";
    case Kind::StrayQuote:
      return "a quote stands inside an unquoted cell";
    case Kind::TooManyCells:
      return "the row has more cells than the header";
    case Kind::NotUtf8:
      return "the cell is not UTF-8";
    case Kind::NulCharacter:
      return "the cell holds a NUL character";
  }
  return "";
}

bool NeedsQuotes(std::string_view cell) {
  return cell.find_first_of(",;\"\r\n") != std::string_view::npos || Trim(cell).size() != cell.size();
}

}  // namespace

std::string Describe(const CsvFault& fault) {
  const std::string name = fault.column_name.empty() ? "" : fmt::format(" ({})", fault.column_name);
  return fmt::format("line {}, column {}{}: {}", fault.line, fault.column, name, Words(fault.kind));
}

std::optional<size_t> CsvText::Column(std::string_view name) const {
  const auto found = std::find_if(header.begin(), header.end(),
                                  [&](const std::string& column) { return SameText(column, name); });
  if (found == header.end()) return std::nullopt;
  return static_cast<size_t>(found - header.begin());
}

CsvText ReadCsv(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());

  CsvText csv;
  csv.separator = FindSeparator(text);
  Scanner scanner(text, csv.separator);
  if (const std::optional<CsvFault> fault = ReadHeader(scanner, csv.header)) {
    csv.faults.push_back(*fault);
    return csv;
  }
  while (scanner.FindRow()) {
    CsvRow row;
    std::optional<CsvFault> fault = ReadSoundRow(scanner, csv.header.size(), row);
    if (!fault) {
      csv.rows.push_back(std::move(row));
      continue;
    }
    fault->column_name = NameFor(csv.header, static_cast<size_t>(fault->column) - 1);
    csv.faults.push_back(std::move(*fault));
  }
  return csv;
}

void AppendCsvRow(std::string& out, std::span<const std::string> cells, char separator) {
  for (size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) out.push_back(separator);
    // A lone empty cell would otherwise be an empty line, which a reader passes over.
    if (!NeedsQuotes(cells[i]) && !(cells.size() == 1 && cells[i].empty())) {
      out += cells[i];
      continue;
    }
    out.push_back('"');
    for (const char c : cells[i]) out.append(c == '"' ? 2 : 1, c);
    out.push_back('"');
  }
  out += "\r\n";
}

}  // namespace tarvex
