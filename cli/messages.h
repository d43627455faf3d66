#pragma once

#include <string>
#include <string_view>

#include "base/message.h"

// The texts of the command line, with their numbers.
namespace tarvex::cli {

inline Notice EngineFailure(std::string_view detail) {
  return Joined(Message(10150, "Error: "), detail);
}
inline Notice QuestionUnanswered() {
  return Message(
      10151,
      "The question above was left unanswered and nothing was written. Answer it at a terminal, or "
      "with --answer or --reply.");
}
inline Notice EventNotFound(std::string_view typed) {
  return Joined(Message(10152, "There is no event "), std::string(typed) + ".");
}
inline Notice RoundNotFound(std::string_view typed) {
  return Joined(Message(10153, "The event has no round "), std::string(typed) + ".");
}
inline Notice InputUnreadable(std::string_view detail) {
  return Joined(Message(10154, "The input file cannot be read: "), detail);
}
inline Notice OutputUnwritable(std::string_view path) {
  return Joined(Message(10155, "The output file cannot be written: "), path);
}
inline Notice TableNotFound(std::string_view name) {
  return Joined(Message(10156, "The file has no table "), std::string(name) + ".");
}
inline Notice NameEventsOrAll() {
  return Message(10157, "Name the events, or say --all.");
}
inline Notice FieldIsNoAssignment(std::string_view typed) {
  return Joined(Message(10158, "Fields are given as FIELD=VALUE, not as "), typed);
}
inline Notice DecisionWithoutKey(std::string_view typed) {
  return Joined(
      Message(10159, "A judge's decision begins with --set KEY, then place=N, heatplace=N or points=X: "),
      typed);
}
inline Notice FileExists(std::string_view path) {
  return Joined(Message(10160, "This file exists already: "), path);
}

}  // namespace tarvex::cli
