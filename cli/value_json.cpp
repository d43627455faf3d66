#include "cli/value_json.h"

#include "database/field_text.h"

namespace tarvex::cli {

Json ValueJson(const jet::Column& column, const jet::Value& value) {
  if (jet::IsNull(value)) return nullptr;
  if (const auto* flag = std::get_if<bool>(&value)) return *flag;
  if (const auto* number = std::get_if<int32_t>(&value)) return *number;
  if (const auto* single = std::get_if<float>(&value)) return Number(*single);
  if (const auto* number = std::get_if<double>(&value)) return *number;
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* money = std::get_if<jet::Currency>(&value)) {
    return static_cast<double>(money->ten_thousandths) / 10000.0;
  }
  return database::ValueText(column, value);
}

Json SettingJson(const database::Meet& meet, const database::Setting& setting) {
  const auto table = meet.Table("Meet");
  const int column = table.ok() ? (*table)->Column(setting.field) : -1;
  if (column < 0) return setting.text;
  return ValueJson((*table)->def().columns[static_cast<size_t>(column)], setting.value);
}

std::string OneLine(std::string text) {
  for (char& c : text) {
    if (c == '\n' || c == '\r' || c == '\t') c = ' ';
  }
  return text;
}

}  // namespace tarvex::cli
