#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/jet/support.h"

namespace tarvex::jet {
namespace {

// Files that another program made, read into memory: the originals are never touched.
class SampleFiles : public testing::Test {
 protected:
  void SetUp() override {
    const char* folder = std::getenv("TARVEX_JET4_SAMPLES");
    if (!folder) GTEST_SKIP() << "TARVEX_JET4_SAMPLES names no folder with sample files";
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      if (entry.path().extension() != ".mdb") continue;
      std::ifstream in(entry.path(), std::ios::binary);
      samples_[entry.path().filename()] = {std::istreambuf_iterator<char>(in), {}};
    }
    ASSERT_FALSE(samples_.empty());
  }
  std::map<std::string, MemoryDisk::Content> samples_;
};

TEST_F(SampleFiles, AreSound) {
  for (const auto& [name, content] : samples_) {
    MemoryDisk disk;
    disk.Put(kFile, content);
    const auto database = OpenDatabase(disk);
    EXPECT_EQ(Findings(*database, false), "") << name;
  }
}

TEST_F(SampleFiles, KeepTheirRowsWhenEachIsWrittenAnew) {
  for (const auto& [name, content] : samples_) {
    MemoryDisk disk;
    disk.Put(kFile, content);
    auto database = OpenDatabase(disk);
    for (const std::string& table_name : Must(database->TableNames())) {
      SCOPED_TRACE(name + " " + table_name);
      Table& table = TableOf(*database, table_name);
      const auto before = Rows(table);
      const std::vector<RowId> ids = RowIds(table);
      if (ids.empty()) continue;
      auto transaction = Begin(*database);
      // Every row is written anew, every third deleted and put back as it was.
      std::vector<std::vector<Value>> after;
      for (size_t i = 0; i < ids.size(); ++i) {
        std::vector<FieldValue> fields;
        for (size_t c = 0; c < table.def().columns.size(); ++c)
          fields.push_back({static_cast<int>(c), before[i][c]});
        ASSERT_OK(transaction->Update(table, ids[i], fields));
        if (i % 3 != 0) continue;
        ASSERT_OK(transaction->Delete(table, ids[i]));
        ASSERT_OK(transaction->Insert(table, fields).status());
      }
      EXPECT_EQ(Findings(*database, false), "");
      ASSERT_OK(transaction->Commit());
      auto now = Rows(table);
      auto wanted = before;
      std::sort(now.begin(), now.end());
      std::sort(wanted.begin(), wanted.end());
      EXPECT_TRUE(now == wanted);
    }
    database.reset();
    database = OpenDatabase(disk);
    EXPECT_EQ(Findings(*database, false), "") << name;
  }
}

}  // namespace
}  // namespace tarvex::jet
