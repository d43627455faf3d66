#include "setup/edit_entry.h"

#include <algorithm>
#include <array>

#include "setup/division_store.h"
#include "setup/entry_lookup.h"
#include "setup/entry_rules.h"
#include "setup/event_name.h"
#include "setup/import_match.h"
#include "setup/messages.h"
#include "setup/names.h"

namespace tarvex::setup {
namespace {

using database::Meet;

// Stops a command: a refusal, an unanswered question or a failure.
using Stop = std::optional<Outcome>;

template <class T>
Stop StopOf(const Expected<Lookup<T>>& found) {
  if (!found.ok()) return Outcome(found.status());
  if (const Notice* wrong = std::get_if<Notice>(&*found)) return Outcome(Refusal{*wrong});
  return std::nullopt;
}

Stop AskFor(const Notice& question, UserInterface& user) {
  const std::optional<Answer> answer = user.Ask(question, Buttons::YesNo);
  if (!answer) return Outcome(Unanswered{});
  if (*answer != Answer::Yes) return Outcome(Refusal{NothingChanged()});
  return std::nullopt;
}

// The round's fields that hold a result.
constexpr std::array<std::string_view, 4> kPrefixes = {"Pre_", "Qtr_", "Sem_", "Fin_"};

Expected<bool> HasResult(const jet::Table& table, jet::RowId id) {
  TRY_ASSIGN(const jet::Record record, table.Get(id));
  for (const std::string_view prefix : kPrefixes) {
    const int time = table.Column(std::string(prefix) + "Time");
    const int stat = table.Column(std::string(prefix) + "stat");
    const bool marked = time >= 0 && record.Single(time) != 0;
    const bool has_status = stat >= 0 && database::LoadLetter(record, stat) != ' ';
    if (marked || has_status) return true;
  }
  TRY(record.status());
  return false;
}

// How often an athlete is entered in the meet, relays included.
Expected<EntryCounts> CountOf(const Meet& meet, int ath_no) {
  TRY_ASSIGN(const auto events, LoadEvents(meet));
  EntryCounts counts;
  const auto add = [&](int event_ptr) {
    for (const StoredEvent& event : events) {
      if (event.row.event_ptr == event_ptr) counts.Add(event.row);
    }
  };
  TRY_ASSIGN(const auto entries, Entries(meet));
  TRY_ASSIGN(const auto own, entries.By("entathno", ath_no));
  for (const StoredEntry& entry : own) add(entry.row.event_ptr);
  TRY_ASSIGN(const auto names, RelayNames(meet));
  TRY_ASSIGN(const auto runs, names.By("relathno", ath_no));
  std::vector<int> relays;
  for (const StoredRelayName& run : runs) {
    if (std::find(relays.begin(), relays.end(), run.row.relay_no) != relays.end()) continue;
    relays.push_back(run.row.relay_no);
    add(run.row.event_ptr);
  }
  return counts;
}

// What adding an athlete to an event may be refused for or asked about.
Stop CheckNewEntry(const Meet& meet, const Athlete& athlete, const Event& event, UserInterface& user,
                   bool& age_up) {
  const EntryRules rules = RulesOf(meet.settings());
  const auto divisions = LoadDatedDivisions(meet);
  if (!divisions.ok()) return Outcome(divisions.status());
  const Misfit misfit = CheckFit(athlete, event, FindDivision(*divisions, event.div_no), rules);
  if (misfit.refusal) return Outcome(Refusal{*misfit.refusal});
  auto counts = CountOf(meet, athlete.ath_no);
  if (!counts.ok()) return Outcome(counts.status());
  counts->Add(event);
  const std::optional<Notice> limit = CheckLimits(athlete, *counts, rules);
  if (limit && !rules.limits_warn) return Outcome(Refusal{*limit});
  age_up = misfit.age_up.has_value();
  if (age_up) {
    if (Stop stop = AskFor(Anyway(*misfit.age_up), user)) return stop;
  }
  return limit ? AskFor(Anyway(*limit), user) : std::nullopt;
}

// One entry or relay while it is being edited.
template <class Row>
class EntrantEditor {
 public:
  EntrantEditor(Meet& meet, const StoredEvent& event, RowTable<Row> table, UserInterface& user,
                const AfterChange& after)
      : meet_(meet),
        event_(event),
        table_(std::move(table)),
        marks_(meet.mark_settings()),
        user_(user),
        after_(after) {}

