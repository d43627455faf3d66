#include "jet/header_page.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

#include "jet/bytes.h"

namespace tarvex::jet {
namespace {

constexpr size_t kMaskFrom = 24;
constexpr size_t kMaskSize = 128;
constexpr std::string_view kSignature{"\0\1\0\0", 4};
constexpr std::string_view kEngineName{"Standard Jet DB\0", 16};
constexpr uint32_t kBuild = 8618;

class Rc4 {
 public:
  explicit Rc4(std::span<const uint8_t> key) {
    for (size_t i = 0; i < 256; ++i) state_[i] = static_cast<uint8_t>(i);
    for (size_t i = 0, j = 0; i < 256; ++i) {
      j = (j + state_[i] + key[i % key.size()]) & 255;
      std::swap(state_[i], state_[j]);
    }
  }
  uint8_t Next() {
    i_ = (i_ + 1) & 255;
    j_ = (j_ + state_[i_]) & 255;
    std::swap(state_[i_], state_[j_]);
    return state_[(state_[i_] + state_[j_]) & 255];
  }

 private:
  std::array<uint8_t, 256> state_;
  size_t i_ = 0, j_ = 0;
};

// Masking and unmasking are the same.
void Mask(std::span<uint8_t, kPageSize> page) {
  constexpr std::array<uint8_t, 4> kKey = {0xC7, 0xDA, 0x39, 0x6B};
  Rc4 stream(kKey);
  for (size_t i = 0; i < kMaskSize; ++i) page[kMaskFrom + i] ^= stream.Next();
}

// The integer part of the creation date masks the password, four bytes at a time.
void MaskPassword(uint8_t* password, double created) {
  uint8_t date[4];
  Store<int32_t>(date, static_cast<int32_t>(created));
  for (size_t i = 0; i < 40; ++i) password[i] ^= date[i % 4];
}

uint32_t SecurityKey(const uint8_t* unmasked_page, double created) {
  uint8_t material[80];
  std::memcpy(material, unmasked_page + 0x42, sizeof material);
  MaskPassword(material, created);
  uint32_t key = Load32(unmasked_page + 0x72);
  for (uint32_t i = 0; i < 40; ++i) key ^= uint32_t{material[2 * i]} << (i % 24);
  return key;
}

bool IsPlausibleDate(double days) {
  return days > -1e6 && days < 3e6;
}

Status CheckKind(std::span<const uint8_t, kPageSize> page) {
  const auto text_at = [&](std::string_view text) {
    return std::memcmp(page.data() + 4, text.data(), text.size()) == 0;
  };
  if (std::memcmp(page.data(), kSignature.data(), kSignature.size()) != 0) {
    return {Fault::Corrupt, "page 0: this is not a JET database"};
  }
  const uint32_t version = Load32(page.data() + 0x14);
  if (text_at("Standard ACE DB") || (text_at("Standard Jet DB") && version >= 2 && version <= 6)) {
    return {Fault::Unsupported, "page 0: the file has the newer ACE format (.accdb), which is not supported"};
  }
  if (text_at("MSISAM Database")) {
    return {Fault::Unsupported, "page 0: the file has the MSISAM format, which is not supported"};
  }
  if (!text_at("Standard Jet DB")) return {Fault::Corrupt, "page 0: this is not a JET database"};
  if (version == 0) {
    return {Fault::Unsupported, "page 0: the file has the older JET 3 format, which is not supported"};
  }
  if (version != 1) {
    return {Fault::Unsupported, "page 0: unknown JET version " + std::to_string(version)};
  }
  return Ok();
}

}  // namespace

Expected<Header> ReadHeader(std::span<const uint8_t, kPageSize> page) {
  TRY(CheckKind(page));
  std::array<uint8_t, kPageSize> plain;
  std::copy(page.begin(), page.end(), plain.begin());
  Mask(plain);
  if (Load32(&plain[0x3E]) != 0) {
    return Status{Fault::Unsupported, "page 0: the database is encoded (encrypted), which is not supported"};
  }
  Header header;
  header.global_map = Load32(&plain[0x18]);
  for (size_t i = 0; i < 4; ++i) header.system_tables[i] = Load32(&plain[0x20 + 4 * i]);
  header.code_page = Load16(&plain[0x3C]);
  header.build = Load32(&plain[0x6A]);
  header.language = Load16(&plain[0x6E]);
  header.collation_version = plain[0x71];
  header.created = Load<double>(&plain[0x72]);
  if (!IsPlausibleDate(header.created)) {
    return Status{Fault::Corrupt, "page 0: the creation date is out of range"};
  }
  std::memcpy(header.password.data(), &plain[0x42], 40);
  MaskPassword(header.password.data(), header.created);
  header.security_key = SecurityKey(plain.data(), header.created);
  return header;
}

std::array<uint8_t, kPageSize> NewHeaderPage(double created) {
  std::array<uint8_t, kPageSize> page{};
  std::memcpy(&page[0], kSignature.data(), 4);
  std::memcpy(&page[4], kEngineName.data(), 16);
  Store<uint32_t>(&page[0x14], 1);
  Store<uint32_t>(&page[0x18], RowId{1, 0}.Pack());
  Store<uint32_t>(&page[0x1C], RowId{1, 1}.Pack());
  for (uint32_t i = 0; i < 4; ++i) Store<uint32_t>(&page[0x20 + 4 * i], 2 + i);
  Store<uint16_t>(&page[0x3C], 1252);
  MaskPassword(&page[0x42], created);
  Store<uint32_t>(&page[0x6A], kBuild);
  Store<uint16_t>(&page[0x6E], 0x0409);
  Store<double>(&page[0x72], created);
  Mask(page);
  Store<uint32_t>(&page[0x98], 0x654);
  std::memcpy(&page[0x9C], "4.0", 4);
  Store<uint16_t>(&page[0xE00], 0x0101);
  for (size_t i = 1; i < 256; ++i) Store<uint16_t>(&page[0xE00 + 2 * i], 0x0100);
  return page;
}

Bytes SecurityId(const Header& header, Principal principal) {
  constexpr std::array<std::array<uint8_t, 2>, 4> kPlain = {{{3, 1}, {2, 1}, {2, 3}, {2, 4}}};
  const auto& plain = kPlain[static_cast<size_t>(principal)];
  uint8_t key[4];
  Store<uint32_t>(key, header.security_key);
  Rc4 stream(key);
  Bytes id;
  for (const uint8_t byte : plain) id.push_back(byte ^ stream.Next());
  return id;
}

}  // namespace tarvex::jet
