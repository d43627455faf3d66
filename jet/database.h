#pragma once

#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/file.h"
#include "jet/header_page.h"
#include "jet/pager.h"
#include "jet/table.h"
#include "jet/table_writer.h"

namespace tarvex::jet {

// A column of a table to be made.
struct ColumnSpec {
  std::string name;
  ColumnType type = ColumnType::Long;
  int size = 0;             // Text: characters, 1 to 255; Binary: bytes
  bool is_counter = false;  // Long only
};

struct IndexSpec {
  std::string name;
  std::vector<std::string> columns;  // ascending
  bool is_primary = false;
  bool is_unique = false;  // a primary index always is
};

// All text columns take zero-length texts.
struct TableSpec {
  std::string name;
  std::vector<ColumnSpec> columns;
  std::vector<IndexSpec> indexes;
};

// One object of the file's catalogue.
struct CatalogEntry {
  std::string name;
  PageNumber page = 0;  // of a table: its definition
  int32_t id = 0;
  int32_t parent = 0;
  int type = 0;  // 1 = table of this file
  uint32_t flags = 0;

  bool is_table() const { return type == 1; }
  bool is_system() const { return (flags & 0x80000002) != 0; }
};

class Transaction;

// An open JET 4.0 file. One thread; the tables it hands out live as long as it does.
class Database {
 public:
  // Makes a blank database; `now` in days since 1899-12-30. Fault::Exists when the file does. On failure no
  // file is left behind.
  static Expected<std::unique_ptr<Database>> Create(FileSystem& files, const std::string& path, double now);
  // Faults as FileSystem::Open; Corrupt and Unsupported with the reason in plain words.
  static Expected<std::unique_ptr<Database>> Open(FileSystem& files, const std::string& path, OpenMode mode,
                                                  size_t cache_pages = Pager::kDefaultCache);

  const Header& header() const { return header_; }
  Pager& pager() { return *pager_; }

  // Everything the catalogue lists, in its order.
  Expected<std::vector<CatalogEntry>> Catalog();
  // Names of the user's tables.
  Expected<std::vector<std::string>> TableNames();
  // Fault::NotFound when there is no such table; system tables are found too.
  Expected<Table*> FindTable(std::string_view name);

  // One transaction at a time. `now` is what changed definitions are dated with.
  Expected<std::unique_ptr<Transaction>> Begin(const CommandName& name, double now);

 private:
  friend class Transaction;
  explicit Database(std::unique_ptr<Pager> pager) : pager_(std::move(pager)) {}
  Status Load();
  Expected<Table*> TableAt(PageNumber page, const std::string& name);
  Expected<TableWriter*> WriterFor(Table& table);
  void Forget();

  std::unique_ptr<Pager> pager_;
  Header header_;
  std::unique_ptr<PageAllocator> allocator_;
  struct OpenTable {
    std::unique_ptr<Table> table;
    std::unique_ptr<TableWriter> writer;
  };
  std::map<PageNumber, OpenTable> tables_;
  std::vector<std::unique_ptr<Table>> retired_;           // whose creation was undone
  std::map<std::string, PageNumber, std::less<>> pages_;  // of tables, by upper-case name
};

// All writing. What is not committed when it goes out of scope is undone.
class Transaction {
 public:
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  Database& database() { return database_; }

  // See TableWriter. A refused row (Fault::Duplicate, Invalid, Range) leaves the table as it was; after any
  // other failure the transaction can only be rolled back.
  Expected<TableWriter::Inserted> Insert(Table& table, std::span<const FieldValue> fields);
  Status Update(Table& table, RowId row, std::span<const FieldValue> fields);
  Status Delete(Table& table, RowId row);

  // Fault::Exists, or Invalid for names and sizes that the format does not take.
  Expected<Table*> CreateTable(const TableSpec& spec);
  // Builds the index from the rows that are there.
  Status CreateIndex(Table& table, const IndexSpec& spec);

  // A savepoint can be undone by itself. Savepoints nest.
  int Savepoint() { return database_.pager_->Savepoint(); }
  Status RollbackTo(int savepoint);
  void Release(int savepoint) { database_.pager_->Release(savepoint); }

  // After Ok() the changes are on the disk. After a failure they are undone.
  Status Commit();
  Status Rollback();

 private:
  friend class Database;
  Expected<Table*> AddTable(const TableSpec& spec);
  Transaction(Database& database, double now) : database_(database), now_(now) {}

  Database& database_;
  double now_;
  bool is_open_ = true;
  bool changed_definitions_ = false;
};

}  // namespace tarvex::jet
