#include "setup/import_entries.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "setup/import_store.h"
#include "tests/setup/temporary_meet.h"

namespace tarvex::setup {
namespace {

constexpr std::string_view kHeader =
    "event_no,event_sex,distance,kind,last_name,first_name,ath_sex,birth_date,comp_no,team_abbr,team_name,"
    "seed_mark,seed_unit,exhibition,relay_ltr,leg_1,leg_2\n";

constexpr std::string_view kSmallMeet =
    "1,M,100,Dash,Blake,Jerome,M,1995-08-20,101,CAN,Canada,10.00,,,,,\n"
    "1,M,100,Dash,Hughes,Zharnel,M,1995-07-13,,GBR,Great Britain,9.9H,,yes,,,\n"
    "2,F,,High Jump,Patten,Eleanor,F,1996-05-22,,AUS,Australia,6-06.5,E,,,,\n"
    ",M,400,Relay,,,,,,CAN,Canada,37.48,,,A,101,\"Brown, Aaron\"\n";

class ImportTest : public MeetTest {
 protected:
  Outcome Import(std::string_view rows, ImportOptions options = {},
                 std::optional<Answer> answer = std::nullopt) {
    user_ = AnsweringUser(answer);
    report_ = {};
    return ImportEntries(meet(), std::string(kHeader) + std::string(rows), options, user_, report_);
  }
  std::string Fates() const {
    std::string fates;
    for (const RowFate& row : report_.rows)
      fates += std::to_string(row.line) + std::string(FateName(row.fate)) + " ";
    return fates;
  }
  ImportedMeet Load() { return LoadImportedMeet(meet()).value(); }

