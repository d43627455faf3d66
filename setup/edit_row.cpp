#include "setup/edit_row.h"

namespace tarvex::setup {
namespace {

// The places of the rows whose field has this number, at most `most` of them.
Expected<std::vector<jet::RowId>> RowsWith(const jet::Table& table, std::string_view field, int number,
                                           size_t most) {
  const int column = table.Column(field);
  if (column < 0)
    return Status{Fault::NotFound, "table " + table.name() + " has no field " + std::string(field)};
  std::vector<jet::RowId> rows;
  jet::TableScan scan = table.Scan();
  while (rows.size() < most) {
    TRY_ASSIGN(const bool more, scan.Next());
    if (!more) break;
    if (scan.record().Long(column) == number) rows.push_back(scan.record().id());
    TRY(scan.record().status());
  }
  return rows;
}

}  // namespace

Status DeleteRows(jet::Transaction& write, const database::Meet& meet, std::string_view table,
                  std::string_view field, int number) {
  TRY_ASSIGN(jet::Table * found, meet.Table(table));
  TRY_ASSIGN(const auto rows, RowsWith(*found, field, number, SIZE_MAX));
  for (const jet::RowId row : rows) TRY(write.Delete(*found, row));
  return Ok();
}

Expected<bool> HasRows(const database::Meet& meet, std::string_view table, std::string_view field,
                       int number) {
  TRY_ASSIGN(const jet::Table* found, meet.Table(table));
  TRY_ASSIGN(const auto rows, RowsWith(*found, field, number, 1));
  return !rows.empty();
}

}  // namespace tarvex::setup
