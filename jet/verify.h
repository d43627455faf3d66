#pragma once

#include <string>
#include <vector>

#include "jet/database.h"

namespace tarvex::jet {

// One thing that is not as the format has it.
struct Finding {
  char severity =
      'E';  // 'E' the file is damaged; 'W' odd, but files of other programs have it and can be used
  PageNumber page = 0;
  std::string text;  // without the page
};

// After so many, one last finding says that there are more.
inline constexpr size_t kMostFindings = 1000;

// Looks at every page of the file: that each has one owner, that maps, definitions, rows, long values and
// counters fit together, and that every index holds exactly the entries that follow from the rows. No finding
// means a sound file. Damage of any kind gives findings; a failure means that the disk refused a read.
// Changes nothing. Besides one number a page, the keys of one index at a time are held in memory.
Expected<std::vector<Finding>> Verify(Database& database);

// The same for a file that is not open yet. Faults as Database::Open: a file whose header or catalogue
// definition cannot be read has no findings but is Corrupt or Unsupported.
Expected<std::vector<Finding>> VerifyFile(FileSystem& files, const std::string& path);

}  // namespace tarvex::jet
