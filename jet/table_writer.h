#pragma once

#include <span>
#include <vector>

#include "jet/table.h"
#include "jet/usage_map.h"

namespace tarvex::jet {

// Changes the rows of one table, its indexes and counts with them. Works inside a transaction of the pager;
// after a failure the caller undoes to a savepoint or rolls back, except that a refused row
// (Fault::Duplicate, Invalid, Range) is found out before anything is written.
class TableWriter {
 public:
  TableWriter(Table& table, PageAllocator& allocator);

  struct Inserted {
    RowId row;
    int32_t counter = 0;  // the number given to the counter field; 0 without one
  };
  // Fields not named are null, a counter gets its next number.
  Expected<Inserted> Insert(std::span<const FieldValue> fields);
  // Changes the named fields only.
  Status Update(RowId row, std::span<const FieldValue> fields);
  Status Delete(RowId row);

  // Builds an index from the rows. Fault::Duplicate when it is unique and the rows are not; nothing but the
  // index is written then.
  Status BuildIndex(RealIndex& index);

 private:
  struct Change {
    const RealIndex* index;
    Bytes old_entry;
    Bytes new_entry;
  };

  Status SetField(const FieldValue& field);
  Status CheckSize() const;
  Expected<RowView> BuiltRow();
  Expected<Bytes> EntryFor(const RealIndex& index, const RowView& row, RowId id) const;
  Status CheckUnique(const RealIndex& index, const Bytes& entry) const;
  Expected<RowId> Place(uint16_t state);
  Expected<bool> TryPlace(PageNumber page, uint16_t state, RowId& placed);
  Status Replace(RowId row);
  Status GainedRoom(PageNumber page);
  Status ResetIfEmpty(PageNumber page);
  Status FreeReplaced(const RowView& old_row, std::span<const FieldValue> fields);
  Status AddToCount(int32_t change);
  Status TakeCounter(std::span<const FieldValue> fields, int32_t& counter);
  int32_t GivenCounter(std::span<const FieldValue> fields) const;
  Status NoteCounter(int32_t counter);

  Table& table_;
  PageAllocator& allocator_;
  RowBuilder builder_;
  std::vector<uint8_t> built_;
  std::vector<uint8_t> raw_;
  PageNumber last_page_ = 0;  // where the last row went
};

}  // namespace tarvex::jet
