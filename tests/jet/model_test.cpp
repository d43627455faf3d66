#include "tests/jet/model.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/jet/support.h"

namespace tarvex::jet {
namespace {

// Thousands of random changes; the smallest cache makes transactions larger than memory.
TEST(Model, AgreesWithTheTableUnderRandomOperations) {
  for (uint32_t seed = 1; seed <= Repetitions(40, 6); ++seed) {
    std::mt19937 random(seed);
    std::vector<uint8_t> bytes(seed % 4 == 0 ? 200000 : 30000);
    for (uint8_t& byte : bytes) byte = static_cast<uint8_t>(random());
    MemoryDisk disk;
    Model model(disk, seed % 2 == 0 ? 64 : Pager::kDefaultCache);
    Choices choices(bytes);
    EXPECT_EQ(model.Run(choices), "") << "seed " << seed;
  }
}

}  // namespace
}  // namespace tarvex::jet
