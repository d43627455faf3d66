#include "database/create.h"

#include <set>

#include "database/identifier.h"
#include "tests/database/filling_disk.h"
#include "tests/database/test_meet.h"

namespace tarvex::database {
namespace {

using CreateTest = MeetFileTest;
using Row = std::map<std::string, std::string>;

TEST_F(CreateTest, DivisionsTakeEveryAgeAndAreDatedByTheYearOfTheMeet) {
  const auto meet = CurrentMeet();
  const auto rows = Rows(meet->file(), "Divisions");
  ASSERT_EQ(rows.size(), 2u);
  // 109 on 31 December 2024: born in 1915 at the earliest.
  EXPECT_EQ(rows[0], (Row{{"Div_no", "1"},
                          {"Div_abbr", "V"},
                          {"Div_name", "Varsity"},
                          {"low_age", "0"},
                          {"high_age", "109"},
                          {"low_yeardate", "Y"},
                          {"high_yeardate", "Y"},
                          {"beg_date", "1915-01-01"},
                          {"end_date", "2024-12-31"},
                          {"max_entries", "0"}}));
  EXPECT_EQ(rows[1].at("Div_abbr"), "JV");
  EXPECT_EQ(rows[1].at("Div_name"), "Junior Varsity");
  EXPECT_EQ(rows[1].at("Div_no"), "2");
}

TEST_F(CreateTest, TheUnattachedTeamHasAnIdentifierAndNoPoints) {
  const auto meet = CurrentMeet();
  const auto rows = Rows(meet->file(), "Team");
  ASSERT_EQ(rows.size(), 1u);
  const std::pair<std::string, std::string> kExpected[] = {
      {"Team_no", "1"},         {"Team_name", "Unattached"},
      {"Team_short", "UNA "},   {"Team_abbr", "UNA "},
      {"Team_altabbr", "UNA "}, {"Team_NoPoints", "yes"},
      {"Team_Selected", "no"},  {"Team_div", "0"},
      {"Team_region", "0"},     {"TeamGUID_strg", "00000000-0000-4001-8000-000000000002"}};
  for (const auto& [field, value] : kExpected) EXPECT_EQ(rows[0].at(field), value) << field;
}

TEST_F(CreateTest, ScoringHoldsThirtyPlacesWomenBeforeMen) {
  const auto meet = CurrentMeet();
  const auto rows = Rows(meet->file(), "Scoring");
  ASSERT_EQ(rows.size(), 60u);
  const auto text = [&](size_t i) {
    const Row& row = rows[i];
    return row.at("score_divno") + " " + row.at("score_place") + row.at("score_sex") + " " +
           row.at("ind_score") + "/" + row.at("rel_score") + "/" + row.at("combevt_score");
  };
  EXPECT_EQ(text(0), "0 1F 10/10/10");
  EXPECT_EQ(text(1), "0 1M 10/10/10");
  EXPECT_EQ(text(2), "0 2F 8/8/8");
  EXPECT_EQ(text(5), "0 3M 6/6/6");
  EXPECT_EQ(text(14), "0 8F 1/1/1");
  EXPECT_EQ(text(16), "0 9F 0/0/0");
  EXPECT_EQ(text(59), "0 30M 0/0/0");
}

TEST_F(CreateTest, LanesAndAlleysBeginInTheMiddleAndWaterfallPositionsAreRanks) {
  const auto meet = CurrentMeet();
  const std::pair<size_t, std::string> kOrders[] = {{1, "1 0 0 0 0 0 0 0 0 0 0 0"},
                                                    {4, "2 3 1 4 0 0 0 0 0 0 0 0"},
                                                    {8, "4 5 3 6 2 7 1 8 0 0 0 0"},
                                                    {12, "6 7 5 8 4 9 3 10 2 11 1 12"}};
  for (const std::string_view table : {"StdLanes", "StdAlleys"}) {
    const auto rows = Rows(meet->file(), table);
    ASSERT_EQ(rows.size(), 12u);
    for (const auto& [lanes, expected] : kOrders) {
      std::string order;
      for (const auto& [field, value] : rows[lanes - 1]) {
        if (field.starts_with("order_")) order += (order.empty() ? "" : " ") + value;
      }
      EXPECT_EQ(order, expected);
      EXPECT_EQ(rows[lanes - 1].at("tot_lanes"), std::to_string(lanes));
    }
  }
  const auto waterfall = Rows(meet->file(), "Waterfall");
  ASSERT_EQ(waterfall.size(), 160u);
  EXPECT_EQ(waterfall[159], (Row{{"Pos_no", "160"}, {"Rank_no", "160"}}));
}

TEST_F(CreateTest, TheSettingsRowIsThatOfASchoolMeetToday) {
  const auto meet = CurrentMeet();
  const auto rows = Rows(meet->file(), "Meet");
  ASSERT_EQ(rows.size(), 1u);
  const std::map<std::string, std::string> kSet = {{"Meet_name1", "Demo Meet"},
                                                   {"Meet_start", "2024-05-10"},
                                                   {"Meet_end", "2024-05-10"},
                                                   {"Calc_date", "2024-05-10"},
                                                   {"Meet_country", "USA"},
                                                   {"open_senior_none", "N"},
                                                   {"apnews_team", "S"},
                                                   {"language_choice", "ENGLISH"},
                                                   {"meet_arena", "O"},
                                                   {"timedfinal_randrule", "A"},
                                                   {"round1_randrule", "A"},
                                                   {"round234_randrule", "A"},
                                                   {"Meet_kind", "1"},
                                                   {"Meet_class", "1"},
                                                   {"Meet_meettype", "1"},
                                                   {"meet_meetstyle", "1"},
                                                   {"Meet_course", "1"},
                                                   {"Meet_idformat", "1"},
                                                   {"compno_uniqueness", "1"},
                                                   {"incl_meetdate", "1"},
                                                   {"meet_numlanes", "8"},
                                                   {"indtopmany_awards", "8"},
                                                   {"reltopmany_awards", "8"},
                                                   {"xccminimum_onteam", "5"},
                                                   {"xccmaxscorers_perteam", "5"},
                                                   {"xccnumberdisplacers_perteam", "2"},
                                                   {"xccpenalty_points", "100"},
                                                   {"xrrnumber_teamscorers", "3"},
                                                   {"fldrelnumber_teamscorers", "3"},
                                                   {"runrelnumber_teamscorers", "3"},
                                                   {"win_tftvx", "yes"},
                                                   {"Enter_schoolyr", "yes"},
                                                   {"Lastname_first", "yes"},
                                                   {"entrylimits_warn", "yes"},
                                                   {"check_times", "yes"},
                                                   {"foreign_infinal", "yes"},
                                                   {"foreign_getteampoints", "yes"},
                                                   {"record_windreadings", "yes"},
                                                   {"converthand_toFAT", "yes"},
                                                   {"score_Arelayonly", "yes"}};
  for (const auto& [field, value] : rows[0]) {
    const auto set = kSet.find(field);
    if (set != kSet.end()) {
      EXPECT_EQ(value, set->second) << field;
    } else {
      EXPECT_TRUE(value == "0" || value == "no" || value == " ") << field << " is " << value;
    }
  }
}

TEST_F(CreateTest, OtherTablesAreEmpty) {
  const auto meet = CurrentMeet();
  const std::set<std::string> filled = {"Divisions", "Meet",      "Regions", "Scoring",
                                        "StdLanes",  "StdAlleys", "Team",    "Waterfall"};
  const auto names = meet->file().TableNames();
  ASSERT_TRUE(names.ok());
  for (const std::string& name : *names) {
    EXPECT_EQ(*meet->Table(name).value()->RowCount() > 0, filled.contains(name)) << name;
  }
}

TEST_F(CreateTest, TheSameSessionGivesTheSameFile) {
  Create();
  const std::string first = Bytes();
  std::filesystem::remove(path_);
  Create();
  EXPECT_TRUE(Bytes() == first);
}

TEST_F(CreateTest, LeavesAFileThatIsThereAlone) {
  WriteBytes("somebody's notes");
  const Outcome outcome = CreateMeet(Files(), path_, TestSession());
  EXPECT_EQ(TextOf(outcome), "There is already a file " + path_);
  EXPECT_TRUE(std::holds_alternative<Refusal>(outcome));
  EXPECT_EQ(Bytes(), "somebody's notes");
}

// The disk fills up at every write in turn, until there is room for the whole file.
TEST_F(CreateTest, LeavesNoFileWhenTheDiskFillsUp) {
  int writes = 0;
  for (; writes < 1000; ++writes) {
    FillingDisk disk(writes);
    const Outcome outcome = CreateMeet(disk, path_, TestSession());
    if (IsDone(outcome)) break;
    const auto* status = std::get_if<Status>(&outcome);
    ASSERT_TRUE(status) << writes;
    EXPECT_EQ(CreatingFailure(*status).text, "no space left on the disk; Can't create database");
    ASSERT_TRUE(std::filesystem::is_empty(folder_)) << writes;
  }
  EXPECT_GT(writes, 5);
  EXPECT_TRUE(Open().meet);
}

TEST(Identifier, IsAVersion4TextOf36Characters) {
  const std::string id = NewIdentifier([] { return ~uint64_t{0}; });
  EXPECT_EQ(id, "FFFFFFFF-FFFF-4FFF-BFFF-FFFFFFFFFFFF");
  EXPECT_NE(NewIdentifier(platform::RandomBits), NewIdentifier(platform::RandomBits));
}

}  // namespace
}  // namespace tarvex::database
