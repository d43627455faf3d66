#include "jet/index_page.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace tarvex::jet {
namespace {

int CompareBytes(std::span<const uint8_t> a, std::span<const uint8_t> b) {
  const size_t size = std::min(a.size(), b.size());
  const int order = size == 0 ? 0 : std::memcmp(a.data(), b.data(), size);
  if (order != 0) return order;
  return a.size() < b.size() ? -1 : a.size() > b.size() ? 1 : 0;
}

// How many leading bytes the entries share. They are sorted, so the first and the last decide.
size_t SharedPrefix(const std::vector<Bytes>& entries, size_t tail_part) {
  if (entries.size() < 2) return 0;
  const Bytes& a = entries.front();
  const Bytes& b = entries.back();
  const size_t most = std::min(a.size(), b.size()) - tail_part;
  size_t size = 0;
  while (size < most && a[size] == b[size]) ++size;
  return size;
}

size_t TotalSize(const std::vector<Bytes>& entries) {
  size_t size = 0;
  for (const Bytes& entry : entries) size += entry.size();
  return size;
}

}  // namespace

Bytes LeafEntry(std::span<const uint8_t> key, RowId row) {
  Bytes entry(key.begin(), key.end());
  entry.resize(key.size() + kRowPart);
  StoreBig32(entry.data() + key.size(), row.Pack());
  return entry;
}

RowId RowOfEntry(std::span<const uint8_t> leaf_entry) {
  return RowId::Unpack(LoadBig32(leaf_entry.data() + leaf_entry.size() - kRowPart));
}

Status IndexPage::Parse(const PageRef& page, IndexPage& into) {
  const uint8_t* bytes = page.bytes();
  into.bytes_ = bytes;
  into.count_ = 0;
  const auto fail = [&](const char* what) {
    return Status{Fault::Corrupt, "page " + std::to_string(page.number()) + ": " + what};
  };
  const bool checked = page.IsChecked(kCheckedIndex);
  if (!checked && bytes[0] != kIndexLeaf && bytes[0] != kIndexNode) return fail("is not an index page");
  for (size_t at = 0; at < kMaskSize; at += 8) {
    uint64_t bits = 0;
    std::memcpy(&bits, bytes + kMask + at, std::min<size_t>(8, kMaskSize - at));
    while (bits != 0) {
      const size_t end = at * 8 + static_cast<size_t>(std::countr_zero(bits));
      if (end > kAreaSize || into.count_ >= static_cast<int>(kAreaSize))
        return fail("an index entry ends outside");
      into.ends_[static_cast<size_t>(into.count_++)] = static_cast<uint16_t>(end);
      bits &= bits - 1;
    }
  }
  if (checked) return Ok();
  const size_t prefix = into.prefix();
  const size_t least = 1 + kRowPart + (into.is_leaf() ? 0 : kChildPart);
  if (into.count_ > 0 && (into.ends_[0] == 0 || prefix > into.ends_[0]))
    return fail("the index prefix is wrong");
  for (int i = 0; i < into.count_; ++i) {
    if (into.Stored(i).size() + (i > 0 ? prefix : 0) < least) return fail("an index entry is too short");
  }
  page.SetChecked(kCheckedIndex);
  return Ok();
}

std::span<const uint8_t> IndexPage::Stored(int i) const {
  const size_t begin = i == 0 ? 0 : ends_[static_cast<size_t>(i - 1)];
  return {bytes_ + kArea + begin, ends_[static_cast<size_t>(i)] - begin};
}

Bytes IndexPage::Entry(int i) const {
  const std::span<const uint8_t> stored = Stored(i);
  Bytes entry;
  if (i > 0) entry.assign(bytes_ + kArea, bytes_ + kArea + prefix());
  entry.insert(entry.end(), stored.begin(), stored.end());
  return entry;
}

std::vector<Bytes> IndexPage::Entries() const {
  std::vector<Bytes> entries;
  entries.reserve(static_cast<size_t>(count_) + 1);
  for (int i = 0; i < count_; ++i) entries.push_back(Entry(i));
  return entries;
}

PageNumber IndexPage::Child(int i) const {
  if (i == count_) return tail();
  const std::span<const uint8_t> stored = Stored(i);
  if (stored.size() >= kChildPart) return LoadBig32(stored.data() + stored.size() - kChildPart);
  const Bytes entry = Entry(i);
  return LoadBig32(entry.data() + entry.size() - kChildPart);
}

RowId IndexPage::Row(int i) const {
  const std::span<const uint8_t> stored = Stored(i);
  // A prefix made by another program may reach into the row's bytes.
  return stored.size() >= kRowPart ? RowOfEntry(stored) : RowOfEntry(Entry(i));
}

