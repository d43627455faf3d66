#include "setup/import_store.h"

#include <unordered_map>

#include "database/identifier.h"
#include "setup/division_store.h"

namespace tarvex::setup {
namespace {

using database::Binding;
using database::Meet;

template <class Row, class Base>
std::vector<Binding<Row>> WithFlags(std::span<const Binding<Base>> fields) {
  std::vector<Binding<Row>> all;
  for (const Binding<Base>& field : fields) {
    std::visit(
        [&](auto member) {
          using Member = std::remove_reference_t<decltype(std::declval<Base&>().*member)>;
          all.push_back({field.field, static_cast<Member Row::*>(member)});
        },
        field.member);
  }
  all.push_back({"Pre_exh", static_cast<char Row::*>(&ExhibitionFlags::pre_exh)});
  all.push_back({"Fin_exh", static_cast<char Row::*>(&ExhibitionFlags::fin_exh)});
  return all;
}

template <class Row>
Expected<RowTable<Row>> Open(const Meet& meet, std::string_view name, std::span<const Binding<Row>> fields) {
  TRY_ASSIGN(jet::Table * table, meet.Table(name));
  TRY_ASSIGN(auto bound, database::BoundFields<Row>::Of(*table, fields));
  return RowTable<Row>{table, std::move(bound)};
}

template <class Row>
std::vector<Row> RowsOf(const std::vector<database::Stored<Row>>& stored) {
  std::vector<Row> rows;
  rows.reserve(stored.size());
  for (const auto& row : stored) rows.push_back(row.row);
  return rows;
}

int LengthOf(const jet::Table& table, std::string_view field) {
  const int column = table.Column(field);
  return column < 0 ? 0 : table.def().columns[static_cast<size_t>(column)].length / 2;
}

Expected<ImportLengths> LoadLengths(const Meet& meet) {
  TRY_ASSIGN(const jet::Table* athletes, meet.Table("Athlete"));
  TRY_ASSIGN(const jet::Table* teams, meet.Table("Team"));
  return ImportLengths{.last_name = LengthOf(*athletes, "Last_name"),
                       .first_name = LengthOf(*athletes, "First_name"),
                       .schl_yr = LengthOf(*athletes, "Schl_yr"),
                       .team_abbr = LengthOf(*teams, "Team_abbr"),
                       .team_name = LengthOf(*teams, "Team_name")};
}

// The numbers that the file gave in place of those below 0.
class NewNumbers {
 public:
  void Give(int provisional, int number) { numbers_[provisional] = number; }
  void Replace(int& number) const {
    if (number < 0) number = numbers_.at(number);
  }

 private:
  std::unordered_map<int, int> numbers_;
};

// The stored rows that differ are saved, the rest inserted; `prepare` puts the numbers of other tables into a
// row first and `inserted` learns the number of a new one.
template <class Row, class Prepare, class Inserted>
Status SaveRows(jet::Transaction& write, const RowTable<Row>& table,
                const std::vector<database::Stored<Row>>& stored, std::vector<Row>& rows, Prepare prepare,
                Inserted inserted) {
  for (size_t i = 0; i < rows.size(); ++i) {
    prepare(rows[i]);
    if (i < stored.size()) {
      TRY(table.Save(write, stored[i], rows[i]));
    } else {
      TRY_ASSIGN(const int number, table.Insert(write, rows[i]));
      inserted(rows[i], number);
    }
  }
  return Ok();
}

// A counter takes its number from the engine, which 0 asks for.
int TakeProvisional(int& number) {
  const int provisional = number;
  number = 0;
  return provisional;
}

class Saver {
 public:
  Saver(jet::Transaction& write, const Meet& meet, const ImportedMeet& stored, ImportState& state)
      : write_(write), meet_(meet), stored_(stored), state_(state) {}

  Status Save() {
    TRY(SaveEvents());
    TRY(SaveTeams());
    TRY(SaveAthletes());
    TRY(SaveEntries());
    TRY(SaveRelays());
    return SaveNames();
  }

 private:
  Status SaveEvents() {
    for (size_t i = 0; i < state_.events.size(); ++i) {
      Event event = state_.events[i];
      if (i < stored_.events.size()) {
        TRY(SaveEvent(write_, meet_, stored_.events[i], event));
        continue;
      }
      const int provisional = TakeProvisional(event.event_ptr);
      TRY_ASSIGN(const int number, InsertEvent(write_, meet_, event));
      events_.Give(provisional, number);
    }
    return Ok();
  }

  Status SaveTeams() {
    TRY_ASSIGN(const auto table, Teams(meet_));
    int provisional = 0;
    return SaveRows(
        write_, table, stored_.teams, state_.teams,
        [&](Team& team) {
          if (team.team_no > 0) return;
          provisional = TakeProvisional(team.team_no);
          team.guid = database::NewIdentifier(meet_.session().random_bits);
        },
        [&](const Team&, int number) { teams_.Give(provisional, number); });
  }

