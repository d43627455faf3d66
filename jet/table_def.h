#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/status.h"
#include "jet/usage_map.h"
#include "jet/value.h"

namespace tarvex::jet {

inline constexpr int kMostColumns = 255;
inline constexpr int kMostIndexes = 32;
inline constexpr int kMostIndexColumns = 10;
inline constexpr size_t kLongestName = 64;

// One column of a table.
struct Column {
  std::string name;  // UTF-8
  ColumnType type = ColumnType::Long;
  uint16_t number = 0;        // permanent; the bit in a row's null mask
  uint16_t var_slot = 0;      // variable columns: index in a row's variable table
  uint16_t ordinal = 0;       // position shown to users
  uint16_t fixed_offset = 0;  // fixed columns: place in the row's fixed area
  uint16_t length = 0;        // bytes: fixed size; Text 2 x characters; Binary most bytes; Memo and OLE 0
  uint8_t flags = 0;
  uint8_t extra_flags = 0;
  uint8_t precision = 0, scale = 0;  // Numeric
  uint16_t language = 0x0409;        // all others
  uint8_t collation_version = 0;

  static constexpr uint8_t kFixed = 0x01;
  static constexpr uint8_t kAlways = 0x02;
  static constexpr uint8_t kAutoNumber = 0x04;
  static constexpr uint8_t kSystem = 0x10;
  static constexpr uint8_t kSecurityId = 0x20;
  static constexpr uint8_t kAutoGuid = 0x40;
  static constexpr uint8_t kMayCompress = 0x01;  // an extra flag

  bool is_fixed() const { return (flags & kFixed) != 0; }
  bool is_counter() const { return (flags & kAutoNumber) != 0 && type == ColumnType::Long; }
  bool is_long_value() const { return type == ColumnType::Memo || type == ColumnType::Ole; }
  bool is_text() const { return type == ColumnType::Text || type == ColumnType::Memo; }
};

struct IndexColumn {
  int column = 0;  // position in TableDef::columns
  bool ascending = true;
};

// A B-tree of the table.
struct RealIndex {
  std::vector<IndexColumn> columns;
  RowId map;
  PageNumber root = 0;
  uint8_t flags = kAlwaysSet;
  uint32_t entries_when_built = 0;
  uint32_t distinct_keys = 0;

  static constexpr uint8_t kUnique = 0x01;
  static constexpr uint8_t kIgnoreNulls = 0x02;
  static constexpr uint8_t kRequired = 0x08;
  static constexpr uint8_t kAlwaysSet = 0x80;
  bool is_unique() const { return (flags & kUnique) != 0; }
  bool ignores_nulls() const { return (flags & kIgnoreNulls) != 0; }
  bool is_required() const { return (flags & kRequired) != 0; }
};

// A name for a real index. Relationships have entries of their own that may share a real index.
struct LogicalIndex {
  enum Kind : uint8_t { Normal = 0, Primary = 1, Relationship = 2 };
  std::string name;
  uint32_t number = 0;
  uint32_t real = 0;  // position in TableDef::indexes
  uint8_t related_kind = 0;
  int32_t related_number = -1;
  uint32_t related_table = 0;
  uint8_t cascade_updates = 4;
  uint8_t cascade_deletes = 4;
  uint8_t kind = Normal;
};

struct LongValueMaps {
  uint16_t column_number = 0;
  RowId owned;
  RowId free;
};

// The definition of a table: a stream over one or more definition pages. Offsets are those of the stream,
// which begins with the first page's 8-byte header; the headers of later pages are not part of it.
//   offset size
//        8    4   length of the stream
//       12    4   1625
//       16    4   row count
//       20    4   last counter value handed out
//       24    4   counter increment
//       40    1   'N' user table, 'S' system table
//       41    2   number of the next column
//       43    2   number of variable slots so far
//       45    2   columns now
//       47    4   logical indexes
//       51    4   real indexes
//       55    4   rowid of the map of data pages
//       59    4   rowid of the map of pages with free space
//       63        then: 12 bytes a real index (statistics), 25 a column, column names, 52 a real index,
//                 28 a logical index, their names, 10 a Memo or OLE column (its maps), FF FF
struct TableDef {
  static constexpr size_t kRowCount = 16;
  static constexpr size_t kLastCounter = 20;
  static constexpr size_t kFixedPart = 63;

  PageNumber page = 0;
  std::vector<PageNumber> pages;  // of the definition, the first included
  uint8_t table_type = 'N';
  uint16_t next_column_number = 0;
  uint16_t var_slots = 0;
  uint32_t counter_increment = 1;
  std::vector<Column> columns;
  std::vector<RealIndex> indexes;
  std::vector<LogicalIndex> names;  // of the indexes
  std::vector<LongValueMaps> long_values;
  RowId owned_map;
  RowId free_map;

  // Position of the column, compared without regard to ASCII case; -1 when there is none.
  int FindColumn(std::string_view name) const;
  // Position of the real index that a name stands for; -1 when there is none.
  int FindIndex(std::string_view name) const;
  int ColumnWithNumber(uint16_t number) const;
  const LogicalIndex* NameOf(size_t real_index) const;
  bool IsPrimary(size_t real_index) const;
  const LongValueMaps* MapsOf(const Column& column) const;
  // End of the fixed area: where the next fixed column would begin.
  size_t FixedEnd() const;
};

bool SameName(std::string_view a, std::string_view b);

// Reads and checks a definition. Fault::Corrupt names page and reason.
Expected<TableDef> ReadTableDef(Pager& pager, PageNumber first_page);

// The stream of a definition with the given counters.
std::vector<uint8_t> SerializeTableDef(const TableDef& def, uint32_t row_count, uint32_t last_counter);

// Writes the stream to the definition's pages, taking more pages or giving some back, and records them in
// `def.pages`. The first page must exist; row count and last counter stay as they are there.
Status WriteTableDef(Pager& pager, PageAllocator& allocator, TableDef& def);

// Bytes that a value of this type takes in the fixed area; 0 for Boolean and types that are always variable.
size_t FixedSize(ColumnType type, uint16_t length);

}  // namespace tarvex::jet