  // `stored` null: `row` is new.
  Outcome Store(const database::Stored<Row>* stored, Row row, std::vector<FieldText> fields) {
    const std::optional<std::string> mark = TakeField(fields, "mark");
    if (const auto fixed = FirstGiven(fields, {"Event_ptr", "Ath_no", "Team_no", "Team_ltr", "Relay_no",
                                               "ConvSeed_time", "ConvSeed_course"})) {
      return Refusal{FieldNotEditable(*fixed)};
    }
    auto values = database::ParseFields(*table_.table, fields);
    if (const Refusal* refusal = std::get_if<Refusal>(&values)) return *refusal;
    const auto more = ApplyFields(*table_.table, FieldsFor(row), row,
                                  std::move(std::get<std::vector<jet::FieldValue>>(values)));
    if (Stop stop = SetMark(mark, row)) return *stop;
    const Event event = WithUnseeded(row, stored == nullptr);
    return InOneTransaction(meet_, "entry", [&](jet::Transaction& write) -> Status {
      TRY(SaveEvent(write, meet_, event_, event));
      if (stored) {
        TRY(UpdateRow(write, *table_.table, table_.fields, *stored, row, more));
      } else {
        TRY(InsertRow(write, *table_.table, table_.fields, row, more).status());
      }
      return After(write);
    });
  }

  // `clean_up` deletes what hangs on the row.
  template <class CleanUp>
  Outcome Delete(const database::Stored<Row>& stored, std::string_view who, CleanUp clean_up) {
    const Expected<bool> has_result = HasResult(*table_.table, stored.id);
    if (!has_result.ok()) return has_result.status();
    if (*has_result) {
      if (Stop stop = AskFor(DeleteWithResults(who), user_)) return *stop;
    }
    return InOneTransaction(meet_, "entry", [&](jet::Transaction& write) -> Status {
      TRY(clean_up(write));
      TRY(write.Delete(*table_.table, stored.id));
      return After(write);
    });
  }

 private:
  Status After(jet::Transaction& write) { return after_ ? after_(write, event_.row.event_ptr) : Ok(); }

  Stop SetMark(const std::optional<std::string>& mark, Row& row) {
    const auto rules = LoadConversions(meet_);
    if (!rules.ok()) return Outcome(rules.status());
    if (!mark) {
      ConvertSeedOf(row, event_.row, *rules, marks_);
      return std::nullopt;
    }
    const TypedSeed seed = ReadSeed(*mark, ' ', event_.row, marks_);
    if (seed.refusal) return Outcome(Refusal{*seed.refusal});
    SetSeed(row, seed, event_.row, *rules, marks_);
    if (seed.exhibition) row.OfFirstRound(event_.row) = 'X';
    return seed.range_question ? AskFor(*seed.range_question, user_) : std::nullopt;
  }

  Event WithUnseeded(const Row& row, bool is_new) const {
    Event event = event_.row;
    if (is_new && IsLeftUnseeded(row, event, RulesOf(meet_.settings()))) event.unseeded_stat = 'U';
    return event;
  }

