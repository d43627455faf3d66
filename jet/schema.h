#pragma once

#include <string>

#include "jet/database.h"

namespace tarvex::jet {

// Makes tables and indexes: their pages, maps and definitions. The catalogue's rows are the caller's.
class Schema {
 public:
  Schema(Pager& pager, PageAllocator& allocator) : pager_(pager), allocator_(allocator) {}

  // A definition without rows for `spec`, its maps and the empty roots of its indexes. Fault::Invalid for
  // names, sizes and counts that the format does not take.
  Expected<TableDef> NewTable(const TableSpec& spec);
  // Adds an index over the rows that are there and writes the definition.
  Status AddIndex(Table& table, const IndexSpec& spec);

  // The row of a new, empty map, on `page` when it has room, else on a page of its own.
  Expected<RowId> NewMap(PageNumber page);

 private:
  Expected<RealIndex> NewIndex(TableDef& def, const IndexSpec& spec);

  Pager& pager_;
  PageAllocator& allocator_;
};

// Writes the pages of a blank database into an empty file: header, maps, the four system tables and their
// rows.
Status WriteBlankDatabase(Pager& pager, double now);

// The number of map rows, each empty, added to a formatted map page.
void AddEmptyMaps(uint8_t* page, int count);

}  // namespace tarvex::jet
