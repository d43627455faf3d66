#include "setup/scratch.h"

#include "setup/edit_row.h"
#include "setup/entry_lookup.h"
#include "setup/entry_rules.h"
#include "setup/messages.h"
#include "setup/rounds.h"

namespace tarvex::setup {
namespace {

using database::Meet;

// The heat of the first round; 0 when the entry was not seeded.
Expected<int> FirstHeat(const jet::Table& table, jet::RowId row, const Event& event) {
  const Round first = RoundByNumber(1, event.event_rounds).value_or(Round::Finals);
  TRY_ASSIGN(const jet::Record record, table.Get(row));
  const int column = table.Column(std::string(FieldPrefix(first)) + "heat");
  const int heat = column < 0 ? 0 : record.Long(column);
  TRY(record.status());
  return heat;
}

template <class Row, class LookUp>
Outcome ScratchRows(Meet& meet, const StoredEvent& stored_event, const Expected<RowTable<Row>>& table,
                    std::span<const std::string> keys, bool undo, const AfterChange& after, LookUp look_up) {
  if (!table.ok()) return table.status();
  std::vector<database::Stored<Row>> rows;
  Event event = stored_event.row;
  for (const std::string& key : keys) {
    const auto found = look_up(meet, event, key);
    if (!found.ok()) return found.status();
    if (const Notice* wrong = std::get_if<Notice>(&*found)) return Refusal{*wrong};
    rows.push_back(std::get<database::Stored<Row>>(*found));
    const auto heat = FirstHeat(*table->table, rows.back().id, event);
    if (!heat.ok()) return heat.status();
    // Somebody who was scratched when the event was seeded has no lane to come back to.
    Row row = rows.back().row;
    row.scr_stat = false;
    if (undo && *heat == 0 && IsLeftUnseeded(row, event, RulesOf(meet.settings()))) event.unseeded_stat = 'U';
  }
  return InOneTransaction(meet, "scratch", [&](jet::Transaction& write) -> Status {
    for (const auto& stored : rows) {
      Row row = stored.row;
      row.scr_stat = !undo;
      TRY(table->Save(write, stored, row));
    }
    TRY(SaveEvent(write, meet, stored_event, event));
    return after ? after(write, event.event_ptr) : Ok();
  });
}

}  // namespace

Outcome Scratch(Meet& meet, std::string_view event, std::span<const std::string> keys, bool undo,
                const AfterChange& after) {
  const auto found = LookUpEvent(meet, event);
  if (!found.ok()) return found.status();
  if (const Notice* wrong = std::get_if<Notice>(&*found)) return Refusal{*wrong};
  const StoredEvent& stored = std::get<StoredEvent>(*found);
  if (stored.row.ind_rel == 'R')
    return ScratchRows(meet, stored, ImportedRelays(meet), keys, undo, after, LookUpRelay);
  return ScratchRows(meet, stored, ImportedEntries(meet), keys, undo, after, LookUpEntry);
}

}  // namespace tarvex::setup
