#include "jet/table_def.h"

#include <algorithm>
#include <cstring>

#include "jet/bytes.h"
#include "jet/data_page.h"
#include "jet/text_codec.h"

namespace tarvex::jet {
namespace {

constexpr uint32_t kColumnMark = 1625;
constexpr uint32_t kIndexMark = 1923;
constexpr size_t kPageHead = 8;
constexpr size_t kStatistics = 12, kDescriptor = 25, kRealIndexSize = 52, kLogicalIndexSize = 28,
                 kMapsSize = 10;
// 255 columns and 32 indexes with the longest names stay well below this.
constexpr size_t kLongestStream = 128 * 1024;

char Upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// Reads the stream from front to back; every read is checked against its end.
class Reader {
 public:
  Reader(const std::vector<uint8_t>& bytes, PageNumber page) : bytes_(bytes), page_(page) {}

  Expected<const uint8_t*> Take(size_t size) {
    if (bytes_.size() - at_ < size) {
      return Status{Fault::Corrupt, "page " + std::to_string(page_) + ": the table definition is cut off"};
    }
    const uint8_t* place = bytes_.data() + at_;
    at_ += size;
    return place;
  }
  Expected<std::string> TakeName() {
    TRY_ASSIGN(const uint8_t* length, Take(2));
    const size_t size = Load16(length);
    if (size % 2 != 0) {
      return Status{Fault::Corrupt, "page " + std::to_string(page_) + ": a name has an odd number of bytes"};
    }
    TRY_ASSIGN(const uint8_t* text, Take(size));
    return ToUtf8(FromLittleEndian({text, size}));
  }
  size_t left() const { return bytes_.size() - at_; }

 private:
  const std::vector<uint8_t>& bytes_;
  PageNumber page_;
  size_t at_ = 0;
};

// Follows the chain of definition pages. A loop ends at the stated length at the latest.
Expected<std::vector<uint8_t>> LoadStream(Pager& pager, PageNumber first, std::vector<PageNumber>& pages) {
  std::vector<uint8_t> stream;
  size_t length = 0;
  for (PageNumber number = first; number != 0;) {
    const auto fail = [&](const std::string& what) {
      return Status{Fault::Corrupt, "page " + std::to_string(number) + ": " + what};
    };
    TRY_ASSIGN(const PageRef page, pager.Read(number));
    if (page.bytes()[0] != kDefinitionPage) return fail("is not a table definition");
    if (std::find(pages.begin(), pages.end(), number) != pages.end())
      return fail("the definition runs in a loop");
    pages.push_back(number);
    if (number == first) {
      length = Load32(page.bytes() + 8);
      if (length < TableDef::kFixedPart || length > kLongestStream)
        return fail("the definition's length is wrong");
      stream.assign(page.bytes(), page.bytes() + kPageSize);
    } else {
      stream.insert(stream.end(), page.bytes() + kPageHead, page.bytes() + kPageSize);
    }
    if (stream.size() >= length) break;
    number = Load32(page.bytes() + 4);
  }
  if (stream.size() < length) {
    return Status{Fault::Corrupt, "page " + std::to_string(first) + ": the table definition is cut off"};
  }
  stream.resize(length);
  return stream;
}

Column ReadColumn(const uint8_t* at) {
  Column column;
  column.type = static_cast<ColumnType>(at[0]);
  column.number = Load16(at + 5);
  column.var_slot = Load16(at + 7);
  column.ordinal = Load16(at + 9);
  if (column.type == ColumnType::Numeric) {
    column.precision = at[11];
    column.scale = at[12];
  } else {
    column.language = Load16(at + 11);
    column.collation_version = at[14];
  }
  column.flags = at[15];
  column.extra_flags = at[16];
  column.fixed_offset = Load16(at + 21);
  column.length = Load16(at + 23);
  return column;
}

bool IsKnownType(ColumnType type) {
  const auto code = static_cast<uint8_t>(type);
  return (code >= 0x01 && code <= 0x0C) || code == 0x0F || code == 0x10 || code == 0x11;
}

Status CheckColumns(const TableDef& def) {
  const auto fail = [&](const Column& column, const char* what) {
    return Status{Fault::Corrupt,
                  "page " + std::to_string(def.page) + ": column " + column.name + " " + what};
  };
  std::vector<bool> numbers(256), slots(256);
  for (const Column& column : def.columns) {
    if (!IsKnownType(column.type)) return fail(column, "has an unknown type");
    if (column.number >= def.next_column_number || numbers[column.number])
      return fail(column, "has a wrong number");
    numbers[column.number] = true;
    if (column.is_fixed()) {
      const size_t size = FixedSize(column.type, column.length);
      if (column.type != ColumnType::Boolean && size == 0) return fail(column, "cannot have a fixed place");
      if (2 + column.fixed_offset + size > kPageSize) return fail(column, "lies outside the row");
    } else {
      if (column.var_slot >= def.var_slots || slots[column.var_slot]) return fail(column, "has a wrong slot");
      slots[column.var_slot] = true;
    }
  }
  return Ok();
}

Expected<RealIndex> ReadRealIndex(const uint8_t* at, const TableDef& def) {
  RealIndex index;
  const auto fail = [&](const char* what) {
    return Status{Fault::Corrupt, "page " + std::to_string(def.page) + ": an index " + what};
  };
  for (size_t i = 0; i < kMostIndexColumns; ++i) {
    const uint16_t number = Load16(at + 4 + 3 * i);
    if (number == 0xFFFF) continue;
    const int column = def.ColumnWithNumber(number);
    if (column < 0) return fail("has a column that does not exist");
    index.columns.push_back({column, at[4 + 3 * i + 2] != 0});
  }
  if (index.columns.empty()) return fail("has no columns");
  index.map = RowId::Unpack(Load32(at + 34));
  index.root = Load32(at + 38);
  index.flags = at[46];
  return index;
}

Expected<LogicalIndex> ReadLogicalIndex(const uint8_t* at, const TableDef& def) {
  LogicalIndex name;
  name.number = Load32(at + 4);
  name.real = Load32(at + 8);
  name.related_kind = at[12];
  name.related_number = Load<int32_t>(at + 13);
  name.related_table = Load32(at + 17);
  name.cascade_updates = at[21];
  name.cascade_deletes = at[22];
  name.kind = at[23];
  if (name.real >= def.indexes.size()) {
    return Status{Fault::Corrupt, "page " + std::to_string(def.page) + ": an index name leads to no index"};
  }
  return name;
}

class Writer {
 public:
  explicit Writer(std::vector<uint8_t>& out) : out_(out) {}
  uint8_t* Add(size_t size) {
    out_.resize(out_.size() + size);
    return out_.data() + out_.size() - size;
  }
  void AddName(std::string_view name) {
    const std::u16string text = ToUtf16(name);
    Store<uint16_t>(Add(2), static_cast<uint16_t>(2 * text.size()));
    std::memcpy(Add(2 * text.size()), text.data(), 2 * text.size());
  }

