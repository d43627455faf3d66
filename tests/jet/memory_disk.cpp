#include "tests/jet/memory_disk.h"

#include <algorithm>
#include <cstring>

namespace tarvex::jet {
namespace {

void Apply(std::vector<uint8_t>& content, uint64_t offset, std::span<const uint8_t> bytes) {
  if (content.size() < offset + bytes.size()) content.resize(offset + bytes.size());
  std::copy(bytes.begin(), bytes.end(), content.begin() + static_cast<std::ptrdiff_t>(offset));
}

constexpr size_t kSector = 512;

}  // namespace

class MemoryFile : public File {
 public:
  MemoryFile(MemoryDisk& disk, std::string path, std::shared_ptr<MemoryDisk::Content> content)
      : disk_(disk), path_(std::move(path)), content_(std::move(content)) {}

  Expected<uint64_t> Size() override { return uint64_t{content_->size()}; }

  Status Read(uint64_t offset, std::span<uint8_t> into) override {
    TRY(disk_.Count({MemoryDisk::Kind::Read, path_, offset, {}}));
    if (offset + into.size() > content_->size()) return {Fault::Io, "the file ends before that"};
    std::copy_n(content_->begin() + static_cast<std::ptrdiff_t>(offset), into.size(), into.begin());
    return Ok();
  }

  Status Write(uint64_t offset, std::span<const uint8_t> from) override {
    if (Status status = disk_.Count({MemoryDisk::Kind::Write, path_, offset, {from.begin(), from.end()}});
        !status.ok()) {
      Apply(*content_, offset, from.first(from.size() / 2));
      return status;
    }
    Apply(*content_, offset, from);
    return Ok();
  }

  Status Truncate(uint64_t size) override {
    TRY(disk_.Count({MemoryDisk::Kind::Truncate, path_, size, {}}));
    content_->resize(size);
    return Ok();
  }

  Status Sync() override { return disk_.Count({MemoryDisk::Kind::Sync, path_, 0, {}}); }

 private:
  MemoryDisk& disk_;
  std::string path_;
  std::shared_ptr<MemoryDisk::Content> content_;
};

Expected<std::unique_ptr<File>> MemoryDisk::Open(const std::string& path, OpenMode mode) {
  if (mode == OpenMode::Create) {
    if (Exists(path)) return Status{Fault::Exists, path};
    TRY(Count({Kind::Create, path, 0, {}}));
    files_[path] = std::make_shared<Content>();
  }
  const auto found = files_.find(path);
  if (found == files_.end()) return Status{Fault::NotFound, path};
  return std::unique_ptr<File>(new MemoryFile(*this, path, found->second));
}

Status MemoryDisk::Remove(const std::string& path) {
  TRY(Count({Kind::Remove, path, 0, {}}));
  return files_.erase(path) > 0 ? Ok() : Status{Fault::NotFound, path};
}

Status MemoryDisk::SyncFolderOf(const std::string& path) {
  return Count({Kind::SyncFolder, path, 0, {}});
}

Status MemoryDisk::Count(Event event) {
  ++operations_;
  if (fail_at_ > 0 && (operations_ == fail_at_ || (all_after_ && operations_ > fail_at_))) {
    return {Fault::Io, "the disk fails on purpose"};
  }
  if (recording_ && event.kind != Kind::Read) events_.push_back(std::move(event));
  return Ok();
}

void MemoryDisk::FailAt(int at, bool all_after) {
  operations_ = 0;
  fail_at_ = at;
  all_after_ = all_after;
}

void MemoryDisk::StartRecording() {
  recording_ = true;
  events_.clear();
  recorded_from_.clear();
  for (const auto& [path, content] : files_) recorded_from_[path] = *content;
}

std::unique_ptr<MemoryDisk> MemoryDisk::AfterPowerLoss(size_t events, Loss loss, std::mt19937& random) const {
  std::map<std::string, Content> files = recorded_from_;
  std::vector<const Event*> unsynced;
  const auto kept = [&] { return loss == Loss::Nothing || (loss != Loss::Unsynced && random() % 2 == 0); };
  const auto apply = [&](const Event& event, bool torn) {
    switch (event.kind) {
      case Kind::Create:
        files.try_emplace(event.path);
        break;
      case Kind::Remove:
        files.erase(event.path);
        break;
      case Kind::Truncate:
        if (files.contains(event.path)) files[event.path].resize(event.offset);
        break;
      case Kind::Write:
        if (!files.contains(event.path)) break;
        for (size_t at = 0; at < event.bytes.size(); at += torn ? kSector : event.bytes.size()) {
          const size_t size = torn ? std::min(kSector, event.bytes.size() - at) : event.bytes.size();
          if (!torn || random() % 2 == 0)
            Apply(files[event.path], event.offset + at, std::span(event.bytes).subspan(at, size));
        }
        break;
      default:
        break;
    }
  };
  for (size_t i = 0; i < events; ++i) {
    const Event& event = events_[i];
    const bool syncs_file = event.kind == Kind::Sync;
    if (!syncs_file && event.kind != Kind::SyncFolder) {
      unsynced.push_back(&event);
      continue;
    }
    std::erase_if(unsynced, [&](const Event* pending) {
      const bool is_name = pending->kind == Kind::Create || pending->kind == Kind::Remove;
      if (is_name == syncs_file || (syncs_file && pending->path != event.path)) return false;
      apply(*pending, false);
      return true;
    });
  }
  for (const Event* pending : unsynced) {
    if (loss == Loss::Torn && pending->kind == Kind::Write) {
      apply(*pending, true);
    } else if (kept()) {
      apply(*pending, false);
    }
  }
  auto disk = std::make_unique<MemoryDisk>();
  for (auto& [path, content] : files) disk->Put(path, std::move(content));
  return disk;
}

}  // namespace tarvex::jet
