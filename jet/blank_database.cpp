#include <algorithm>
#include <cstring>
#include <map>
#include <vector>

#include "jet/bytes.h"
#include "jet/data_page.h"
#include "jet/header_page.h"
#include "jet/schema.h"

namespace tarvex::jet {
namespace {

// Page plan of a blank file: 0 header, 1 global maps, 2 to 5 definitions of the system tables, 6 their maps,
// 7 to 13 the roots of their indexes, then the data pages as rows come.
constexpr PageNumber kMapPage = 6;
constexpr PageNumber kFirstRoot = 7;
constexpr PageNumber kFixedPages = 14;
constexpr int kSystemMaps = 31;

constexpr uint8_t kFixed = 0x13, kVariable = 0x12, kSid = 0x32;

struct SystemColumn {
  const char* name;
  uint16_t number;
  ColumnType type;
  uint16_t length;
  uint8_t flags;
  uint16_t var_slot;
  uint16_t fixed_offset;
};

struct SystemIndex {
  const char* name;
  std::vector<const char*> columns;
  uint8_t flags;
  bool is_primary;
};

struct SystemTable {
  const char* name;
  std::vector<SystemColumn> columns;  // in the order of their names
  uint16_t var_slots;
  std::vector<SystemIndex> indexes;
};

using Type = ColumnType;

// The layout of the four tables is that of every file of the format.
const std::vector<SystemTable>& SystemTables() {
  static const std::vector<SystemTable> tables = {
      {"MSysObjects",
       {{"Connect", 9, Type::Memo, 0, kVariable, 3, 0},
        {"Database", 8, Type::Memo, 0, kVariable, 2, 0},
        {"DateCreate", 4, Type::Date, 8, kFixed, 1, 10},
        {"DateUpdate", 5, Type::Date, 8, kFixed, 1, 18},
        {"Flags", 7, Type::Long, 4, kFixed, 2, 26},
        {"ForeignName", 10, Type::Text, 510, kVariable, 4, 0},
        {"Id", 0, Type::Long, 4, kFixed, 0, 0},
        {"Lv", 13, Type::Ole, 0, kVariable, 7, 0},
        {"LvExtra", 16, Type::Ole, 0, kVariable, 10, 0},
        {"LvModule", 15, Type::Ole, 0, kVariable, 9, 0},
        {"LvProp", 14, Type::Ole, 0, kVariable, 8, 0},
        {"Name", 2, Type::Text, 510, kVariable, 0, 0},
        {"Owner", 6, Type::Binary, 510, kSid, 1, 0},
        {"ParentId", 1, Type::Long, 4, kFixed, 0, 4},
        {"RmtInfoLong", 12, Type::Ole, 0, kVariable, 6, 0},
        {"RmtInfoShort", 11, Type::Binary, 510, kVariable, 5, 0},
        {"Type", 3, Type::Integer, 2, kFixed, 1, 8}},
       11,
       {{"ParentIdName", {"ParentId", "Name"}, 0x81, false}, {"Id", {"Id"}, 0x81, true}}},
      {"MSysACEs",
       {{"ACM", 2, Type::Long, 4, kFixed, 1, 4},
        {"FInheritable", 3, Type::Boolean, 1, kFixed, 1, 0},
        {"ObjectId", 0, Type::Long, 4, kFixed, 0, 0},
        {"SID", 1, Type::Binary, 510, kSid, 0, 0}},
       1,
       {{"ObjectId", {"ObjectId"}, 0x88, false}}},
      {"MSysQueries",
       {{"Attribute", 1, Type::Byte, 1, kFixed, 0, 4},
        {"Expression", 5, Type::Memo, 0, kVariable, 3, 0},
        {"Flag", 6, Type::Integer, 2, kFixed, 4, 5},
        {"LvExtra", 7, Type::Long, 4, kFixed, 4, 7},
        {"Name1", 3, Type::Text, 510, kVariable, 1, 0},
        {"Name2", 4, Type::Text, 510, kVariable, 2, 0},
        {"ObjectId", 0, Type::Long, 4, kFixed, 0, 0},
        {"Order", 2, Type::Binary, 510, kVariable, 0, 0}},
       4,
       {{"ObjectIdAttribute", {"ObjectId", "Attribute", "Order"}, 0x81, true}}},
      {"MSysRelationships",
       {{"ccolumn", 2, Type::Long, 4, kFixed, 1, 4},
        {"grbit", 1, Type::Long, 4, kFixed, 1, 0},
        {"icolumn", 3, Type::Long, 4, kFixed, 1, 8},
        {"szColumn", 5, Type::Text, 510, kVariable, 2, 0},
        {"szObject", 4, Type::Text, 510, kVariable, 1, 0},
        {"szReferencedColumn", 7, Type::Text, 510, kVariable, 4, 0},
        {"szReferencedObject", 6, Type::Text, 510, kVariable, 3, 0},
        {"szRelationship", 0, Type::Text, 510, kVariable, 0, 0}},
       5,
       {{"szRelationship", {"szRelationship"}, 0x82, false},
        {"szObject", {"szObject"}, 0x82, false},
        {"szReferencedObject", {"szReferencedObject"}, 0x82, false}}},
  };
  return tables;
}

// Gives out the rows of the map page and the roots in order.
struct Places {
  int next_map = 0;
  PageNumber next_root = kFirstRoot;
  RowId Map() { return {kMapPage, static_cast<uint8_t>(next_map++)}; }
};

TableDef DefinitionOf(const SystemTable& table, PageNumber page, Places& places) {
  TableDef def;
  def.page = page;
  def.table_type = 'S';
  def.next_column_number = static_cast<uint16_t>(table.columns.size());
  def.var_slots = table.var_slots;
  std::vector<uint16_t> long_columns;
  for (const SystemColumn& source : table.columns) {
    Column column;
    column.name = source.name;
    column.number = source.number;
    column.type = source.type;
    column.length = source.length;
    column.flags = source.flags;
    column.var_slot = source.var_slot;
    column.fixed_offset = source.fixed_offset;
    if (column.is_long_value()) long_columns.push_back(column.number);
    def.columns.push_back(std::move(column));
  }
  def.owned_map = places.Map();
  def.free_map = places.Map();
  std::sort(long_columns.begin(), long_columns.end());
  std::map<uint16_t, LongValueMaps> maps;
  for (const uint16_t number : long_columns) {
    const RowId owned = places.Map();
    maps[number] = {number, owned, places.Map()};
  }
  for (const Column& column : def.columns) {
    if (column.is_long_value()) def.long_values.push_back(maps[column.number]);
  }
  for (const SystemIndex& source : table.indexes) {
    RealIndex index;
    for (const char* name : source.columns) index.columns.push_back({def.FindColumn(name), true});
    index.flags = source.flags;
    index.map = places.Map();
    index.root = places.next_root++;
    LogicalIndex name;
    name.name = source.name;
    name.number = name.real = static_cast<uint32_t>(def.indexes.size());
    name.kind = source.is_primary ? LogicalIndex::Primary : LogicalIndex::Normal;
    def.names.push_back(std::move(name));
    def.indexes.push_back(std::move(index));
  }
  std::sort(def.names.begin(), def.names.end(),
            [](const LogicalIndex& a, const LogicalIndex& b) { return a.name < b.name; });
  return def;
}

// Row 0 the global map, with every page from the first that is not laid out here on free; row 1 empty.
void WriteGlobalMaps(uint8_t* page) {
  DataPage::Format(page, 1);
  AddEmptyMaps(page, 2);
  uint8_t* bits = page + kPageSize - kMapRowSize + 5;
  for (PageNumber free = kFixedPages; free < kInlinePages; ++free)
    bits[free / 8] |= static_cast<uint8_t>(1 << free % 8);
}

constexpr int32_t kTables = 0x0F000001, kDatabases = 0x0F000002, kRelationships = 0x0F000003;
constexpr int32_t kRoot = 0x0F000000, kMSysDb = 0x10000000;

struct ObjectRow {
  int32_t id;
  int32_t parent;
  const char* name;
  int type;
  Principal owner;
};

constexpr ObjectRow kObjects[] = {
    {kTables, kRoot, "Tables", 3, Principal::Engine},
    {kDatabases, kRoot, "Databases", 3, Principal::Engine},
    {kRelationships, kRoot, "Relationships", 3, Principal::Engine},
    {kMSysDb, kDatabases, "MSysDb", 2, Principal::Admin},
    {2, kTables, "MSysObjects", 1, Principal::Engine},
    {3, kTables, "MSysACEs", 1, Principal::Engine},
    {4, kTables, "MSysQueries", 1, Principal::Engine},
    {5, kTables, "MSysRelationships", 1, Principal::Engine},
};

struct RightRow {
  int32_t object;
  int32_t rights;
  Principal who;
  bool is_inheritable;
};

constexpr RightRow kRights[] = {
    {2, 0x60000, Principal::Admin, false},
    {3, 0x60000, Principal::Admin, false},
    {4, 0x60000, Principal::Admin, false},
    {5, 0xE0000, Principal::Admin, false},
    {kTables, 0xF00FE, Principal::Creator, true},
    {kTables, 0x60001, Principal::Admin, false},
    {kRelationships, 0xF00FE, Principal::Creator, true},
    {kRelationships, 0x60001, Principal::Admin, false},
    {kDatabases, 0x60000, Principal::Admin, false},
    {kMSysDb, 0x6000E, Principal::Admin, false},
    {kMSysDb, 0x0000E, Principal::Users, false},
    {4, 0x14, Principal::Users, false},
    {5, 0x14, Principal::Users, false},
    {2, 0x14, Principal::Users, false},
    {kTables, 0xFFEFF, Principal::Users, true},
    {kRelationships, 0xFFFFF, Principal::Users, true},
};

Status AddRows(Pager& pager, PageAllocator& allocator, const Header& header, double now,
               const TableDef& objects, const TableDef& rights) {
  Table object_table(pager, "MSysObjects", objects);
  TableWriter object_writer(object_table, allocator);
  for (const ObjectRow& row : kObjects) {
    TRY(object_writer
            .Insert(std::vector<FieldValue>{
                {object_table.Column("Id"), row.id},
                {object_table.Column("ParentId"), row.parent},
                {object_table.Column("Name"), std::string(row.name)},
                {object_table.Column("Type"), row.type},
                {object_table.Column("DateCreate"), Date{now}},
                {object_table.Column("DateUpdate"), Date{now}},
                {object_table.Column("Owner"), SecurityId(header, row.owner)},
                {object_table.Column("Flags"), static_cast<int32_t>(0x80000000)},
            })
            .status());
  }
  Table right_table(pager, "MSysACEs", rights);
  TableWriter right_writer(right_table, allocator);
  for (const RightRow& row : kRights) {
    TRY(right_writer
            .Insert(std::vector<FieldValue>{
                {right_table.Column("ObjectId"), row.object},
                {right_table.Column("ACM"), row.rights},
                {right_table.Column("SID"), SecurityId(header, row.who)},
                {right_table.Column("FInheritable"), row.is_inheritable},
            })
            .status());
  }
  return Ok();
}

}  // namespace

Status WriteBlankDatabase(Pager& pager, double now) {
  for (PageNumber i = 0; i < kFixedPages; ++i) TRY(pager.Append().status());
  TRY_ASSIGN(const PageWriter header_page, pager.Write(0));
  const auto header_bytes = NewHeaderPage(now);
  std::memcpy(header_page.mutable_bytes(), header_bytes.data(), kPageSize);
  TRY_ASSIGN(const Header header, ReadHeader(header_page.span()));
  TRY_ASSIGN(const PageWriter maps_page, pager.Write(1));
  WriteGlobalMaps(maps_page.mutable_bytes());
  TRY_ASSIGN(const PageWriter system_maps, pager.Write(kMapPage));
  DataPage::Format(system_maps.mutable_bytes(), 0);
  AddEmptyMaps(system_maps.mutable_bytes(), kSystemMaps);

  PageAllocator allocator(pager, RowId{1, 0});
  Places places;
  std::vector<TableDef> defs;
  PageNumber page = 2;
  for (const SystemTable& table : SystemTables()) {
    TableDef def = DefinitionOf(table, page++, places);
    TRY(WriteTableDef(pager, allocator, def));
    for (const RealIndex& index : def.indexes) {
      TRY_ASSIGN(const PageWriter root, pager.Write(index.root));
      IndexPage::Format(root.mutable_bytes(), def.page, 0);
      TRY(allocator.MapAdd(index.map, index.root));
    }
    defs.push_back(std::move(def));
  }
  return AddRows(pager, allocator, header, now, defs[0], defs[1]);
}

}  // namespace tarvex::jet
