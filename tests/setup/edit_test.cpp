#include "setup/division_store.h"
#include "setup/edit_athlete.h"
#include "setup/edit_division.h"
#include "setup/edit_entry.h"
#include "setup/edit_event.h"
#include "setup/edit_team.h"
#include "setup/entry_key.h"
#include "setup/entry_lookup.h"
#include "setup/names.h"
#include "setup/scratch.h"
#include "tests/setup/temporary_meet.h"

namespace tarvex::setup {
namespace {

using Fields = std::vector<FieldText>;

TEST(EntrantKey, ReadsNumbersRowsAndRelays) {
  EXPECT_EQ(ParseAthleteKey(" 101 "), (AthleteKey{101, 0}));
  EXPECT_EQ(ParseAthleteKey("#17"), (AthleteKey{0, 17}));
  EXPECT_EQ(ParseRelayKey("can-a"), (RelayKey{"can", "A"}));
  EXPECT_EQ(ParseRelayKey("A-B-C"), (RelayKey{"A-B", "C"}));
  for (const std::string_view bad : {"", "#", "#0", "12x", "-5", "CAN-", "CAN-AB", "-A", "CAN-1"}) {
    EXPECT_FALSE(ParseEntrantKey(bad)) << bad;
  }
  const auto key = ParseEntryKey("12a:CAN-A");
  ASSERT_TRUE(std::holds_alternative<EntryKey>(key));
  EXPECT_EQ(std::get<EntryKey>(key).event, (EventNumber{12, "A"}));
  EXPECT_EQ(std::get<EntryKey>(key).entrant, "CAN-A");
  EXPECT_TRUE(std::holds_alternative<Notice>(ParseEntryKey("12")));
}

TEST(AthleteName, FollowsTheStyle) {
  Athlete athlete;
  athlete.last_name = "Zeze";
  athlete.first_name = "Méba";
  athlete.initial = "K";
  EXPECT_EQ(AthleteName(athlete, {.last_name_first = true}), "Zeze, Méba");
  EXPECT_EQ(AthleteName(athlete, {.show_initial = true}), "Méba K Zeze");
  EXPECT_EQ(AthleteName(athlete,
                        {.last_name_first = true, .first_name_as_initial = true, .upper_case_names = true}),
            "ZEZE, M");
  Team team;
  team.name = "Unattached";
  team.alt_abbr = "UNA";
  EXPECT_EQ(TeamAbbr(team, {}), "UNA");
  EXPECT_EQ(TeamName(team, {.suppress_unattached = true}), "");
  EXPECT_EQ(NameOfRelay(team, "B", {}), "Unattached B");
}

class EditTest : public MeetTest {
 protected:
  std::string Event(Edit edit, std::string_view number, const Fields& fields = {}) {
    return RefusalText(EditEvent(meet(), edit, number, fields));
  }
  std::string Team(Edit edit, std::string_view abbr, const Fields& fields = {}) {
    return RefusalText(EditTeam(meet(), edit, abbr, fields));
  }
  std::string Athlete(Edit edit, std::string_view key, const Fields& fields = {}) {
    return RefusalText(EditAthlete(meet(), edit, key, fields));
  }
  std::string Entry(Edit edit, std::string_view key, const Fields& fields = {}) {
    return RefusalText(EditEntry(meet(), edit, key, fields, user_));
  }
  std::string Relay(Edit edit, std::string_view key, const Fields& fields = {}) {
    return RefusalText(EditRelay(meet(), edit, key, fields, user_));
  }
  // A dash for men, a long jump for women, a relay; Blake (101) and Ann Smith (201) of Canada.
  void SetUpMeet() {
    ASSERT_EQ(Event(Edit::Add, "1", {{"event_stroke", "A"}, {"event_gender", "M"}, {"event_dist", "100"}}),
              "");
    ASSERT_EQ(Event(Edit::Add, "2", {{"event_stroke", "M"}, {"event_gender", "F"}}), "");
    ASSERT_EQ(Event(Edit::Add, "3", {{"event_stroke", "W"}, {"event_gender", "M"}, {"event_dist", "400"}}),
              "");
    ASSERT_EQ(Team(Edit::Add, "CAN", {{"team_name", "Canada"}}), "");
    ASSERT_EQ(Athlete(Edit::Add, "101", Blake()), "");
    ASSERT_EQ(Athlete(Edit::Add, "201", Smith()), "");
  }
  static Fields Blake() {
    return {{"last_name", "Blake"},
            {"first_name", "Jerome"},
            {"ath_sex", "M"},
            {"team_abbr", "can"},
            {"birth_date", "1995-05-11"}};
  }
  static Fields Smith() {
    return {{"last_name", "Smith"},
            {"first_name", "Ann"},
            {"ath_sex", "F"},
            {"team_abbr", "CAN"},
            {"ath_age", "17"}};
  }
  setup::Event EventRow(std::string_view number) {
    return std::get<StoredEvent>(LookUpEvent(meet(), number).value()).row;
  }
  ImportedEntry EntryRow(std::string_view event, std::string_view key) {
    return std::get<StoredImportedEntry>(LookUpEntry(meet(), EventRow(event), key).value()).row;
  }
  void SetStatus(std::string_view number, char status) {
    const StoredEvent stored = std::get<StoredEvent>(LookUpEvent(meet(), number).value());
    setup::Event event = stored.row;
    event.event_stat = status;
    ASSERT_TRUE(IsDone(InOneTransaction(
        meet(), "test", [&](jet::Transaction& write) { return SaveEvent(write, meet(), stored, event); })));
  }

