#include "setup/import_rows.h"

#include <gtest/gtest.h>

namespace tarvex::setup {
namespace {

constexpr ImportLengths kLengths = {20, 20, 2, 5, 30};
constexpr std::string_view kHeader =
    "event_no,event_sex,distance,kind,rounds,last_name,first_name,ath_sex,birth_date,age,comp_no,team_abbr,"
    "seed_unit,exhibition,relay_ltr,leg_1\n";

struct FaultCase {
  std::string_view row;
  std::string_view fault;
};
constexpr FaultCase kFaultCases[] = {
    {"1000,M,100,Dash,1,Blake,Jerome,M,1995-01-01,,7,CAN,M,no,,",
     "Line 2, column event_no: Event number range is 1 to 999 !"},
    {"1,Q,100,Dash,1,Blake,Jerome,M,,,,CAN,,,,", "Line 2, column event_sex: cannot read the value Q"},
    {"1,M,-5,Dash,1,Blake,Jerome,M,,,,CAN,,,,", "Line 2, column distance: cannot read the value -5"},
    {"1,M,100,Walk on hands,1,Blake,Jerome,M,,,,CAN,,,,", "Line 2, column kind: Unknown event kind"},
    {"1,M,100,Dash,5,Blake,Jerome,M,,,,CAN,,,,", "Line 2, column rounds: cannot read the value 5"},
    {"1,M,100,Dash,1,,Jerome,M,,,,CAN,,,,", "Line 2, column last_name: the value is missing"},
    {"1,M,100,Dash,1,Abcdefghijklmnopqrstu,Jerome,M,,,,CAN,,,,",
     "Line 2, column last_name: the text is too long; the most characters are 20"},
    {"1,M,100,Dash,1,Blake,Jerome,X,,,,CAN,,,,", "Line 2, column ath_sex: cannot read the value X"},
    {"1,M,100,Dash,1,Blake,Jerome,M,1995-02-30,,,CAN,,,,",
     "Line 2, column birth_date: cannot read the value 1995-02-30"},
    {"1,M,100,Dash,1,Blake,Jerome,M,,110,,CAN,,,,", "Line 2, column age: cannot read the value 110"},
    {"1,M,100,Dash,1,Blake,Jerome,M,,,7b,CAN,,,,", "Line 2, column comp_no: cannot read the value 7b"},
    {"1,M,100,Dash,1,Blake,Jerome,M,,,,CANADA,,,,",
     "Line 2, column team_abbr: the text is too long; the most characters are 5"},
    {"1,M,100,Dash,1,Blake,Jerome,M,,,,,,,,", "Line 2, column team_abbr: the value is missing"},
    {"1,M,100,Dash,1,Blake,Jerome,M,,,,CAN,yd,,,", "Line 2, column seed_unit: cannot read the value yd"},
    {"1,M,100,Dash,1,Blake,Jerome,M,,,,CAN,,maybe,,",
     "Line 2, column exhibition: cannot read the value maybe"},
    {"1,M,400,Relay,1,,,,,,,CAN,,,AB,", "Line 2, column relay_ltr: cannot read the value AB"},
    {"1,M,400,Relay,1,Blake,,,,,,CAN,,,A,",
     "Line 2, column last_name: the row of a relay has no athlete's name"},
    {"1,M,100,Dash,1,Blake,Jerome,M,,,,CAN,,,,7", "Line 2, column leg_1: only a relay has legs"},
    {",M,100,,1,Blake,Jerome,M,,,,CAN,,,,", "Line 2, column kind: the value is missing"},
    {"1,M,100,Dash,1,Blake,Jerome,M,,,,CAN,,,,,",
     "The row cannot be read: line 2, column 17: the row has more cells than the header"},
};

TEST(ReadImportRows, NamesLineAndColumnOfAFault) {
  for (const FaultCase& c : kFaultCases) {
    const ImportRows read = ReadImportRows(std::string(kHeader) + std::string(c.row), kLengths, 'T');
    EXPECT_TRUE(read.rows.empty()) << c.row;
    ASSERT_EQ(read.faults.size(), 1U) << c.row;
    EXPECT_EQ(read.faults[0].notice.text, c.fault);
  }
}

TEST(ReadImportRows, RefusesAHeaderWithUnknownOrMissingColumns) {
  const auto fault = [](std::string_view text) {
    const ImportRows read = ReadImportRows(text, kLengths, 'T');
    return read.header_fault && read.faults.size() == 1 ? read.faults[0].notice.text : "";
  };
  EXPECT_EQ(fault("event_no,team_abbr,last_name,shoe_size\n"), "Line 1: unknown column shoe_size");
  EXPECT_EQ(fault("event_no,last_name\n"), "Line 1: missing column team_abbr");
  EXPECT_EQ(fault("event_no,team_name\n"), "Line 1: missing column last_name");
  EXPECT_EQ(fault("team_name,relay_ltr,event_sex,distance\n"), "Line 1: missing column kind");
  EXPECT_EQ(fault("team_name,relay_ltr,event_sex,kind\n"), "");
  EXPECT_NE(fault("event_no,event_no,team_name,last_name\n"), "");
}

TEST(ReadImportRows, ReadsColumnsInAnyOrderAndCaseAndPassesOverBlankRows) {
  const ImportRows read = ReadImportRows(
      "Team_Name;LAST_NAME;first_name;event_no;kind;Event_sex;Distance\r\n"
      " Canada ;Müller-Lüdenscheidt;Ann ;12a;e;w;100\r\n;;;;;;\r\n",
      kLengths, 'T');
  ASSERT_TRUE(read.faults.empty());
  ASSERT_EQ(read.rows.size(), 1U);
  const ImportRow& row = read.rows[0];
  EXPECT_EQ(row.team_name, "Canada");
  EXPECT_EQ(row.last_name, "Müller-Lüdenscheidt");  // 19 characters, 21 bytes
  EXPECT_EQ(row.event, (EventNumber{12, "A"}));
  EXPECT_EQ(row.kind, 'E');
  EXPECT_EQ(row.gender, 'F');
}

}  // namespace
}  // namespace tarvex::setup
