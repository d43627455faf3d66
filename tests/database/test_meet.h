#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "base/platform.h"
#include "database/create.h"
#include "database/open.h"

namespace tarvex::database {

inline constexpr double kMay10th2024 = 45422;  // counted from 1899-12-30

// 2024-05-10 at noon; identifiers count up.
inline Session TestSession() {
  return {"tester", kMay10th2024 + 0.5, [n = uint64_t{0}]() mutable { return ++n; }};
}

// Keeps the status texts; any box fails the test.
class QuietUser : public UserInterface {
 public:
  void Tell(const Notice& notice) override { ADD_FAILURE() << notice.text; }
  std::optional<Answer> Ask(const Notice& question, Buttons) override {
    ADD_FAILURE() << question.text;
    return std::nullopt;
  }
  std::optional<std::string> AskText(const Notice& question, std::string_view) override {
    ADD_FAILURE() << question.text;
    return std::nullopt;
  }
  void ShowStatus(const Notice& notice) override { statuses.push_back(notice.text); }
  void ShowProgress(int, int) override {}

  std::vector<std::string> statuses;
};

// A folder of its own for every test, removed afterwards.
class MeetFileTest : public testing::Test {
 protected:
  MeetFileTest() {
    const auto* info = testing::UnitTest::GetInstance()->current_test_info();
    std::string pattern =
        (std::filesystem::temp_directory_path() / (std::string(info->name()) + ".XXXXXX")).string();
    folder_ = mkdtemp(pattern.data());
    path_ = (folder_ / "meet.mdb").string();
  }
  ~MeetFileTest() override { std::filesystem::remove_all(folder_); }

  static FileSystem& Files() { return platform::Files(); }

  void Create() {
    const Outcome outcome = CreateMeet(Files(), path_, TestSession());
    ASSERT_TRUE(IsDone(outcome)) << TextOf(outcome);
  }
  Opened Open() { return OpenMeet(Files(), path_, TestSession(), user_); }
  // A created meet that was opened once before.
  std::unique_ptr<Meet> CurrentMeet() {
    Create();
    (void)Open();
    Opened opened = Open();
    EXPECT_TRUE(IsDone(opened.outcome)) << TextOf(opened.outcome);
    return std::move(opened.meet);
  }

  // A database that another program could have made: these tables with one Long field each.
  void CreateForeign(const std::vector<std::pair<std::string, std::string>>& tables) {
    auto file = jet::Database::Create(Files(), path_, kMay10th2024);
    ASSERT_TRUE(file.ok()) << file.status().detail;
    auto write = (*file)->Begin({"test", ""}, kMay10th2024);
    ASSERT_TRUE(write.ok());
    for (const auto& [table, field] : tables) {
      ASSERT_TRUE((*write)->CreateTable({table, {{field, jet::ColumnType::Long}}, {}}).ok());
    }
    ASSERT_TRUE((*write)->Commit().ok());
  }

  std::string Bytes() const {
    std::ifstream in(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  void WriteBytes(const std::string& bytes) const { std::ofstream(path_, std::ios::binary) << bytes; }

  static std::string TextOf(const Outcome& outcome) {
    if (const auto* refusal = std::get_if<Refusal>(&outcome)) return refusal->notice.text;
    if (const auto* status = std::get_if<Status>(&outcome)) return status->detail;
    return "";
  }

  // All rows as texts by field, Null as "(null)".
  static std::vector<std::map<std::string, std::string>> Rows(jet::Database& file,
                                                              std::string_view table_name);

  std::filesystem::path folder_;
  std::string path_;
  QuietUser user_;
};

}  // namespace tarvex::database
