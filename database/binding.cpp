#include "database/binding.h"

namespace tarvex::database {

std::string WithPrefix(std::string_view field, std::string_view round_prefix) {
  std::string name(field);
  if (const size_t star = name.find('*'); star != std::string::npos) name.replace(star, 1, round_prefix);
  return name;
}

char LoadLetter(const jet::Record& record, int column) {
  const std::string text = record.Text(column);
  if (text.empty()) return ' ';
  const char letter = text[0];
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

std::string LoadText(const jet::Record& record, int column) {
  std::string text = record.Text(column);
  while (!text.empty() && text.back() == ' ') text.pop_back();
  return text;
}

jet::Value DateValue(double days) {
  return days == 0 ? jet::Value(jet::Null{}) : jet::Value(jet::Date{days});
}

void FillRest(const jet::Table& table, std::vector<jet::FieldValue>& values) {
  const auto& columns = table.def().columns;
  std::vector<bool> named(columns.size());
  for (const jet::FieldValue& value : values) named[static_cast<size_t>(value.column)] = true;
  for (size_t i = 0; i < columns.size(); ++i) {
    if (named[i] || columns[i].is_counter()) continue;
    const int column = static_cast<int>(i);
    switch (columns[i].type) {
      case jet::ColumnType::Text:
        values.push_back({column, std::string()});
        break;
      case jet::ColumnType::Byte:
      case jet::ColumnType::Integer:
      case jet::ColumnType::Long:
        values.push_back({column, int32_t{0}});
        break;
      case jet::ColumnType::Single:
        values.push_back({column, 0.0f});
        break;
      case jet::ColumnType::Currency:
        values.push_back({column, jet::Currency{}});
        break;
      default:
        break;  // a Boolean without a value is No
    }
  }
}

jet::Value LetterValue(char letter) {
  return letter == ' ' ? std::string() : std::string(1, letter);
}

}  // namespace tarvex::database
