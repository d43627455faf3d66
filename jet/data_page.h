#pragma once

#include <cstdint>
#include <span>

#include "base/status.h"
#include "jet/bytes.h"
#include "jet/pager.h"
#include "jet/value.h"

namespace tarvex::jet {

enum PageType : uint8_t {
  kDataPage = 1,
  kDefinitionPage = 2,
  kIndexNode = 3,
  kIndexLeaf = 4,
  kBitmapPage = 5,
  kFreedDefinition = 8,
  kFreedData = 9,
};

// Checks that a page has passed; see Frame::checked.
enum PageCheck : uint32_t { kCheckedRows = 1, kCheckedIndex = 2 };

// The rows of one data, map or long-value page. Integers are little-endian.
//   offset size
//        0    2   01 01
//        2    2   free bytes between the slots and the lowest row
//        4    4   owner: the table's definition page; "LVAL"; 0 for maps
//       12    2   n, the number of row slots
//       14   2n   slots: the low 13 bits are where the row starts, the high bits its state
// Rows grow down from the end of the page: slot 0 ends at 4096, slot k where slot k-1 starts.
// Borrows the page's bytes and owns nothing.
class DataPage {
 public:
  static constexpr uint16_t kMoved = 0x4000;    // the row is elsewhere; its bytes begin with the rowid
  static constexpr uint16_t kBody = 0x8000;     // a moved row: reached only through its pointer
  static constexpr uint16_t kDeleted = 0xC000;  // both bits, as foreign readers expect
  static constexpr uint16_t kOffset = 0x1FFF;
  static constexpr size_t kSlots = 14;
  static constexpr int kMostSlots = 255;
  static constexpr size_t kEmptyFree = kPageSize - kSlots;
  static constexpr uint32_t kLongValueOwner = 0x4C41564C;  // "LVAL"

  // Fails with Fault::Corrupt when the type, the slot count or a row's start contradicts the page size; after
  // success no accessor can leave the page.
  static Expected<DataPage> Parse(const PageRef& page);

  int slots() const { return Load16(bytes_ + 12); }
  uint32_t owner() const { return Load32(bytes_ + 4); }
  // Counted from the rows, whatever the page says of itself.
  size_t free() const;
  size_t stated_free() const { return Load16(bytes_ + 2); }
  uint16_t state(int slot) const { return Load16(bytes_ + kSlots + 2 * slot) & kDeleted; }
  // The bytes of a row; what they mean depends on its state.
  std::span<const uint8_t> Row(int slot) const {
    const size_t begin = start(slot);
    return {bytes_ + begin, end(slot) - begin};
  }

  // Makes an empty page for `owner`.
  static void Format(uint8_t* bytes, uint32_t owner);
  // Whether a row of `size` bytes fits beside the others.
  bool HasRoom(size_t size) const { return slots() < kMostSlots && free() >= size + 2; }
  // Appends a slot with `size` bytes and returns where they go. The caller has asked HasRoom.
  static uint8_t* AddRow(uint8_t* bytes, size_t size, uint16_t state = 0);
  // Changes the size of a row's place, moving the rows of higher slots; what remains of the row's first bytes
  // stays. The caller has made sure that the page has room. Returns where the row now starts.
  static uint8_t* Resize(uint8_t* bytes, int slot, size_t size);
  static void SetState(uint8_t* bytes, int slot, uint16_t state);
  // Marks the row deleted and closes its gap.
  static void DeleteRow(uint8_t* bytes, int slot);

 private:
  explicit DataPage(const uint8_t* bytes) : bytes_(bytes) {}
  size_t start(int slot) const { return Load16(bytes_ + kSlots + 2 * slot) & kOffset; }
  size_t end(int slot) const { return slot == 0 ? kPageSize : start(slot - 1); }

  const uint8_t* bytes_;
};

}  // namespace tarvex::jet
