#include "base/csv.h"

#include <gtest/gtest.h>

#include <chrono>

namespace tarvex {
namespace {

using Kind = CsvFault::Kind;

// "2:a|b 3:c|" - the line of each row and its cells.
std::string Shown(const CsvText& csv) {
  std::string shown;
  for (const CsvRow& row : csv.rows) {
    shown += (shown.empty() ? "" : " ") + std::to_string(row.line) + ":";
    for (size_t i = 0; i < row.cells.size(); ++i) shown += (i > 0 ? "|" : "") + row.cells[i];
  }
  return shown;
}

TEST(ReadCsv, SplitsRowsAndCells) {
  struct Case {
    std::string_view text, rows;
  };
  const Case cases[] = {
      {"a,b\n1,2\n3,4\n", "2:1|2 3:3|4"},
      {"a,b\r\n1,2\r\n3,4", "2:1|2 3:3|4"},
      {"\xEF\xBB\xBF"
       "a,b\n1,2",
       "2:1|2"},
      {"a;b\n1,5;2\n", "2:1,5|2"},          // a decimal comma is no separator here
      {"\"x;y;z\",b\n1;2,3\n", "2:1;2|3"},  // quoted names do not count
      {"a,b\n\"x,y\",\"say \"\"hi\"\"\"\n", "2:x,y|say \"hi\""},
      {"a,b\n\"two\nlines\",1\n2,3\n", "2:two\nlines|1 4:2|3"},
      {"\n\na,b\n\n1,2\n\r\n\n3,4\n\n", "5:1|2 8:3|4"},  // empty lines are passed over
      {"a,b\n1\n,\n", "2:1 3:|"},                        // a short row and a row of empty cells
      {"a\n\"\"\n", "2:"},
      {"a,b\n 1 ,2\r", "2: 1 |2"},
      {"a,b\n", ""},
  };
  for (const Case& c : cases) {
    const CsvText csv = ReadCsv(c.text);
    EXPECT_TRUE(csv.faults.empty()) << c.text;
    EXPECT_EQ(Shown(csv), c.rows) << c.text;
  }
}

TEST(ReadCsv, CountsMissingCellsAsEmptyAndFindsColumnsInAnyCase) {
  const CsvText csv = ReadCsv("Last_Name, SEED_MARK \nLee\n");
  ASSERT_EQ(csv.rows.size(), 1u);
  EXPECT_EQ(csv.header[1], "SEED_MARK");
  EXPECT_EQ(csv.Column("seed_mark"), 1u);
  EXPECT_EQ(csv.Column("wind"), std::nullopt);
  EXPECT_EQ(csv.rows[0].Cell(0), "Lee");
  EXPECT_EQ(csv.rows[0].Cell(1), "");
}

TEST(ReadCsv, NamesTheLineAndColumnOfAFaultAndReadsOnBehindIt) {
  using namespace std::string_view_literals;
  struct Case {
    std::string_view text;
    Kind kind;
    int line, column;
    std::string_view name, rows;
  };
  const Case cases[] = {
      {"a,b\n1,2,3\n4,5\n", Kind::TooManyCells, 2, 3, "", "3:4|5"},
      {"a,b\n1,\"2\n3,4\n5,6\n", Kind::OpenQuote, 2, 2, "b", "3:3|4 4:5|6"},
      {"a,b\n\"1\"x,2\n3,4\n", Kind::TextAfterQuote, 2, 1, "a", "3:3|4"},
      {"a,b\n1,5'10\"\n3,4\n", Kind::StrayQuote, 2, 2, "b", "3:3|4"},
      {"a,b\n\"x\ny\",\"2\n3,4\n", Kind::OpenQuote, 3, 2, "b", "4:3|4"},
      {"a,b\n1,caf\xE9\n3,4\n", Kind::NotUtf8, 2, 2, "b", "3:3|4"},
      {"a,b\n1,x\0y\n3,4\n"sv, Kind::NulCharacter, 2, 2, "b", "3:3|4"},
      {"a,b, A\n1,2,3\n", Kind::DuplicateColumn, 1, 3, " A", ""},
      {"a,\"b\n1,2\n", Kind::OpenQuote, 1, 2, "", ""},
      {"", Kind::NoHeader, 1, 1, "", ""},
      {"\xEF\xBB\xBF\r\n\n", Kind::NoHeader, 1, 1, "", ""},
      {"\xFF\xFE"
       "a\0,\0b\0\n\0"sv,
       Kind::NulCharacter, 1, 1, "", ""},
  };
  for (const Case& c : cases) {
    const CsvText csv = ReadCsv(c.text);
    ASSERT_EQ(csv.faults.size(), 1u) << c.text;
    EXPECT_EQ(csv.faults[0].kind, c.kind) << c.text;
    EXPECT_EQ(csv.faults[0].line, c.line) << c.text;
    EXPECT_EQ(csv.faults[0].column, c.column) << c.text;
    EXPECT_EQ(csv.faults[0].column_name, c.name) << c.text;
    EXPECT_EQ(Shown(csv), c.rows) << c.text;
  }
  EXPECT_EQ(Describe({Kind::OpenQuote, 7, 3, "seed_mark"}),
            "line 7, column 3 (seed_mark): the quote is not closed");
}

// Texts that would take hours or gigabytes if rows were read again and again or filled up with cells. Each is
// a few hundred kilobytes; the limit is generous enough for a sanitizer on a busy machine.
TEST(ReadCsv, WorkGrowsWithTheLengthOnly) {
  const int kLines = 100'000;
  const auto repeated = [&](std::string_view line) {
    std::string text;
    for (int i = 0; i < kLines; ++i) text += line;
    return text;
  };
  std::string long_name(200'000, 'n');
  long_name.push_back('\n');
  const std::string texts[] = {"a\n" + repeated("\"x\n"), "a\n" + repeated("\"\"\"\n"),
                               "a\n\"" + repeated("\"\"x\n"), repeated("abcde,") + "z\n" + repeated("1\n"),
                               long_name + repeated("1,2\n")};
  const auto start = std::chrono::steady_clock::now();
  size_t found = 0;
  for (const std::string& text : texts) {
    const CsvText csv = ReadCsv(text);
    found += csv.rows.size() + csv.faults.size();
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
  EXPECT_GT(found, static_cast<size_t>(kLines));
}

TEST(AppendCsvRow, WritesWhatTheReaderReadsBack) {
  const std::vector<std::string> header = {"a", "b"};
  const std::vector<std::string> cells = {"x,y;z", "say \"hi\"\r\nthere "};
  std::string text;
  AppendCsvRow(text, header);
  AppendCsvRow(text, cells);
  EXPECT_EQ(text, "a,b\r\n\"x,y;z\",\"say \"\"hi\"\"\r\nthere \"\r\n");
  EXPECT_EQ(ReadCsv(text).rows.at(0).cells, cells);

  const std::vector<std::string> lone = {""};
  text = "a\r\n";
  AppendCsvRow(text, lone);
  EXPECT_EQ(ReadCsv(text).rows.at(0).cells, lone);

  text.clear();
  AppendCsvRow(text, header, ';');
  EXPECT_EQ(text, "a;b\r\n");
}

}  // namespace
}  // namespace tarvex
