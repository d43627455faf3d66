#include "tests/jet/damage.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/jet/support.h"

namespace tarvex::jet {
namespace {

constexpr uint8_t kTelling[] = {0x00, 0x01, 0x02, 0x04, 0x05, 0x10, 0x40, 0x7F, 0x80, 0xC0, 0xFF};

// Random bytes, whole pages swapped for others, runs overwritten: most often at the head of a page, where its
// structure stands.
void Damage(MemoryDisk::Content& content, std::mt19937& random) {
  const size_t pages = content.size() / kPageSize;
  const int changes = 1 + static_cast<int>(random() % 6);
  for (int i = 0; i < changes; ++i) {
    uint8_t* page = &content[random() % pages * kPageSize];
    switch (random() % 8) {
      case 0:
        std::copy_n(&content[random() % pages * kPageSize], kPageSize, page);
        break;
      case 1:
        std::fill_n(page + random() % 4000, 64, kTelling[random() % std::size(kTelling)]);
        break;
      case 2:
        page[random() % kPageSize] = static_cast<uint8_t>(random());
        break;
      default:
        page[random() % 128] =
            random() % 2 == 0 ? static_cast<uint8_t>(random()) : kTelling[random() % std::size(kTelling)];
        break;
    }
  }
}

TEST(DamagedFile, NeverBringsTheEngineDown) {
  const MemoryDisk::Content sound = RichFile();
  ASSERT_EQ(Exercise(sound), 0);
  int opened = 0, found = 0;
  const uint32_t files = Repetitions(1200, 150);
  for (uint32_t seed = 1; seed <= files; ++seed) {
    std::mt19937 random(seed);
    MemoryDisk::Content content = sound;
    Damage(content, random);
    if (seed % 50 == 0) content.resize(content.size() / 2 / kPageSize * kPageSize);
    const int findings = Exercise(std::move(content));
    opened += findings >= 0;
    found += findings > 0;
  }
  // Most damage leaves the file open to a look, and most of that is seen.
  EXPECT_GT(opened, static_cast<int>(files * 6 / 10));
  EXPECT_GT(found, static_cast<int>(files * 4 / 10));
}

}  // namespace
}  // namespace tarvex::jet
