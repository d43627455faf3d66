#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "base/status.h"
#include "jet/value.h"

namespace tarvex::jet {

// Page 0. Bytes 24 to 151 are masked with a fixed mask; offsets are those in the file.
//   offset size
//     0x00    4   signature 00 01 00 00
//     0x04   16   "Standard Jet DB"
//     0x14    4   format version, 1 = JET 4
//     0x18    4   rowid of the global free-page map
//     0x1C    4   rowid of a second global map, empty
//     0x20   16   definition pages of the four system tables
//     0x3C    2   code page
//     0x3E    4   page-encoding key, 0 = not encoded
//     0x42   40   password, masked once more with the creation date
//     0x6A    4   build of the creating engine
//     0x6E    4   default collation: u16 language, u8 0, u8 version
//     0x72    8   creation date
//     0x98    4   0x654, then "4.0"
//    0xE00  512   256 commit words
struct Header {
  uint32_t global_map = 0;
  std::array<PageNumber, 4> system_tables{};  // MSysObjects, MSysACEs, MSysQueries, MSysRelationships
  uint16_t code_page = 0;
  uint32_t build = 0;
  uint16_t language = 0;
  uint8_t collation_version = 0;
  double created = 0;
  std::array<uint8_t, 40> password{};  // unmasked; all zero = none
  uint32_t security_key = 0;

  // Whether text keys can be computed, and so text indexes be kept.
  bool has_known_collation() const { return language == 0x0409 && collation_version == 0; }
};

// Reads page 0. Fault::Corrupt for what is no JET file, Fault::Unsupported for other versions and for encoded
// pages; the detail says which in plain words.
Expected<Header> ReadHeader(std::span<const uint8_t, kPageSize> page);

// A page 0 for a new file created at `created` (days since 1899-12-30).
std::array<uint8_t, kPageSize> NewHeaderPage(double created);

enum class Principal { Admin, Users, Engine, Creator };

// The security id of `principal` as it must be stored in a file with this header. It depends on the creation
// date, build and password: an id is never copied from one file to another.
Bytes SecurityId(const Header& header, Principal principal);

}  // namespace tarvex::jet
