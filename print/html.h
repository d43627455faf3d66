#pragma once

#include <string>
#include <string_view>

#include "reports/report.h"

namespace tarvex::print {

// The report as one page that needs nothing else: HTML 5 in UTF-8 with its style inside and no scripts. It
// reads on a phone and on a wide screen, light or dark as the reader's system is, and prints in black on
// white with heats kept whole. Reports of several sections begin with links to them. All texts of the report
// are escaped.
std::string ToHtml(const reports::Report& report);

// `text` with the five characters that mean something to HTML written as references; control characters,
// which a page cannot hold, become blanks.
std::string Escaped(std::string_view text);

}  // namespace tarvex::print
