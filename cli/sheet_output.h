#pragma once

#include <string>

#include "cli/context.h"
#include "running/round_sheet.h"

namespace tarvex::cli {

enum class SheetKind { StartList, Results };

// A round as JSON: {event_no, event_ltr, name, round, heats: [{heat, wind, lanes: [...]}]}.
Json SheetJson(const running::RoundSheet& sheet);

// The round as text: heats with their lanes, or results by place.
std::string SheetText(const running::RoundSheet& sheet, SheetKind kind);

// Prints a round of the event that was named and gives the exit code.
int PrintSheet(Context& context, const database::Meet& meet, const std::string& event,
               const std::string& round, SheetKind kind);

}  // namespace tarvex::cli
