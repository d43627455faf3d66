#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/file.h"
#include "base/outcome.h"
#include "base/user_interface.h"
#include "database/meet.h"

namespace tarvex::database {

struct Opened {
  Outcome outcome;
  std::unique_ptr<Meet> meet;        // null unless the outcome is Done
  std::vector<std::string> changes;  // what was added or changed on the way: "table SplitCC added"
};

// Opens a meet database for this program alone, after looking at the path, at the mark of a meet database and
// for what the file lacks. Refuses a path that no meet database may have and a file without the mark, which
// stay unread and unchanged. A Status says what the engine could not do. `path` is absolute.
Opened OpenMeet(FileSystem& files, const std::string& path, const Session& session, UserInterface& user);

// As OpenMeet(), but makes the file first when there is none.
Opened OpenOrCreateMeet(FileSystem& files, const std::string& path, const Session& session,
                        UserInterface& user);

// What the user is told when OpenMeet() ends with a Status. `picked_in_dialog`: the user chose the file in
// the file dialog.
Notice OpeningFailure(const std::string& path, const Status& status, bool picked_in_dialog);

}  // namespace tarvex::database
