#pragma once

#include <string>

#include "reports/report.h"

namespace tarvex::print {

// The report as plain text for a terminal or a monospaced printer: UTF-8, lines ended by "\n", columns
// aligned alike in all tables of a section. Ordinary names fit into 80 characters, long ones make longer
// lines; nothing is cut. A section that starts a page has a form feed before it.
std::string ToText(const reports::Report& report);

}  // namespace tarvex::print
