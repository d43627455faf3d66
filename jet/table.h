#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jet/index_tree.h"
#include "jet/row.h"
#include "jet/table_def.h"

namespace tarvex::jet {

class Table;

// One row, held in memory while the record lives. A change to the row makes the record invalid.
//
// The typed getters read a Null as 0, false or the empty text. When the stored bytes do not fit the type they
// give the same and remember the failure: whoever reads a record asks status() once at the end.
class Record {
 public:
  RowId id() const { return id_; }
  bool IsNull(int column) const;
  bool Boolean(int column) const;
  int32_t Long(int column) const;  // Byte, Integer and Long
  float Single(int column) const;
  double Double(int column) const;  // Double and Date
  int64_t Money(int column) const;  // Currency, in ten-thousandths
  std::string Text(int column) const;

  // Any column as it is; Memo and OLE with their whole content.
  Expected<Value> Get(int column) const;

  const Status& status() const { return status_; }
  const RowView& row() const { return row_; }

 private:
  friend class Table;
  friend class TableScan;
  std::span<const uint8_t> Raw(int column, size_t size) const;

  const Table* table_ = nullptr;
  PageRef page_;
  RowId id_;  // of the row's home, which may point elsewhere
  RowView row_;
  mutable Status status_;
};

// Walks all rows of a table in the order of the file. Rows inserted or moved meanwhile may be met or missed.
class TableScan {
 public:
  // The next row, or false at the end.
  Expected<bool> Next();
  const Record& record() const { return record_; }

 private:
  friend class Table;
  explicit TableScan(const Table& table) : table_(&table) {}

  const Table* table_;
  PageRef page_;
  PageNumber next_page_ = 0;
  int slot_ = 0;
  Record record_;
};

// A part of an index.
class IndexRange {
 public:
  bool AtEnd() const { return cursor_.AtEnd() || cursor_.CompareHead(to_) > 0; }
  RowId row() const { return cursor_.row(); }
  Status Next() { return cursor_.Next(); }

 private:
  friend class Table;
  IndexRange(IndexCursor cursor, Bytes to) : cursor_(std::move(cursor)), to_(std::move(to)) {}
  IndexCursor cursor_;
  Bytes to_;
};

// A table for reading.
class Table {
 public:
  Table(Pager& pager, std::string name, TableDef def)
      : pager_(&pager), name_(std::move(name)), def_(std::move(def)) {}

  const std::string& name() const { return name_; }
  const TableDef& def() const { return def_; }
  Pager& pager() const { return *pager_; }

  // Positions; -1 when there is no such column or index.
  int Column(std::string_view name) const { return def_.FindColumn(name); }
  int Index(std::string_view name) const { return def_.FindIndex(name); }

  Expected<uint32_t> RowCount() const;
  Expected<uint32_t> LastCounter() const;

  TableScan Scan() const { return TableScan(*this); }
  // Fault::NotFound when the row is deleted, Fault::Corrupt when it was never one.
  Expected<Record> Get(RowId row) const;

  // Rows whose first index columns have exactly these values, in index order. Fewer values than the index has
  // columns select by the first ones.
  Expected<std::vector<RowId>> Find(int index, std::span<const Value> values) const;
  // The first of them; Fault::NotFound when there is none.
  Expected<RowId> FindFirst(int index, std::span<const Value> values) const;
  // From the first row not below `from` to the last not above `to`; both select by the first columns, and
  // none at all stands for the end of the index.
  Expected<IndexRange> Range(int index, std::span<const Value> from, std::span<const Value> to) const;

  // The key of the first index columns for these values.
  Expected<Bytes> KeyOf(const RealIndex& index, std::span<const Value> values) const;
  // The key of a row, and whether all and any of its columns are null. A Memo's content is read.
  struct RowKey {
    Bytes bytes;
    bool all_null = true;
    bool any_null = false;
  };
  Expected<RowKey> KeyOfRow(const RealIndex& index, const RowView& row) const;

  IndexPlace PlaceOf(const RealIndex& index) const { return {def_.page, index.root, index.map}; }

 private:
  friend class TableWriter;
  friend class Schema;
  friend class Database;
  Pager* pager_;
  std::string name_;
  TableDef def_;
};

}  // namespace tarvex::jet
