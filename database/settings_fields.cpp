#include "database/settings_fields.h"

#include "base/text.h"
#include "database/messages.h"

namespace tarvex::database {
namespace {

constexpr std::string_view kTable = "Meet";
// Lists and reports of older releases count on these being at least a blank.
constexpr std::string_view kNeverEmpty[] = {"Meet_name1", "Meet_name2", "Meet_location",
                                            "Meet_addr1", "Meet_addr2", "Meet_city",
                                            "Meet_state", "Meet_zip",   "Meet_country"};

Expected<jet::Record> SettingsRow(const jet::Table& table) {
  jet::TableScan scan = table.Scan();
  TRY_ASSIGN(const bool found, scan.Next());
  if (!found) return Status{Fault::NotFound, "the table Meet has no row"};
  return scan.record();
}

std::vector<FieldText> WithBlanks(std::span<const FieldText> changes) {
  std::vector<FieldText> filled(changes.begin(), changes.end());
  for (FieldText& change : filled) {
    for (const std::string_view field : kNeverEmpty) {
      if (SameText(change.field, field) && Trim(change.text).empty()) change.text = " ";
    }
  }
  return filled;
}

Status Write(Meet& meet, jet::Table& table, std::span<const jet::FieldValue> values) {
  TRY_ASSIGN(const auto row, SettingsRow(table));
  TRY_ASSIGN(const auto write, meet.Begin("settings"));
  TRY(write->Update(table, row.id(), values));
  TRY(write->Commit());
  return meet.ReloadSettings();
}

}  // namespace

Outcome ShowSettings(const Meet& meet, std::span<const std::string> names, std::vector<Setting>& shown) {
  shown.clear();
  const auto table = meet.Table(kTable);
  if (!table.ok()) return table.status();
  const auto& columns = (*table)->def().columns;
  std::vector<int> positions;
  for (const std::string& name : names) {
    positions.push_back((*table)->Column(name));
    if (positions.back() < 0) return Refusal{UnknownField(kTable, name)};
  }
  if (names.empty()) {
    for (size_t i = 0; i < columns.size(); ++i) positions.push_back(static_cast<int>(i));
  }
  const auto row = SettingsRow(**table);
  if (!row.ok()) return row.status();
  std::vector<Setting> settings;
  for (const int position : positions) {
    const jet::Column& column = columns[static_cast<size_t>(position)];
    auto value = row->Get(position);
    if (!value.ok()) return value.status();
    std::string text = ValueText(column, *value);
    settings.push_back({column.name, std::move(value).value(), std::move(text)});
  }
  shown = std::move(settings);
  return Done{};
}

Outcome ChangeSettings(Meet& meet, std::span<const FieldText> changes) {
  if (changes.empty()) return Done{};
  const auto table = meet.Table(kTable);
  if (!table.ok()) return table.status();
  const auto parsed = ParseFields(**table, WithBlanks(changes));
  if (const auto* refusal = std::get_if<Refusal>(&parsed)) return *refusal;
  if (Status status = Write(meet, **table, std::get<0>(parsed)); !status.ok()) return status;
  return Done{};
}

}  // namespace tarvex::database
