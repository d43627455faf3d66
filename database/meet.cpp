#include "database/meet.h"

namespace tarvex::database {

Status Meet::ReloadSettings() {
  TRY_ASSIGN(jet::Table * table, Table("Meet"));
  TRY_ASSIGN(settings_, LoadSettings(*table));
  return Ok();
}

Expected<std::unique_ptr<jet::Transaction>> Meet::Begin(std::string_view command) const {
  return file_->Begin({std::string(command), session_.user}, session_.now);
}

}  // namespace tarvex::database
