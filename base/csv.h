#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Comma-separated files as RFC 4180 has them: a header line with the names of the columns, then one row a
// line; cells that hold a separator, a quote or a line end stand in quotes, a quote in them is doubled. Lines
// end in LF or CRLF. A semicolon may stand in place of the comma, as spreadsheets write it where the comma is
// the decimal separator.
namespace tarvex {

// What is wrong with one row, or with the header.
struct CsvFault {
  enum class Kind {
    NoHeader,         // there is no line at all
    DuplicateColumn,  // two columns of the header have the same name
    OpenQuote,        // a cell's quote is not closed before the end of the text
    TextAfterQuote,   // something other than a separator or a line end follows the closing quote
    StrayQuote,       // a quote inside a cell that does not begin with one
    TooManyCells,     // the row has more cells than the header has names
    NotUtf8,          // the cell holds bytes that are not UTF-8
    NulCharacter,     // the cell holds a NUL
  };
  Kind kind = Kind::NoHeader;
  int line = 0;             // where the cell, or the row of too many cells, begins; the first line is 1
  int column = 0;           // the first column is 1; for too many cells the first one too many
  std::string column_name;  // as in the header; empty where the header has none, or one of over 64 bytes
};

// For a log or a list: `line 7, column 3 (seed_mark): the quote is not closed`.
std::string Describe(const CsvFault& fault);

struct CsvRow {
  int line = 0;  // where the row begins in the text; a quoted line end makes rows longer than a line
  std::vector<std::string> cells;

  // The cell of a column, counted from 0; a short row counts its missing cells as empty.
  std::string_view Cell(size_t column) const {
    return column < cells.size() ? std::string_view(cells[column]) : std::string_view();
  }
};

struct CsvText {
  char separator = ',';
  std::vector<std::string> header;  // trimmed
  std::vector<CsvRow> rows;         // the sound ones only; cells as they stand, not trimmed
  std::vector<CsvFault> faults;     // by line

  // The column of this name, in any case. Counted from 0.
  std::optional<size_t> Column(std::string_view name) const;
};

// Reads a whole text. Lines without any character are passed over. A faulty row is left out and reading goes
// on with the line after the fault; with a faulty header there are no rows. Time and memory are bounded by a
// multiple of the text's length, whatever it holds.
CsvText ReadCsv(std::string_view text);

// Appends one row, ended by CRLF, with quotes where a reader needs them.
void AppendCsvRow(std::string& out, std::span<const std::string> cells, char separator = ',');

}  // namespace tarvex
