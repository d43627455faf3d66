#pragma once

#include <string>

#include "base/file.h"
#include "base/outcome.h"
#include "database/meet.h"

namespace tarvex::database {

// Makes a new meet database with its tables, indexes and starting rows, and closes it again. The session
// dates the meet and gives the identifiers. Refuses a path that no meet database may have, and one where
// there is a file. After a failure of the disk no file is left behind.
Outcome CreateMeet(FileSystem& files, const std::string& path, const Session& session);

// What the user is told when CreateMeet() ends with a Status.
Notice CreatingFailure(const Status& status);

}  // namespace tarvex::database
