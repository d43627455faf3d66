#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/file.h"

// Everything that differs between operating systems, and nothing else. platform.cpp is the one file that
// knows the system's own calls.
namespace tarvex::platform {

// The disk.
FileSystem& Files();

// Local wall-clock time as days since 1899-12-30, the day part whole, the time of day as its fraction.
double NowAsDays();

// A random number from the system's generator.
uint64_t RandomBits();

// Whether a person sits at the program's standard input and error.
bool InputIsTerminal();
bool ErrorIsTerminal();

// The absolute form of `path`.
std::string AbsolutePath(const std::string& path);

// Largest resident size of this process so far, in bytes, and the bytes it read and wrote through files.
struct Usage {
  uint64_t peak_memory = 0;
  uint64_t bytes_read = 0;
  uint64_t bytes_written = 0;
};
Usage ProcessUsage();

}  // namespace tarvex::platform
