#include "jet/journal.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string_view>

#include "base/platform.h"
#include "jet/bytes.h"

namespace tarvex::jet {
namespace {

constexpr std::string_view kMagic = "TarvexJ1";
constexpr size_t kBufferLimit = 256 * (16 + kPageSize);
constexpr size_t kLongestName = 255;

size_t PutName(std::vector<uint8_t>& header, size_t at, const std::string& name) {
  const size_t length = std::min(name.size(), kLongestName);
  header[at] = static_cast<uint8_t>(length);
  std::memcpy(&header[at + 1], name.data(), length);
  return at + 1 + length;
}

}  // namespace

uint64_t Checksum(std::span<const uint8_t> bytes, uint64_t seed) {
  constexpr uint64_t kMultiplier = 0x9E3779B97F4A7C15;
  uint64_t lanes[4] = {seed ^ kMultiplier, seed + 1, seed + 2, seed + 3};
  size_t at = 0;
  for (; at + 32 <= bytes.size(); at += 32) {
    for (size_t lane = 0; lane < 4; ++lane) {
      lanes[lane] = std::rotl((lanes[lane] ^ Load<uint64_t>(bytes.data() + at + 8 * lane)) * kMultiplier, 29);
    }
  }
  uint64_t sum = bytes.size();
  for (; at < bytes.size(); ++at) sum = std::rotl((sum ^ bytes[at]) * kMultiplier, 29);
  for (const uint64_t lane : lanes) sum = std::rotl((sum ^ lane) * kMultiplier, 29);
  return sum ^ (sum >> 32);
}

Journal::Journal(FileSystem& files, const std::string& path) : files_(files), path_(PathFor(path)) {}

Status Journal::Begin(const CommandName& name, PageNumber page_count, uint64_t fingerprint) {
  if (!file_) {
    const OpenMode mode = files_.Exists(path_) ? OpenMode::ReadWrite : OpenMode::Create;
    TRY_ASSIGN(file_, files_.Open(path_, mode));
    // The folder must know the journal before the database changes, or it would be lost with the power.
    TRY(files_.SyncFolderOf(path_));
  }
  nonce_ = platform::RandomBits();
  records_ = written_records_ = 0;
  hot_ = synced_all_ = false;
  buffer_.clear();
  order_.clear();
  held_.assign(page_count, false);

  header_.assign(kPageSize, 0);
  std::memcpy(&header_[0], kMagic.data(), kMagic.size());
  Store<uint64_t>(&header_[8], nonce_);
  Store<uint32_t>(&header_[16], page_count);
  Store<uint64_t>(&header_[20], fingerprint);
  PutName(header_, PutName(header_, 28, name.command), name.user);
  Store<uint64_t>(&header_[kPageSize - 8], Checksum({header_.data(), kPageSize - 8}, nonce_));
  return Ok();
}

Status Journal::Add(PageNumber page, std::span<const uint8_t, kPageSize> original) {
  const size_t at = buffer_.size();
  buffer_.resize(at + kRecordSize);
  Store<uint32_t>(&buffer_[at], page);
  Store<uint32_t>(&buffer_[at + 4], 0);
  Store<uint64_t>(&buffer_[at + 8], Checksum(original, nonce_ + page));
  std::memcpy(&buffer_[at + 16], original.data(), kPageSize);
  held_[page] = true;
  order_.push_back(page);
  ++records_;
  synced_all_ = false;
  return buffer_.size() >= kBufferLimit ? WriteBuffer() : Ok();
}

Status Journal::WriteBuffer() {
  if (buffer_.empty()) return Ok();
  TRY(file_->Write(kPageSize + written_records_ * kRecordSize, buffer_));
  written_records_ = records_;
  buffer_.clear();
  return Ok();
}

Status Journal::Sync() {
  if (synced_all_ && hot_) return Ok();
  TRY(WriteBuffer());
  if (!hot_) TRY(file_->Write(0, header_));
  // From here on the header may be on the disk, whether or not the sync succeeds.
  hot_ = true;
  TRY(file_->Sync());
  synced_all_ = true;
  return Ok();
}

Status Journal::Clear() {
  if (hot_) {
    const std::vector<uint8_t> zeros(64, 0);
    TRY(file_->Write(0, zeros));
    TRY(file_->Sync());
  }
  hot_ = false;
  held_.clear();
  order_.clear();
  buffer_.clear();
  return Ok();
}

void Journal::Remove() {
  if (!file_) return;
  file_.reset();
  // A journal without a header means nothing to the next opener, so a failure here does no harm.
  (void)files_.Remove(path_);
}

Expected<Journal::Leftover> Journal::FindLeftover(FileSystem& files, const std::string& path, OpenMode mode) {
  Leftover leftover;
  const std::string journal_path = PathFor(path);
  if (!files.Exists(journal_path)) return leftover;
  TRY_ASSIGN(auto file, files.Open(journal_path, mode));
  TRY_ASSIGN(const uint64_t size, file->Size());
  if (size < kPageSize) return leftover;
  std::vector<uint8_t> header(kPageSize);
  TRY(file->Read(0, header));
  if (std::memcmp(header.data(), kMagic.data(), kMagic.size()) != 0) return leftover;
  const uint64_t nonce = Load<uint64_t>(&header[8]);
  if (Load<uint64_t>(&header[kPageSize - 8]) != Checksum({header.data(), kPageSize - 8}, nonce))
    return leftover;
  leftover.page_count = Load32(&header[16]);
  leftover.fingerprint = Load<uint64_t>(&header[20]);

  // Records end at the first that does not check: what follows was never synced, so the pages it would hold
  // were never changed in the database.
  std::vector<uint8_t> record(kRecordSize);
  for (uint64_t at = kPageSize; at + kRecordSize <= size; at += kRecordSize) {
    TRY(file->Read(at, record));
    const PageNumber page = Load32(record.data());
    const std::span<const uint8_t> bytes(record.data() + 16, kPageSize);
    if (Load<uint64_t>(&record[8]) != Checksum(bytes, nonce + page)) break;
    if (page >= leftover.page_count) break;
    leftover.pages.emplace(page, at + 16);
  }
  leftover.file = std::move(file);
  return leftover;
}

}  // namespace tarvex::jet
