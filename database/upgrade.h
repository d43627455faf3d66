#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/user_interface.h"
#include "database/meet.h"
#include "jet/database.h"

namespace tarvex::database {

// Brings an open file up to the current layout. All of it is one transaction, which begins with the first
// change: nothing is written to a file that is current. What was not committed is undone when the object
// goes.
class Upgrade {
 public:
  Upgrade(jet::Database& file, const Session& session) : file_(file), session_(session) {}

  // Adds the tables that are missing, with their indexes and starting rows.
  Status AddMissingTables();
  // Adds the indexes that a new file gets at its first opening.
  Status AddLateIndexes();
  // Gives athletes and teams without an identifier a new one.
  Status AddIdentifiers(UserInterface& user);
  // Sets the numbers of cross-country and relay scoring that are 0 to what they start with.
  Status SetScoringDefaults();

  Status Commit();

  // One text for each thing added or changed, in order: "table SplitCC added".
  const std::vector<std::string>& changes() const { return changes_; }

 private:
  Expected<jet::Transaction*> Write();
  Status AddIdentifiersTo(std::string_view table_name, std::string_view field);

  jet::Database& file_;
  const Session& session_;
  std::unique_ptr<jet::Transaction> write_;
  std::vector<std::string> changes_;
};

}  // namespace tarvex::database
