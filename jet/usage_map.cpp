#include "jet/usage_map.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "jet/bytes.h"
#include "jet/data_page.h"

namespace tarvex::jet {
namespace {

constexpr size_t kInlineHead = 5;
constexpr size_t kBitmapHead = 4;

std::string Named(RowId map) {
  return "map at page " + std::to_string(map.page) + " row " + std::to_string(map.slot);
}

// The bytes of a map row, held in memory by `page`.
struct MapRow {
  PageRef page;
  std::span<const uint8_t> bytes;

  bool is_inline() const { return bytes[0] == 0; }
  PageNumber first() const { return Load32(&bytes[1]); }
  size_t inline_pages() const { return (bytes.size() - kInlineHead) * 8; }
  size_t entries() const { return (bytes.size() - 1) / 4; }
  PageNumber entry(size_t k) const { return Load32(&bytes[1 + 4 * k]); }
};

Expected<MapRow> ReadMap(Pager& pager, RowId map) {
  TRY_ASSIGN(PageRef page, pager.Read(map.page));
  TRY_ASSIGN(const DataPage rows, DataPage::Parse(page));
  const auto fail = [&](const char* what) { return Status{Fault::Corrupt, Named(map) + " " + what}; };
  if (map.slot >= rows.slots() || rows.state(map.slot) != 0) return fail("does not exist");
  MapRow row{std::move(page), rows.Row(map.slot)};
  if (row.bytes.size() < kInlineHead) return fail("is too short");
  if (row.bytes[0] > 1) return fail("has an unknown type");
  if (row.is_inline() && row.first() % 8 != 0) return fail("does not start at a multiple of 8");
  if (row.is_inline() && row.first() >= Pager::kMostPages) return fail("starts beyond the greatest file");
  return row;
}

Expected<PageRef> ReadBitmap(Pager& pager, PageNumber number) {
  TRY_ASSIGN(PageRef page, pager.Read(number));
  if (page.bytes()[0] != kBitmapPage) {
    return Status{Fault::Corrupt, "page " + std::to_string(number) + " is not a bitmap page"};
  }
  return page;
}

bool Bit(const uint8_t* bits, size_t i) {
  return (bits[i / 8] >> (i % 8) & 1) != 0;
}

void SetBitIn(uint8_t* bits, size_t i, bool value) {
  const auto mask = static_cast<uint8_t>(1 << (i % 8));
  bits[i / 8] = value ? bits[i / 8] | mask : bits[i / 8] & static_cast<uint8_t>(~mask);
}

// The first set bit in [from, size), or size.
size_t NextBit(const uint8_t* bits, size_t from, size_t size) {
  while (from < size && from % 8 != 0) {
    if (Bit(bits, from)) return from;
    ++from;
  }
  while (from < size) {
    if (bits[from / 8] != 0) return std::min(size, from + std::countr_zero(bits[from / 8]));
    from += 8;
  }
  return size;
}

}  // namespace

Expected<bool> MapHas(Pager& pager, RowId map, PageNumber page) {
  TRY_ASSIGN(const MapRow row, ReadMap(pager, map));
  if (row.is_inline()) {
    return page >= row.first() && page - row.first() < row.inline_pages() &&
           Bit(&row.bytes[kInlineHead], page - row.first());
  }
  const size_t k = page / kBitmapPages;
  if (k >= row.entries() || row.entry(k) == 0) return false;
  TRY_ASSIGN(const PageRef bits, ReadBitmap(pager, row.entry(k)));
  return Bit(bits.bytes() + kBitmapHead, page % kBitmapPages);
}

Expected<std::optional<PageNumber>> MapNext(Pager& pager, RowId map, PageNumber from) {
  TRY_ASSIGN(const MapRow row, ReadMap(pager, map));
  using Found = std::optional<PageNumber>;
  if (row.is_inline()) {
    const size_t begin = from > row.first() ? from - row.first() : 0;
    const size_t at = NextBit(row.bytes.data() + kInlineHead, begin, row.inline_pages());
    return at < row.inline_pages() ? Found(row.first() + static_cast<PageNumber>(at)) : Found();
  }
  for (size_t k = from / kBitmapPages; k < row.entries();
       ++k, from = static_cast<PageNumber>(k * kBitmapPages)) {
    if (row.entry(k) == 0) continue;
    TRY_ASSIGN(const PageRef bits, ReadBitmap(pager, row.entry(k)));
    const size_t at = NextBit(bits.bytes() + kBitmapHead, from % kBitmapPages, kBitmapPages);
    if (at < kBitmapPages) return Found(static_cast<PageNumber>(k * kBitmapPages + at));
  }
  return Found();
}

Expected<std::optional<PageNumber>> MapLast(Pager& pager, RowId map) {
  TRY_ASSIGN(const MapRow row, ReadMap(pager, map));
  using Found = std::optional<PageNumber>;
  if (row.is_inline()) {
    for (size_t i = row.inline_pages(); i-- > 0;) {
      if (Bit(&row.bytes[kInlineHead], i)) return Found(row.first() + static_cast<PageNumber>(i));
    }
    return Found();
  }
  for (size_t k = row.entries(); k-- > 0;) {
    if (row.entry(k) == 0) continue;
    TRY_ASSIGN(const PageRef bits, ReadBitmap(pager, row.entry(k)));
    for (size_t i = kBitmapPages; i-- > 0;) {
      if (Bit(bits.bytes() + kBitmapHead, i)) return Found(static_cast<PageNumber>(k * kBitmapPages + i));
    }
  }
  return Found();
}

Expected<PageWriter> PageAllocator::Allocate() {
  if (undo_seen_ != pager_.undo_count()) {
    undo_seen_ = pager_.undo_count();
    lowest_free_ = 0;
  }
  PageNumber from = lowest_free_;
  bool skipped = false;
  while (true) {
    TRY_ASSIGN(const auto free, MapNext(pager_, map_, from));
    if (!free || *free >= pager_.page_count()) break;
    if (*free <= map_.page)
      return Status{Fault::Corrupt, "the global map gives page " + std::to_string(*free) + " as free"};
    from = *free + 1;
    {
      // Somebody looks at the page: a cursor that has been left behind, or the map is wrong.
      TRY_ASSIGN(const PageRef ref, pager_.Read(*free));
      skipped |= ref.IsShared();
      if (ref.IsShared()) continue;
    }
    if (!skipped) lowest_free_ = from;
    TRY(SetBit(map_, *free, false, true));
    TRY_ASSIGN(PageWriter page, pager_.Write(*free));
    std::memset(page.mutable_bytes(), 0, kPageSize);
    page.ClearChecked();
    return page;
  }
  if (!skipped) lowest_free_ = pager_.page_count();
  TRY_ASSIGN(PageWriter page, pager_.Append());
  TRY(MarkUsed(page.number()));
  return page;
}

Status PageAllocator::MarkUsed(PageNumber page) {
  return SetBit(map_, page, false, true);
}

Status PageAllocator::Free(PageNumber page) {
  {
    TRY_ASSIGN(PageWriter bytes, pager_.Write(page));
    // A mark for readers of the raw file; the map alone decides.
    if (bytes.bytes()[0] == kDataPage) bytes.mutable_bytes()[0] = kFreedData;
    if (bytes.bytes()[0] == kDefinitionPage) bytes.mutable_bytes()[0] = kFreedDefinition;
    bytes.ClearChecked();
  }
  lowest_free_ = std::min(lowest_free_, page);
  return SetBit(map_, page, true, true);
}

Status PageAllocator::MapAdd(RowId map, PageNumber page) {
  return SetBit(map, page, true, false);
}
Status PageAllocator::MapRemove(RowId map, PageNumber page) {
  return SetBit(map, page, false, false);
}

// A bitmap page at the end of the file. It is not yet marked used.
Expected<PageNumber> PageAllocator::NewBitmapPage(uint8_t fill) {
  TRY_ASSIGN(const PageWriter page, pager_.Append());
  uint8_t* bytes = page.mutable_bytes();
  std::memset(bytes, fill, kPageSize);
  bytes[0] = kBitmapPage;
  bytes[1] = 1;
  bytes[2] = bytes[3] = 0;
  return page.number();
}

// Changes one bit of a map. Outside the range of an inline map the bits read as the map's rest (free in the
// global map, not mine in others); a change there moves the range of an empty map, or makes the map a
// reference map with the same content.
Status PageAllocator::SetBit(RowId map, PageNumber page, bool value, bool is_global) {
  const bool rest = is_global;
  TRY_ASSIGN(MapRow row, ReadMap(pager_, map));
  if (row.is_inline()) {
    if (page >= row.first() && page - row.first() < row.inline_pages()) {
      TRY_ASSIGN(const PageWriter writer, pager_.Write(map.page));
      const size_t at = static_cast<size_t>(row.bytes.data() - row.page.bytes());
      SetBitIn(writer.mutable_bytes() + at + kInlineHead, page - row.first(), value);
      return Ok();
    }
    if (value == rest) return Ok();
    TRY_ASSIGN(const PageWriter writer, pager_.Write(map.page));
    uint8_t* bytes = writer.mutable_bytes() + (row.bytes.data() - row.page.bytes());
    const size_t pages = row.inline_pages();
    if (!is_global && NextBit(bytes + kInlineHead, 0, pages) == pages && pages >= 8) {
      Store<uint32_t>(bytes + 1, page & ~PageNumber{7});
      SetBitIn(bytes + kInlineHead, page & 7, true);
      return Ok();
    }
    // The new bitmap pages are made before the row is rewritten, so that it is never half of each kind.
    const size_t entries = row.entries();
    const PageNumber first = row.first();
    std::vector<uint8_t> bits(bytes + kInlineHead, bytes + row.bytes.size());
    std::memset(bytes, 0, row.bytes.size());
    bytes[0] = 1;
    std::vector<PageNumber> made;
    for (size_t i = 0; i < pages; ++i) {
      if (Bit(bits.data(), i) == rest) continue;
      const size_t k = (first + i) / kBitmapPages;
      if (k >= entries) return {Fault::Corrupt, Named(map) + " is too short for the file"};
      if (Load32(bytes + 1 + 4 * k) == 0) {
        TRY_ASSIGN(const PageNumber bitmap, NewBitmapPage(rest ? 0xFF : 0));
        Store<uint32_t>(bytes + 1 + 4 * k, bitmap);
        made.push_back(bitmap);
      }
      TRY_ASSIGN(const PageWriter target, pager_.Write(Load32(bytes + 1 + 4 * k)));
      SetBitIn(target.mutable_bytes() + kBitmapHead, (first + i) % kBitmapPages, !rest);
    }
    for (const PageNumber bitmap : made) TRY(MarkUsed(bitmap));
    return SetBit(map, page, value, is_global);
  }
  const size_t k = page / kBitmapPages;
  if (k >= row.entries()) {
    if (value == rest) return Ok();
    return {Fault::Corrupt, Named(map) + " is too short for the file"};
  }
  PageNumber bitmap = row.entry(k);
  if (bitmap == 0) {
    if (value == rest) return Ok();
    TRY_ASSIGN(bitmap, NewBitmapPage(rest ? 0xFF : 0));
    {
      TRY_ASSIGN(const PageWriter writer, pager_.Write(map.page));
      const size_t at = static_cast<size_t>(row.bytes.data() - row.page.bytes());
      Store<uint32_t>(writer.mutable_bytes() + at + 1 + 4 * k, bitmap);
    }
    TRY(MarkUsed(bitmap));
  }
  TRY(ReadBitmap(pager_, bitmap).status());
  TRY_ASSIGN(const PageWriter target, pager_.Write(bitmap));
  SetBitIn(target.mutable_bytes() + kBitmapHead, page % kBitmapPages, value);
  return Ok();
}

}  // namespace tarvex::jet
