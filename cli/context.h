#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "base/outcome.h"
#include "cli/command_line.h"
#include "cli/terminal_user.h"
#include "database/meet.h"
#include "setup/event_store.h"
#include "setup/rounds.h"

namespace tarvex::cli {

using Json = nlohmann::ordered_json;

// What every command has at hand.
class Context {
 public:
  Context(bool json, database::Session session, TerminalUser& user, std::ostream& out)
      : json_(json), session_(std::move(session)), user_(user), out_(out) {}

  bool json() const { return json_; }
  const database::Session& session() const { return session_; }
  TerminalUser& user() { return user_; }
  std::ostream& out() { return out_; }

  // Tells how a command ended and gives its exit code. A Status is the engine's.
  int Finish(const Outcome& outcome);
  int Fail(const Status& status);
  int Refuse(const Notice& notice);

  // Prints the document (with --json, the messages added) or the text, and gives `code`.
  int Print(Json document, const std::string& text, int code = kDone);

  // Opens the meet database; empty when that failed, with the exit code in `code`.
  std::unique_ptr<database::Meet> OpenMeet(const std::string& path, int& code);

  // The messages so far as JSON.
  Json MessagesJson() const;

 private:
  bool json_;
  database::Session session_;
  TerminalUser& user_;
  std::ostream& out_;
};

// The absolute form of a meet database's path as typed. What begins with a drive ("A:") is absolute already.
std::string AbsoluteMeetPath(const std::string& typed);

// The text of a file. Fault::NotFound or Io when it cannot be read.
Expected<std::string> ReadFile(const std::string& path);

// The events with these numbers, in their order; all of the meet when `all`. A notice names the first that
// does not exist.
Expected<std::variant<std::vector<setup::StoredEvent>, Notice>> EventsNamed(
    const database::Meet& meet, const std::vector<std::string>& names, bool all);

// The round named by a letter, else the event's current one. A notice when the event has no such round.
std::variant<setup::Round, Notice> RoundNamed(const setup::Event& event, const std::string& letter);

// "Table" in lower case.
std::string Lower(std::string_view text);

// A Single as the number that its shortest text shows.
Json Number(float value);

}  // namespace tarvex::cli