 private:
  std::vector<uint8_t>& out_;
};

void WriteColumn(const Column& column, uint8_t* at) {
  at[0] = static_cast<uint8_t>(column.type);
  Store<uint32_t>(at + 1, kColumnMark);
  Store<uint16_t>(at + 5, column.number);
  Store<uint16_t>(at + 7, column.var_slot);
  Store<uint16_t>(at + 9, column.ordinal);
  if (column.type == ColumnType::Numeric) {
    at[11] = column.precision;
    at[12] = column.scale;
  } else {
    Store<uint16_t>(at + 11, column.language);
    at[14] = column.collation_version;
  }
  at[15] = column.flags;
  at[16] = column.extra_flags;
  Store<uint16_t>(at + 21, column.is_fixed() ? column.fixed_offset : 0);
  Store<uint16_t>(at + 23, column.length);
}

void WriteRealIndex(const RealIndex& index, const TableDef& def, uint8_t* at) {
  Store<uint32_t>(at, kIndexMark);
  for (size_t i = 0; i < kMostIndexColumns; ++i) {
    uint8_t* slot = at + 4 + 3 * i;
    Store<uint16_t>(slot, 0xFFFF);
    if (i >= index.columns.size()) continue;
    Store<uint16_t>(slot, def.columns[static_cast<size_t>(index.columns[i].column)].number);
    slot[2] = index.columns[i].ascending ? 1 : 0;
  }
  Store<uint32_t>(at + 34, index.map.Pack());
  Store<uint32_t>(at + 38, index.root);
  at[46] = index.flags;
}

void WriteLogicalIndex(const LogicalIndex& name, uint8_t* at) {
  Store<uint32_t>(at, kColumnMark);
  Store<uint32_t>(at + 4, name.number);
  Store<uint32_t>(at + 8, name.real);
  at[12] = name.related_kind;
  Store<int32_t>(at + 13, name.related_number);
  Store<uint32_t>(at + 17, name.related_table);
  at[21] = name.cascade_updates;
  at[22] = name.cascade_deletes;
  at[23] = name.kind;
}

}  // namespace

bool SameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Upper(x) == Upper(y); });
}

