#include "database/create.h"

#include "database/meet_path.h"
#include "database/messages.h"
#include "database/schema.h"
#include "database/starting_rows.h"
#include "jet/journal.h"

namespace tarvex::database {
namespace {

Status Fill(jet::Database& file, const Session& session) {
  TRY_ASSIGN(const auto write, file.Begin({"create", session.user}, session.now));
  for (const SchemaTable& schema : Schema()) {
    if (schema.made != Made::AtCreation) continue;
    TRY_ASSIGN(jet::Table * table, write->CreateTable(SpecOf(schema, Made::AtCreation)));
    TRY(InsertStartingRows(*write, *table, session));
  }
  return write->Commit();
}

Status Create(FileSystem& files, const std::string& path, const Session& session) {
  TRY_ASSIGN(auto file, jet::Database::Create(files, path, session.now));
  Status status = Fill(*file, session);
  file.reset();
  if (!status.ok()) (void)files.Remove(path);
  return status;
}

// The journal of a file that could not be filled has nothing to restore.
void RemoveJournalOfNothing(FileSystem& files, const std::string& path) {
  const std::string journal = jet::Journal::PathFor(path);
  if (!files.Exists(path) && files.Exists(journal)) (void)files.Remove(journal);
}

}  // namespace

Outcome CreateMeet(FileSystem& files, const std::string& path, const Session& session) {
  if (const auto refusal = CheckMeetPath(path)) return Refusal{*refusal};
  if (files.Exists(path)) return Refusal{FileExists(path)};
  if (Status status = Create(files, path, session); !status.ok()) {
    RemoveJournalOfNothing(files, path);
    return status;
  }
  return Done{};
}

Notice CreatingFailure(const Status& status) {
  return CannotCreate(status.detail);
}

}  // namespace tarvex::database
