#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "base/status.h"
#include "jet/bytes.h"
#include "jet/data_page.h"
#include "jet/pager.h"
#include "jet/value.h"

namespace tarvex::jet {

// A leaf entry is key + page (3 bytes, big-endian) + slot; a node entry is a copy of the last leaf entry of a
// child's subtree + the child's page (4 bytes, big-endian). Entries compare as byte strings.
inline constexpr size_t kLongestKey = 1790;  // so that a node has room for two entries
inline constexpr size_t kRowPart = 4;
inline constexpr size_t kChildPart = 4;

Bytes LeafEntry(std::span<const uint8_t> key, RowId row);
RowId RowOfEntry(std::span<const uint8_t> leaf_entry);

// A page of an index.
//   offset size
//        0    1   3 node, 4 leaf
//        2    2   free bytes: 3616 - bytes used
//        4    4   definition page of the table
//       12    4   previous page on this level, 0 = none
//       16    4   next page, 0 = none
//       20    4   node: page of the last child, which has no entry; 0 = the last entry's child is the last
//       24    2   p, the length of the prefix that the entries share
//       26    1   level: 0 leaf, 1 parents of leaves, ...
//       27  453   bit e set = an entry ends at byte e of the entry area
//      480 3616   entries; those after the first are stored without their first p bytes
// Borrows the page's bytes; `ends` is filled by Parse.
class IndexPage {
 public:
  static constexpr size_t kMask = 27;
  static constexpr size_t kMaskSize = 453;
  static constexpr size_t kArea = 480;
  static constexpr size_t kAreaSize = kPageSize - kArea;

  // Fails with Fault::Corrupt when the type, prefix or an entry's length contradicts the page; the page is
  // checked once while it stays in memory.
  static Status Parse(const PageRef& page, IndexPage& into);

  bool is_leaf() const { return bytes_[0] == kIndexLeaf; }
  PageNumber table() const { return Load32(bytes_ + 4); }
  PageNumber previous() const { return Load32(bytes_ + 12); }
  PageNumber next() const { return Load32(bytes_ + 16); }
  PageNumber tail() const { return Load32(bytes_ + 20); }
  size_t prefix() const { return Load16(bytes_ + 24); }
  int level() const { return bytes_[26]; }
  int count() const { return count_; }
  size_t used() const { return count_ == 0 ? 0 : ends_[static_cast<size_t>(count_ - 1)]; }

  // The stored bytes of an entry: whole for the first, without the prefix for others.
  std::span<const uint8_t> Stored(int i) const;
  // The whole entry.
  Bytes Entry(int i) const;
  std::vector<Bytes> Entries() const;
  PageNumber Child(int i) const;
  RowId Row(int i) const;

  // The first entry that is not less than `wanted`, or count(). In a node the child part does not take part.
  int LowerBound(std::span<const uint8_t> wanted) const;
  // Less, equal or greater than zero as entry i (without the child part) stands to `wanted`.
  int Compare(int i, std::span<const uint8_t> wanted) const;

  // Puts a leaf entry in at `i` without rewriting the others; false when it does not fit or shares no prefix.
  bool TryInsert(uint8_t* bytes, int i, std::span<const uint8_t> entry);
  // Takes a leaf entry out without rewriting the others; false when the page must be written anew.
  bool TryErase(uint8_t* bytes, int i);

  // Whether the entries fit on one page, compressed if need be.
  static bool Fits(const std::vector<Bytes>& entries, size_t tail_part);
  // Writes the entries; the rest of the header stays. `tail_part` is what ends an entry and takes no part in
  // the prefix: the row, in nodes the row and the child.
  static void WriteEntries(uint8_t* bytes, const std::vector<Bytes>& entries, size_t tail_part);
  // Makes an empty page.
  static void Format(uint8_t* bytes, PageNumber table, int level);

 private:
  void WriteMask(uint8_t* bytes) const;

  const uint8_t* bytes_ = nullptr;
  int count_ = 0;
  std::array<uint16_t, kAreaSize> ends_;
};

}  // namespace tarvex::jet
