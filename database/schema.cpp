#include "database/schema.h"

#include <algorithm>

#include "base/text.h"

namespace tarvex::database {

const SchemaTable* FindSchemaTable(std::string_view name) {
  const auto tables = Schema();
  const std::string upper = Upper(name);
  const auto found = std::find_if(tables.begin(), tables.end(),
                                  [&](const SchemaTable& table) { return Upper(table.name) == upper; });
  return found == tables.end() ? nullptr : &*found;
}

jet::IndexSpec SpecOf(const SchemaIndex& index) {
  jet::IndexSpec spec;
  spec.name = index.name;
  for (const std::string_view field : index.fields) {
    if (!field.empty()) spec.columns.emplace_back(field);
  }
  spec.is_primary = spec.is_unique = index.is_primary;
  return spec;
}

jet::TableSpec SpecOf(const SchemaTable& table, Made made) {
  const auto wanted = [made](Made when) { return when == Made::AtCreation || made == Made::AtFirstOpening; };
  jet::TableSpec spec;
  spec.name = table.name;
  for (const SchemaField& field : table.fields) {
    if (!wanted(field.made)) continue;
    spec.columns.push_back(
        {std::string(field.name), field.type.type, field.type.size, field.type.is_counter});
  }
  for (const SchemaIndex& index : table.indexes) {
    if (wanted(index.made)) spec.indexes.push_back(SpecOf(index));
  }
  return spec;
}

}  // namespace tarvex::database
