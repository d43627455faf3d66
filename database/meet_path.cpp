#include "database/meet_path.h"

#include "base/text.h"
#include "database/messages.h"

namespace tarvex::database {
namespace {

bool IsOnFloppy(std::string_view path) {
  return path.size() >= 2 && path[1] == ':' &&
         std::string_view("AaBb").find(path[0]) != std::string_view::npos;
}

std::string_view Extension(std::string_view path) {
  const std::string_view name = path.substr(path.find_last_of("/\\") + 1);
  const size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
}

}  // namespace

std::optional<Notice> CheckMeetPath(std::string_view path) {
  if (IsOnFloppy(path)) return NotFromDriveAOrB();
  if (Upper(Extension(path)) != "MDB") return InvalidExtension(path);
  return std::nullopt;
}

}  // namespace tarvex::database
