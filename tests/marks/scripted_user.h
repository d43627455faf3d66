#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "base/user_interface.h"

namespace tarvex::marks {

// Answers every Yes/No question alike and keeps what was shown; any other box fails the test.
class ScriptedUser : public UserInterface {
 public:
  explicit ScriptedUser(std::optional<Answer> answer = std::nullopt) : answer_(answer) {}

  void Tell(const Notice& notice) override { told.push_back(notice.text); }
  std::optional<Answer> Ask(const Notice& question, Buttons buttons) override {
    EXPECT_EQ(buttons, Buttons::YesNo);
    asked.push_back(question.text);
    return answer_;
  }
  std::optional<std::string> AskText(const Notice&, std::string_view) override {
    ADD_FAILURE() << "asked for a text";
    return std::nullopt;
  }
  void ShowStatus(const Notice&) override {}
  void ShowProgress(int, int) override {}

  std::vector<std::string> told;
  std::vector<std::string> asked;

 private:
  std::optional<Answer> answer_;
};

}  // namespace tarvex::marks