  Status SaveAthletes() {
    TRY_ASSIGN(const auto table, Athletes(meet_));
    int provisional = 0;
    return SaveRows(
        write_, table, stored_.athletes, state_.athletes,
        [&](Athlete& athlete) {
          teams_.Replace(athlete.team_no);
          if (athlete.ath_no > 0) return;
          provisional = TakeProvisional(athlete.ath_no);
          athlete.guid = database::NewIdentifier(meet_.session().random_bits);
        },
        [&](const Athlete&, int number) { athletes_.Give(provisional, number); });
  }

  Status SaveEntries() {
    TRY_ASSIGN(const auto table, ImportedEntries(meet_));
    return SaveRows(
        write_, table, stored_.entries, state_.entries,
        [&](ImportedEntry& entry) {
          events_.Replace(entry.event_ptr);
          athletes_.Replace(entry.ath_no);
        },
        [](const ImportedEntry&, int) {});
  }

  Status SaveRelays() {
    TRY_ASSIGN(const auto table, ImportedRelays(meet_));
    int provisional = 0;
    return SaveRows(
        write_, table, stored_.relays, state_.relays,
        [&](ImportedRelay& relay) {
          events_.Replace(relay.event_ptr);
          teams_.Replace(relay.team_no);
          if (relay.relay_no < 0) provisional = TakeProvisional(relay.relay_no);
        },
        [&](const ImportedRelay&, int number) { relays_.Give(provisional, number); });
  }

  Status SaveNames() {
    TRY_ASSIGN(const auto table, RelayNames(meet_));
    return SaveRows(
        write_, table, stored_.names, state_.names,
        [&](RelayName& name) {
          events_.Replace(name.event_ptr);
          teams_.Replace(name.team_no);
          athletes_.Replace(name.ath_no);
          relays_.Replace(name.relay_no);
        },
        [](const RelayName&, int) {});
  }

  jet::Transaction& write_;
  const Meet& meet_;
  const ImportedMeet& stored_;
  ImportState& state_;
  NewNumbers events_, teams_, athletes_, relays_;
};

}  // namespace

ImportState ImportedMeet::State() const {
  ImportState state;
  state.events = RowsOf(events);
  state.teams = RowsOf(teams);
  state.athletes = RowsOf(athletes);
  state.entries = RowsOf(entries);
  state.relays = RowsOf(relays);
  state.names = RowsOf(names);
  return state;
}

std::span<const Binding<ImportedEntry>> ImportedEntryFields() {
  static const auto fields = WithFlags<ImportedEntry>(EntryFields());
  return fields;
}

Expected<RowTable<ImportedEntry>> ImportedEntries(const Meet& meet) {
  return Open(meet, "Entry", ImportedEntryFields());
}

std::span<const Binding<ImportedRelay>> ImportedRelayFields() {
  static const auto fields = WithFlags<ImportedRelay>(RelayFields());
  return fields;
}

Expected<RowTable<ImportedRelay>> ImportedRelays(const Meet& meet) {
  return Open(meet, "Relay", ImportedRelayFields());
}

Expected<ImportedMeet> LoadImportedMeet(const Meet& meet) {
  ImportedMeet loaded;
  TRY_ASSIGN(loaded.events, LoadEvents(meet));
  TRY_ASSIGN(const auto teams, Teams(meet));
  TRY_ASSIGN(loaded.teams, teams.All());
  TRY_ASSIGN(const auto athletes, Athletes(meet));
  TRY_ASSIGN(loaded.athletes, athletes.All());
  TRY_ASSIGN(const auto entries, ImportedEntries(meet));
  TRY_ASSIGN(loaded.entries, entries.All());
  TRY_ASSIGN(const auto relays, ImportedRelays(meet));
  TRY_ASSIGN(loaded.relays, relays.All());
  TRY_ASSIGN(const auto names, RelayNames(meet));
  TRY_ASSIGN(loaded.names, names.All());
  return loaded;
}

Expected<ImportContext> LoadImportContext(const Meet& meet) {
  const database::MeetSettings& settings = meet.settings();
  ImportContext context;
  context.defaults = DefaultsOf(settings);
  context.rules = RulesOf(settings);
  context.marks = meet.mark_settings();
  TRY_ASSIGN(context.conversions, LoadConversions(meet));
  TRY_ASSIGN(context.divisions, LoadDatedDivisions(meet));
  context.division_level = settings.Meet_meettype;
  context.numbers_per_sex = settings.compno_uniqueness == 2;
  context.anyone_on_relay = settings.anyone_onrelay;
  context.several_relays_each = settings.allowsameevent_duprelaynames;
  TRY_ASSIGN(context.lengths, LoadLengths(meet));
  return context;
}

Status SaveImport(jet::Transaction& write, const Meet& meet, const ImportedMeet& stored, ImportState state) {
  return Saver(write, meet, stored, state).Save();
}

}  // namespace tarvex::setup