int IndexPage::Compare(int i, std::span<const uint8_t> wanted) const {
  std::span<const uint8_t> stored = Stored(i);
  if (!is_leaf()) {
    if (i > 0 && stored.size() < kChildPart) {
      const Bytes entry = Entry(i);
      return CompareBytes(std::span(entry).first(entry.size() - kChildPart), wanted);
    }
    stored = stored.first(stored.size() - kChildPart);
  }
  if (i == 0) return CompareBytes(stored, wanted);
  const std::span<const uint8_t> shared(bytes_ + kArea, prefix());
  const size_t head = std::min(shared.size(), wanted.size());
  const int order = CompareBytes(shared.first(head), wanted.first(head));
  if (order != 0) return order;
  if (wanted.size() < shared.size()) return 1;
  return CompareBytes(stored, wanted.subspan(head));
}

int IndexPage::LowerBound(std::span<const uint8_t> wanted) const {
  int low = 0, high = count_;
  while (low < high) {
    const int middle = (low + high) / 2;
    if (Compare(middle, wanted) < 0) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

void IndexPage::WriteMask(uint8_t* bytes) const {
  std::memset(bytes + kMask, 0, kMaskSize);
  for (int i = 0; i < count_; ++i) {
    const size_t end = ends_[static_cast<size_t>(i)];
    bytes[kMask + end / 8] |= static_cast<uint8_t>(1 << (end % 8));
  }
  Store<uint16_t>(bytes + 2, static_cast<uint16_t>(kAreaSize - used()));
}

bool IndexPage::TryInsert(uint8_t* bytes, int i, std::span<const uint8_t> entry) {
  const size_t p = prefix();
  if (p > 0 && (i == 0 || entry.size() <= p || std::memcmp(entry.data(), bytes_ + kArea, p) != 0)) {
    return false;
  }
  const std::span<const uint8_t> stored = entry.subspan(p);
  const size_t end = used();
  if (end + stored.size() > kAreaSize) return false;
  const size_t at = i == 0 ? 0 : ends_[static_cast<size_t>(i - 1)];
  uint8_t* const area = bytes + kArea;
  std::memmove(area + at + stored.size(), area + at, end - at);
  std::memcpy(area + at, stored.data(), stored.size());
  std::memmove(&ends_[static_cast<size_t>(i) + 1], &ends_[static_cast<size_t>(i)],
               static_cast<size_t>(count_ - i) * sizeof ends_[0]);
  ends_[static_cast<size_t>(i)] = static_cast<uint16_t>(at);
  ++count_;
  for (int k = i; k < count_; ++k) ends_[static_cast<size_t>(k)] += static_cast<uint16_t>(stored.size());
  WriteMask(bytes);
  return true;
}

bool IndexPage::TryErase(uint8_t* bytes, int i) {
  if (prefix() > 0 && i == 0) return false;
  const size_t at = i == 0 ? 0 : ends_[static_cast<size_t>(i - 1)];
  const size_t size = Stored(i).size();
  const size_t end = used();
  uint8_t* const area = bytes + kArea;
  std::memmove(area + at, area + at + size, end - at - size);
  std::memset(area + end - size, 0, size);
  for (int k = i; k + 1 < count_; ++k) {
    ends_[static_cast<size_t>(k)] = static_cast<uint16_t>(ends_[static_cast<size_t>(k) + 1] - size);
  }
  --count_;
  WriteMask(bytes);
  return true;
}

bool IndexPage::Fits(const std::vector<Bytes>& entries, size_t tail_part) {
  const size_t whole = TotalSize(entries);
  if (whole <= kAreaSize) return true;
  return whole - SharedPrefix(entries, tail_part) * (entries.size() - 1) <= kAreaSize;
}

void IndexPage::WriteEntries(uint8_t* bytes, const std::vector<Bytes>& entries, size_t tail_part) {
  // Pages with room hold their entries whole, as the original engine leaves them.
  const size_t p = TotalSize(entries) <= kAreaSize ? 0 : SharedPrefix(entries, tail_part);
  std::memset(bytes + kMask, 0, kMaskSize);
  std::memset(bytes + kArea, 0, kAreaSize);
  Store<uint16_t>(bytes + 24, static_cast<uint16_t>(p));
  size_t at = 0;
  for (size_t i = 0; i < entries.size(); ++i) {
    const size_t from = i == 0 ? 0 : p;
    std::memcpy(bytes + kArea + at, entries[i].data() + from, entries[i].size() - from);
    at += entries[i].size() - from;
    bytes[kMask + at / 8] |= static_cast<uint8_t>(1 << (at % 8));
  }
  Store<uint16_t>(bytes + 2, static_cast<uint16_t>(kAreaSize - at));
}

void IndexPage::Format(uint8_t* bytes, PageNumber table, int level) {
  std::memset(bytes, 0, kPageSize);
  bytes[0] = level == 0 ? kIndexLeaf : kIndexNode;
  bytes[1] = 1;
  Store<uint16_t>(bytes + 2, static_cast<uint16_t>(kAreaSize));
  Store<uint32_t>(bytes + 4, table);
  bytes[26] = static_cast<uint8_t>(level);
}

}  // namespace tarvex::jet
