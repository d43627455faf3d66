#pragma once

#include <string>

#include "cli/context.h"
#include "database/settings_fields.h"
#include "jet/table_def.h"
#include "jet/value.h"

namespace tarvex::cli {

// A field's value: numbers as numbers (a Single as its shortest text shows it), dates as ISO 8601 text, bytes
// in hexadecimal, Null as null.
Json ValueJson(const jet::Column& column, const jet::Value& value);
Json SettingJson(const database::Meet& meet, const database::Setting& setting);

// A text without line ends and tabs, which would break a line of output.
std::string OneLine(std::string text);

}  // namespace tarvex::cli
