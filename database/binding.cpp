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

jet::Value LetterValue(char letter) {
  return letter == ' ' ? std::string() : std::string(1, letter);
}

}  // namespace tarvex::database
