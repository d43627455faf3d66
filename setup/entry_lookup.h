#pragma once

#include <string_view>
#include <variant>

#include "database/meet.h"
#include "setup/entry_key.h"
#include "setup/event_store.h"
#include "setup/import_store.h"
#include "setup/roster_store.h"

// Rows of the meet by the keys that commands are given. The notice of a Lookup says that there is no such
// row, or several.
namespace tarvex::setup {

template <class Row>
using Lookup = std::variant<Row, Notice>;

// "12", "12A".
Expected<Lookup<StoredEvent>> LookUpEvent(const database::Meet& meet, std::string_view key);

// By abbreviation, any case.
Expected<Lookup<StoredTeam>> LookUpTeam(const database::Meet& meet, std::string_view abbr);

// Among those who may take part in events of `gender`; 'X': all.
Expected<Lookup<StoredAthlete>> LookUpAthlete(const database::Meet& meet, std::string_view key, char gender);

// The entry or relay of an event with this key.
Expected<Lookup<StoredImportedEntry>> LookUpEntry(const database::Meet& meet, const Event& event,
                                                  std::string_view key);
Expected<Lookup<StoredImportedRelay>> LookUpRelay(const database::Meet& meet, const Event& event,
                                                  std::string_view key);

// Who takes part in an event: the ath_no of an entry, or the relay_no of a relay.
Expected<Lookup<int>> LookUpEntrant(const database::Meet& meet, const Event& event, std::string_view key);

}  // namespace tarvex::setup
