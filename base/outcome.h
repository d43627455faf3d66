#pragma once

#include <variant>

#include "base/message.h"
#include "base/status.h"

namespace tarvex {

// The command did what it was asked.
struct Done {};

// A rule refused the command; nothing was written. The text is what the user sees.
struct Refusal {
  Notice notice;
};

// A question was left unanswered (nobody is there to answer, or Cancel was pressed); nothing was written.
struct Unanswered {};

// How a command ended. A Status in it is a failure of the file or the engine.
using Outcome = std::variant<Done, Refusal, Unanswered, Status>;

inline bool IsDone(const Outcome& outcome) {
  return std::holds_alternative<Done>(outcome);
}

}  // namespace tarvex
