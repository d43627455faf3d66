#include <gtest/gtest.h>

#include "print/csv.h"
#include "reports/entries.h"
#include "setup/import_entries.h"
#include "tests/database/test_meet.h"

namespace tarvex::print {
namespace {

class EntriesFile : public database::MeetFileTest {
 protected:
  static void Import(database::Meet& meet, const std::string& csv, UserInterface& user) {
    setup::ImportReport report;
    const Outcome outcome = setup::ImportEntries(meet, csv, {}, user, report);
    ASSERT_TRUE(IsDone(outcome)) << TextOf(outcome);
  }
  static std::string Export(const database::Meet& meet) {
    const auto report = reports::BuildEntries(meet, {});
    EXPECT_TRUE(report.ok()) << report.status().detail;
    return report.ok() ? ToCsv(*report) : "";
  }
};

TEST_F(EntriesFile, OfTheReportIsTheOneThatWasImported) {
  constexpr const char* kFile =
      "event_no,event_sex,distance,kind,rounds,last_name,first_name,ath_sex,birth_date,age,schl_yr,comp_no,"
      "team_abbr,"
      "team_name,division,seed_mark,seed_unit,exhibition,relay_ltr,leg_1,leg_2,leg_3,leg_4,leg_5,leg_6,leg_7,"
      "leg_8\r\n"
      "1,F,100,A,2,Müller,Zoë,F,2008-03-02,,11,41,NOR,Northgate,,12.31H,M,no,,,,,,,,,\r\n"
      "1,F,100,A,2,\"Hay, Jr\",Ann,F,2009-07-15,,10,42,SUM,Summit,,,,yes,,,,,,,,,\r\n"
      "2,F,1600,B,1,Müller,Zoë,F,2008-03-02,,11,41,NOR,Northgate,,5:07.20,M,no,,,,,,,,,\r\n"
      "3,M,,R,1,Roe,Ed,M,2008-01-09,,12,43,SUM,Summit,,45-03.50,E,no,,,,,,,,,\r\n"
      "4,F,400,W,1,,,,,,,,NOR,Northgate,,49.80,M,no,A,\"Müller, Zoë\",,,,,,,\r\n";
  const std::unique_ptr<database::Meet> meet = CurrentMeet();
  Import(*meet, kFile, user_);
  if (HasFatalFailure()) return;
  EXPECT_EQ(Export(*meet), kFile);
}

}  // namespace
}  // namespace tarvex::print
