#include "database/open.h"

#include "database/field_text.h"
#include "tests/database/filling_disk.h"
#include "tests/database/test_meet.h"

namespace tarvex::database {
namespace {

using OpenTest = MeetFileTest;
using Changes = std::vector<std::string>;

const Changes kFirstChanges = {"table CCNames added", "table CCTeamScores added",
                               "table VANTRELOPTIONS added", "table SplitCC added",
                               "index isused of ChipID added"};

// A disk that answers every opening with a fault.
class FaultyDisk : public FileSystem {
 public:
  FaultyDisk(Fault writing, Fault reading) : writing_(writing), reading_(reading) {}
  Expected<std::unique_ptr<File>> Open(const std::string& path, OpenMode mode) override {
    ++openings;
    const Fault fault = mode == OpenMode::Read ? reading_ : writing_;
    if (fault == Fault::None) return platform::Files().Open(path, mode);
    return Status{fault, path + ": reason"};
  }
  bool Exists(const std::string&) override { return true; }
  Status Remove(const std::string&) override { return Ok(); }
  Status SyncFolderOf(const std::string&) override { return Ok(); }

  int openings = 0;

 private:
  Fault writing_, reading_;
};

// Changes the file behind the program's back.
template <class Work>
void Edit(const std::string& path, Work work) {
  auto file = jet::Database::Open(platform::Files(), path, OpenMode::ReadWrite);
  ASSERT_TRUE(file.ok()) << file.status().detail;
  auto write = (*file)->Begin({"test", ""}, kMay10th2024);
  ASSERT_TRUE(write.ok());
  work(**file, **write);
  ASSERT_TRUE((*write)->Commit().ok());
}

void SetFirstRow(jet::Database& file, jet::Transaction& write, std::string_view table_name,
                 std::vector<FieldText> fields) {
  jet::Table* table = file.FindTable(table_name).value();
  const auto values = ParseFields(*table, fields);
  ASSERT_TRUE(std::holds_alternative<std::vector<jet::FieldValue>>(values));
  jet::TableScan scan = table->Scan();
  ASSERT_TRUE(*scan.Next());
  ASSERT_TRUE(write.Update(*table, scan.record().id(), std::get<0>(values)).ok());
}

TEST_F(OpenTest, TheFirstOpeningAddsTheLateTablesAndTheSecondChangesNothing) {
  Create();
  EXPECT_EQ(Open().changes, kFirstChanges);
  const std::string current = Bytes();
  const Opened again = Open();
  ASSERT_TRUE(again.meet);
  EXPECT_EQ(again.changes, Changes());
  EXPECT_EQ(again.meet->settings().Meet_name1, "Demo Meet");
  EXPECT_TRUE(Bytes() == current);
}

TEST_F(OpenTest, ShowsWhatIsBeingDone) {
  const Opened opened = OpenOrCreateMeet(Files(), path_, TestSession(), user_);
  ASSERT_TRUE(opened.meet) << TextOf(opened.outcome);
  EXPECT_EQ(user_.statuses,
            (Changes{"Creating Database...", "Opening Database...", "One Moment...", "Checking Database...",
                     "Checking Version...", "Checking Athlete Table...", "Checking Team Table..."}));
}

// A file whose only table is the marked one gets all others, with their starting rows, in the order of the
// check.
TEST_F(OpenTest, RestoresMissingTablesWithTheirStartingRows) {
  CreateForeign({{"mEEt", "Win_TFTVX"}});
  Edit(path_, [](jet::Database& file, jet::Transaction& write) {
    jet::Table* meet = file.FindTable("meet").value();
    const jet::FieldValue mark{0, int32_t{0}};
    ASSERT_TRUE(write.Insert(*meet, {&mark, 1}).ok());
  });
  const Opened opened = Open();
  ASSERT_TRUE(opened.meet) << TextOf(opened.outcome);
  ASSERT_EQ(opened.changes.size(), 40u);
  EXPECT_EQ(opened.changes.front(), "table Agegroup added");
  EXPECT_EQ(opened.changes[12], "table Entry added");
  EXPECT_EQ(opened.changes[13], "table Entrymulti added");
  EXPECT_EQ(opened.changes.back(), "table Windreading added");
  const std::pair<std::string_view, size_t> kRows[] = {{"Divisions", 2},  {"Team", 1},      {"Regions", 4},
                                                       {"Scoring", 60},   {"StdLanes", 12}, {"StdAlleys", 12},
                                                       {"Waterfall", 160}};
  for (const auto& [table, rows] : kRows) EXPECT_EQ(Rows(opened.meet->file(), table).size(), rows) << table;
  EXPECT_GE(opened.meet->Table("TimeStd").value()->Column("Mult_ptr"), 0);
  EXPECT_GE(opened.meet->Table("ChipID").value()->Index("isused"), 0);
}

TEST_F(OpenTest, RefusesAndKeepsFilesWithoutTheMark) {
  const std::vector<std::pair<std::string, std::string>> kFiles[] = {
      {{"Customers", "win_tftvx"}}, {{"Meet", "win_tftv"}, {"Athlete", "win_tftvx"}}, {}};
  for (const auto& tables : kFiles) {
    CreateForeign(tables);
    const std::string before = Bytes();
    const Opened opened = Open();
    EXPECT_FALSE(opened.meet);
    EXPECT_TRUE(std::holds_alternative<Refusal>(opened.outcome));
    EXPECT_EQ(TextOf(opened.outcome), path_ + " is not a KORVEL Track & Field TARVEX Database !");
    EXPECT_TRUE(Bytes() == before);
    std::filesystem::remove(path_);
  }
}

TEST_F(OpenTest, GivesIdentifiersToThoseWithoutAndKeepsTheOthers) {
  CurrentMeet().reset();
  Edit(path_, [](jet::Database& file, jet::Transaction& write) {
    jet::Table* athletes = file.FindTable("Athlete").value();
    for (const std::string_view id : {"", "  ", "KEPT"}) {
      const jet::FieldValue value{athletes->Column("athGUID_strg"), std::string(id)};
      ASSERT_TRUE(write.Insert(*athletes, {&value, 1}).ok());
    }
    ASSERT_TRUE(write.Insert(*athletes, {}).ok());
    SetFirstRow(file, write, "Team", {{"TeamGUID_strg", ""}});
  });
  const Opened opened = Open();
  ASSERT_TRUE(opened.meet) << TextOf(opened.outcome);
  EXPECT_EQ(opened.changes, (Changes{"identifiers added to Athlete: 3", "identifiers added to Team: 1"}));
  const auto athletes = Rows(opened.meet->file(), "Athlete");
  EXPECT_EQ(athletes[0].at("athGUID_strg"), "00000000-0000-4001-8000-000000000002");
  EXPECT_EQ(athletes[1].at("athGUID_strg"), "00000000-0000-4003-8000-000000000004");
  EXPECT_EQ(athletes[2].at("athGUID_strg"), "KEPT");
  EXPECT_EQ(athletes[3].at("athGUID_strg"), "00000000-0000-4005-8000-000000000006");
  EXPECT_EQ(Rows(opened.meet->file(), "Team")[0].at("TeamGUID_strg"), "00000000-0000-4007-8000-000000000008");
}

TEST_F(OpenTest, SetsScoringNumbersThatAreZeroToTheirDefaults) {
  struct Case {
    std::string_view last_plus_one;
    Changes changes;
    int penalty;
  };
  const Case kCases[] = {
      {"no", {"setting xccmaxscorers_perteam set to 5", "setting xccpenalty_points set to 100"}, 100},
      {"yes", {"setting xccmaxscorers_perteam set to 5"}, 0}};
  CurrentMeet().reset();
  for (const Case& c : kCases) {
    Edit(path_, [&](jet::Database& file, jet::Transaction& write) {
      SetFirstRow(file, write, "Meet",
                  {{"xccminimum_onteam", "7"},
                   {"xccmaxscorers_perteam", ""},
                   {"xccpenalty_points", "0"},
                   {"xccPenaltyPts_LastPlusOne", std::string(c.last_plus_one)}});
    });
    const Opened opened = Open();
    ASSERT_TRUE(opened.meet) << TextOf(opened.outcome);
    EXPECT_EQ(opened.changes, c.changes);
    EXPECT_EQ(opened.meet->settings().xccminimum_onteam, 7);
    EXPECT_EQ(opened.meet->settings().xccmaxscorers_perteam, 5);
    EXPECT_EQ(opened.meet->settings().xccpenalty_points, c.penalty);
    EXPECT_EQ(Rows(opened.meet->file(), "Meet")[0].at("xccpenalty_points"), std::to_string(c.penalty));
  }
}

TEST_F(OpenTest, RefusesDrivesAndExtensionsBeforeAnyFileIsTouched) {
  struct Case {
    std::string path, text;
  };
  const std::string drive = "Opening a Tarvex database from the A or B drive is not permitted !";
  const Case kRefused[] = {
      {"A:\\meet.mdb", drive},
      {"b:/meet.mdb", drive},
      {"a:meet.txt", drive},
      {"/meets/meet.accdb", "Cannot Open /meets/meet.accdb, Invalid File Extension"},
      {"/meets/meet", "Cannot Open /meets/meet, Invalid File Extension"},
      {"/meets.mdb/meet", "Cannot Open /meets.mdb/meet, Invalid File Extension"},
      {"/meets/meet.mdb ", "Cannot Open /meets/meet.mdb , Invalid File Extension"},
  };
  for (const Case& c : kRefused) {
    FaultyDisk disk(Fault::Io, Fault::Io);
    EXPECT_EQ(TextOf(OpenMeet(disk, c.path, TestSession(), user_).outcome), c.text);
    EXPECT_EQ(TextOf(CreateMeet(disk, c.path, TestSession())), c.text);
    EXPECT_EQ(disk.openings, 0) << c.path;
  }
  for (const std::string path : {"C:\\a.mdb", "/abc/b.MDB", "/a/x.Mdb", "a.mdb"}) {
    FaultyDisk disk(Fault::NotFound, Fault::NotFound);
    (void)OpenMeet(disk, path, TestSession(), user_);
    EXPECT_EQ(disk.openings, 1) << path;
  }
}

TEST_F(OpenTest, TellsTheFaultsOfOpening) {
  struct Case {
    Fault writing, reading;
    std::string text;
  };
  const Case kCases[] = {
      {Fault::InUse, Fault::InUse, path_ + " Database already opened exclusively by another user."},
      {Fault::InUse, Fault::Io,
       path_ + " Database cannot be opened exclusively because it is already opened by another user."},
      {Fault::ReadOnly, Fault::None, "The database may be set to Read-Only.\nreason\n" + path_},
      {Fault::Io, Fault::None, "reason"},
      {Fault::NotFound, Fault::None, "Error: reason\n"},
  };
  for (const Case& c : kCases) {
    FaultyDisk disk(c.writing, c.reading);
    const Opened opened = OpenMeet(disk, path_, TestSession(), user_);
    EXPECT_FALSE(opened.meet);
    const auto* status = std::get_if<Status>(&opened.outcome);
    ASSERT_TRUE(status);
    EXPECT_EQ(OpeningFailure(path_, *status, false).text, c.text);
  }
  EXPECT_EQ(OpeningFailure(path_, {Fault::Corrupt, "page 3: bent"}, true).text,
            "Error: page 3: bent\n Error opening selected file !");
}

TEST_F(OpenTest, TwoProgramsCannotHaveTheSameMeetOpen) {
  const auto meet = CurrentMeet();
  const Opened second = Open();
  const auto* status = std::get_if<Status>(&second.outcome);
  ASSERT_TRUE(status);
  EXPECT_EQ(OpeningFailure(path_, *status, false).text,
            path_ + " Database already opened exclusively by another user.");
}

TEST_F(OpenTest, DamagedFilesAreFailuresAndStayAsTheyAre) {
  Create();
  const std::string whole = Bytes();
  const std::string kDamaged[] = {"",
                                  "short",
                                  std::string(4096, 'x'),
                                  whole.substr(0, 1000),
                                  whole.substr(0, 8192),
                                  whole.substr(0, whole.size() - 100),
                                  whole.substr(0, 4096)};
  for (const std::string& bytes : kDamaged) {
    WriteBytes(bytes);
    const Opened opened = Open();
    EXPECT_FALSE(opened.meet) << bytes.size();
    const auto* status = std::get_if<Status>(&opened.outcome);
    ASSERT_TRUE(status) << bytes.size();
    EXPECT_TRUE(OpeningFailure(path_, *status, false).text.starts_with("Error: ")) << status->detail;
    EXPECT_TRUE(Bytes() == bytes) << bytes.size();
  }
}

// Wherever the disk fills up, the next opening finds the file as it was.
TEST_F(OpenTest, AnUpgradeIsDoneWholeOrNotAtAll) {
  Create();
  const std::string created = Bytes();
  int writes = 0;
  for (; writes < 1000; ++writes) {
    WriteBytes(created);
    FillingDisk disk(writes);
    const Opened opened = OpenMeet(disk, path_, TestSession(), user_);
    if (opened.meet) break;
    const auto* status = std::get_if<Status>(&opened.outcome);
    ASSERT_TRUE(status) << writes;
    EXPECT_EQ(OpeningFailure(path_, *status, false).text, "no space left on the disk");
    EXPECT_EQ(opened.changes, Changes());
    ASSERT_EQ(Open().changes, kFirstChanges) << writes;
  }
  EXPECT_GT(writes, 5);
}

TEST_F(OpenTest, ACommandsTransactionCarriesOverToTheNextOpening) {
  auto meet = CurrentMeet();
  auto write = meet->Begin("rename");
  ASSERT_TRUE(write.ok());
  SetFirstRow(meet->file(), **write, "Meet", {{"meet_name1", "Spring Open"}});
  ASSERT_TRUE((*write)->Commit().ok());
  EXPECT_EQ(meet->settings().Meet_name1, "Demo Meet");
  ASSERT_TRUE(meet->ReloadSettings().ok());
  EXPECT_EQ(meet->settings().Meet_name1, "Spring Open");
  meet.reset();
  EXPECT_EQ(Open().meet->settings().Meet_name1, "Spring Open");
}

}  // namespace
}  // namespace tarvex::database
