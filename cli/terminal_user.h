#pragma once

#include <deque>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "base/user_interface.h"

namespace tarvex::cli {

// How questions are answered.
struct AnswerPolicy {
  std::optional<Answer> answer;     // pressed in every box; empty: the person is asked
  std::deque<std::string> replies;  // for input boxes, in order
  bool is_person_there = false;     // somebody can be asked
};

// The person at the terminal, or the script in his place. Texts go to the error stream, one a paragraph, and
// are kept for the JSON document.
class TerminalUser : public UserInterface {
 public:
  TerminalUser(AnswerPolicy policy, bool shows_progress, std::istream& in, std::ostream& err)
      : policy_(std::move(policy)), shows_progress_(shows_progress), in_(in), err_(err) {}

  void Tell(const Notice& notice) override;
  std::optional<Answer> Ask(const Notice& question, Buttons buttons) override;
  std::optional<std::string> AskText(const Notice& question, std::string_view proposed) override;
  void ShowStatus(const Notice& notice) override;
  void ShowProgress(int done, int total) override;

  const std::vector<Notice>& messages() const { return messages_; }

 private:
  void Print(const Notice& notice);
  void ClearProgress();

  AnswerPolicy policy_;
  bool shows_progress_;
  std::istream& in_;
  std::ostream& err_;
  std::vector<Notice> messages_;
  std::string status_;
  bool progress_is_shown_ = false;
};

}  // namespace tarvex::cli
