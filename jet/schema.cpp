#include "jet/schema.h"

#include <algorithm>
#include <cstring>

#include "jet/bytes.h"
#include "jet/data_page.h"
#include "jet/text_codec.h"

namespace tarvex::jet {
namespace {

Status CheckName(const std::string& name) {
  const std::u16string text = ToUtf16(name);
  const bool bad_character = std::any_of(text.begin(), text.end(), [](char16_t c) {
    return c < 0x20 || c == u'.' || c == u'!' || c == u'[' || c == u']' || c == u'`';
  });
  if (text.empty() || text.size() > kLongestName || text[0] == u' ' || bad_character || !IsUtf8(name)) {
    return {Fault::Invalid, "\"" + name + "\" cannot be a name"};
  }
  return Ok();
}

uint16_t LengthOf(const ColumnSpec& spec) {
  switch (spec.type) {
    case ColumnType::Boolean:
      return 1;
    case ColumnType::Text:
      return static_cast<uint16_t>(2 * spec.size);
    case ColumnType::Binary:
      return static_cast<uint16_t>(spec.size);
    default:
      return static_cast<uint16_t>(FixedSize(spec.type, 0));
  }
}

bool IsVariable(ColumnType type) {
  return type == ColumnType::Text || type == ColumnType::Binary || type == ColumnType::Memo ||
         type == ColumnType::Ole;
}

Status CheckColumn(const TableDef& def, const ColumnSpec& spec) {
  TRY(CheckName(spec.name));
  const auto fail = [&](const char* what) {
    return Status{Fault::Invalid, "column " + spec.name + " " + what};
  };
  if (def.FindColumn(spec.name) >= 0) return fail("is there twice");
  if (spec.type == ColumnType::Text && (spec.size < 1 || spec.size > 255))
    return fail("needs a size of 1 to 255");
  if (spec.type == ColumnType::Binary && (spec.size < 1 || spec.size > 510))
    return fail("needs a size of 1 to 510");
  if (spec.type == ColumnType::Internal) return fail("has a type that cannot be made");
  if (spec.is_counter && spec.type != ColumnType::Long) return fail("cannot be a counter");
  if (def.columns.size() >= kMostColumns) return fail("would be the 256th");
  return Ok();
}

Status AddColumn(TableDef& def, const ColumnSpec& spec) {
  TRY(CheckColumn(def, spec));
  Column column;
  column.name = spec.name;
  column.type = spec.type;
  column.number = column.ordinal = def.next_column_number++;
  column.flags = Column::kAlways | (spec.is_counter ? Column::kAutoNumber : 0);
  column.length = LengthOf(spec);
  column.var_slot = def.var_slots;
  if (IsVariable(spec.type)) {
    ++def.var_slots;
  } else {
    column.flags |= Column::kFixed;
    column.fixed_offset = spec.type == ColumnType::Boolean ? 0 : static_cast<uint16_t>(def.FixedEnd());
  }
  if (spec.type == ColumnType::Numeric) {
    column.precision = 18;
    column.scale = 0;
  }
  def.columns.push_back(std::move(column));
  return Ok();
}

std::string UpperName(const std::string& name) {
  std::string upper = name;
  for (char& c : upper) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return upper;
}

}  // namespace

void AddEmptyMaps(uint8_t* page, int count) {
  for (int i = 0; i < count; ++i) std::memset(DataPage::AddRow(page, kMapRowSize), 0, kMapRowSize);
}

Expected<RowId> Schema::NewMap(PageNumber number) {
  if (number != 0) {
    TRY_ASSIGN(const PageRef ref, pager_.Read(number));
    TRY_ASSIGN(const DataPage rows, DataPage::Parse(ref));
    if (rows.owner() == 0 && rows.HasRoom(kMapRowSize)) {
      TRY_ASSIGN(const PageWriter page, pager_.Write(number));
      AddEmptyMaps(page.mutable_bytes(), 1);
      return RowId{number, static_cast<uint8_t>(rows.slots() - 1)};
    }
  }
  TRY_ASSIGN(const PageWriter page, allocator_.Allocate());
  DataPage::Format(page.mutable_bytes(), 0);
  AddEmptyMaps(page.mutable_bytes(), 1);
  return RowId{page.number(), 0};
}

Expected<TableDef> Schema::NewTable(const TableSpec& spec) {
  TRY(CheckName(spec.name));
  TableDef def;
  for (const ColumnSpec& column : spec.columns) TRY(AddColumn(def, column));
  if (def.columns.empty()) return Status{Fault::Invalid, "table " + spec.name + " has no columns"};
  if (RowBuilder(def).size() > kLargestRow) {
    return Status{Fault::Invalid,
                  "a row of table " + spec.name + " would be larger than a page even when empty"};
  }
  {
    TRY_ASSIGN(const PageWriter page, allocator_.Allocate());
    page.mutable_bytes()[0] = kDefinitionPage;
    def.page = page.number();
  }
  TRY_ASSIGN(def.owned_map, NewMap(0));
  TRY_ASSIGN(def.free_map, NewMap(def.owned_map.page));
  for (const Column& column : def.columns) {
    if (!column.is_long_value()) continue;
    LongValueMaps maps;
    maps.column_number = column.number;
    TRY_ASSIGN(maps.owned, NewMap(def.owned_map.page));
    TRY_ASSIGN(maps.free, NewMap(def.owned_map.page));
    def.long_values.push_back(maps);
  }
  for (const IndexSpec& index : spec.indexes) {
    TRY_ASSIGN(RealIndex real, NewIndex(def, index));
    def.indexes.push_back(std::move(real));
  }
  TRY(WriteTableDef(pager_, allocator_, def));
  return def;
}

// The index's map, root and name; the caller adds the index itself.
Expected<RealIndex> Schema::NewIndex(TableDef& def, const IndexSpec& spec) {
  TRY(CheckName(spec.name));
  const auto fail = [&](const char* what) {
    return Status{Fault::Invalid, "index " + spec.name + " " + what};
  };
  if (def.FindIndex(spec.name) >= 0) return Status{Fault::Exists, "index " + spec.name + " exists already"};
  if (def.indexes.size() >= kMostIndexes) return fail("would be the 33rd");
  if (spec.columns.empty() || spec.columns.size() > kMostIndexColumns) return fail("needs 1 to 10 columns");
  RealIndex index;
  for (const std::string& name : spec.columns) {
    const int column = def.FindColumn(name);
    if (column < 0) return fail("names a column that does not exist");
    if (def.columns[static_cast<size_t>(column)].type == ColumnType::Ole)
      return fail("cannot be on an OLE column");
    index.columns.push_back({column, true});
  }
  if (spec.is_unique || spec.is_primary) index.flags |= RealIndex::kUnique;
  if (spec.is_primary) index.flags |= RealIndex::kRequired;
  TRY_ASSIGN(index.map, NewMap(def.owned_map.page));
  {
    TRY_ASSIGN(const PageWriter root, allocator_.Allocate());
    IndexPage::Format(root.mutable_bytes(), def.page, 0);
    index.root = root.number();
  }
  TRY(allocator_.MapAdd(index.map, index.root));

  LogicalIndex name;
  name.name = spec.name;
  name.number = name.real = static_cast<uint32_t>(def.indexes.size());
  name.kind = spec.is_primary ? LogicalIndex::Primary : LogicalIndex::Normal;
  // The names stand in alphabetical order.
  const auto place = std::find_if(def.names.begin(), def.names.end(), [&](const LogicalIndex& other) {
    return UpperName(other.name) > UpperName(name.name);
  });
  def.names.insert(place, std::move(name));
  return index;
}

Status Schema::AddIndex(Table& table, const IndexSpec& spec) {
  TableDef& def = table.def_;
  const TableDef before = def;
  const auto add = [&]() -> Status {
    TRY_ASSIGN(RealIndex index, NewIndex(def, spec));
    TableWriter writer(table, allocator_);
    TRY(writer.BuildIndex(index));
    def.indexes.push_back(std::move(index));
    return WriteTableDef(pager_, allocator_, def);
  };
  Status status = add();
  if (!status.ok()) def = before;
  return status;
}

}  // namespace tarvex::jet
