#include "tests/database/test_meet.h"

#include "database/field_text.h"

namespace tarvex::database {

std::vector<std::map<std::string, std::string>> MeetFileTest::Rows(jet::Database& file,
                                                                   std::string_view table_name) {
  std::vector<std::map<std::string, std::string>> rows;
  const auto table = file.FindTable(table_name);
  EXPECT_TRUE(table.ok()) << table.status().detail;
  if (!table.ok()) return rows;
  jet::TableScan scan = (*table)->Scan();
  for (auto more = scan.Next(); more.ok() && *more; more = scan.Next()) {
    auto& row = rows.emplace_back();
    const auto& columns = (*table)->def().columns;
    for (size_t i = 0; i < columns.size(); ++i) {
      const auto value = scan.record().Get(static_cast<int>(i));
      EXPECT_TRUE(value.ok()) << value.status().detail;
      if (!value.ok()) continue;
      row[columns[i].name] = jet::IsNull(*value) ? "(null)" : ValueText(columns[i], *value);
    }
  }
  return rows;
}

}  // namespace tarvex::database