int TableDef::FindColumn(std::string_view name) const {
  for (size_t i = 0; i < columns.size(); ++i) {
    if (SameName(columns[i].name, name)) return static_cast<int>(i);
  }
  return -1;
}

int TableDef::FindIndex(std::string_view name) const {
  for (const LogicalIndex& logical : names) {
    if (SameName(logical.name, name)) return static_cast<int>(logical.real);
  }
  return -1;
}

int TableDef::ColumnWithNumber(uint16_t number) const {
  for (size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].number == number) return static_cast<int>(i);
  }
  return -1;
}

const LogicalIndex* TableDef::NameOf(size_t real_index) const {
  for (const LogicalIndex& logical : names) {
    if (logical.real == real_index && logical.kind != LogicalIndex::Relationship) return &logical;
  }
  for (const LogicalIndex& logical : names) {
    if (logical.real == real_index) return &logical;
  }
  return nullptr;
}

bool TableDef::IsPrimary(size_t real_index) const {
  return std::any_of(names.begin(), names.end(), [&](const LogicalIndex& logical) {
    return logical.real == real_index && logical.kind == LogicalIndex::Primary;
  });
}

const LongValueMaps* TableDef::MapsOf(const Column& column) const {
  for (const LongValueMaps& maps : long_values) {
    if (maps.column_number == column.number) return &maps;
  }
  return nullptr;
}

size_t TableDef::FixedEnd() const {
  size_t end = 0;
  for (const Column& column : columns) {
    if (column.is_fixed()) end = std::max(end, column.fixed_offset + FixedSize(column.type, column.length));
  }
  return end;
}

size_t FixedSize(ColumnType type, uint16_t length) {
  switch (type) {
    case ColumnType::Byte:
      return 1;
    case ColumnType::Integer:
      return 2;
    case ColumnType::Long:
    case ColumnType::Single:
      return 4;
    case ColumnType::Currency:
    case ColumnType::Double:
    case ColumnType::Date:
      return 8;
    case ColumnType::Guid:
      return 16;
    case ColumnType::Numeric:
      return 17;
    case ColumnType::Binary:
    case ColumnType::Text:
    case ColumnType::Internal:
      return length;
    default:
      return 0;
  }
}

Expected<TableDef> ReadTableDef(Pager& pager, PageNumber first_page) {
  TableDef def;
  def.page = first_page;
  TRY_ASSIGN(const std::vector<uint8_t> stream, LoadStream(pager, first_page, def.pages));
  Reader reader(stream, first_page);
  TRY_ASSIGN(const uint8_t* head, reader.Take(TableDef::kFixedPart));
  def.counter_increment = Load32(head + 24);
  def.table_type = head[40];
  def.next_column_number = Load16(head + 41);
  def.var_slots = Load16(head + 43);
  const size_t columns = Load16(head + 45);
  const size_t names = Load32(head + 47);
  const size_t indexes = Load32(head + 51);
  def.owned_map = RowId::Unpack(Load32(head + 55));
  def.free_map = RowId::Unpack(Load32(head + 59));
  // 32 indexes are the limit for new ones; relationships of foreign files add names beyond it.
  if (columns > kMostColumns || def.next_column_number > 256 || def.var_slots > 256 || names > 1000 ||
      indexes > 256) {
    return Status{Fault::Corrupt,
                  "page " + std::to_string(first_page) + ": the table definition's counts are wrong"};
  }
  TRY_ASSIGN(const uint8_t* statistics, reader.Take(indexes * kStatistics));
  TRY_ASSIGN(const uint8_t* descriptors, reader.Take(columns * kDescriptor));
  for (size_t i = 0; i < columns; ++i) {
    def.columns.push_back(ReadColumn(descriptors + i * kDescriptor));
    TRY_ASSIGN(def.columns.back().name, reader.TakeName());
  }
  TRY(CheckColumns(def));
  for (size_t i = 0; i < indexes; ++i) {
    TRY_ASSIGN(const uint8_t* at, reader.Take(kRealIndexSize));
    TRY_ASSIGN(RealIndex index, ReadRealIndex(at, def));
    index.entries_when_built = Load32(statistics + i * kStatistics);
    index.distinct_keys = Load32(statistics + i * kStatistics + 4);
    def.indexes.push_back(std::move(index));
  }
  TRY_ASSIGN(const uint8_t* logical, reader.Take(names * kLogicalIndexSize));
  for (size_t i = 0; i < names; ++i) {
    TRY_ASSIGN(LogicalIndex name, ReadLogicalIndex(logical + i * kLogicalIndexSize, def));
    TRY_ASSIGN(name.name, reader.TakeName());
    def.names.push_back(std::move(name));
  }
  while (reader.left() >= kMapsSize + 2) {
    TRY_ASSIGN(const uint8_t* at, reader.Take(kMapsSize));
    if (Load16(at) == 0xFFFF) break;
    def.long_values.push_back({Load16(at), RowId::Unpack(Load32(at + 2)), RowId::Unpack(Load32(at + 6))});
  }
  return def;
}

