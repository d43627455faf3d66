#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/message.h"

namespace tarvex {

enum class Buttons { YesNo, YesNoCancel };
enum class Answer { Yes, No, Cancel };

// The one way in which the program speaks to the person. A window, the command line and a test each
// implement it; the rules and commands know no other.
class UserInterface {
 public:
  virtual ~UserInterface() = default;

  // Shows a text; nothing is asked. Lines are separated by "\n".
  virtual void Tell(const Notice& notice) = 0;

  // Asks a question. Empty when nobody is there to answer: the command then ends as Unanswered and
  // writes nothing. A box without Cancel never returns Answer::Cancel.
  virtual std::optional<Answer> Ask(const Notice& question, Buttons buttons) = 0;

  // Asks for a line of text, `proposed` being what the box shows at first. Empty when nobody is there or
  // the box was cancelled.
  virtual std::optional<std::string> AskText(const Notice& question, std::string_view proposed) = 0;

  // A short word on what is being done, for the status line ("Checking Database...").
  virtual void ShowStatus(const Notice& notice) = 0;

  // Step `done` of `total` of a long command.
  virtual void ShowProgress(int done, int total) = 0;
};

}  // namespace tarvex
