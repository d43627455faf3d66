#include "jet/data_page.h"

#include <cstring>

namespace tarvex::jet {
namespace {

uint16_t SlotAt(const uint8_t* bytes, int slot) {
  return Load16(bytes + DataPage::kSlots + 2 * slot);
}

void SetSlot(uint8_t* bytes, int slot, uint16_t value) {
  Store<uint16_t>(bytes + DataPage::kSlots + 2 * slot, value);
}

size_t LowestRow(const uint8_t* bytes) {
  const int slots = Load16(bytes + 12);
  return slots == 0 ? kPageSize : SlotAt(bytes, slots - 1) & DataPage::kOffset;
}

void UpdateFree(uint8_t* bytes) {
  const size_t slots = Load16(bytes + 12);
  Store<uint16_t>(bytes + 2, static_cast<uint16_t>(LowestRow(bytes) - DataPage::kSlots - 2 * slots));
}

}  // namespace

size_t DataPage::free() const {
  return LowestRow(bytes_) - kSlots - 2 * static_cast<size_t>(slots());
}

Expected<DataPage> DataPage::Parse(const PageRef& page) {
  const uint8_t* bytes = page.bytes();
  if (page.IsChecked(kCheckedRows)) return DataPage(bytes);
  const auto fail = [&](const std::string& what) {
    return Status{Fault::Corrupt, "page " + std::to_string(page.number()) + ": " + what};
  };
  if (bytes[0] != kDataPage) return fail("is not a data page");
  const int slots = Load16(bytes + 12);
  if (slots > 256 || kSlots + 2 * static_cast<size_t>(slots) > kPageSize) return fail("has too many rows");
  size_t previous = kPageSize;
  for (int slot = 0; slot < slots; ++slot) {
    const size_t at = SlotAt(bytes, slot) & kOffset;
    if (at > previous || at < kSlots + 2 * static_cast<size_t>(slots)) {
      return fail("row " + std::to_string(slot) + " starts outside its place");
    }
    previous = at;
  }
  page.SetChecked(kCheckedRows);
  return DataPage(bytes);
}

void DataPage::Format(uint8_t* bytes, uint32_t owner) {
  std::memset(bytes, 0, kPageSize);
  bytes[0] = kDataPage;
  bytes[1] = 1;
  Store<uint16_t>(bytes + 2, static_cast<uint16_t>(kEmptyFree));
  Store<uint32_t>(bytes + 4, owner);
}

uint8_t* DataPage::AddRow(uint8_t* bytes, size_t size, uint16_t state) {
  const int slots = Load16(bytes + 12);
  const size_t at = LowestRow(bytes) - size;
  SetSlot(bytes, slots, static_cast<uint16_t>(at) | state);
  Store<uint16_t>(bytes + 12, static_cast<uint16_t>(slots + 1));
  UpdateFree(bytes);
  return bytes + at;
}

uint8_t* DataPage::Resize(uint8_t* bytes, int slot, size_t size) {
  const int slots = Load16(bytes + 12);
  const size_t lowest = LowestRow(bytes);
  const size_t begin = SlotAt(bytes, slot) & kOffset;
  const size_t end = slot == 0 ? kPageSize : SlotAt(bytes, slot - 1) & kOffset;
  const size_t new_begin = end - size;
  const size_t kept = std::min(size, end - begin);
  uint8_t row[kPageSize];
  std::memcpy(row, bytes + begin, kept);
  const std::ptrdiff_t shift = static_cast<std::ptrdiff_t>(new_begin) - static_cast<std::ptrdiff_t>(begin);
  std::memmove(bytes + lowest + shift, bytes + lowest, begin - lowest);
  if (shift > 0) std::memset(bytes + lowest, 0, static_cast<size_t>(shift));
  std::memcpy(bytes + new_begin, row, kept);
  for (int i = slot; i < slots; ++i) {
    const uint16_t old = SlotAt(bytes, i);
    SetSlot(bytes, i,
            static_cast<uint16_t>((old & ~kOffset) | static_cast<uint16_t>((old & kOffset) + shift)));
  }
  UpdateFree(bytes);
  return bytes + new_begin;
}

void DataPage::SetState(uint8_t* bytes, int slot, uint16_t state) {
  SetSlot(bytes, slot, static_cast<uint16_t>((SlotAt(bytes, slot) & kOffset) | state));
}

void DataPage::DeleteRow(uint8_t* bytes, int slot) {
  Resize(bytes, slot, 0);
  SetState(bytes, slot, kDeleted);
}

}  // namespace tarvex::jet
