#include "jet/pager.h"

#include <algorithm>
#include <cassert>
#include <cstring>

#include "jet/bytes.h"

namespace tarvex::jet {
namespace {

// What identifies a database through its life: the part of page 0 that is written once.
uint64_t Fingerprint(const uint8_t* page0) {
  return Checksum({page0, 0x98}, 0);
}

constexpr size_t kWriteBuffer = 64 * kPageSize;

}  // namespace

Pager::Pager(FileSystem& files, const std::string& path, OpenMode mode, size_t cache_pages)
    : files_(files),
      path_(path),
      mode_(mode),
      cache_pages_(std::max<size_t>(cache_pages, 64)),
      journal_(files, path) {}

Pager::~Pager() {
  if (in_transaction_) (void)Rollback();
  if (!broken_) journal_.Remove();
}

Expected<std::unique_ptr<Pager>> Pager::Open(FileSystem& files, const std::string& path, OpenMode mode,
                                             size_t cache_pages) {
  std::unique_ptr<Pager> pager(new Pager(files, path, mode, cache_pages));
  TRY(pager->OpenFile());
  return pager;
}

Status Pager::OpenFile() {
  TRY_ASSIGN(file_, files_.Open(path_, mode_));
  if (mode_ == OpenMode::Create) {
    mode_ = OpenMode::ReadWrite;
    return Ok();
  }
  TRY_ASSIGN(auto leftover, Journal::FindLeftover(files_, path_, mode_));
  if (leftover.file) TRY(Recover(std::move(leftover)));
  TRY_ASSIGN(const uint64_t size, file_->Size());
  if (overlay_.file) {
    page_count_ = overlay_.page_count;
    by_page_.resize(page_count_);
    return Ok();
  }
  if (size == 0) return {Fault::Corrupt, "the file is empty"};
  if (size < kPageSize || size % kPageSize != 0) {
    return {Fault::Corrupt, "the file's length of " + std::to_string(size) +
                                " bytes is not a whole number of pages: it is truncated or no database"};
  }
  if (size / kPageSize > kMostPages) return {Fault::Unsupported, "the file is larger than 2 GiB"};
  page_count_ = file_pages_ = static_cast<PageNumber>(size / kPageSize);
  by_page_.resize(page_count_);
  return Ok();
}

// The state before the interrupted transaction: pages back in place, the file at its old length.
Status Pager::Recover(Journal::Leftover leftover) {
  std::vector<uint8_t> bytes(kPageSize);
  // Before its creation is done, a file has no page 0 to know it by: what stands in its place may be another.
  if (leftover.page_count == 0) {
    return {Fault::Corrupt, "the creation of the file was interrupted; remove it and " +
                                Journal::PathFor(path_) +
                                ", or only the latter if another database was put in its place"};
  }
  {
    const auto page0 = leftover.pages.find(0);
    TRY(page0 == leftover.pages.end() ? file_->Read(0, bytes) : leftover.file->Read(page0->second, bytes));
    if (Fingerprint(bytes.data()) != leftover.fingerprint) {
      return {
          Fault::Corrupt,
          "an interrupted change is recorded beside the file in " + Journal::PathFor(path_) +
              ", but it belongs to another database; move it away if the database was replaced on purpose"};
    }
  }
  if (mode_ == OpenMode::Read) {
    overlay_ = std::move(leftover);
    return Ok();
  }
  for (const auto& [page, offset] : leftover.pages) {
    TRY(leftover.file->Read(offset, bytes));
    TRY(file_->Write(uint64_t{page} * kPageSize, bytes));
  }
  TRY(file_->Truncate(uint64_t{leftover.page_count} * kPageSize));
  TRY(file_->Sync());
  const std::vector<uint8_t> zeros(64, 0);
  TRY(leftover.file->Write(0, zeros));
  TRY(leftover.file->Sync());
  leftover.file.reset();
  (void)files_.Remove(Journal::PathFor(path_));
  return Ok();
}

Expected<PageRef> Pager::Read(PageNumber page) {
  TRY_ASSIGN(Frame * frame, FrameFor(page));
  return PageRef(frame);
}

Expected<Frame*> Pager::FrameFor(PageNumber page) {
  if (page >= page_count_) {
    return Status{Fault::Corrupt, "page " + std::to_string(page) + " lies beyond the end of the file"};
  }
  if (Frame* frame = by_page_[page]) {
    frame->used = true;
    return frame;
  }
  if (broken_) return Status{Fault::Io, "the file must be opened anew after a failure of the disk"};
  TRY_ASSIGN(Frame * frame, FreeFrame());
  if (Status status = LoadInto(frame, page); !status.ok()) {
    unused_.push_back(frame);
    return status;
  }
  by_page_[page] = frame;
  return frame;
}

Status Pager::LoadInto(Frame* frame, PageNumber page) {
  const std::span<uint8_t> bytes(frame->bytes, kPageSize);
  if (overlay_.file && overlay_.pages.contains(page)) {
    TRY(overlay_.file->Read(overlay_.pages.at(page), bytes));
  } else {
    TRY(file_->Read(uint64_t{page} * kPageSize, bytes));
  }
  frame->number = page;
  frame->used = true;
  frame->dirty = false;
  frame->fresh = false;
  frame->checked = 0;
  return Ok();
}

// A frame that holds no page: an unused one, a new one while the cache may grow, else the first that nobody
// has looked at for a whole turn of the hand. When most of the cache is dirty, the dirty pages are written
// first. Only pins can make the cache grow past its bound.
Expected<Frame*> Pager::FreeFrame() {
  if (!unused_.empty()) {
    Frame* frame = unused_.back();
    unused_.pop_back();
    return frame;
  }
  if (frames_.size() >= cache_pages_) {
    for (int attempt = 0; attempt < 2; ++attempt) {
      for (size_t step = 0; step < 2 * frames_.size(); ++step) {
        Frame* frame = frames_[hand_].get();
        hand_ = (hand_ + 1) % frames_.size();
        if (frame->pins > 0 || frame->dirty) continue;
        if (std::exchange(frame->used, false)) continue;
        by_page_[frame->number] = nullptr;
        return frame;
      }
      TRY(Spill());
    }
  }
  frames_.push_back(std::make_unique<Frame>());
  return frames_.back().get();
}

Status Pager::CheckWritable() const {
  assert(in_transaction_);
  if (broken_) return {Fault::Io, "the file must be opened anew after a failure of the disk"};
  return Ok();
}

Expected<PageWriter> Pager::Write(PageNumber page) {
  TRY(CheckWritable());
  TRY_ASSIGN(Frame * frame, FrameFor(page));
  if (frame->dirty && frame->fresh) return PageWriter(frame);
  if (page < old_page_count_ && !journal_.Holds(page)) TRY(journal_.Add(page, PageRef(frame).span()));
  if (!undo_.empty() && page < undo_.back().page_count && !undo_.back().pages.contains(page)) {
    auto copy = std::make_unique<uint8_t[]>(kPageSize);
    std::memcpy(copy.get(), frame->bytes, kPageSize);
    undo_.back().pages.emplace(page, std::move(copy));
  }
  frame->fresh = true;
  if (!frame->dirty) {
    frame->dirty = true;
    dirty_.push_back(page);
  }
  return PageWriter(frame);
}

Expected<PageWriter> Pager::Append() {
  TRY(CheckWritable());
  if (page_count_ >= kMostPages)
    return Status{Fault::NoSpace, "the file has reached its greatest size of 2 GiB"};
  TRY_ASSIGN(Frame * frame, FreeFrame());
  std::memset(frame->bytes, 0, kPageSize);
  frame->number = page_count_;
  frame->used = frame->dirty = frame->fresh = true;
  frame->checked = 0;
  by_page_.push_back(frame);
  dirty_.push_back(page_count_);
  ++page_count_;
  return PageWriter(frame);
}

Status Pager::Begin(const CommandName& name) {
  if (in_transaction_) return {Fault::Invalid, "a transaction is already open"};
  if (mode_ == OpenMode::Read) return {Fault::ReadOnly, "the file is open for reading only"};
  if (broken_) return {Fault::Io, "the file must be opened anew after a failure of the disk"};
  uint64_t fingerprint = 0;
  if (page_count_ > 0) {
    TRY_ASSIGN(const PageRef page0, Read(0));
    fingerprint = Fingerprint(page0.bytes());
  }
  TRY(journal_.Begin(name, page_count_, fingerprint));
  old_page_count_ = page_count_;
  in_transaction_ = true;
  return Ok();
}

// Writes dirty pages to make room before the transaction ends; their old contents are synced first.
Status Pager::Spill() {
  if (dirty_.empty()) return Ok();
  TRY(journal_.Sync());
  return WriteDirty();
}

// Writes dirty pages in order of their place, neighbours in one go.
Status Pager::WriteDirty() {
  std::sort(dirty_.begin(), dirty_.end());
  dirty_.erase(std::unique(dirty_.begin(), dirty_.end()), dirty_.end());
  size_t at = 0;
  while (at < dirty_.size()) {
    const PageNumber first = dirty_[at];
    write_buffer_.clear();
    PageNumber next = first;
    while (at < dirty_.size() && dirty_[at] == next && write_buffer_.size() < kWriteBuffer) {
      Frame* frame = by_page_[next];
      write_buffer_.insert(write_buffer_.end(), frame->bytes, frame->bytes + kPageSize);
      ++at;
      ++next;
    }
    TRY(file_->Write(uint64_t{first} * kPageSize, write_buffer_));
    file_pages_ = std::max(file_pages_, next);
  }
  for (const PageNumber page : dirty_) by_page_[page]->dirty = false;
  dirty_.clear();
  return Ok();
}

Status Pager::Commit() {
  assert(in_transaction_);
  const auto apply = [&]() -> Status {
    if (dirty_.empty() && !journal_.IsHot()) return Ok();
    TRY(journal_.Sync());
    TRY(WriteDirty());
    // Pages appended, written early and then undone leave the file too long.
    if (file_pages_ > page_count_) {
      TRY(file_->Truncate(uint64_t{page_count_} * kPageSize));
      file_pages_ = page_count_;
    }
    TRY(file_->Sync());
    return journal_.Clear();
  };
  if (Status status = apply(); !status.ok()) {
    (void)Rollback();
    return status;
  }
  undo_.clear();
  in_transaction_ = false;
  return Ok();
}

// Puts the old pages back into the file, which some of the new ones have reached.
Status Pager::RestoreFile() {
  TRY(journal_.ForEachHeld([&](PageNumber page, std::span<const uint8_t, kPageSize> bytes) {
    return file_->Write(uint64_t{page} * kPageSize, bytes);
  }));
  TRY(file_->Truncate(uint64_t{old_page_count_} * kPageSize));
  TRY(file_->Sync());
  file_pages_ = old_page_count_;
  return Ok();
}

Status Pager::Rollback() {
  if (!in_transaction_) return Ok();
  in_transaction_ = false;
  undo_.clear();
  ++undo_count_;
  Status status = Ok();
  if (journal_.IsHot()) {
    status = RestoreFile();
    if (status.ok()) status = journal_.Clear();
    if (!status.ok()) broken_ = true;
    page_count_ = old_page_count_;
    Drop(0);
  } else {
    for (const PageNumber page : dirty_) {
      Frame* frame = page < by_page_.size() ? by_page_[page] : nullptr;
      if (!frame || !frame->dirty) continue;
      by_page_[page] = nullptr;
      frame->dirty = false;
      unused_.push_back(frame);
    }
    page_count_ = old_page_count_;
    Drop(page_count_);
    status = journal_.Clear();
  }
  dirty_.clear();
  return status;
}

// Forgets the cached pages from `from` on.
void Pager::Drop(PageNumber from) {
  for (PageNumber page = from; page < by_page_.size(); ++page) {
    Frame* frame = std::exchange(by_page_[page], nullptr);
    if (!frame) continue;
    frame->dirty = false;
    unused_.push_back(frame);
  }
  by_page_.resize(page_count_);
}

int Pager::Savepoint() {
  undo_.push_back({page_count_, {}});
  for (const PageNumber page : dirty_) {
    if (by_page_[page]) by_page_[page]->fresh = false;
  }
  return static_cast<int>(undo_.size());
}

Status Pager::RollbackTo(int number) {
  while (static_cast<int>(undo_.size()) >= number) {
    Undo undo = std::move(undo_.back());
    undo_.pop_back();
    page_count_ = undo.page_count;
    Drop(page_count_);
    std::erase_if(dirty_, [&](PageNumber page) { return page >= page_count_; });
    for (auto& [page, bytes] : undo.pages) {
      if (page >= page_count_) continue;
      TRY_ASSIGN(Frame * frame, FrameFor(page));
      std::memcpy(frame->bytes, bytes.get(), kPageSize);
      frame->checked = 0;
      frame->fresh = false;
      if (!frame->dirty) {
        frame->dirty = true;
        dirty_.push_back(page);
      }
    }
  }
  ++undo_count_;
  return Ok();
}

void Pager::Release(int number) {
  while (static_cast<int>(undo_.size()) >= number) {
    Undo undo = std::move(undo_.back());
    undo_.pop_back();
    if (undo_.empty()) break;
    for (auto& [page, bytes] : undo.pages) {
      if (page < undo_.back().page_count) undo_.back().pages.try_emplace(page, std::move(bytes));
    }
  }
}

}  // namespace tarvex::jet
