#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "jet/data_page.h"
#include "jet/pager.h"
#include "jet/table_def.h"
#include "jet/usage_map.h"

namespace tarvex::jet {

// Memo and OLE content. The row holds a header of 12 bytes:
//   u32  length in bytes (low 30 bits) and kind: 8000 0000h the content follows here; 4000 0000h it is one
//   row of
//        a long-value page; 0 it is a chain of rows, each u32 rowid of the next (0 = last) + content
//   u32  rowid of the (first) row, 0 when the content follows
//   u32  unused
struct LongValueHeader {
  static constexpr size_t kSize = 12;
  static constexpr uint32_t kInline = 0x80000000;
  static constexpr uint32_t kSingle = 0x40000000;
  static constexpr uint32_t kLength = 0x3FFFFFFF;
};

// The whole content. `raw` is what the row holds. Every step of a chain is checked; its length is stated, so
// it ends.
Expected<Bytes> ReadLongValue(Pager& pager, std::span<const uint8_t> raw);

// Stores content and gives what the row holds: short content inline, longer in rows of the column's pages.
Expected<Bytes> WriteLongValue(Pager& pager, PageAllocator& allocator, const LongValueMaps& maps,
                               std::span<const uint8_t> content);

// Marks the rows of a value deleted and gives emptied pages back.
Status FreeLongValue(Pager& pager, PageAllocator& allocator, const LongValueMaps& maps,
                     std::span<const uint8_t> raw);

// The rows that hold a value, for a checker.
Expected<std::vector<RowId>> LongValueRows(Pager& pager, std::span<const uint8_t> raw);

}  // namespace tarvex::jet