std::vector<uint8_t> SerializeTableDef(const TableDef& def, uint32_t row_count, uint32_t last_counter) {
  std::vector<uint8_t> out;
  Writer writer(out);
  uint8_t* head = writer.Add(TableDef::kFixedPart);
  Store<uint32_t>(head + 12, kColumnMark);
  Store<uint32_t>(head + TableDef::kRowCount, row_count);
  Store<uint32_t>(head + TableDef::kLastCounter, last_counter);
  Store<uint32_t>(head + 24, def.counter_increment);
  head[40] = def.table_type;
  Store<uint16_t>(head + 41, def.next_column_number);
  Store<uint16_t>(head + 43, def.var_slots);
  Store<uint16_t>(head + 45, static_cast<uint16_t>(def.columns.size()));
  Store<uint32_t>(head + 47, static_cast<uint32_t>(def.names.size()));
  Store<uint32_t>(head + 51, static_cast<uint32_t>(def.indexes.size()));
  Store<uint32_t>(head + 55, def.owned_map.Pack());
  Store<uint32_t>(head + 59, def.free_map.Pack());
  for (const RealIndex& index : def.indexes) {
    uint8_t* at = writer.Add(kStatistics);
    Store<uint32_t>(at, index.entries_when_built);
    Store<uint32_t>(at + 4, index.distinct_keys);
  }
  for (const Column& column : def.columns) WriteColumn(column, writer.Add(kDescriptor));
  for (const Column& column : def.columns) writer.AddName(column.name);
  for (const RealIndex& index : def.indexes) WriteRealIndex(index, def, writer.Add(kRealIndexSize));
  for (const LogicalIndex& name : def.names) WriteLogicalIndex(name, writer.Add(kLogicalIndexSize));
  for (const LogicalIndex& name : def.names) writer.AddName(name.name);
  for (const LongValueMaps& maps : def.long_values) {
    uint8_t* at = writer.Add(kMapsSize);
    Store<uint16_t>(at, maps.column_number);
    Store<uint32_t>(at + 2, maps.owned.Pack());
    Store<uint32_t>(at + 6, maps.free.Pack());
  }
  Store<uint16_t>(writer.Add(2), 0xFFFF);
  Store<uint32_t>(out.data() + 8, static_cast<uint32_t>(out.size()));
  return out;
}

Status WriteTableDef(Pager& pager, PageAllocator& allocator, TableDef& def) {
  uint32_t row_count = 0;
  uint32_t last_counter = 0;
  {
    TRY_ASSIGN(const PageRef first, pager.Read(def.page));
    row_count = Load32(first.bytes() + TableDef::kRowCount);
    last_counter = Load32(first.bytes() + TableDef::kLastCounter);
  }
  const std::vector<uint8_t> stream = SerializeTableDef(def, row_count, last_counter);
  if (def.pages.empty()) def.pages.push_back(def.page);
  constexpr size_t kBody = kPageSize - kPageHead;
  const size_t needed = (stream.size() - kPageHead + kBody - 1) / kBody;
  while (def.pages.size() < needed) {
    TRY_ASSIGN(const PageWriter page, allocator.Allocate());
    page.mutable_bytes()[0] = kDefinitionPage;
    def.pages.push_back(page.number());
  }
  while (def.pages.size() > needed) {
    TRY(allocator.Free(def.pages.back()));
    def.pages.pop_back();
  }
  for (size_t i = 0; i < needed; ++i) {
    TRY_ASSIGN(const PageWriter page, pager.Write(def.pages[i]));
    uint8_t* bytes = page.mutable_bytes();
    const size_t from = kPageHead + i * kBody;
    const size_t size = std::min(kBody, stream.size() - from);
    const size_t unused = kBody - size;
    std::memset(bytes, 0, kPageSize);
    bytes[0] = kDefinitionPage;
    bytes[1] = 1;
    Store<uint16_t>(bytes + 2, static_cast<uint16_t>(unused > kPageHead ? unused - kPageHead : 0));
    Store<uint32_t>(bytes + 4, i + 1 < needed ? def.pages[i + 1] : 0);
    std::memcpy(bytes + kPageHead, stream.data() + from, size);
  }
  return Ok();
}

}  // namespace tarvex::jet
