#pragma once

#include "base/user_interface.h"

namespace tarvex::demo {

// Stands between the commands that fill a meet and the person, who watches one long command: the progress of
// each part is shown as that of the whole, and what the parts would tell is kept from them.
class Progress : public UserInterface {
 public:
  static constexpr int kWhole = 100;

  explicit Progress(UserInterface& user) : user_(user) {}

  // The next part takes the command to `until` of kWhole.
  void StartPart(int until) {
    from_ = until_;
    until_ = until;
    Show(from_);
  }

  void Tell(const Notice&) override {}
  // Nothing in a made-up meet gives rise to a question.
  std::optional<Answer> Ask(const Notice&, Buttons) override { return std::nullopt; }
  std::optional<std::string> AskText(const Notice&, std::string_view) override { return std::nullopt; }
  void ShowStatus(const Notice&) override {}
  void ShowProgress(int done, int total) override {
    if (total > 0) Show(from_ + (until_ - from_) * done / total);
  }

 private:
  void Show(int percent) {
    if (percent == shown_) return;
    shown_ = percent;
    user_.ShowProgress(percent, kWhole);
  }

  UserInterface& user_;
  int from_ = 0, until_ = 0;
  int shown_ = -1;
};

}  // namespace tarvex::demo
