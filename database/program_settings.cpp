#include "database/program_settings.h"

#include "base/text.h"

namespace tarvex::database {
namespace {

void SetFlag(bool& flag, std::string_view value) {
  if (value == "0" || value == "1") flag = value == "1";
}

void Set(ProgramSettings& settings, std::string_view key, std::string_view value) {
  if (SameText(key, "MultiUser")) SetFlag(settings.multi_user, value);
  if (SameText(key, "Thousandths")) SetFlag(settings.thousandths, value);
  if (SameText(key, "UserLogin")) SetFlag(settings.user_login, value);
  if (SameText(key, "DecimalSep") && (value == "." || value == ",")) settings.decimal_separator = value[0];
}

}  // namespace

ProgramSettings ParseProgramSettings(std::string_view text) {
  ProgramSettings settings;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(line.size() < text.size() ? line.size() + 1 : line.size());
    const size_t equals = line.find('=');
    if (equals == std::string_view::npos) continue;
    Set(settings, Trim(line.substr(0, equals)), Trim(line.substr(equals + 1)));
  }
  return settings;
}

}  // namespace tarvex::database
