#pragma once

#include <gtest/gtest.h>

#include <unistd.h>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "base/platform.h"
#include "base/user_interface.h"
#include "database/create.h"
#include "database/date.h"
#include "database/open.h"
#include "database/settings_fields.h"

namespace tarvex::setup {

// Answers every question alike and keeps what was shown; a question without an answer stays unanswered.
class AnsweringUser : public UserInterface {
 public:
  explicit AnsweringUser(std::optional<Answer> answer = std::nullopt) : answer_(answer) {}

  void Tell(const Notice& notice) override { told.push_back(notice.text); }
  std::optional<Answer> Ask(const Notice& question, Buttons) override {
    asked.push_back(question.text);
    return answer_;
  }
  std::optional<std::string> AskText(const Notice&, std::string_view) override { return std::nullopt; }
  void ShowStatus(const Notice&) override {}
  void ShowProgress(int, int) override {}

  std::vector<std::string> told, asked;

 private:
  std::optional<Answer> answer_;
};

// A new meet in a file of its own that goes when the test ends.
class MeetTest : public testing::Test {
 protected:
  void SetUp() override {
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    path_ = testing::TempDir() + "setup_" + std::to_string(getpid()) + "_" + test->name() + ".mdb";
    std::remove(path_.c_str());
    AnsweringUser user;
    const double day = database::DaysOf(
        database::CalendarDate(std::chrono::year(2024), std::chrono::May, std::chrono::day(10)));
    database::Opened opened =
        database::OpenOrCreateMeet(platform::Files(), path_, {"tester", day, platform::RandomBits}, user);
    ASSERT_TRUE(opened.meet != nullptr);
    meet_ = std::move(opened.meet);
    Set({{"Calc_date", "2024-05-10"}, {"Meet_start", "2024-05-10"}, {"Meet_end", "2024-05-12"}});
  }
  void TearDown() override {
    meet_.reset();
    std::remove(path_.c_str());
  }

  void Set(const std::vector<database::FieldText>& settings) {
    ASSERT_TRUE(IsDone(database::ChangeSettings(*meet_, settings)));
  }
  database::Meet& meet() { return *meet_; }

  int RowsIn(std::string_view table) {
    const auto found = meet_->Table(table);
    return found.ok() ? static_cast<int>((*found)->RowCount().value()) : -1;
  }

 private:
  std::string path_;
  std::unique_ptr<database::Meet> meet_;
};

inline std::string RefusalText(const Outcome& outcome) {
  const Refusal* refusal = std::get_if<Refusal>(&outcome);
  if (refusal) return refusal->notice.text;
  const Status* status = std::get_if<Status>(&outcome);
  return status ? "status: " + status->detail : IsDone(outcome) ? "" : "unanswered";
}

}  // namespace tarvex::setup
