#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <type_traits>

// Integers in the file are little-endian, except inside index entries, which are big-endian so that entries
// compare as byte strings.
namespace tarvex::jet {

static_assert(std::endian::native == std::endian::little,
              "byte order of the file and the machine must agree");

template <class T>
T Load(const uint8_t* at) {
  static_assert(std::is_trivially_copyable_v<T>);
  T value;
  std::memcpy(&value, at, sizeof value);
  return value;
}

template <class T>
void Store(uint8_t* at, std::type_identity_t<T> value) {
  static_assert(std::is_trivially_copyable_v<T>);
  std::memcpy(at, &value, sizeof value);
}

inline uint16_t Load16(const uint8_t* at) {
  return Load<uint16_t>(at);
}
inline uint32_t Load32(const uint8_t* at) {
  return Load<uint32_t>(at);
}

inline uint32_t LoadBig32(const uint8_t* at) {
  return uint32_t{at[0]} << 24 | uint32_t{at[1]} << 16 | uint32_t{at[2]} << 8 | at[3];
}

inline void StoreBig32(uint8_t* at, uint32_t value) {
  at[0] = static_cast<uint8_t>(value >> 24);
  at[1] = static_cast<uint8_t>(value >> 16);
  at[2] = static_cast<uint8_t>(value >> 8);
  at[3] = static_cast<uint8_t>(value);
}

}  // namespace tarvex::jet