  Meet& meet_;
  const StoredEvent& event_;
  RowTable<Row> table_;
  marks::MarkSettings marks_;
  UserInterface& user_;
  const AfterChange& after_;
};

struct KeyedEvent {
  StoredEvent event;
  std::string entrant;
};

// The event of "6:..." if it is of the right sort.
std::variant<KeyedEvent, Outcome> EventOfKey(const Meet& meet, std::string_view key, bool relay) {
  const auto parsed = ParseEntryKey(key);
  if (const Notice* wrong = std::get_if<Notice>(&parsed)) return Outcome(Refusal{*wrong});
  const EntryKey& entry_key = std::get<EntryKey>(parsed);
  const std::string label = std::to_string(entry_key.event.event_no) + entry_key.event.event_ltr;
  const auto event = LookUpEvent(meet, label);
  if (Stop stop = StopOf(event)) return *stop;
  const StoredEvent& found = std::get<StoredEvent>(*event);
  const bool is_relay = found.row.ind_rel == 'R';
  if (is_relay != relay) return Outcome(Refusal{is_relay ? EventIsRelay(label) : EventIsNoRelay(label)});
  return KeyedEvent{found, entry_key.entrant};
}

Outcome AddEntry(Meet& meet, const KeyedEvent& keyed, EntrantEditor<ImportedEntry>& editor,
                 std::vector<FieldText> fields, UserInterface& user) {
  const Event& event = keyed.event.row;
  const auto found = LookUpAthlete(meet, keyed.entrant, event.event_gender);
  if (Stop stop = StopOf(found)) return *stop;
  const Athlete& athlete = std::get<StoredAthlete>(*found).row;
  const auto there = LookUpEntry(meet, event, "#" + std::to_string(athlete.ath_no));
  if (!there.ok()) return there.status();
  if (std::holds_alternative<StoredImportedEntry>(*there)) {
    return Refusal{AlreadyInEvent(PlainName(athlete), EventLabel(event))};
  }
  bool age_up = false;
  if (Stop stop = CheckNewEntry(meet, athlete, event, user, age_up)) return *stop;
  ImportedEntry entry;
  entry.event_ptr = event.event_ptr;
  entry.ath_no = athlete.ath_no;
  if (age_up) entry.team_age = event.low_age;
  return editor.Store(nullptr, entry, std::move(fields));
}

// Attempts and splits of an athlete in an event.
Status DeleteTraces(jet::Transaction& write, const Meet& meet, const Entry& entry) {
  for (const std::string_view name : {"SeriesHoriz", "SeriesVertical", "Split"}) {
    TRY_ASSIGN(jet::Table * table, meet.Table(name));
    const int event = table->Column("Event_ptr");
    const int athlete = table->Column("Ath_no");
    std::vector<jet::RowId> rows;
    jet::TableScan scan = table->Scan();
    while (true) {
      TRY_ASSIGN(const bool more, scan.Next());
      if (!more) break;
      const jet::Record& record = scan.record();
      if (record.Long(event) == entry.event_ptr && record.Long(athlete) == entry.ath_no)
        rows.push_back(record.id());
    }
    for (const jet::RowId row : rows) TRY(write.Delete(*table, row));
  }
  return Ok();
}

Outcome AddRelay(Meet& meet, const KeyedEvent& keyed, EntrantEditor<ImportedRelay>& editor,
                 std::vector<FieldText> fields) {
  const Event& event = keyed.event.row;
  const std::optional<RelayKey> key = ParseRelayKey(keyed.entrant);
  if (!key) return Refusal{UnreadableKey(keyed.entrant)};
  const auto team = LookUpTeam(meet, key->team_abbr);
  if (Stop stop = StopOf(team)) return *stop;
  const auto there = LookUpRelay(meet, event, keyed.entrant);
  if (!there.ok()) return there.status();
  if (std::holds_alternative<StoredImportedRelay>(*there)) {
    return Refusal{AlreadyInEvent(keyed.entrant, EventLabel(event))};
  }
  ImportedRelay relay;
  relay.event_ptr = event.event_ptr;
  relay.team_no = std::get<StoredTeam>(*team).row.team_no;
  relay.team_ltr = key->team_ltr;
  relay.rel_sex = event.event_gender;
  return editor.Store(nullptr, relay, std::move(fields));
}

}  // namespace

Outcome EditEntry(Meet& meet, Edit edit, std::string_view key, std::span<const FieldText> fields,
                  UserInterface& user, const AfterChange& after) {
  const auto keyed = EventOfKey(meet, key, false);
  if (const Outcome* stop = std::get_if<Outcome>(&keyed)) return *stop;
  const KeyedEvent& at = std::get<KeyedEvent>(keyed);
  auto table = ImportedEntries(meet);
  if (!table.ok()) return table.status();
  EntrantEditor<ImportedEntry> editor(meet, at.event, std::move(*table), user, after);
  if (edit == Edit::Add) return AddEntry(meet, at, editor, {fields.begin(), fields.end()}, user);
  const auto found = LookUpEntry(meet, at.event.row, at.entrant);
  if (Stop stop = StopOf(found)) return *stop;
  const StoredImportedEntry& stored = std::get<StoredImportedEntry>(*found);
  if (edit == Edit::Set) return editor.Store(&stored, stored.row, {fields.begin(), fields.end()});
  return editor.Delete(stored, key,
                       [&](jet::Transaction& write) { return DeleteTraces(write, meet, stored.row); });
}

Outcome EditRelay(Meet& meet, Edit edit, std::string_view key, std::span<const FieldText> fields,
                  UserInterface& user, const AfterChange& after) {
  const auto keyed = EventOfKey(meet, key, true);
  if (const Outcome* stop = std::get_if<Outcome>(&keyed)) return *stop;
  const KeyedEvent& at = std::get<KeyedEvent>(keyed);
  auto table = ImportedRelays(meet);
  if (!table.ok()) return table.status();
  EntrantEditor<ImportedRelay> editor(meet, at.event, std::move(*table), user, after);
  if (edit == Edit::Add) return AddRelay(meet, at, editor, {fields.begin(), fields.end()});
  const auto found = LookUpRelay(meet, at.event.row, at.entrant);
  if (Stop stop = StopOf(found)) return *stop;
  const StoredImportedRelay& stored = std::get<StoredImportedRelay>(*found);
  if (edit == Edit::Set) return editor.Store(&stored, stored.row, {fields.begin(), fields.end()});
  return editor.Delete(stored, key, [&](jet::Transaction& write) -> Status {
    TRY(DeleteRows(write, meet, "RelayNames", "Relay_no", stored.row.relay_no));
    return DeleteRows(write, meet, "Split", "Relay_no", stored.row.relay_no);
  });
}

}  // namespace tarvex::setup
