#pragma once

#include "tests/jet/memory_disk.h"

namespace tarvex::jet {

// A file with every kind of page: long definitions, indexes of two levels, moved rows, long values of all
// kinds.
MemoryDisk::Content RichFile();

// Opens the file, reads all there is, checks it, and changes it here and there; nothing is expected but that
// every call returns. Gives the number of findings, -1 when the file does not open.
int Exercise(MemoryDisk::Content content);

}  // namespace tarvex::jet
