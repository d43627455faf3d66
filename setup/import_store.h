#pragma once

#include <vector>

#include "database/meet.h"
#include "setup/event_store.h"
#include "setup/import_plan.h"
#include "setup/roster_store.h"

namespace tarvex::setup {

using StoredImportedEntry = database::Stored<ImportedEntry>;
using StoredImportedRelay = database::Stored<ImportedRelay>;

// The rows of the meet that an import is matched against, in the order of the lists in ImportState.
struct ImportedMeet {
  std::vector<StoredEvent> events;
  std::vector<StoredTeam> teams;
  std::vector<StoredAthlete> athletes;
  std::vector<StoredImportedEntry> entries;
  std::vector<StoredImportedRelay> relays;
  std::vector<StoredRelayName> names;

  ImportState State() const;
};
Expected<ImportedMeet> LoadImportedMeet(const database::Meet& meet);
Expected<ImportContext> LoadImportContext(const database::Meet& meet);

// Entries and relays with their exhibition flags.
Expected<RowTable<ImportedEntry>> ImportedEntries(const database::Meet& meet);
Expected<RowTable<ImportedRelay>> ImportedRelays(const database::Meet& meet);

std::span<const database::Binding<ImportedEntry>> ImportedEntryFields();
std::span<const database::Binding<ImportedRelay>> ImportedRelayFields();
inline auto FieldsFor(const ImportedEntry&) {
  return ImportedEntryFields();
}
inline auto FieldsFor(const ImportedRelay&) {
  return ImportedRelayFields();
}

// Writes what `state` has more than, or otherwise than, `stored`. Rows with numbers below 0 get theirs, and
// new teams and athletes their identifiers.
Status SaveImport(jet::Transaction& write, const database::Meet& meet, const ImportedMeet& stored,
                  ImportState state);

}  // namespace tarvex::setup
