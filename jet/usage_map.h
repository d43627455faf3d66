#pragma once

#include <cstdint>
#include <optional>

#include "jet/pager.h"
#include "jet/value.h"

namespace tarvex::jet {

// A set of pages, kept as a row on a map page.
//   type 0, inline:    00, u32 first page (a multiple of 8), bitmap
//   type 1, reference: 01, u32 numbers of bitmap pages (type 05h), entry k for pages k*32736 .. +32735; 0 =
//   none
// In the global map a set bit means "free"; in all others "mine".

inline constexpr size_t kMapRowSize = 69;        // of the map rows that are written new
inline constexpr uint32_t kInlinePages = 512;    // that such a row covers inline
inline constexpr uint32_t kBitmapPages = 32736;  // that one bitmap page covers: 4092 bytes of bits

// Whether `page` is in the map.
Expected<bool> MapHas(Pager& pager, RowId map, PageNumber page);

// The lowest page >= `from` in the map.
Expected<std::optional<PageNumber>> MapNext(Pager& pager, RowId map, PageNumber from);

// The highest page in the map.
Expected<std::optional<PageNumber>> MapLast(Pager& pager, RowId map);

// Hands out and takes back pages of the file. Keeps the global map, in which pages beyond its range and
// beyond the end of the file are free.
class PageAllocator {
 public:
  PageAllocator(Pager& pager, RowId global_map) : pager_(pager), map_(global_map) {}

  // A zeroed page that belongs to nobody yet: a freed one, else a new one at the end of the file.
  Expected<PageWriter> Allocate();
  Status Free(PageNumber page);

  // Adds `page` to a table's or index's map, which may become a reference map and so need a page itself.
  Status MapAdd(RowId map, PageNumber page);
  Status MapRemove(RowId map, PageNumber page);

 private:
  Status MarkUsed(PageNumber page);
  Expected<PageNumber> NewBitmapPage(uint8_t fill);
  Status SetBit(RowId map, PageNumber page, bool value, bool is_global);

  Pager& pager_;
  RowId map_;
  PageNumber lowest_free_ = 0;  // no page below is free
  uint64_t undo_seen_ = 0;
};

}  // namespace tarvex::jet
