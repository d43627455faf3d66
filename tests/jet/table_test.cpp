#include "jet/table.h"

#include <algorithm>
#include <numeric>
#include <random>

#include "tests/jet/support.h"

namespace tarvex::jet {
namespace {

using Fields = std::vector<FieldValue>;

class TableTest : public testing::Test {
 protected:
  void Make(const TableSpec& spec) {
    database_ = NewDatabase(disk_, spec);
    table_ = &TableOf(*database_, spec.name);
    transaction_ = Begin(*database_);
  }
  RowId Add(const Fields& fields) { return Must(transaction_->Insert(*table_, fields)).row; }
  Value At(RowId row, int column) { return Must(Must(table_->Get(row)).Get(column)); }

  MemoryDisk disk_;
  std::unique_ptr<Database> database_;
  Table* table_ = nullptr;
  std::unique_ptr<Transaction> transaction_;
};

TEST_F(TableTest, DefinitionOf160LongNamedColumnsSpansPages) {
  TableSpec spec{"Wide", {}, {{"PrimaryKey", {"A column with a long name, number 0"}, true}}};
  for (int i = 0; i < 160; ++i) {
    const ColumnType types[] = {ColumnType::Long, ColumnType::Text, ColumnType::Boolean, ColumnType::Single};
    spec.columns.push_back({"A column with a long name, number " + std::to_string(i), types[i % 4], 20});
  }
  Make(spec);
  EXPECT_GE(table_->def().pages.size(), 3u);
  const RowId row =
      Add({{0, 7}, {1, std::string("first")}, {157, std::string("last")}, {158, true}, {159, 2.5f}});
  ASSERT_OK(transaction_->Commit());
  database_ = nullptr;
  database_ = OpenDatabase(disk_);
  table_ = &TableOf(*database_, "WIDE");
  EXPECT_EQ(table_->def().columns[159].name, "A column with a long name, number 159");
  EXPECT_TRUE(At(row, 157) == Value(std::string("last")));
  EXPECT_TRUE(At(row, 158) == Value(true));
  EXPECT_TRUE(At(row, 159) == Value(2.5f));
  EXPECT_EQ(Findings(*database_), "");
}

// A tree of several levels, made and taken apart in three orders.
TEST_F(TableTest, IndexesStaySoundWhileTheyGrowAndEmpty) {
  constexpr int kRows = 3000;
  for (const int order : {0, 1, 2}) {
    disk_ = MemoryDisk();
    transaction_.reset();
    Make({"T",
          {{"Name", ColumnType::Text, 255}, {"N", ColumnType::Long}},
          {{"ByName", {"Name"}}, {"ByN", {"N"}, true}}});
    std::vector<int> numbers(kRows);
    std::iota(numbers.begin(), numbers.end(), 0);
    if (order == 1) std::reverse(numbers.begin(), numbers.end());
    if (order == 2) std::shuffle(numbers.begin(), numbers.end(), std::mt19937(5));
    const auto name = [](int n) { return Value(std::string(150, 'x') + std::to_string(100000 + n)); };
    std::vector<RowId> rows;
    for (const int n : numbers) rows.push_back(Add({{0, name(n)}, {1, n}}));
    ASSERT_EQ(Findings(*database_), "") << order;
    auto range = Must(table_->Range(0, {}, {}));
    for (int n = 0; n < kRows; ++n, (void)range.Next()) {
      ASSERT_FALSE(range.AtEnd());
      ASSERT_EQ(Must(table_->Get(range.row())).Long(1), n);
    }
    std::shuffle(rows.begin(), rows.end(), std::mt19937(6));
    for (size_t i = 0; i < rows.size(); ++i) {
      ASSERT_OK(transaction_->Delete(*table_, rows[i]));
      if (i != rows.size() / 2 && i + 20 != rows.size()) continue;
      ASSERT_EQ(Findings(*database_), "") << order;
    }
    EXPECT_EQ(Findings(*database_), "") << order;
    EXPECT_TRUE(Must(table_->Range(0, {}, {})).AtEnd());
    // An emptied index is one leaf again and can be filled.
    Add({{0, name(1)}, {1, 1}});
    EXPECT_EQ(Must(table_->Find(0, std::vector<Value>{name(1)})).size(), 1u);
  }
}

TEST_F(TableTest, RefusesRowsWhoseIndexedTextsAreTooLongTogether) {
  Make({"T",
        {{"A", ColumnType::Text, 255}, {"B", ColumnType::Text, 255}, {"C", ColumnType::Text, 255}},
        {{"All", {"A", "B", "C"}}}});
  const std::string hyphens = [] {
    std::string text;
    for (int i = 0; i < 127; ++i) text += "-é";
    return text;
  }();
  EXPECT_FAULT(Fault::Range,
               transaction_->Insert(*table_, Fields{{0, hyphens}, {1, hyphens}, {2, hyphens}}).status());
  Add({{0, hyphens}, {1, std::string("b")}, {2, std::string("c")}});
  EXPECT_EQ(Findings(*database_), "");
}

TEST_F(TableTest, MovedRowsAreFoundWhereTheyWere) {
  Make({"T",
        {{"Id", ColumnType::Long, 0, true}, {"Text", ColumnType::Text, 255}},
        {{"PrimaryKey", {"Id"}, true}}});
  std::vector<RowId> rows;
  for (int i = 0; i < 150; ++i) rows.push_back(Add({{1, Filler(i, 20)}}));
  for (const size_t length : {200u, 255u, 3u, 230u}) {
    for (size_t i = 0; i < rows.size(); i += 2) {
      ASSERT_OK(transaction_->Update(*table_, rows[i], Fields{{1, Filler(static_cast<int>(i), length)}}));
    }
    EXPECT_EQ(Findings(*database_), "") << length;
    for (size_t i = 0; i < rows.size(); i += 2) {
      EXPECT_TRUE(At(rows[i], 1) == Value(Filler(static_cast<int>(i), length)));
      EXPECT_EQ(Must(table_->FindFirst(0, std::vector<Value>{static_cast<int32_t>(i + 1)})), rows[i]);
    }
  }
  EXPECT_EQ(Rows(*table_).size(), rows.size());
  for (const RowId row : rows) ASSERT_OK(transaction_->Delete(*table_, row));
  EXPECT_EQ(Findings(*database_), "");
  EXPECT_TRUE(Rows(*table_).empty());
}

// 64 bytes stand in the row, 4076 fill one row of their own, more become a chain.
TEST_F(TableTest, LongValuesOfAllThreeKindsComeBack) {
  Make({"T", {{"Note", ColumnType::Memo}, {"Data", ColumnType::Ole}}, {}});
  const size_t sizes[] = {0, 1, 32, 33, 2038, 2039, 2040, 5000, 100000};
  std::vector<RowId> rows;
  for (const size_t size : sizes) rows.push_back(Add({{0, Filler(3, size)}, {1, Bytes(size * 2, 0xAB)}}));
  for (size_t i = 0; i < rows.size(); ++i) {
    EXPECT_TRUE(At(rows[i], 0) == Value(Filler(3, sizes[i]))) << sizes[i];
    EXPECT_TRUE(At(rows[i], 1) == Value(Bytes(sizes[i] * 2, 0xAB))) << sizes[i];
  }
  EXPECT_EQ(Findings(*database_), "");
  for (size_t i = 0; i < rows.size(); ++i) {
    ASSERT_OK(transaction_->Update(*table_, rows[i], Fields{{0, Filler(5, sizes[rows.size() - 1 - i])}}));
  }
  EXPECT_EQ(Findings(*database_), "");
  for (const RowId row : rows) ASSERT_OK(transaction_->Delete(*table_, row));
  EXPECT_EQ(Findings(*database_), "");
  // Freed pages serve again: the same content takes no more room than before.
  const PageNumber pages = database_->pager().page_count();
  for (const size_t size : sizes) Add({{0, Filler(3, size)}, {1, Bytes(size * 2, 0xAB)}});
  EXPECT_EQ(database_->pager().page_count(), pages);
  EXPECT_EQ(Findings(*database_), "");
}

TEST_F(TableTest, CountersGoOnFromTheLargestNumberAndSkipNothing) {
  Make({"T",
        {{"Id", ColumnType::Long, 0, true}, {"Code", ColumnType::Text, 5}},
        {{"Code", {"Code"}, false, true}}});
  EXPECT_EQ(Must(transaction_->Insert(*table_, Fields{{1, std::string("a")}})).counter, 1);
  // A refused row uses no number up.
  EXPECT_FAULT(Fault::Duplicate, transaction_->Insert(*table_, Fields{{1, std::string("A ")}}).status());
  EXPECT_EQ(Must(transaction_->Insert(*table_, Fields{})).counter, 2);
  EXPECT_EQ(Must(transaction_->Insert(*table_, Fields{{0, 40}})).counter, 40);
  EXPECT_EQ(Must(transaction_->Insert(*table_, Fields{{0, 10}})).counter, 10);
  const auto last = Must(transaction_->Insert(*table_, Fields{}));
  EXPECT_EQ(last.counter, 41);
  ASSERT_OK(transaction_->Update(*table_, last.row, Fields{{0, 50}}));
  EXPECT_EQ(Must(transaction_->Insert(*table_, Fields{})).counter, 51);
  EXPECT_EQ(Findings(*database_), "");
}

TEST_F(TableTest, ARefusedRowLeavesEverythingAsItWas) {
  Make({"T",
        {{"Id", ColumnType::Long}, {"Name", ColumnType::Text, 10}, {"Note", ColumnType::Memo}},
        {{"PrimaryKey", {"Id"}, true}, {"Name", {"Name"}, false, true}}});
  Add({{0, 1}, {1, std::string("Müller")}});
  const RowId second = Add({{0, 2}, {1, std::string("Smith")}});
  ASSERT_OK(transaction_->Commit());
  transaction_ = Begin(*database_);
  const std::string long_note = Filler(1, 9000);
  EXPECT_FAULT(
      Fault::Duplicate,
      transaction_->Insert(*table_, Fields{{0, 3}, {1, std::string("MÜLLER  ")}, {2, long_note}}).status());
  EXPECT_FAULT(Fault::Duplicate,
               transaction_->Insert(*table_, Fields{{0, 1}, {1, std::string("x")}}).status());
  EXPECT_FAULT(Fault::Invalid,
               transaction_->Insert(*table_, Fields{{1, std::string("no key")}, {2, long_note}}).status());
  EXPECT_FAULT(
      Fault::Range,
      transaction_->Insert(*table_, Fields{{0, 4}, {2, long_note}, {1, std::string(11, 'x')}}).status());
  EXPECT_FAULT(Fault::Duplicate, transaction_->Update(*table_, second, Fields{{0, 1}, {2, long_note}}));
  EXPECT_FAULT(Fault::Invalid, transaction_->Update(*table_, second, Fields{{0, Null{}}}));
  EXPECT_FAULT(Fault::Invalid, transaction_->Update(*table_, second, Fields{{9, 1}}));
  EXPECT_EQ(Rows(*table_).size(), 2u);
  EXPECT_EQ(Findings(*database_), "");
  // Rows with a null in a unique index that takes them stand beside each other.
  Add({{0, 5}});
  Add({{0, 6}});
  EXPECT_EQ(Findings(*database_), "");
}

TEST_F(TableTest, GrowsPastAnInlineMapAndPastABitmapPage) {
  Make({"T", {{"Id", ColumnType::Long, 0, true}, {"Data", ColumnType::Ole}}, {{"PrimaryKey", {"Id"}, true}}});
  const Bytes megabyte(1 << 20, 0x5A);
  std::vector<RowId> rows;
  for (int i = 0; i < 3; ++i) rows.push_back(Add({{1, megabyte}}));
  EXPECT_GT(database_->pager().page_count(), 512u);
  EXPECT_EQ(Findings(*database_), "");
  while (database_->pager().page_count() < kBitmapPages + 500) {
    rows.push_back(Add({{1, megabyte}}));
    // Small transactions, so that not all of it is kept twice.
    ASSERT_OK(transaction_->Commit());
    transaction_ = Begin(*database_);
  }
  EXPECT_EQ(Findings(*database_), "");
  EXPECT_TRUE(At(rows.back(), 1) == Value(megabyte));
  for (size_t i = 0; i < rows.size(); i += 2) ASSERT_OK(transaction_->Delete(*table_, rows[i]));
  const PageNumber pages = database_->pager().page_count();
  for (size_t i = 0; i + 4 < rows.size(); i += 2) Add({{1, megabyte}});
  EXPECT_EQ(database_->pager().page_count(), pages);
  EXPECT_EQ(Findings(*database_), "");
  ASSERT_OK(transaction_->Commit());
}

TEST_F(TableTest, IndexOnRowsThatAreThereIsBuiltOrRefused) {
  Make({"T", {{"Name", ColumnType::Text, 20}}, {}});
  for (int i = 0; i < 500; ++i) Add({{0, Filler(i % 499, 12)}});
  ASSERT_OK(transaction_->CreateIndex(*table_, {"Name", {"Name"}}));
  EXPECT_FAULT(Fault::Duplicate, transaction_->CreateIndex(*table_, {"Unique", {"Name"}, false, true}));
  EXPECT_FAULT(Fault::Exists, transaction_->CreateIndex(*table_, {"name", {"Name"}}));
  EXPECT_FAULT(Fault::Invalid, transaction_->CreateIndex(*table_, {"Other", {"Nothing"}}));
  EXPECT_EQ(Findings(*database_), "");
  EXPECT_EQ(Must(table_->Find(table_->Index("NAME"), std::vector<Value>{Filler(0, 12)})).size(), 2u);
}

}  // namespace
}  // namespace tarvex::jet
