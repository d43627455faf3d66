#include "jet/long_value.h"

#include <algorithm>
#include <cstring>

namespace tarvex::jet {
namespace {

constexpr size_t kLongestInline = 64;
constexpr size_t kLongestSingle = 4076;
constexpr size_t kChunk = 4072;

// Calls `visit` with each row of a value and its content, in order.
template <class Visit>
Status Walk(Pager& pager, std::span<const uint8_t> raw, Visit visit) {
  if (raw.size() < LongValueHeader::kSize) return {Fault::Corrupt, "a long value's header is too short"};
  const uint32_t kind = Load32(raw.data()) & ~LongValueHeader::kLength;
  size_t left = Load32(raw.data()) & LongValueHeader::kLength;
  if (kind == LongValueHeader::kInline) {
    if (raw.size() - LongValueHeader::kSize < left)
      return {Fault::Corrupt, "a long value is shorter than stated"};
    return visit(RowId{}, raw.subspan(LongValueHeader::kSize, left));
  }
  if (left > uint64_t{pager.page_count()} * kPageSize)
    return {Fault::Corrupt, "a long value is longer than the file"};
  if (kind != LongValueHeader::kSingle && kind != 0)
    return {Fault::Corrupt, "a long value is of an unknown kind"};
  RowId row = RowId::Unpack(Load32(raw.data() + 4));
  const bool chained = kind == 0;
  while (left > 0) {
    const auto fail = [&](const char* what) {
      return Status{Fault::Corrupt,
                    "page " + std::to_string(row.page) + " row " + std::to_string(row.slot) + ": " + what};
    };
    TRY_ASSIGN(const PageRef page, pager.Read(row.page));
    TRY_ASSIGN(const DataPage rows, DataPage::Parse(page));
    if (rows.owner() != DataPage::kLongValueOwner) return fail("is no part of a long value");
    if (row.slot >= rows.slots() || rows.state(row.slot) != 0)
      return fail("the long value's row does not exist");
    std::span<const uint8_t> content = rows.Row(row.slot);
    RowId next{};
    if (chained) {
      if (content.size() <= 4) return fail("the long value's row is empty");
      next = RowId::Unpack(Load32(content.data()));
      content = content.subspan(4);
    }
    if (content.size() < left && next.Pack() == 0) return fail("the long value is shorter than stated");
    if (content.empty()) return fail("the long value's row is empty");
    TRY(visit(row, content.first(std::min(left, content.size()))));
    left -= std::min(left, content.size());
    row = next;
  }
  return Ok();
}

// A place for a row of `size` bytes on one of the column's pages. Filled pages drop out of the free-space
// map.
Expected<RowId> AddLongValueRow(Pager& pager, PageAllocator& allocator, const LongValueMaps& maps,
                                std::span<const uint8_t> head, std::span<const uint8_t> content) {
  const size_t size = head.size() + content.size();
  const auto put = [&](const PageWriter& page) -> RowId {
    uint8_t* at = DataPage::AddRow(page.mutable_bytes(), size);
    std::copy(head.begin(), head.end(), at);
    std::copy(content.begin(), content.end(), at + head.size());
    return {page.number(), static_cast<uint8_t>(Load16(page.bytes() + 12) - 1)};
  };
  const bool has_free_map = maps.free.Pack() != 0;
  while (has_free_map) {
    TRY_ASSIGN(const auto candidate, MapLast(pager, maps.free));
    if (!candidate) break;
    TRY_ASSIGN(const PageWriter page, pager.Write(*candidate));
    TRY_ASSIGN(const DataPage rows, DataPage::Parse(page));
    if (rows.owner() == DataPage::kLongValueOwner && rows.HasRoom(size)) return put(page);
    TRY(allocator.MapRemove(maps.free, *candidate));
  }
  TRY_ASSIGN(const PageWriter page, allocator.Allocate());
  DataPage::Format(page.mutable_bytes(), DataPage::kLongValueOwner);
  TRY(allocator.MapAdd(maps.owned, page.number()));
  if (has_free_map) TRY(allocator.MapAdd(maps.free, page.number()));
  return put(page);
}

}  // namespace

Expected<Bytes> ReadLongValue(Pager& pager, std::span<const uint8_t> raw) {
  Bytes content;
  TRY(Walk(pager, raw, [&](RowId, std::span<const uint8_t> part) {
    content.insert(content.end(), part.begin(), part.end());
    return Ok();
  }));
  return content;
}

Expected<std::vector<RowId>> LongValueRows(Pager& pager, std::span<const uint8_t> raw) {
  std::vector<RowId> rows;
  TRY(Walk(pager, raw, [&](RowId row, std::span<const uint8_t>) {
    if (row.page != 0) rows.push_back(row);
    return Ok();
  }));
  return rows;
}

Expected<Bytes> WriteLongValue(Pager& pager, PageAllocator& allocator, const LongValueMaps& maps,
                               std::span<const uint8_t> content) {
  if (content.size() > LongValueHeader::kLength) return Status{Fault::Range, "a long value exceeds 1 GiB"};
  Bytes raw(LongValueHeader::kSize);
  uint32_t kind = 0;
  RowId first{};
  if (content.size() <= kLongestInline) {
    kind = LongValueHeader::kInline;
    raw.insert(raw.end(), content.begin(), content.end());
  } else if (content.size() <= kLongestSingle) {
    kind = LongValueHeader::kSingle;
    TRY_ASSIGN(first, AddLongValueRow(pager, allocator, maps, {}, content));
  } else {
    // From the last chunk to the first, so that each row knows its successor.
    const size_t chunks = (content.size() + kChunk - 1) / kChunk;
    for (size_t i = chunks; i-- > 0;) {
      uint8_t next[4];
      Store<uint32_t>(next, first.Pack());
      const auto part = content.subspan(i * kChunk, std::min(kChunk, content.size() - i * kChunk));
      TRY_ASSIGN(first, AddLongValueRow(pager, allocator, maps, next, part));
    }
  }
  Store<uint32_t>(raw.data(), static_cast<uint32_t>(content.size()) | kind);
  Store<uint32_t>(raw.data() + 4, first.Pack());
  return raw;
}

Status FreeLongValue(Pager& pager, PageAllocator& allocator, const LongValueMaps& maps,
                     std::span<const uint8_t> raw) {
  TRY_ASSIGN(const std::vector<RowId> rows, LongValueRows(pager, raw));
  for (const RowId row : rows) {
    bool is_empty = true;
    {
      TRY_ASSIGN(const PageWriter page, pager.Write(row.page));
      DataPage::DeleteRow(page.mutable_bytes(), row.slot);
      TRY_ASSIGN(const DataPage left, DataPage::Parse(page));
      for (int slot = 0; slot < left.slots(); ++slot) is_empty &= left.state(slot) == DataPage::kDeleted;
    }
    if (is_empty) {
      if (maps.free.Pack() != 0) TRY(allocator.MapRemove(maps.free, row.page));
      TRY(allocator.MapRemove(maps.owned, row.page));
      TRY(allocator.Free(row.page));
    } else if (maps.free.Pack() != 0) {
      TRY(allocator.MapAdd(maps.free, row.page));
    }
  }
  return Ok();
}

}  // namespace tarvex::jet