  AnsweringUser user_;
};

TEST_F(EditTest, AddsAnEventAsProposed) {
  SetUpMeet();
  const setup::Event dash = EventRow("1");
  EXPECT_EQ(dash.event_sex, 'B');  // a high-school meet
  EXPECT_EQ(dash.num_finlanes, 8);
  EXPECT_EQ(dash.trk_field, 'T');
  EXPECT_EQ(EventRow("2").trk_field, 'F');
  EXPECT_EQ(EventRow("3").ind_rel, 'R');
  EXPECT_EQ(EventRow("3").relay_size, 4);
}

TEST_F(EditTest, ChecksAnEventAsTheScreenDoes) {
  SetUpMeet();
  EXPECT_EQ(Event(Edit::Add, "1", {{"event_stroke", "A"}, {"event_gender", "F"}, {"event_dist", "100"}}),
            "Invalid event number");
  EXPECT_EQ(Event(Edit::Add, "1000"), "Event number range is 1 to 999 !");
  EXPECT_EQ(Event(Edit::Add, "4", {{"event_stroke", "A"}, {"event_gender", "F"}}),
            "Please select a distance for this event !");
  EXPECT_EQ(Event(Edit::Set, "2", {{"event_rounds", "3"}}),
            "Field events are limited to 2 rounds !\nNormally field events are set-up as one round.");
  EXPECT_EQ(Event(Edit::Set, "1", {{"low_age", "15"}, {"high_age", "14"}}),
            "Age group High age cannot be lower than Low age !");
  EXPECT_NE(Event(Edit::Set, "1", {{"no_such_field", "1"}}), "");
  EXPECT_EQ(Event(Edit::Set, "7", {{"low_age", "15"}}), "Not found: 7");
  EXPECT_EQ(Event(Edit::Set, "1", {{"event_no", "9"}, {"comm_1", "Heats at noon"}}), "");
  EXPECT_EQ(EventRow("9").event_dist, 100.0F);
}

TEST_F(EditTest, KeepsAnEventThatHasEntries) {
  SetUpMeet();
  ASSERT_EQ(Entry(Edit::Add, "1:101", {{"mark", "10.5"}}), "");
  EXPECT_EQ(Event(Edit::Delete, "1"), "Entries have been entered in this event. Delete them first.");
  EXPECT_NE(Event(Edit::Set, "1", {{"ind_rel", "R"}}), "");
  EXPECT_EQ(Event(Edit::Delete, "2"), "");
  EXPECT_EQ(RowsIn("Event"), 2);
}

TEST_F(EditTest, BringsSeedMarksToTheEventsUnit) {
  SetUpMeet();
  ASSERT_EQ(Entry(Edit::Add, "2:201", {{"mark", "6.49"}}), "");
  EXPECT_EQ(EntryRow("2", "201").convseed_time, 6.49F);
  // 6.49 m are 255.51 in, counted down to the quarter inch.
  ASSERT_EQ(Event(Edit::Set, "2", {{"res_meas", "E"}}), "");
  EXPECT_EQ(EntryRow("2", "201").convseed_time, 255.5F);
  EXPECT_EQ(EntryRow("2", "201").convseed_course, 'E');
  EXPECT_EQ(EntryRow("2", "201").actualseed_time, 6.49F);
}

TEST_F(EditTest, ChecksAthletesAndTeams) {
  SetUpMeet();
  EXPECT_EQ(Team(Edit::Add, "can"), "Another team has the abbreviation can");
  EXPECT_NE(Team(Edit::Add, "TOOLONG"), "");
  EXPECT_EQ(Team(Edit::Delete, "CAN"), "The team has athletes or relays. Delete them first.");
  EXPECT_EQ(Athlete(Edit::Add, "101", Smith()), "Exists already: 101");
  EXPECT_EQ(Athlete(Edit::Set, "101", {{"comp_no", "201"}}), "Exists already: 201");
  EXPECT_EQ(Athlete(Edit::Set, "101", {{"last_name", ""}}), "Required: Last_name");
  EXPECT_EQ(Athlete(Edit::Set, "101", {{"team_no", "99"}}), "Invalid value: Team_no");
  EXPECT_EQ(Athlete(Edit::Set, "101", {{"team_abbr", "XYZ"}}), "Not found: XYZ");
  Set({{"compno_uniqueness", "2"}});
  EXPECT_EQ(Athlete(Edit::Set, "201", {{"comp_no", "101"}}), "");
  EXPECT_EQ(Athlete(Edit::Delete, "101"), "Several have the key 101");
  const auto man = LookUpAthlete(meet(), "101", 'M').value();
  EXPECT_EQ(std::get<StoredAthlete>(man).row.age, 28);  // the birthday is the day after the age-up date
}

TEST_F(EditTest, EntersWhoFitsOnce) {
  SetUpMeet();
  EXPECT_EQ(Entry(Edit::Add, "1:201"), "The sex does not fit the event: Smith, Ann");
  EXPECT_EQ(Entry(Edit::Add, "3:101"), "this is a relay event: 3");
  EXPECT_EQ(Entry(Edit::Add, "1:101", {{"mark", "X10.23h"}, {"seed_place", "4"}}), "");
  EXPECT_EQ(Entry(Edit::Add, "1:101"), "already entered: Blake, Jerome in event 1");
  const ImportedEntry entry = EntryRow("1", "101");
  EXPECT_TRUE(entry.hand_time);
  EXPECT_EQ(entry.fin_exh, 'X');
  EXPECT_EQ(entry.seed_place, 4);
  EXPECT_EQ(entry.convseed_time, 10.47F);
  EXPECT_EQ(Entry(Edit::Set, "1:101", {{"mark", "10.5.1"}}), "10.5.1 meaning unclear, re-enter, please !");
  EXPECT_EQ(Athlete(Edit::Delete, "101"), "The athlete has entries. Delete them first.");
  EXPECT_EQ(Entry(Edit::Delete, "1:101"), "");
  EXPECT_EQ(RowsIn("Entry"), 0);
}

TEST_F(EditTest, AsksAboutRunningUpAndLimits) {
  SetUpMeet();
  ASSERT_EQ(Event(Edit::Set, "2", {{"low_age", "18"}}), "");
  EXPECT_EQ(Entry(Edit::Add, "2:201"), "unanswered");
  user_ = AnsweringUser(Answer::Yes);
  EXPECT_EQ(Entry(Edit::Add, "2:201"), "");
  EXPECT_EQ(EntryRow("2", "201").team_age, 18);
  ASSERT_EQ(Event(Edit::Set, "1", {{"high_age", "27"}}), "");
  EXPECT_EQ(Entry(Edit::Add, "1:101"), "Too old for the event: Blake, Jerome, 28 > 27");
  ASSERT_EQ(Event(Edit::Add, "4", {{"event_stroke", "N"}, {"event_gender", "F"}}), "");
  Set({{"fldmax_perath", "1"}, {"entrylimits_warn", "no"}});
  EXPECT_EQ(Entry(Edit::Add, "4:201"), "More field entries than allowed: Smith, Ann, 1");
  Set({{"entrylimits_warn", "yes"}});
  EXPECT_EQ(Entry(Edit::Add, "4:201"), "");
}

TEST_F(EditTest, AsksBeforeDeletingResults) {
  SetUpMeet();
  ASSERT_EQ(Entry(Edit::Add, "1:101", {{"fin_time", "10.31"}}), "");
  user_ = AnsweringUser(Answer::No);
  EXPECT_EQ(Entry(Edit::Delete, "1:101"), "Nothing was changed.");
  EXPECT_EQ(RowsIn("Entry"), 1);
  user_ = AnsweringUser(Answer::Yes);
  EXPECT_EQ(Entry(Edit::Delete, "1:101"), "");
  EXPECT_EQ(RowsIn("Entry"), 0);
}

TEST_F(EditTest, MarksAnEventWithEntriesAddedAfterSeeding) {
  SetUpMeet();
  SetStatus("1", '1');
  ASSERT_EQ(Entry(Edit::Add, "1:101"), "");
  EXPECT_EQ(EventRow("1").unseeded_stat, 'U');
}

TEST_F(EditTest, RelaysHaveALetterEach) {
  SetUpMeet();
  EXPECT_EQ(Relay(Edit::Add, "3:can-a", {{"mark", "41.20"}}), "");
  EXPECT_EQ(Relay(Edit::Add, "3:CAN-A"), "already entered: CAN-A in event 3");
  EXPECT_EQ(Relay(Edit::Add, "3:CAN-B"), "");
  EXPECT_EQ(Relay(Edit::Set, "3:CAN-B", {{"team_ltr", "A"}}), "Cannot be changed here: Team_ltr");
  EXPECT_EQ(Relay(Edit::Delete, "3:CAN-A"), "");
  EXPECT_EQ(RowsIn("Relay"), 1);
}

TEST_F(EditTest, ScratchesAllOrNobody) {
  SetUpMeet();
  ASSERT_EQ(Entry(Edit::Add, "1:101"), "");
  const std::vector<std::string> with_stranger = {"101", "999"};
  EXPECT_EQ(RefusalText(Scratch(meet(), "1", with_stranger, false)), "Not found: 999");
  EXPECT_FALSE(EntryRow("1", "101").scr_stat);
  const std::vector<std::string> blake = {"101"};
  EXPECT_EQ(RefusalText(Scratch(meet(), "1", blake, false)), "");
  EXPECT_TRUE(EntryRow("1", "101").scr_stat);
  SetStatus("1", '1');  // seeded without him
  EXPECT_EQ(RefusalText(Scratch(meet(), "1", blake, true)), "");
  EXPECT_FALSE(EntryRow("1", "101").scr_stat);
  EXPECT_EQ(EventRow("1").unseeded_stat, 'U');
}

TEST_F(EditTest, DivisionsHaveBirthDatesOfTheirAges) {
  const auto division = [&](Edit edit, std::string_view number, const Fields& fields) {
    return RefusalText(EditDivision(meet(), edit, number, fields, user_));
  };
  const Fields youth = {{"div_abbr", "YG"}, {"div_name", "17-18 Division"}, {"low_age", "17"},
                        {"high_age", "18"}, {"low_yeardate", "Y"},          {"high_yeardate", "Y"}};
  ASSERT_EQ(division(Edit::Add, "3", youth), "");
  const auto divisions = LoadDivisions(meet()).value();
  ASSERT_EQ(divisions.size(), 3U);
  EXPECT_EQ(database::IsoText(divisions[2].row.beg_date), "2006-01-01");
  EXPECT_EQ(database::IsoText(divisions[2].row.end_date), "2007-12-31");
  EXPECT_EQ(division(Edit::Add, "3", youth), "Exists already: 3");
  EXPECT_EQ(division(Edit::Add, "4", youth), "This code is already being used !");
  EXPECT_EQ(division(Edit::Delete, "3", {}), "unanswered");
  EXPECT_EQ(user_.asked.back(), "Delete Code YG ?");
  user_ = AnsweringUser(Answer::Yes);
  EXPECT_EQ(division(Edit::Delete, "3", {}), "");
  EXPECT_EQ(RowsIn("Divisions"), 2);
}

}  // namespace
}  // namespace tarvex::setup
