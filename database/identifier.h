#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace tarvex::database {

inline constexpr int kIdentifierLength = 36;

// A new globally unique identifier for an athlete or a team: 36 characters, upper-case, without braces
// ("6F9619FF-8B86-4D01-B42D-00CF4FC964FF"), made of 122 random bits.
std::string NewIdentifier(const std::function<uint64_t()>& random_bits);

}  // namespace tarvex::database
