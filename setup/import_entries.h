#pragma once

#include <string_view>
#include <vector>

#include "base/outcome.h"
#include "base/user_interface.h"
#include "database/meet.h"
#include "setup/import_plan.h"

namespace tarvex::setup {

struct ImportOptions {
  bool dry_run = false;   // nothing is written; everything else is the same, questions included
  bool skip_bad = false;  // faulty rows are left out instead of refusing the file
};

// What an import did, or would do. Filled in as far as the import came, also when it was refused.
struct ImportReport {
  std::vector<RowFate> rows;
  ImportCounts counts;
};

// Imports the text of a file of entries. Every faulty row is told with its line and column; with any, nothing
// is imported unless they are to be skipped. Marks out of the plausible range, athletes above their age group
// and entries beyond the limits are asked about once each for all rows; No refuses the import. An import that
// changes nothing does not touch the file. Done, when at least one row was imported or was there already.
Outcome ImportEntries(database::Meet& meet, std::string_view csv, const ImportOptions& options,
                      UserInterface& user, ImportReport& report);

}  // namespace tarvex::setup
