#include "jet/header_page.h"

#include <gtest/gtest.h>

#include "tests/jet/support.h"

namespace tarvex::jet {
namespace {

MemoryDisk::Content Blank() {
  MemoryDisk disk;
  Must(Database::Create(disk, kFile, kNow));
  return disk.At(kFile);
}

struct Refusal {
  const char* what;
  Fault fault;
  std::function<void(MemoryDisk::Content&)> change;
};

TEST(HeaderPage, IsRefusedWithAReasonForOtherFiles) {
  const auto put = [](MemoryDisk::Content& bytes, size_t at, std::string_view text) {
    std::copy(text.begin(), text.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
  };
  const Refusal refusals[] = {
      {"empty", Fault::Corrupt, [](auto& bytes) { bytes.clear(); }},
      {"truncated", Fault::Corrupt, [](auto& bytes) { bytes.resize(bytes.size() - 1); }},
      {"other signature", Fault::Corrupt, [](auto& bytes) { bytes[1] = 0; }},
      {"text", Fault::Corrupt, [&](auto& bytes) { put(bytes, 0, "Heat,Lane,Name\n"); }},
      {"accdb", Fault::Unsupported,
       [&](auto& bytes) {
         put(bytes, 4, "Standard ACE DB");
         bytes[0x14] = 2;
       }},
      {"accdb 2010", Fault::Unsupported, [](auto& bytes) { bytes[0x14] = 3; }},
      {"money", Fault::Unsupported, [&](auto& bytes) { put(bytes, 4, "MSISAM Database"); }},
      {"jet 3", Fault::Unsupported, [](auto& bytes) { bytes[0x14] = 0; }},
      {"unknown version", Fault::Unsupported, [](auto& bytes) { bytes[0x14] = 9; }},
      {"encoded", Fault::Unsupported, [](auto& bytes) { bytes[0x3E] ^= 1; }},
  };
  const MemoryDisk::Content blank = Blank();
  for (const Refusal& refusal : refusals) {
    MemoryDisk disk;
    MemoryDisk::Content content = blank;
    refusal.change(content);
    disk.Put(kFile, content);
    SCOPED_TRACE(refusal.what);
    EXPECT_FAULT(refusal.fault, Database::Open(disk, kFile, OpenMode::Read).status());
    EXPECT_FAULT(refusal.fault, VerifyFile(disk, kFile).status());
    EXPECT_FALSE(disk.Exists(Journal::PathFor(kFile)));
  }
}

TEST(HeaderPage, OpensAFileOfAnotherLanguageForReadingOnly) {
  MemoryDisk disk;
  MemoryDisk::Content content = Blank();
  content[0x6E] ^= 0x09 ^ 0x1D;  // Swedish
  disk.Put(kFile, content);
  const auto database = OpenDatabase(disk);
  EXPECT_EQ(Must(database->Catalog()).size(), 8u);
  EXPECT_FAULT(Fault::Unsupported, database->Begin({"", ""}, kNow).status());
}

TEST(HeaderPage, EnciphersSecurityIdsWithTheCreationDateAndBuild) {
  auto page = NewHeaderPage(std::bit_cast<double>(uint64_t{0x40E4AB3E3BD3853E}));
  // The build 9756 instead of 8618; the mask is an exclusive or, so the difference can be put in as it is.
  page[0x6A] ^= 0xAA ^ 0x1C;
  page[0x6B] ^= 0x21 ^ 0x26;
  const Header header = Must(ReadHeader(page));
  EXPECT_EQ(header.build, 9756u);
  EXPECT_EQ(header.security_key, 0x3853837Eu);
  EXPECT_EQ(Hex(SecurityId(header, Principal::Admin)), "64 8B");
  EXPECT_EQ(Hex(SecurityId(header, Principal::Users)), "65 8B");
  EXPECT_EQ(Hex(SecurityId(header, Principal::Engine)), "65 89");
  EXPECT_EQ(Hex(SecurityId(header, Principal::Creator)), "65 8E");
}

TEST(BlankDatabase, HasSixteenPagesAndIsSound) {
  MemoryDisk disk;
  const auto database = Must(Database::Create(disk, kFile, kNow));
  EXPECT_EQ(disk.At(kFile).size(), 16 * kPageSize);
  EXPECT_EQ(Findings(*database), "");
  EXPECT_TRUE(Must(database->TableNames()).empty());
  EXPECT_FAULT(Fault::Exists, Database::Create(disk, kFile, kNow).status());
}

}  // namespace
}  // namespace tarvex::jet
