#include "database/identifier.h"

#include <fmt/format.h>

namespace tarvex::database {

std::string NewIdentifier(const std::function<uint64_t()>& random_bits) {
  constexpr uint64_t kVersion = 0x4000, kVersionMask = 0xF000;  // version 4: random
  constexpr uint64_t kVariant = 0x8000'0000'0000'0000, kVariantMask = 0xC000'0000'0000'0000;
  const uint64_t high = (random_bits() & ~kVersionMask) | kVersion;
  const uint64_t low = (random_bits() & ~kVariantMask) | kVariant;
  return fmt::format("{:08X}-{:04X}-{:04X}-{:04X}-{:012X}", high >> 32, high >> 16 & 0xFFFF, high & 0xFFFF,
                     low >> 48, low & 0xFFFF'FFFF'FFFF);
}

}  // namespace tarvex::database
