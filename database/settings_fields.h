#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "database/field_text.h"
#include "database/meet.h"

// Any field of the settings row by its name, known to the rules or not.
namespace tarvex::database {

struct Setting {
  std::string field;  // spelled as in the file
  jet::Value value;
  std::string text;
};

// The named settings in the order given, or all in the order of the table when none is named, into `shown`.
// Refuses an unknown name; `shown` is empty then.
Outcome ShowSettings(const Meet& meet, std::span<const std::string> names, std::vector<Setting>& shown);

// Changes the named settings in one transaction and reads the meet's settings anew; with any refusal nothing
// is written. An empty name or address of the meet is stored as a single blank.
Outcome ChangeSettings(Meet& meet, std::span<const FieldText> changes);

}  // namespace tarvex::database
