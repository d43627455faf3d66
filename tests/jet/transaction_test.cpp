#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/jet/support.h"

namespace tarvex::jet {
namespace {

using Fields = std::vector<FieldValue>;
const TableSpec kSpec{
    "T", {{"Id", ColumnType::Long}, {"Name", ColumnType::Text, 200}}, {{"PrimaryKey", {"Id"}, true}}};

void AddRows(Transaction& transaction, Table& table, int from, int to) {
  for (int i = from; i < to; ++i)
    ASSERT_OK(transaction.Insert(table, Fields{{0, i}, {1, Filler(i, 150)}}).status());
}

TEST(Transaction, UndoesNestedSavepoints) {
  MemoryDisk disk;
  auto database = NewDatabase(disk, kSpec);
  auto transaction = Begin(*database);
  Table& table = TableOf(*database, "T");
  AddRows(*transaction, table, 0, 100);
  const int outer = transaction->Savepoint();
  AddRows(*transaction, table, 100, 200);
  const int inner = transaction->Savepoint();
  AddRows(*transaction, table, 200, 300);
  ASSERT_OK(transaction->RollbackTo(inner));
  EXPECT_EQ(Rows(table).size(), 200u);
  EXPECT_EQ(Findings(*database), "");
  const int released = transaction->Savepoint();
  AddRows(*transaction, table, 400, 500);
  transaction->Release(released);
  ASSERT_OK(transaction->RollbackTo(outer));
  EXPECT_EQ(Rows(table).size(), 100u);
  EXPECT_EQ(Findings(*database), "");
  AddRows(*transaction, table, 100, 150);
  ASSERT_OK(transaction->Commit());
  database.reset();
  EXPECT_EQ(Rows(TableOf(*OpenDatabase(disk), "T")).size(), 150u);
}

TEST(Transaction, LargerThanTheCacheCommitsAndRollsBack) {
  MemoryDisk disk;
  auto database = NewDatabase(disk, kSpec);
  database.reset();
  database = OpenDatabase(disk, 64);
  Table& table = TableOf(*database, "T");
  auto transaction = Begin(*database);
  AddRows(*transaction, table, 0, 3000);
  ASSERT_OK(transaction->Commit());
  const MemoryDisk::Content before = disk.At(kFile);
  EXPECT_GT(before.size(), 200 * kPageSize);
  transaction = Begin(*database);
  for (const RowId row : RowIds(table)) ASSERT_OK(transaction->Delete(table, row));
  AddRows(*transaction, table, 5000, 9000);
  EXPECT_FALSE(disk.At(kFile) == before);  // the transaction has reached the file
  ASSERT_OK(transaction->Rollback());
  EXPECT_TRUE(disk.At(kFile) == before);
  EXPECT_EQ(Rows(table).size(), 3000u);
  EXPECT_EQ(Findings(*database), "");
}

TEST(Transaction, LeftWithoutCommitIsUndone) {
  MemoryDisk disk;
  auto database = NewDatabase(disk, kSpec);
  const MemoryDisk::Content before = disk.At(kFile);
  {
    auto transaction = Begin(*database);
    AddRows(*transaction, TableOf(*database, "T"), 0, 50);
    EXPECT_FAULT(Fault::Invalid, database->Begin({"", ""}, kNow).status());
  }
  EXPECT_TRUE(Rows(TableOf(*database, "T")).empty());
  database.reset();
  EXPECT_TRUE(disk.At(kFile) == before);
  EXPECT_FALSE(disk.Exists(Journal::PathFor(kFile)));
}

// Whoever holds a table across an undone change of definitions still holds a table.
TEST(Transaction, KeepsTablesValidWhenDefinitionsAreUndone) {
  MemoryDisk disk;
  auto database = NewDatabase(disk, kSpec);
  Table& table = TableOf(*database, "T");
  auto transaction = Begin(*database);
  AddRows(*transaction, table, 0, 20);
  const int savepoint = transaction->Savepoint();
  TableSpec other{
      "U", {{"Id", ColumnType::Long}, {"Note", ColumnType::Memo}}, {{"PrimaryKey", {"Id"}, true}}};
  Table& created = *Must(transaction->CreateTable(other));
  ASSERT_OK(transaction->CreateIndex(table, {"ByName", {"Name"}}));
  ASSERT_OK(transaction->Insert(created, Fields{{0, 1}, {1, Filler(1, 5000)}}).status());
  // A refused row of a table with long values must not take the table away.
  EXPECT_FAULT(Fault::Duplicate, transaction->Insert(created, Fields{{0, 1}, {1, Filler(1, 5000)}}).status());
  ASSERT_OK(transaction->Insert(created, Fields{{0, 2}}).status());
  EXPECT_EQ(Findings(*database), "");
  ASSERT_OK(transaction->RollbackTo(savepoint));
  EXPECT_FAULT(Fault::Invalid, transaction->Insert(created, Fields{{0, 3}}).status());
  EXPECT_EQ(table.def().indexes.size(), 1u);
  AddRows(*transaction, table, 20, 30);
  EXPECT_EQ(Findings(*database), "");
  EXPECT_FAULT(Fault::NotFound, database->FindTable("U").status());
}

TEST(Transaction, CreatesNothingWhenATableIsRefused) {
  MemoryDisk disk;
  auto database = NewDatabase(disk, kSpec);
  const TableSpec refused[] = {
      {"t", {{"A"}}, {}},
      {"", {{"A"}}, {}},
      {"Dot.", {{"A"}}, {}},
      {"NoColumns", {}, {}},
      {"Twice", {{"A"}, {"a"}}, {}},
      {"Size", {{"A", ColumnType::Text, 256}}, {}},
      {"Counter", {{"A", ColumnType::Text, 5, true}}, {}},
      {"Index", {{"A", ColumnType::Memo}}, {{"I", {"B"}}}},
      {"OleIndex", {{"A", ColumnType::Ole}}, {{"I", {"A"}}}},
      {"LargeRow", std::vector<ColumnSpec>(250, {"", ColumnType::Numeric}), {}},
  };
  for (TableSpec spec : refused) {
    if (spec.name == "LargeRow") {
      for (size_t i = 0; i < spec.columns.size(); ++i) spec.columns[i].name = "N" + std::to_string(i);
    }
    auto transaction = Begin(*database);
    EXPECT_FAULT(spec.name == "t" ? Fault::Exists : Fault::Invalid, transaction->CreateTable(spec).status());
    ASSERT_OK(transaction->Commit());
    EXPECT_EQ(Findings(*database), "") << spec.name;
  }
}

TEST(ForeignReader, SeesTheSameRows) {
  if (std::system("command -v mdb-export > /dev/null 2>&1") != 0)
    GTEST_SKIP() << "mdb-export is not installed";
  MemoryDisk disk;
  {
    auto database = NewDatabase(disk, {"Athlete",
                                       {{"Id", ColumnType::Long, 0, true},
                                        {"Last", ColumnType::Text, 30},
                                        {"Mark", ColumnType::Single},
                                        {"Flag", ColumnType::Boolean},
                                        {"Note", ColumnType::Memo}},
                                       {{"PrimaryKey", {"Id"}, true}, {"Last", {"Last"}}}});
    Table& table = TableOf(*database, "Athlete");
    auto transaction = Begin(*database);
    const RowId gone = Must(transaction->Insert(table, Fields{{1, std::string("Gone")}})).row;
    const RowId moved =
        Must(transaction->Insert(table, Fields{{1, std::string("O'Brien")}, {2, 10.5f}, {3, true}})).row;
    for (int i = 0; i < 100; ++i)
      ASSERT_OK(transaction->Insert(table, Fields{{1, Filler(i, 25)}, {4, Filler(i, 3000)}}).status());
    ASSERT_OK(transaction->Delete(table, gone));
    ASSERT_OK(transaction->Update(table, moved, Fields{{4, std::string(31, 'n')}}));
    ASSERT_OK(transaction->Commit());
  }
  const auto folder = std::filesystem::path(testing::TempDir());
  const std::string file = folder / "foreign_reader.mdb", text = folder / "foreign_reader.csv";
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(disk.At(kFile).data()),
             static_cast<std::streamsize>(disk.At(kFile).size()));
  ASSERT_EQ(std::system(("mdb-export '" + file + "' Athlete > '" + text + "'").c_str()), 0);
  std::ifstream in(text);
  const std::string exported{std::istreambuf_iterator<char>(in), {}};
  EXPECT_EQ(std::count(exported.begin(), exported.end(), '\n'), 102);
  EXPECT_NE(exported.find("2,\"O'Brien\",10.5,1,\"" + std::string(31, 'n') + "\""), std::string::npos)
      << exported.substr(0, 300);
  EXPECT_EQ(exported.find("Gone"), std::string::npos);
  for (int i = 0; i < 100; ++i) EXPECT_NE(exported.find(Filler(i, 3000)), std::string::npos) << i;
  std::filesystem::remove(file);
  std::filesystem::remove(text);
}

}  // namespace
}  // namespace tarvex::jet
