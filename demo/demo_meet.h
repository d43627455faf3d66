#pragma once

#include <string>

#include "base/file.h"
#include "base/outcome.h"
#include "base/user_interface.h"

// Made-up meets: for trying the program out, for teaching, for tests and measurements.
namespace tarvex::demo {

// Small: a school meet of 40 events and about 1,000 entries. Large: ten days of age-group championships with
// 200 events and about 20,000 entries.
enum class Size { Small, Large };
// How far the meet has come: everybody is entered, every event is seeded, every event is run and scored.
enum class Stage { Entered, Seeded, Scored };

struct DemoOptions {
  Size size = Size::Small;
  Stage stage = Stage::Entered;
};

// Makes a new meet database and fills it. The same options give the same rows, identifiers and dates
// included. Refuses as CreateMeet() does. After a failure no file is left. Of `user` only the progress is
// used: nothing is told or asked.
Outcome MakeDemoMeet(FileSystem& files, const std::string& path, const DemoOptions& options,
                     UserInterface& user);

}  // namespace tarvex::demo
