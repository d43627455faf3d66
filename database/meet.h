#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/outcome.h"
#include "base/platform.h"
#include "base/user_interface.h"
#include "database/settings.h"
#include "jet/database.h"

namespace tarvex::database {

// Who runs a command, when, and where the identifiers of new rows come from. All are handed in, so that a
// script and a test do the same every time.
struct Session {
  std::string user;
  double now = 0;                                                // local time, days since 1899-12-30
  std::function<uint64_t()> random_bits = platform::RandomBits;  // for NewIdentifier()
  ProgramSettings program = {};
};

// An open meet database. Every other folder reads and writes it through its tables, by name.
class Meet {
 public:
  Meet(std::unique_ptr<jet::Database> file, std::string path, Session session)
      : file_(std::move(file)), path_(std::move(path)), session_(std::move(session)) {}

  jet::Database& file() const { return *file_; }
  const std::string& path() const { return path_; }
  const Session& session() const { return session_; }

  // The settings row as of the last opening or ReloadSettings().
  const MeetSettings& settings() const { return settings_; }
  // What typing and showing marks takes from the meet's and the program's settings.
  marks::MarkSettings mark_settings() const { return MarkSettingsOf(settings_, session_.program); }
  // Fault::NotFound when there is no settings row.
  Status ReloadSettings();

  // Fault::NotFound when there is no such table.
  Expected<jet::Table*> Table(std::string_view name) const { return file_->FindTable(name); }
  // A transaction named after its command ("seed"), for the session's user.
  Expected<std::unique_ptr<jet::Transaction>> Begin(std::string_view command) const;

 private:
  std::unique_ptr<jet::Database> file_;
  std::string path_;
  Session session_;
  MeetSettings settings_;
};

}  // namespace tarvex::database
