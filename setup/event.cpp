#include "setup/event.h"

#include <cctype>

namespace tarvex::setup {

char ReadCode(std::string_view field, char when_blank) {
  const size_t at = field.find_first_not_of(' ');
  if (at == std::string_view::npos) return when_blank;
  return static_cast<char>(std::toupper(static_cast<unsigned char>(field[at])));
}

}  // namespace tarvex::setup
