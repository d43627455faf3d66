#include <algorithm>
#include <span>

#include "jet/value.h"
#include "tests/jet/damage.h"

// The input is a list of changes to a sound file, five bytes each: page, place (two bytes), how, with what. A
// whole file as input would be lost in the bytes that mean nothing.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace tarvex::jet;
  static const MemoryDisk::Content sound = RichFile();
  MemoryDisk::Content content = sound;
  const size_t pages = content.size() / kPageSize;
  for (std::span<const uint8_t> left(data, size); left.size() >= 5; left = left.subspan(5)) {
    uint8_t* page = &content[left[0] % pages * kPageSize];
    const size_t at = (left[1] << 8 | left[2]) % kPageSize;
    switch (left[3] % 4) {
      case 0:
        page[at] = left[4];
        break;
      case 1:
        page[at] ^= static_cast<uint8_t>(1 << left[4] % 8);
        break;
      case 2:
        page[at] = static_cast<uint8_t>(page[at] + left[4]);
        break;
      default:
        std::copy_n(&content[left[4] % pages * kPageSize], kPageSize, page);
        break;
    }
  }
  (void)Exercise(std::move(content));
  return 0;
}
