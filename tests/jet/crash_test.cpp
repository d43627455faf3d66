#include "tests/jet/support.h"

namespace tarvex::jet {
namespace {

const TableSpec kSpec{
    "Athlete",
    {{"Id", ColumnType::Long, 0, true}, {"Name", ColumnType::Text, 80}, {"Note", ColumnType::Memo}},
    {{"PrimaryKey", {"Id"}, true}, {"ByName", {"Name"}}}};

using State = std::vector<std::vector<Value>>;

void Fill(MemoryDisk& disk) {
  auto database = NewDatabase(disk, kSpec);
  auto transaction = Begin(*database);
  Table& table = TableOf(*database, "Athlete");
  for (int i = 0; i < 120; ++i) {
    ASSERT_OK(transaction->Insert(table, std::vector<FieldValue>{{1, Filler(i, 40)}, {2, Filler(i, 300)}})
                  .status());
  }
  ASSERT_OK(transaction->Commit());
}

// A transaction that touches rows, indexes, long values and a definition.
Status Change(Database& database) {
  TRY_ASSIGN(auto transaction, database.Begin({"change", ""}, kNow));
  TRY_ASSIGN(Table * table, database.FindTable("Athlete"));
  std::vector<RowId> rows;
  TableScan scan = table->Scan();
  while (true) {
    TRY_ASSIGN(const bool more, scan.Next());
    if (!more) break;
    rows.push_back(scan.record().id());
  }
  for (size_t i = 0; i < rows.size(); i += 5) TRY(transaction->Delete(*table, rows[i]));
  for (size_t i = 1; i < rows.size(); i += 5) {
    TRY(transaction->Update(*table, rows[i],
                            std::vector<FieldValue>{{1, Filler(1000 + static_cast<int>(i), 80)}}));
  }
  for (int i = 0; i < 60; ++i) {
    TRY(transaction->Insert(*table, std::vector<FieldValue>{{1, Filler(2000 + i, 60)}, {2, Filler(i, 5000)}})
            .status());
  }
  TRY(transaction->CreateTable({"Team", {{"Abbr", ColumnType::Text, 5}}, {{"ByAbbr", {"Abbr"}}}}).status());
  return transaction->Commit();
}

State Stored(MemoryDisk& disk) {
  auto database = OpenDatabase(disk);
  if (!database) return {};
  EXPECT_EQ(Findings(*database), "");
  State state = Rows(TableOf(*database, "Athlete"));
  if (database->FindTable("Team").ok()) state.push_back({});
  return state;
}

struct BeforeAndAfter {
  State before;
  State after;
};

BeforeAndAfter BothStates() {
  MemoryDisk disk;
  Fill(disk);
  BeforeAndAfter states;
  states.before = Stored(disk);
  {
    auto database = OpenDatabase(disk);
    EXPECT_EQ(Described(Change(*database)), "ok");
  }
  states.after = Stored(disk);
  EXPECT_FALSE(states.before == states.after);
  return states;
}

class CrashWithCache : public testing::TestWithParam<size_t> {
};  // pages of cache: few make the transaction spill

TEST_P(CrashWithCache, LeavesTheOldOrTheNewStateWhenTheDiskFailsAtAnyOperation) {
  const BeforeAndAfter states = BothStates();
  for (const bool all_after : {false, true}) {
    bool reached_end = false;
    for (int at = 1; !reached_end; ++at) {
      MemoryDisk disk;
      Fill(disk);
      Status status;
      {
        auto database = OpenDatabase(disk, GetParam());
        disk.FailAt(at, all_after);
        status = Change(*database);
        reached_end = !disk.has_failed();
        // What the same process sees afterwards, unless it says that it must open the file anew.
        if (!status.ok() && !all_after) {
          disk.FailAt(0, false);
          if (const auto again = database->Begin({"again", ""}, kNow); again.ok()) {
            ASSERT_EQ(Findings(*database), "") << at;
            ASSERT_TRUE(Rows(TableOf(*database, "Athlete")) == states.before) << at;
          }
        }
      }
      disk.FailAt(0, false);
      const State stored = Stored(disk);
      // When the journal's clearing fails half-way, the new state may stay although the commit reports a
      // failure.
      const bool is_new = stored == states.after;
      ASSERT_TRUE(is_new || (!status.ok() && stored == states.before)) << at;
    }
  }
}

TEST_P(CrashWithCache, LeavesTheOldOrTheNewStateWhenThePowerGoesAtAnyMoment) {
  const BeforeAndAfter states = BothStates();
  MemoryDisk disk;
  Fill(disk);
  disk.StartRecording();
  size_t committed = 0;
  {
    auto database = OpenDatabase(disk, GetParam());
    ASSERT_OK(Change(*database));
    committed = disk.events().size();
  }
  ASSERT_GT(disk.events().size(), 5u);
  std::mt19937 random(7);
  int old_states = 0, new_states = 0;
  for (size_t events = 0; events <= disk.events().size(); ++events) {
    for (int variant = 0; variant < 14; ++variant) {
      using Loss = MemoryDisk::Loss;
      const Loss loss = variant == 0   ? Loss::Nothing
                        : variant == 1 ? Loss::Unsynced
                        : variant < 8  ? Loss::Some
                                       : Loss::Torn;
      const auto after = disk.AfterPowerLoss(events, loss, random);
      // Another crash in the middle of the repair must do no harm either.
      after->FailAt(1 + static_cast<int>(random() % 12), true);
      (void)Database::Open(*after, kFile, OpenMode::ReadWrite);
      after->FailAt(0, false);
      const State stored = Stored(*after);
      const bool is_old = stored == states.before;
      ASSERT_TRUE(is_old || stored == states.after) << events << " " << variant;
      ASSERT_FALSE(is_old && events >= committed) << "a committed transaction was lost";
      ++(is_old ? old_states : new_states);
    }
  }
  EXPECT_GT(old_states, 0);
  EXPECT_GT(new_states, 0);
}

INSTANTIATE_TEST_SUITE_P(Caches, CrashWithCache, testing::Values(64, Pager::kDefaultCache));

TEST(Crash, ReadsTheOldStateFromAFileThatMayNotBeWritten) {
  const BeforeAndAfter states = BothStates();
  MemoryDisk disk;
  Fill(disk);
  disk.StartRecording();
  {
    auto database = OpenDatabase(disk, 64);
    ASSERT_OK(Change(*database));
  }
  std::mt19937 random(1);
  // The last write to the database before it is synced: the file is half new.
  size_t events = 0;
  for (size_t i = 0; i < disk.events().size(); ++i) {
    if (disk.events()[i].kind == MemoryDisk::Kind::Write && disk.events()[i].path == kFile) events = i + 1;
  }
  const auto after = disk.AfterPowerLoss(events, MemoryDisk::Loss::Nothing, random);
  const MemoryDisk::Content bytes = after->At(kFile);
  {
    auto database = Must(Database::Open(*after, kFile, OpenMode::Read));
    EXPECT_TRUE(Rows(TableOf(*database, "Athlete")) == states.before);
    EXPECT_EQ(Findings(*database), "");
    EXPECT_FAULT(Fault::ReadOnly, database->Begin({"", ""}, kNow).status());
  }
  EXPECT_TRUE(after->At(kFile) == bytes);
  EXPECT_TRUE(Stored(*after) == states.before);
}

TEST(Crash, DoesNotEmptyADatabaseThatWasPutInThePlaceOfAnUnfinishedOne) {
  MemoryDisk disk;
  disk.StartRecording();
  { Must(Database::Create(disk, kFile, kNow)); }
  // Power goes when the journal of the creation is on the disk and the database is not.
  size_t events = 0;
  while (disk.events()[events].kind != MemoryDisk::Kind::Sync) ++events;
  std::mt19937 random(1);
  const auto after = disk.AfterPowerLoss(events + 1, MemoryDisk::Loss::Nothing, random);
  EXPECT_FAULT(Fault::Corrupt, Database::Open(*after, kFile, OpenMode::ReadWrite).status());
  MemoryDisk other;
  Fill(other);
  after->Put(kFile, other.At(kFile));
  EXPECT_FAULT(Fault::Corrupt, Database::Open(*after, kFile, OpenMode::ReadWrite).status());
  EXPECT_TRUE(after->At(kFile) == other.At(kFile));
  ASSERT_OK(after->Remove(Journal::PathFor(kFile)));
  EXPECT_TRUE(Stored(*after) == Stored(other));
}

TEST(Crash, RefusesAJournalOfAnotherDatabase) {
  MemoryDisk disk, other;
  Fill(disk);
  disk.StartRecording();
  {
    auto database = OpenDatabase(disk, 64);
    ASSERT_OK(Change(*database));
  }
  size_t events = 0;
  while (disk.events()[events].path != kFile) ++events;
  std::mt19937 random(1);
  const auto after = disk.AfterPowerLoss(events, MemoryDisk::Loss::Nothing, random);
  { Must(Database::Create(other, kFile, kNow + 1)); }
  after->Put(kFile, other.At(kFile));
  EXPECT_FAULT(Fault::Corrupt, Database::Open(*after, kFile, OpenMode::ReadWrite).status());
}

}  // namespace
}  // namespace tarvex::jet
