#include "cli/terminal_user.h"

#include <algorithm>
#include <istream>
#include <ostream>

#include "base/text.h"

namespace tarvex::cli {
namespace {

// Lines of a box may be joined by carriage returns.
std::string Lines(std::string text) {
  std::replace(text.begin(), text.end(), '\r', '\n');
  return text;
}

std::optional<Answer> AnswerOf(const std::string& typed, Buttons buttons) {
  const std::string word = Upper(Trim(typed));
  if (word == "Y" || word == "YES") return Answer::Yes;
  if (word == "N" || word == "NO") return Answer::No;
  if (buttons == Buttons::YesNoCancel && (word == "C" || word == "CANCEL")) return Answer::Cancel;
  return std::nullopt;
}

}  // namespace

void TerminalUser::ClearProgress() {
  if (!progress_is_shown_) return;
  err_ << "\r\033[K";
  progress_is_shown_ = false;
}

void TerminalUser::Print(const Notice& notice) {
  ClearProgress();
  messages_.push_back(notice);
  err_ << Lines(notice.text) << "\n\n";
}

void TerminalUser::Tell(const Notice& notice) {
  Print(notice);
}

std::optional<Answer> TerminalUser::Ask(const Notice& question, Buttons buttons) {
  Print(question);
  if (policy_.answer) {
    if (*policy_.answer == Answer::Cancel && buttons == Buttons::YesNo) return Answer::No;
    return policy_.answer;
  }
  if (!policy_.is_person_there) return std::nullopt;
  std::string typed;
  while (true) {
    err_ << (buttons == Buttons::YesNo ? "[yes/no] " : "[yes/no/cancel] ") << std::flush;
    if (!std::getline(in_, typed)) return std::nullopt;
    if (const auto answer = AnswerOf(typed, buttons)) return answer;
  }
}

std::optional<std::string> TerminalUser::AskText(const Notice& question, std::string_view proposed) {
  Print(question);
  if (!policy_.replies.empty()) {
    std::string reply = std::move(policy_.replies.front());
    policy_.replies.pop_front();
    return reply;
  }
  if (!policy_.is_person_there) return std::nullopt;
  err_ << "[" << proposed << "] " << std::flush;
  std::string typed;
  if (!std::getline(in_, typed)) return std::nullopt;
  return typed.empty() ? std::string(proposed) : typed;
}

void TerminalUser::ShowStatus(const Notice& notice) {
  status_ = notice.text;
}

void TerminalUser::ShowProgress(int done, int total) {
  if (!shows_progress_ || total <= 1) return;
  err_ << "\r\033[K" << status_ << " (" << done << " of " << total << ")" << std::flush;
  progress_is_shown_ = true;
  if (done >= total) ClearProgress();
}

}  // namespace tarvex::cli
