#pragma once

#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "database/meet.h"
#include "database/rows.h"
#include "setup/roster.h"

namespace tarvex::setup {

using StoredTeam = database::Stored<Team>;
using StoredAthlete = database::Stored<Athlete>;
using StoredEntry = database::Stored<Entry>;
using StoredRelay = database::Stored<Relay>;
using StoredRelayName = database::Stored<RelayName>;

// The fields of the five tables, bound to the structs.
std::span<const database::Binding<Team>> TeamFields();
std::span<const database::Binding<Athlete>> AthleteFields();
std::span<const database::Binding<Entry>> EntryFields();
std::span<const database::Binding<Relay>> RelayFields();
std::span<const database::Binding<RelayName>> RelayNameFields();

// A table with its fields: what loading and saving its rows needs.
template <class Row>
struct RowTable {
  jet::Table* table;
  database::BoundFields<Row> fields;

  Expected<std::vector<database::Stored<Row>>> All() const { return database::LoadAll(*table, fields); }
  Expected<std::vector<database::Stored<Row>>> By(std::string_view index, int key) const {
    return database::LoadBy(*table, fields, index, key);
  }
  // A counter field of 0 is numbered by the engine; its number comes back.
  Expected<int> Insert(jet::Transaction& write, const Row& row) const;
  Status Save(jet::Transaction& write, const database::Stored<Row>& stored, const Row& row) const {
    return database::SaveChanged(write, *table, fields, stored, row);
  }
};

template <class Row>
Expected<int> RowTable<Row>::Insert(jet::Transaction& write, const Row& row) const {
  std::vector<jet::FieldValue> values = fields.Save(row);
  std::erase_if(values, [&](const jet::FieldValue& value) {
    const auto* number = std::get_if<int32_t>(&value.value);
    return table->def().columns[static_cast<size_t>(value.column)].is_counter() && number && *number == 0;
  });
  database::FillRest(*table, values);
  TRY_ASSIGN(const auto inserted, write.Insert(*table, values));
  return inserted.counter;
}

Expected<RowTable<Team>> Teams(const database::Meet& meet);
Expected<RowTable<Athlete>> Athletes(const database::Meet& meet);
Expected<RowTable<Entry>> Entries(const database::Meet& meet);
Expected<RowTable<Relay>> Relays(const database::Meet& meet);
Expected<RowTable<RelayName>> RelayNames(const database::Meet& meet);

// Teams and athletes of the whole meet by their number.
struct Roster {
  std::unordered_map<int, Team> teams;
  std::unordered_map<int, Athlete> athletes;

  // Null when the number leads nowhere.
  const Team* team(int team_no) const;
  const Athlete* athlete(int ath_no) const;
  // The team of an athlete, null when there is none.
  const Team* team_of(const Athlete* athlete) const;
};
Expected<Roster> LoadRoster(const database::Meet& meet);

// How many entries, or relays, an event has.
Expected<int> CountEntries(const database::Meet& meet, int event_ptr, bool is_relay);

}  // namespace tarvex::setup
