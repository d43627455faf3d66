#pragma once

#include <string>

#include "reports/report.h"

namespace tarvex::print {

// The report as one flat table: a header line with the keys of its columns, then every row of every table,
// with what its headings say in columns of its own. UTF-8, RFC 4180. First come the report's data_keys, then
// the others in the order in which they appear; a table without some column leaves it empty. Columns without
// a key and tables for people only are left out. A report without rows has the header of its data_keys alone.
std::string ToCsv(const reports::Report& report);

}  // namespace tarvex::print
