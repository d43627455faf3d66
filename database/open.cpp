#include "database/open.h"

#include "database/create.h"
#include "database/meet_path.h"
#include "database/messages.h"
#include "database/schema.h"
#include "database/upgrade.h"

namespace tarvex::database {
namespace {

// Whether others who have the file open keep even readers out.
bool IsHeldExclusively(FileSystem& files, const std::string& path) {
  const auto file = files.Open(path, OpenMode::Read);
  return !file.ok() && file.status().fault == Fault::InUse;
}

Expected<std::unique_ptr<jet::Database>> OpenFile(FileSystem& files, const std::string& path) {
  auto file = jet::Database::Open(files, path, OpenMode::ReadWrite);
  if (file.ok() || file.status().fault != Fault::InUse || !IsHeldExclusively(files, path)) return file;
  return Status{Fault::LockedExclusively, file.status().detail};
}

Expected<bool> HasMark(jet::Database& file) {
  const auto table = file.FindTable(kMarkTable);
  if (!table.ok() && table.status().fault == Fault::NotFound) return false;
  TRY(table.status());
  return (*table)->Column(kMarkField) >= 0;
}

Status BringUpToDate(jet::Database& file, const Session& session, UserInterface& user,
                     std::vector<std::string>& changes) {
  Upgrade upgrade(file, session);
  user.ShowStatus(CheckingDatabase());
  TRY(upgrade.AddMissingTables());
  user.ShowStatus(CheckingVersion());
  TRY(upgrade.AddLateIndexes());
  TRY(upgrade.AddIdentifiers(user));
  TRY(upgrade.SetScoringDefaults());
  TRY(upgrade.Commit());
  changes = upgrade.changes();
  return Ok();
}

// "meet.mdb: Permission denied" without the path, which the messages name themselves.
std::string Description(const std::string& path, const Status& status) {
  const std::string lead = path + ": ";
  return status.detail.starts_with(lead) ? status.detail.substr(lead.size()) : status.detail;
}

}  // namespace

Opened OpenMeet(FileSystem& files, const std::string& path, const Session& session, UserInterface& user) {
  Opened opened;
  const auto fails = [&](Outcome outcome) {
    opened.outcome = std::move(outcome);
    opened.meet.reset();
    return std::move(opened);
  };
  if (const auto refusal = CheckMeetPath(path)) return fails(Refusal{*refusal});
  user.ShowStatus(OpeningDatabase());
  user.ShowStatus(OneMoment());
  auto file = OpenFile(files, path);
  if (!file.ok()) return fails(file.status());
  const auto marked = HasMark(**file);
  if (!marked.ok()) return fails(marked.status());
  if (!*marked) return fails(Refusal{NotAMeetDatabase(path)});
  if (Status status = BringUpToDate(**file, session, user, opened.changes); !status.ok())
    return fails(status);
  opened.meet = std::make_unique<Meet>(std::move(file).value(), path, session);
  if (Status status = opened.meet->ReloadSettings(); !status.ok()) return fails(status);
  return opened;
}

Opened OpenOrCreateMeet(FileSystem& files, const std::string& path, const Session& session,
                        UserInterface& user) {
  if (!CheckMeetPath(path) && !files.Exists(path)) {
    user.ShowStatus(CreatingDatabase());
    Outcome outcome = CreateMeet(files, path, session);
    if (!IsDone(outcome)) return {std::move(outcome), nullptr, {}};
  }
  return OpenMeet(files, path, session, user);
}

Notice OpeningFailure(const std::string& path, const Status& status, bool picked_in_dialog) {
  const std::string description = Description(path, status);
  switch (status.fault) {
    case Fault::LockedExclusively:
      return OpenedExclusivelyByAnother(path);
    case Fault::InUse:
      return OpenedByAnother(path);
    case Fault::ReadOnly:
      return MayBeReadOnly(description, path);
    case Fault::Io:
    case Fault::NoSpace:
      return DiskFailure(description);
    default:
      return OpeningError(description, picked_in_dialog);
  }
}

}  // namespace tarvex::database
