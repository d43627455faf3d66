#pragma once

#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "database/binding.h"

namespace tarvex::database {

// A row with the place it was read from, so that it can be written back.
template <class Row>
struct Stored {
  jet::RowId id;
  Row row;
};

// All rows of a table, in the order of the file.
template <class Row>
Expected<std::vector<Stored<Row>>> LoadAll(const jet::Table& table, const BoundFields<Row>& fields) {
  std::vector<Stored<Row>> rows;
  jet::TableScan scan = table.Scan();
  while (true) {
    TRY_ASSIGN(const bool more, scan.Next());
    if (!more) return rows;
    rows.push_back({scan.record().id(), fields.Load(scan.record())});
    TRY(scan.record().status());
  }
}

// The rows whose first index fields have these values, in the order of the index. Fault::NotFound when the
// table has no such index.
template <class Row>
Expected<std::vector<Stored<Row>>> LoadBy(const jet::Table& table, const BoundFields<Row>& fields,
                                          std::string_view index, std::span<const jet::Value> values) {
  const int position = table.Index(index);
  if (position < 0)
    return Status{Fault::NotFound, "table " + table.name() + " has no index " + std::string(index)};
  TRY_ASSIGN(const std::vector<jet::RowId> ids, table.Find(position, values));
  std::vector<Stored<Row>> rows;
  rows.reserve(ids.size());
  for (const jet::RowId id : ids) {
    TRY_ASSIGN(const jet::Record record, table.Get(id));
    rows.push_back({id, fields.Load(record)});
    TRY(record.status());
  }
  return rows;
}

// The same for a key of one number, which most are.
template <class Row>
Expected<std::vector<Stored<Row>>> LoadBy(const jet::Table& table, const BoundFields<Row>& fields,
                                          std::string_view index, int key) {
  const jet::Value value = int32_t{key};
  return LoadBy(table, fields, index, std::span(&value, 1));
}

// Writes the fields in which `row` differs from what was read; nothing when there are none.
template <class Row>
Status SaveChanged(jet::Transaction& write, jet::Table& table, const BoundFields<Row>& fields,
                   const Stored<Row>& stored, const Row& row) {
  const std::vector<jet::FieldValue> changes = fields.SaveChanges(stored.row, row);
  return changes.empty() ? Ok() : write.Update(table, stored.id, changes);
}

}  // namespace tarvex::database