  AnsweringUser user_;
  ImportReport report_;
};

TEST_F(ImportTest, MakesTeamsAthletesEventsEntriesAndRelays) {
  ASSERT_EQ(RefusalText(Import(kSmallMeet)), "");
  EXPECT_EQ(Fates(), "2added 3added 4added 5added ");
  EXPECT_EQ(report_.counts.teams, 3);
  EXPECT_EQ(report_.counts.athletes, 4);
  EXPECT_EQ(report_.counts.events, 3);
  EXPECT_EQ(report_.counts.entries, 3);
  EXPECT_EQ(report_.counts.relays, 1);

  const ImportedMeet loaded = Load();
  ASSERT_EQ(loaded.entries.size(), 3U);
  EXPECT_EQ(loaded.entries[0].row.convseed_time, 10.00F);
  // A hand time: 0.24 s are added in a high-school meet.
  EXPECT_TRUE(loaded.entries[1].row.hand_time);
  EXPECT_EQ(loaded.entries[1].row.actualseed_time, 9.90F);
  EXPECT_EQ(loaded.entries[1].row.convseed_time, 10.14F);
  EXPECT_EQ(loaded.entries[1].row.fin_exh, 'X');
  // 78.5 in are 1.9939 m.
  EXPECT_EQ(loaded.entries[2].row.actualseed_time, 78.5F);
  EXPECT_EQ(loaded.entries[2].row.convseed_time, 1.99F);
  EXPECT_EQ(loaded.entries[2].row.convseed_course, 'M');

  ASSERT_EQ(loaded.events.size(), 3U);
  EXPECT_EQ(loaded.events[2].row.event_no, 3);  // the next free number
  EXPECT_EQ(loaded.events[2].row.ind_rel, 'R');
  ASSERT_EQ(loaded.names.size(), 2U);
  const auto athletes = loaded.athletes;
  ASSERT_EQ(athletes.size(), 4U);
  EXPECT_EQ(athletes[0].row.age, 28);  // 29 in August
  EXPECT_EQ(athletes[0].row.guid.size(), 36U);
  EXPECT_EQ(loaded.names[0].row.ath_no, athletes[0].row.ath_no);
  EXPECT_EQ(athletes[3].row.last_name, "Brown");
  EXPECT_EQ(athletes[3].row.sex, 'M');
  EXPECT_EQ(athletes[3].row.team_no, athletes[0].row.team_no);
  EXPECT_EQ(loaded.relays[0].row.relay_no, loaded.names[1].row.relay_no);
}

TEST_F(ImportTest, ASecondTimeChangesNothing) {
  ASSERT_EQ(RefusalText(Import(kSmallMeet)), "");
  ASSERT_EQ(RefusalText(Import(kSmallMeet)), "");
  EXPECT_EQ(Fates(), "2unchanged 3unchanged 4unchanged 5unchanged ");
  EXPECT_EQ(report_.counts.entries + report_.counts.teams + report_.counts.relays, 0);
  EXPECT_EQ(RowsIn("Entry"), 3);
  EXPECT_EQ(RowsIn("RelayNames"), 2);
}

TEST_F(ImportTest, FillsBlanksAndTakesABetterMark) {
  ASSERT_EQ(RefusalText(Import("1,M,100,Dash,Blake,Jerome,,,,CAN,Canada,,,,,,\n")), "");
  ASSERT_EQ(RefusalText(Import("1,M,100,Dash,BLAKE,jerome,M,1995-08-20,101,can,,10.00,,,,,\n")), "");
  EXPECT_EQ(Fates(), "2updated ");
  const ImportedMeet loaded = Load();
  ASSERT_EQ(loaded.athletes.size(), 1U);
  EXPECT_EQ(loaded.athletes[0].row.comp_no, 101);
  EXPECT_EQ(loaded.entries[0].row.actualseed_time, 10.00F);
}

struct ContradictionCase {
  std::string_view row;
  std::string_view fault;
};
constexpr ContradictionCase kContradictions[] = {
    {"1,M,100,Dash,Smith,John,M,,101,CAN,,10.5,,,,,",
     "column comp_no: the competitor number belongs to Blake, Jerome"},
    {"1,M,200,Dash,Smith,John,M,,,CAN,,,,,,,", "column distance: this is otherwise in event 1"},
    {"1,F,100,Dash,Smith,Ann,F,,,CAN,,,,,,,", "column event_sex: this is otherwise in event 1"},
    {"1,M,100,Hurdles,Smith,John,M,,,CAN,,,,,,,", "column kind: this is otherwise in event 1"},
    {"1,,,,Smith,Ann,F,,,CAN,,,,,,,", "column last_name: The sex does not fit the event: Smith, Ann"},
    {"1,,,,Smith,John,M,,,CAN,Germany,,,,,,", "column team_name: this is otherwise for the team Canada"},
    {"1,,,,Blake,Jerome,M,1994-08-20,,CAN,,,,,,,",
     "column birth_date: this is otherwise for the athlete Blake, Jerome"},
    {"1,,,,,,,,,CAN,,,,,A,,", "column relay_ltr: this is no relay event: 1"},
    {"4,M,1600,Relay,,,,,,CAN,,,,,A,101,101", "column leg_2: twice in the relay: Blake, Jerome"},
    {"3,,,,,,,,,CAN,,,,,B,101,", "column leg_1: already entered: Blake, Jerome in event 3"},
    {"3,,,,,,,,,GBR,,,,,A,101,", "column leg_1: the runner is of another team: Blake, Jerome"},
    {"3,,,,,,,,,CAN,,,,,B,999,", "column leg_1: nobody has the competitor number 999"},
    {"1,,,,Smith,John,M,,,CAN,,1:4,,,,,", "column seed_mark: 1:4 meaning unclear, re-enter, please !"},
    {"9,M,,Dash,Smith,John,M,,,CAN,,,,,,,", "column distance: Please select a distance for this event !"},
};

TEST_F(ImportTest, RefusesWhatContradictsTheMeet) {
  ASSERT_EQ(RefusalText(Import(kSmallMeet)), "");
  for (const ContradictionCase& c : kContradictions) {
    EXPECT_EQ(RefusalText(Import(c.row)), "Nothing was imported.") << c.row;
    ASSERT_EQ(user_.told.size(), 1U) << c.row;
    EXPECT_EQ(user_.told[0], "Line 2, " + std::string(c.fault));
  }
  EXPECT_EQ(RowsIn("Entry"), 3);
  EXPECT_EQ(RowsIn("Athlete"), 4);
}

TEST_F(ImportTest, LeavesFaultyRowsOutWhenAsked) {
  const std::string rows =
      "1,M,100,Dash,Blake,Jerome,M,,,CAN,Canada,10.00,,,,,\n"
      "1,M,100,Dash,Blake,Jerome,M,,,CAN,Canada,10.00,,,,,\n"
      "2,M,200,Dash,Wrong,Mark,M,,,ZZZ,Nowhere,twenty,,,,,\n";
  EXPECT_EQ(RefusalText(Import(rows)), "Nothing was imported.");
  EXPECT_EQ(RowsIn("Entry"), 0);
  ASSERT_EQ(RefusalText(Import(rows, {.skip_bad = true})), "");
  EXPECT_EQ(Fates(), "2added 3fault 4fault ");
  EXPECT_EQ(RowsIn("Entry"), 1);
  EXPECT_EQ(RowsIn("Team"), 2);  // the unattached and Canada: a faulty row leaves no team behind
  EXPECT_EQ(RowsIn("Event"), 1);
  EXPECT_EQ(RefusalText(Import("x,M,100,Dash,A,B,M,,,CAN,,,,,,,\n", {.skip_bad = true})),
            "Nothing was imported.");
}

TEST_F(ImportTest, ADryRunReportsAndWritesNothing) {
  ASSERT_EQ(RefusalText(Import(kSmallMeet, {.dry_run = true})), "");
  EXPECT_EQ(report_.counts.entries, 3);
  EXPECT_EQ(RowsIn("Entry"), 0);
  EXPECT_EQ(RowsIn("Event"), 0);
}

TEST_F(ImportTest, AsksOnceAboutMarksOutOfRange) {
  const std::string rows =
      "1,M,100,Dash,Blake,Jerome,M,,,CAN,Canada,1.00,,,,,\n"
      "1,M,100,Dash,Hughes,Zharnel,M,,,GBR,Great Britain,2.00,,,,,\n";
  EXPECT_EQ(RefusalText(Import(rows)), "unanswered");
  EXPECT_EQ(RefusalText(Import(rows, {}, Answer::No)), "Nothing was imported.");
  EXPECT_EQ(RowsIn("Entry"), 0);
  EXPECT_EQ(RefusalText(Import(rows, {}, Answer::Yes)), "");
  ASSERT_EQ(user_.asked.size(), 1U);
  EXPECT_EQ(user_.asked[0],
            "Marks entered are out of range for their events: 2\nLine 2: 1.00\nLine 3: 2.00\n"
            "Accept the marks anyway ?");
  EXPECT_EQ(RowsIn("Entry"), 2);
}

TEST_F(ImportTest, ImportsTwentyThousandRowsAsOne) {
  std::string rows;
  for (int i = 0; i < 20'000; ++i) {
    const std::string n = std::to_string(i);
    rows += std::to_string(1 + i % 100) + ",M,100,Dash,Name" + n + ",First,M,1995-01-01," +
            std::to_string(i + 1) + ",T" + std::to_string(i % 300) + ",,12.34,,,,,\n";
  }
  ASSERT_EQ(RefusalText(Import(rows)), "");
  EXPECT_EQ(report_.counts.entries, 20'000);
  ASSERT_EQ(RefusalText(Import(rows)), "");
  EXPECT_EQ(report_.rows[19'999].fate, Fate::Unchanged);
}

TEST_F(ImportTest, ReadsTheSampleMeet) {
  const char* folder = std::getenv("TARVEX_SAMPLE_MEET");
  if (folder == nullptr) GTEST_SKIP() << "TARVEX_SAMPLE_MEET names no folder";
  std::ifstream file(std::string(folder) + "/entries.csv");
  std::stringstream text;
  text << file.rdbuf();
  AnsweringUser user;
  ImportReport report;
  ASSERT_EQ(RefusalText(ImportEntries(meet(), text.str(), {}, user, report)), "");
  EXPECT_TRUE(user.told.empty());
  EXPECT_EQ(report.rows.size(), 219U);
  EXPECT_EQ(report.counts.events, 18);
  EXPECT_EQ(report.counts.relays, 19);
  EXPECT_EQ(report.counts.entries, 200);
  EXPECT_EQ(report.counts.athletes, 197);
  EXPECT_EQ(report.counts.teams, 18);
}

}  // namespace
}  // namespace tarvex::setup
