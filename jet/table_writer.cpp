#include "jet/table_writer.h"

#include <algorithm>
#include <cstring>

#include "jet/bytes.h"
#include "jet/data_page.h"
#include "jet/index_key.h"
#include "jet/long_value.h"
#include "jet/text_codec.h"

namespace tarvex::jet {
namespace {

Expected<Bytes> LongContent(const Column& column, const Value& value) {
  if (const auto* bytes = std::get_if<Bytes>(&value); bytes && column.type == ColumnType::Ole) return *bytes;
  if (const auto* text = std::get_if<std::string>(&value); text && column.type == ColumnType::Memo) {
    Bytes content;
    AppendText(*text, content);
    return content;
  }
  return Status{Fault::Invalid, "a value for " + column.name + " has the wrong type"};
}

bool Names(std::span<const FieldValue> fields, int column) {
  return std::any_of(fields.begin(), fields.end(), [&](const FieldValue& f) { return f.column == column; });
}

}  // namespace

TableWriter::TableWriter(Table& table, PageAllocator& allocator)
    : table_(table), allocator_(allocator), builder_(table.def()) {}

Status TableWriter::SetField(const FieldValue& field) {
  const TableDef& def = table_.def();
  if (field.column < 0 || static_cast<size_t>(field.column) >= def.columns.size()) {
    return {Fault::Invalid, table_.name() + " has no such field"};
  }
  const Column& column = def.columns[static_cast<size_t>(field.column)];
  if (column.type == ColumnType::Boolean) {
    const bool* flag = std::get_if<bool>(&field.value);
    if (!flag && !IsNull(field.value))
      return {Fault::Invalid, "a value for " + column.name + " has the wrong type"};
    builder_.SetBoolean(column, flag && *flag);
    return Ok();
  }
  if (IsNull(field.value)) {
    builder_.SetNull(column);
    return Ok();
  }
  if (column.is_long_value()) {
    TRY_ASSIGN(const Bytes content, LongContent(column, field.value));
    const LongValueMaps* maps = def.MapsOf(column);
    if (!maps) return {Fault::Corrupt, "column " + column.name + " has no pages of its own"};
    TRY_ASSIGN(const Bytes raw, WriteLongValue(table_.pager(), allocator_, *maps, content));
    return builder_.SetRaw(column, raw);
  }
  raw_.clear();
  TRY(EncodeValue(column, field.value, raw_));
  return builder_.SetRaw(column, raw_);
}

Status TableWriter::CheckSize() const {
  if (builder_.size() <= kLargestRow) return Ok();
  return {Fault::Range,
          "a row of " + table_.name() + " would be larger than " + std::to_string(kLargestRow) + " bytes"};
}

// The row that the builder holds, as a view over `built_`.
Expected<RowView> TableWriter::BuiltRow() {
  built_.resize(builder_.size());
  builder_.CopyTo(built_.data());
  return RowView::Parse(table_.def(), built_);
}

// The leaf entry of a row; empty when the index leaves the row out. Fault::Invalid when a required column is
// null.
Expected<Bytes> TableWriter::EntryFor(const RealIndex& index, const RowView& row, RowId id) const {
  TRY_ASSIGN(const Table::RowKey key, table_.KeyOfRow(index, row));
  if (key.any_null && index.is_required()) {
    return Status{Fault::Invalid, "an index of " + table_.name() + " does not take a null"};
  }
  if (key.all_null && index.ignores_nulls()) return Bytes();
  if (key.bytes.size() > kLongestKey) {
    return Status{Fault::Range, "the fields of an index of " + table_.name() + " are too long together"};
  }
  return LeafEntry(key.bytes, id);
}

// Two rows may share a key of a unique index only when all its columns are null.
Status TableWriter::CheckUnique(const RealIndex& index, const Bytes& entry) const {
  if (!index.is_unique() || entry.empty()) return Ok();
  const std::span<const uint8_t> key(entry.data(), entry.size() - kRowPart);
  const bool all_null = key.size() == index.columns.size();
  if (all_null) return Ok();
  TRY_ASSIGN(const IndexCursor cursor, IndexCursor::At(table_.pager(), table_.PlaceOf(index), key));
  if (cursor.AtEnd() || !cursor.BeginsWith(key)) return Ok();
  return {Fault::Duplicate, "an index of " + table_.name() + " has this value already"};
}

Status TableWriter::AddToCount(int32_t change) {
  TRY_ASSIGN(const PageWriter page, table_.pager().Write(table_.def().page));
  uint8_t* at = page.mutable_bytes() + TableDef::kRowCount;
  Store<uint32_t>(at, Load32(at) + static_cast<uint32_t>(change));
  return Ok();
}

// Gives the counter field its next number, unless the caller has given one.
Status TableWriter::TakeCounter(std::span<const FieldValue> fields, int32_t& counter) {
  const TableDef& def = table_.def();
  for (size_t i = 0; i < def.columns.size(); ++i) {
    const Column& column = def.columns[i];
    if (!column.is_counter()) continue;
    if (builder_.Has(column) && Names(fields, static_cast<int>(i))) {
      counter = Load<int32_t>(builder_.Raw(column).data());
      return Ok();
    }
    TRY_ASSIGN(const uint32_t last, table_.LastCounter());
    const uint32_t next = last + def.counter_increment;
    counter = static_cast<int32_t>(next);
    uint8_t raw[4];
    Store<uint32_t>(raw, next);
    return builder_.SetRaw(column, raw);
  }
  return Ok();
}

// The number that `fields` give to the counter field; 0 when they do not.
int32_t TableWriter::GivenCounter(std::span<const FieldValue> fields) const {
  for (const FieldValue& field : fields) {
    const Column& column = table_.def().columns[static_cast<size_t>(field.column)];
    if (column.is_counter() && builder_.Has(column)) return Load<int32_t>(builder_.Raw(column).data());
  }
  return 0;
}

// Remembers that the counter has come this far. A refused row never gets here, so it uses no number up.
Status TableWriter::NoteCounter(int32_t counter) {
  TRY_ASSIGN(const PageWriter page, table_.pager().Write(table_.def().page));
  uint8_t* last = page.mutable_bytes() + TableDef::kLastCounter;
  if (counter > Load<int32_t>(last)) Store<int32_t>(last, counter);
  return Ok();
}

Expected<TableWriter::Inserted> TableWriter::Insert(std::span<const FieldValue> fields) {
  Inserted inserted;
  builder_.Clear();
  for (const FieldValue& field : fields) TRY(SetField(field));
  TRY(TakeCounter(fields, inserted.counter));
  TRY(CheckSize());
  TRY_ASSIGN(const RowView row, BuiltRow());
  std::vector<Bytes> entries;
  for (const RealIndex& index : table_.def().indexes) {
    TRY_ASSIGN(Bytes entry, EntryFor(index, row, RowId{}));
    TRY(CheckUnique(index, entry));
    entries.push_back(std::move(entry));
  }
  TRY_ASSIGN(inserted.row, Place(0));
  for (size_t i = 0; i < entries.size(); ++i) {
    if (entries[i].empty()) continue;
    StoreBig32(entries[i].data() + entries[i].size() - kRowPart, inserted.row.Pack());
    IndexTree tree(table_.pager(), allocator_, table_.PlaceOf(table_.def().indexes[i]));
    TRY(tree.Insert(entries[i]));
  }
  TRY(NoteCounter(inserted.counter));
  TRY(AddToCount(1));
  return inserted;
}

Expected<bool> TableWriter::TryPlace(PageNumber number, uint16_t state, RowId& placed) {
  TRY_ASSIGN(const PageRef ref, table_.pager().Read(number));
  TRY_ASSIGN(const DataPage rows, DataPage::Parse(ref));
  if (rows.owner() != table_.def().page || !rows.HasRoom(built_.size())) return false;
  TRY_ASSIGN(const PageWriter page, table_.pager().Write(number));
  uint8_t* at = DataPage::AddRow(page.mutable_bytes(), built_.size(), state);
  std::memcpy(at, built_.data(), built_.size());
  placed = {number, static_cast<uint8_t>(rows.slots() - 1)};
  last_page_ = number;
  return true;
}

// Puts the built row on a page that has room: where the last one went, else one of the free-space map, else a
// new one. A page that the row does not fit on leaves the map.
Expected<RowId> TableWriter::Place(uint16_t state) {
  const TableDef& def = table_.def();
  RowId placed;
  if (last_page_ != 0 && last_page_ < table_.pager().page_count()) {
    TRY_ASSIGN(const bool is_mine, MapHas(table_.pager(), def.owned_map, last_page_));
    if (is_mine) {
      TRY_ASSIGN(const bool done, TryPlace(last_page_, state, placed));
      if (done) return placed;
    }
  }
  while (true) {
    TRY_ASSIGN(const auto candidate, MapLast(table_.pager(), def.free_map));
    if (!candidate) break;
    TRY_ASSIGN(const bool is_mine, MapHas(table_.pager(), def.owned_map, *candidate));
    if (is_mine) {
      TRY_ASSIGN(const bool done, TryPlace(*candidate, state, placed));
      if (done) return placed;
    }
    TRY(allocator_.MapRemove(def.free_map, *candidate));
  }
  TRY_ASSIGN(const PageWriter page, allocator_.Allocate());
  DataPage::Format(page.mutable_bytes(), def.page);
  TRY(allocator_.MapAdd(def.owned_map, page.number()));
  TRY(allocator_.MapAdd(def.free_map, page.number()));
  TRY_ASSIGN(const bool done, TryPlace(page.number(), state, placed));
  if (!done) return Status{Fault::Range, "a row does not fit on an empty page"};
  return placed;
}

Status TableWriter::GainedRoom(PageNumber page) {
  TRY_ASSIGN(const bool known, MapHas(table_.pager(), table_.def().free_map, page));
  return known ? Ok() : allocator_.MapAdd(table_.def().free_map, page);
}

// A page without rows starts over, so that its slots can be used again; nothing points at them any more.
Status TableWriter::ResetIfEmpty(PageNumber number) {
  TRY_ASSIGN(const PageWriter page, table_.pager().Write(number));
  TRY_ASSIGN(const DataPage rows, DataPage::Parse(page));
  for (int slot = 0; slot < rows.slots(); ++slot) {
    if (rows.state(slot) != DataPage::kDeleted) return Ok();
  }
  DataPage::Format(page.mutable_bytes(), table_.def().page);
  return Ok();
}

// Puts the built row in the place of an existing one: in its home if the page has room, else where it was
// moved to before, else on another page, to which the home then points.
Status TableWriter::Replace(RowId home) {
  const size_t size = built_.size();
  const auto fits = [&](const DataPage& rows, int slot) {
    return rows.free() + rows.Row(slot).size() >= size;
  };
  const auto put = [&](const PageWriter& page, int slot) {
    const bool shrinks = [&] {
      const auto rows = DataPage::Parse(page);
      return rows.ok() && rows->Row(slot).size() > size;
    }();
    uint8_t* at = DataPage::Resize(page.mutable_bytes(), slot, size);
    std::memcpy(at, built_.data(), size);
    return shrinks ? GainedRoom(page.number()) : Ok();
  };
  TRY_ASSIGN(const PageWriter page, table_.pager().Write(home.page));
  TRY_ASSIGN(const DataPage rows, DataPage::Parse(page));
  const auto holds = [&](const DataPage& on, RowId row, uint16_t state) {
    return on.owner() == table_.def().page && row.slot < on.slots() && on.state(row.slot) == state;
  };
  const auto lost = [](RowId row) {
    return Status{Fault::Corrupt, "page " + std::to_string(row.page) + ": is used twice"};
  };
  if (holds(rows, home, 0)) {
    if (fits(rows, home.slot)) return put(page, home.slot);
    if (rows.free() + rows.Row(home.slot).size() < 4) return {Fault::Range, "a row is too short to be moved"};
    TRY_ASSIGN(const RowId body, Place(DataPage::kBody));
    uint8_t* at = DataPage::Resize(page.mutable_bytes(), home.slot, 4);
    Store<uint32_t>(at, body.Pack());
    DataPage::SetState(page.mutable_bytes(), home.slot, DataPage::kMoved);
    return GainedRoom(home.page);
  }
  if (!holds(rows, home, DataPage::kMoved)) return lost(home);
  const RowId body = RowId::Unpack(Load32(rows.Row(home.slot).data()));
  TRY_ASSIGN(const PageWriter body_page, table_.pager().Write(body.page));
  TRY_ASSIGN(const DataPage body_rows, DataPage::Parse(body_page));
  if (!holds(body_rows, body, DataPage::kBody)) return lost(body);
  if (fits(body_rows, body.slot)) return put(body_page, body.slot);
  TRY_ASSIGN(const RowId moved, Place(DataPage::kBody));
  DataPage::DeleteRow(body_page.mutable_bytes(), body.slot);
  TRY(GainedRoom(body.page));
  TRY_ASSIGN(const DataPage now, DataPage::Parse(page));
  Store<uint32_t>(page.mutable_bytes() + (now.Row(home.slot).data() - page.bytes()), moved.Pack());
  return Ok();
}

// Gives back the pages of long values that a change of `fields` replaces.
Status TableWriter::FreeReplaced(const RowView& old_row, std::span<const FieldValue> fields) {
  const TableDef& def = table_.def();
  for (const FieldValue& field : fields) {
    const Column& column = def.columns[static_cast<size_t>(field.column)];
    if (!column.is_long_value() || !old_row.Has(column)) continue;
    const LongValueMaps* maps = def.MapsOf(column);
    if (!maps) return {Fault::Corrupt, "column " + column.name + " has no pages of its own"};
    TRY_ASSIGN(const auto raw, old_row.Raw(column));
    TRY(FreeLongValue(table_.pager(), allocator_, *maps, Bytes(raw.begin(), raw.end())));
  }
  return Ok();
}

Status TableWriter::Update(RowId id, std::span<const FieldValue> fields) {
  const TableDef& def = table_.def();
  for (const FieldValue& field : fields) {
    if (field.column < 0 || static_cast<size_t>(field.column) >= def.columns.size()) {
      return {Fault::Invalid, table_.name() + " has no such field"};
    }
  }
  std::vector<Change> changes;
  int32_t counter = 0;
  {
    TRY_ASSIGN(const Record old, table_.Get(id));
    TRY(builder_.Load(old.row()));
    // Old keys first: a replaced Memo is read before its pages go.
    for (const RealIndex& index : def.indexes) {
      const bool touched = std::any_of(index.columns.begin(), index.columns.end(),
                                       [&](const IndexColumn& part) { return Names(fields, part.column); });
      if (!touched) continue;
      TRY_ASSIGN(Bytes entry, EntryFor(index, old.row(), id));
      changes.push_back({&index, std::move(entry), {}});
    }
    for (const FieldValue& field : fields) TRY(SetField(field));
    TRY(CheckSize());
    TRY_ASSIGN(const RowView row, BuiltRow());
    counter = GivenCounter(fields);
    for (Change& change : changes) {
      TRY_ASSIGN(change.new_entry, EntryFor(*change.index, row, id));
      if (change.new_entry != change.old_entry) TRY(CheckUnique(*change.index, change.new_entry));
    }
    TRY(FreeReplaced(old.row(), fields));
  }
  TRY(Replace(id));
  if (counter != 0) TRY(NoteCounter(counter));
  for (const Change& change : changes) {
    if (change.new_entry == change.old_entry) continue;
    IndexTree tree(table_.pager(), allocator_, table_.PlaceOf(*change.index));
    if (!change.old_entry.empty()) TRY(tree.Erase(change.old_entry));
    if (!change.new_entry.empty()) TRY(tree.Insert(change.new_entry));
  }
  return Ok();
}

Status TableWriter::Delete(RowId id) {
  const TableDef& def = table_.def();
  std::vector<Bytes> entries;
  {
    TRY_ASSIGN(const Record old, table_.Get(id));
    for (const RealIndex& index : def.indexes) {
      TRY_ASSIGN(const Table::RowKey key, table_.KeyOfRow(index, old.row()));
      entries.push_back(key.all_null && index.ignores_nulls() ? Bytes() : LeafEntry(key.bytes, id));
    }
    std::vector<FieldValue> long_values;
    for (size_t i = 0; i < def.columns.size(); ++i) {
      if (def.columns[i].is_long_value()) long_values.push_back({static_cast<int>(i), Null{}});
    }
    TRY(FreeReplaced(old.row(), long_values));
  }
  for (size_t i = 0; i < entries.size(); ++i) {
    if (entries[i].empty()) continue;
    IndexTree tree(table_.pager(), allocator_, table_.PlaceOf(def.indexes[i]));
    TRY(tree.Erase(entries[i]));
  }
  TRY_ASSIGN(const PageWriter page, table_.pager().Write(id.page));
  TRY_ASSIGN(const DataPage rows, DataPage::Parse(page));
  if (rows.owner() != def.page || id.slot >= rows.slots()) {
    return {Fault::Corrupt, "page " + std::to_string(id.page) + ": is used twice"};
  }
  if (rows.state(id.slot) == DataPage::kMoved) {
    const RowId body = RowId::Unpack(Load32(rows.Row(id.slot).data()));
    TRY_ASSIGN(const PageWriter body_page, table_.pager().Write(body.page));
    TRY_ASSIGN(const DataPage body_rows, DataPage::Parse(body_page));
    if (body_rows.owner() != def.page || body.slot >= body_rows.slots()) {
      return {Fault::Corrupt, "page " + std::to_string(body.page) + ": is used twice"};
    }
    DataPage::DeleteRow(body_page.mutable_bytes(), body.slot);
    TRY(GainedRoom(body.page));
    TRY(ResetIfEmpty(body.page));
  }
  DataPage::DeleteRow(page.mutable_bytes(), id.slot);
  TRY(GainedRoom(id.page));
  TRY(ResetIfEmpty(id.page));
  return AddToCount(-1);
}

Status TableWriter::BuildIndex(RealIndex& index) {
  std::vector<Bytes> entries;
  TableScan scan = table_.Scan();
  while (true) {
    TRY_ASSIGN(const bool more, scan.Next());
    if (!more) break;
    TRY_ASSIGN(Bytes entry, EntryFor(index, scan.record().row(), scan.record().id()));
    if (!entry.empty()) entries.push_back(std::move(entry));
  }
  std::sort(entries.begin(), entries.end());
  uint32_t distinct = entries.empty() ? 0 : 1;
  for (size_t i = 1; i < entries.size(); ++i) {
    const Bytes &a = entries[i - 1], &b = entries[i];
    const bool same = std::equal(a.begin(), a.end() - kRowPart, b.begin(), b.end() - kRowPart);
    if (same && index.is_unique() && a.size() - kRowPart > index.columns.size()) {
      return {Fault::Duplicate, "rows of " + table_.name() + " have the same value"};
    }
    distinct += same ? 0 : 1;
  }
  IndexTree tree(table_.pager(), allocator_, table_.PlaceOf(index));
  for (const Bytes& entry : entries) TRY(tree.Insert(entry));
  index.entries_when_built = static_cast<uint32_t>(entries.size());
  index.distinct_keys = distinct;
  return Ok();
}

}  // namespace tarvex::jet
