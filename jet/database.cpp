#include "jet/database.h"

#include <algorithm>

#include "jet/properties.h"
#include "jet/schema.h"

namespace tarvex::jet {
namespace {

constexpr int32_t kTablesContainer = 0x0F000001;
// What the rights rows of a new table say; they follow from the inheritable rights of the tables' container.
constexpr int32_t kOwnerRights = 0xF00FE, kUsersRights = 0xFFEFF;
constexpr uint32_t kPageOfId = 0x00FFFFFF;

std::string Upper(std::string_view name) {
  std::string upper(name);
  for (char& c : upper) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return upper;
}

}  // namespace

Expected<std::unique_ptr<Database>> Database::Create(FileSystem& files, const std::string& path, double now) {
  TRY_ASSIGN(auto pager, Pager::Open(files, path, OpenMode::Create));
  std::unique_ptr<Database> database(new Database(std::move(pager)));
  const auto fill = [&]() -> Status {
    TRY(database->pager_->Begin({"create", ""}));
    TRY(WriteBlankDatabase(*database->pager_, now));
    TRY(database->pager_->Commit());
    TRY(files.SyncFolderOf(path));
    return database->Load();
  };
  if (Status status = fill(); !status.ok()) {
    database.reset();
    (void)files.Remove(path);
    if (const std::string journal = Journal::PathFor(path); files.Exists(journal))
      (void)files.Remove(journal);
    return status;
  }
  return database;
}

Expected<std::unique_ptr<Database>> Database::Open(FileSystem& files, const std::string& path, OpenMode mode,
                                                   size_t cache_pages) {
  TRY_ASSIGN(auto pager, Pager::Open(files, path, mode, cache_pages));
  std::unique_ptr<Database> database(new Database(std::move(pager)));
  TRY(database->Load());
  return database;
}

Status Database::Load() {
  TRY_ASSIGN(const PageRef page0, pager_->Read(0));
  TRY_ASSIGN(header_, ReadHeader(page0.span()));
  allocator_ = std::make_unique<PageAllocator>(*pager_, RowId::Unpack(header_.global_map));
  return TableAt(header_.system_tables[0], "MSysObjects").status();
}

Expected<Table*> Database::TableAt(PageNumber page, const std::string& name) {
  if (const auto found = tables_.find(page); found != tables_.end()) return found->second.table.get();
  TRY_ASSIGN(TableDef def, ReadTableDef(*pager_, page));
  OpenTable open;
  open.table = std::make_unique<Table>(*pager_, name, std::move(def));
  Table* table = open.table.get();
  tables_[page] = std::move(open);
  return table;
}

Expected<TableWriter*> Database::WriterFor(Table& table) {
  const auto found = tables_.find(table.def().page);
  if (found == tables_.end() || found->second.table.get() != &table) {
    return Status{Fault::Invalid, "table " + table.name() + " is not open"};
  }
  OpenTable& open = found->second;
  if (!open.writer) open.writer = std::make_unique<TableWriter>(table, *allocator_);
  return open.writer.get();
}

Expected<std::vector<CatalogEntry>> Database::Catalog() {
  TRY_ASSIGN(Table * objects, TableAt(header_.system_tables[0], "MSysObjects"));
  const int id = objects->Column("Id"), parent = objects->Column("ParentId"), name = objects->Column("Name"),
            type = objects->Column("Type"), flags = objects->Column("Flags");
  if (std::min({id, parent, name, type, flags}) < 0) {
    return Status{Fault::Corrupt,
                  "page " + std::to_string(objects->def().page) + ": the catalogue lacks a field"};
  }
  std::vector<CatalogEntry> entries;
  TableScan scan = objects->Scan();
  while (true) {
    TRY_ASSIGN(const bool more, scan.Next());
    if (!more) return entries;
    const Record& row = scan.record();
    CatalogEntry entry;
    entry.name = row.Text(name);
    entry.id = row.Long(id);
    entry.parent = row.Long(parent);
    entry.type = row.Long(type);
    entry.flags = static_cast<uint32_t>(row.Long(flags));
    entry.page = static_cast<uint32_t>(entry.id) & kPageOfId;
    TRY(row.status());
    entries.push_back(std::move(entry));
  }
}

Expected<std::vector<std::string>> Database::TableNames() {
  TRY_ASSIGN(const auto entries, Catalog());
  std::vector<std::string> names;
  for (const CatalogEntry& entry : entries) {
    if (entry.is_table() && !entry.is_system()) names.push_back(entry.name);
  }
  return names;
}

Expected<Table*> Database::FindTable(std::string_view name) {
  const std::string upper = Upper(name);
  if (const auto found = pages_.find(upper); found != pages_.end())
    return TableAt(found->second, std::string(name));
  TRY_ASSIGN(const auto entries, Catalog());
  for (const CatalogEntry& entry : entries) {
    if (!entry.is_table() || Upper(entry.name) != upper) continue;
    pages_[upper] = entry.page;
    return TableAt(entry.page, entry.name);
  }
  return Status{Fault::NotFound, "there is no table " + std::string(name)};
}

Expected<std::unique_ptr<Transaction>> Database::Begin(const CommandName& name, double now) {
  if (!header_.has_known_collation()) {
    return Status{Fault::Unsupported, "the file sorts by another language than General and can only be read"};
  }
  TRY(pager_->Begin(name));
  return std::unique_ptr<Transaction>(new Transaction(*this, now));
}

// Definitions may be those of an undone change: they are read again. Tables that are no more stay in memory,
// for somebody may hold them, but take no rows.
void Database::Forget() {
  pages_.clear();
  for (auto open = tables_.begin(); open != tables_.end();) {
    open->second.writer.reset();
    auto def = ReadTableDef(*pager_, open->first);
    if (def.ok()) {
      open->second.table->def_ = std::move(*def);
      ++open;
    } else {
      retired_.push_back(std::move(open->second.table));
      open = tables_.erase(open);
    }
  }
}

Transaction::~Transaction() {
  if (is_open_) (void)Rollback();
}

Expected<TableWriter::Inserted> Transaction::Insert(Table& table, std::span<const FieldValue> fields) {
  TRY_ASSIGN(TableWriter * writer, database_.WriterFor(table));
  if (table.def().long_values.empty()) return writer->Insert(fields);
  // Long values are on the disk before the row is; a refused row must not leave them behind.
  const int savepoint = Savepoint();
  auto inserted = writer->Insert(fields);
  if (inserted.ok()) {
    Release(savepoint);
  } else {
    TRY(database_.pager_->RollbackTo(savepoint));
  }
  return inserted;
}

Status Transaction::Update(Table& table, RowId row, std::span<const FieldValue> fields) {
  TRY_ASSIGN(TableWriter * writer, database_.WriterFor(table));
  if (table.def().long_values.empty()) return writer->Update(row, fields);
  const int savepoint = Savepoint();
  Status status = writer->Update(row, fields);
  if (status.ok()) {
    Release(savepoint);
  } else {
    TRY(database_.pager_->RollbackTo(savepoint));
  }
  return status;
}

Status Transaction::Delete(Table& table, RowId row) {
  TRY_ASSIGN(TableWriter * writer, database_.WriterFor(table));
  return writer->Delete(row);
}

Expected<Table*> Transaction::CreateTable(const TableSpec& spec) {
  if (const auto existing = database_.FindTable(spec.name); existing.ok()) {
    return Status{Fault::Exists, "table " + spec.name + " exists already"};
  }
  changed_definitions_ = true;
  const int savepoint = Savepoint();
  auto table = AddTable(spec);
  if (table.ok()) {
    Release(savepoint);
  } else {
    TRY(RollbackTo(savepoint));
  }
  return table;
}

// The pages of a table and its rows in the catalogue.
Expected<Table*> Transaction::AddTable(const TableSpec& spec) {
  Schema schema(*database_.pager_, *database_.allocator_);
  TRY_ASSIGN(const TableDef def, schema.NewTable(spec));
  std::vector<std::string> texts;
  for (const ColumnSpec& column : spec.columns) {
    if (column.type == ColumnType::Text || column.type == ColumnType::Memo) texts.push_back(column.name);
  }
  TRY_ASSIGN(Table * objects, database_.TableAt(database_.header_.system_tables[0], "MSysObjects"));
  TRY_ASSIGN(Table * rights, database_.TableAt(database_.header_.system_tables[1], "MSysACEs"));
  std::vector<FieldValue> row = {
      {objects->Column("Id"), static_cast<int32_t>(def.page)},
      {objects->Column("ParentId"), kTablesContainer},
      {objects->Column("Name"), spec.name},
      {objects->Column("Type"), 1},
      {objects->Column("DateCreate"), Date{now_}},
      {objects->Column("DateUpdate"), Date{now_}},
      {objects->Column("Owner"), SecurityId(database_.header_, Principal::Admin)},
      {objects->Column("Flags"), 0},
  };
  if (!texts.empty()) row.push_back({objects->Column("LvProp"), AllowZeroLengthProperties(texts)});
  TRY(Insert(*objects, row).status());
  const std::pair<int32_t, Principal> who[] = {{kOwnerRights, Principal::Admin},
                                               {kUsersRights, Principal::Users}};
  for (const auto& [mask, principal] : who) {
    TRY(Insert(*rights,
               std::vector<FieldValue>{{rights->Column("ObjectId"), static_cast<int32_t>(def.page)},
                                       {rights->Column("ACM"), mask},
                                       {rights->Column("SID"), SecurityId(database_.header_, principal)},
                                       {rights->Column("FInheritable"), false}})
            .status());
  }
  return database_.TableAt(def.page, spec.name);
}

Status Transaction::CreateIndex(Table& table, const IndexSpec& spec) {
  changed_definitions_ = true;
  Schema schema(*database_.pager_, *database_.allocator_);
  const int savepoint = Savepoint();
  Status status = schema.AddIndex(table, spec);
  if (status.ok()) {
    Release(savepoint);
  } else {
    TRY(database_.pager_->RollbackTo(savepoint));
  }
  return status;
}

Status Transaction::RollbackTo(int savepoint) {
  TRY(database_.pager_->RollbackTo(savepoint));
  if (changed_definitions_) database_.Forget();
  return Ok();
}

Status Transaction::Commit() {
  is_open_ = false;
  Status status = database_.pager_->Commit();
  if (!status.ok() && changed_definitions_) database_.Forget();
  return status;
}

Status Transaction::Rollback() {
  is_open_ = false;
  Status status = database_.pager_->Rollback();
  if (changed_definitions_) database_.Forget();
  return status;
}

}  // namespace tarvex::jet
