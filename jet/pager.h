#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/file.h"
#include "jet/journal.h"
#include "jet/value.h"

namespace tarvex::jet {

// A page in memory. `checked` remembers which structural checks its bytes have passed since they were read,
// so that a page is checked once and not at every look.
struct Frame {
  PageNumber number = 0;
  uint32_t pins = 0;
  bool used = false;     // looked at since the eviction hand last passed
  bool dirty = false;    // differs from the file
  bool fresh = false;    // changed since the innermost savepoint, whose copy (if any) is taken
  uint32_t checked = 0;  // bits of PageCheck
  alignas(16) uint8_t bytes[kPageSize];
};

// Keeps a page in memory while it lives. The bytes may change when the page is written through the pager.
class PageRef {
 public:
  PageRef() = default;
  explicit PageRef(Frame* frame) : frame_(frame) { ++frame_->pins; }
  PageRef(PageRef&& other) noexcept : frame_(std::exchange(other.frame_, nullptr)) {}
  PageRef& operator=(PageRef&& other) noexcept {
    std::swap(frame_, other.frame_);
    return *this;
  }
  PageRef(const PageRef& other) : frame_(other.frame_) {
    if (frame_) ++frame_->pins;
  }
  PageRef& operator=(const PageRef& other) { return *this = PageRef(other); }
  ~PageRef() {
    if (frame_) --frame_->pins;
  }

  explicit operator bool() const { return frame_ != nullptr; }
  PageNumber number() const { return frame_->number; }
  const uint8_t* bytes() const { return frame_->bytes; }
  std::span<const uint8_t, kPageSize> span() const {
    return std::span<const uint8_t, kPageSize>(frame_->bytes, kPageSize);
  }
  // Whether others hold the page too.
  bool IsShared() const { return frame_->pins > 1; }
  bool IsChecked(uint32_t check) const { return (frame_->checked & check) != 0; }
  void SetChecked(uint32_t check) const { frame_->checked |= check; }

 protected:
  Frame* frame_ = nullptr;
};

// A page that may be changed: its old contents are in the journal.
class PageWriter : public PageRef {
 public:
  PageWriter() = default;
  explicit PageWriter(Frame* frame) : PageRef(frame) {}
  uint8_t* mutable_bytes() const { return frame_->bytes; }
  // The page becomes one of another kind.
  void ClearChecked() const { frame_->checked = 0; }
};

// The pages of the file through a bounded cache, and transactions over them. One thread.
class Pager {
 public:
  // Pages kept in memory: 16 MiB.
  static constexpr size_t kDefaultCache = 4096;
  static constexpr PageNumber kMostPages = (uint64_t{2} << 30) / kPageSize;

  // Opens the file and, when a process died in the middle of a transaction, first puts the state before that
  // transaction back (in memory only when the file is opened for reading).
  static Expected<std::unique_ptr<Pager>> Open(FileSystem& files, const std::string& path, OpenMode mode,
                                               size_t cache_pages = kDefaultCache);
  ~Pager();
  Pager(const Pager&) = delete;
  Pager& operator=(const Pager&) = delete;

  PageNumber page_count() const { return page_count_; }
  bool read_only() const { return mode_ == OpenMode::Read; }

  // Fault::Corrupt for a page beyond the end.
  Expected<PageRef> Read(PageNumber page);

  // Inside a transaction only.
  Expected<PageWriter> Write(PageNumber page);
  // A new page of zeros at the end.
  Expected<PageWriter> Append();

  Status Begin(const CommandName& name);
  bool in_transaction() const { return in_transaction_; }
  // All or nothing, also when the power goes: after Ok() the changes are on the disk. After a failure the
  // transaction is over and undone; if even that fails, the pager refuses all further work and the next
  // opening puts the old state back.
  Status Commit();
  Status Rollback();

  // Savepoints nest; the number is that of the innermost.
  int Savepoint();
  // Undoes everything since savepoint `number` and ends it and those within it.
  Status RollbackTo(int number);
  // Ends it; its changes stay part of the transaction.
  void Release(int number);

  // Counts up whenever pages return to an older state, so that what was derived from them can be dropped.
  uint64_t undo_count() const { return undo_count_; }

 private:
  struct Undo {
    PageNumber page_count;
    std::unordered_map<PageNumber, std::unique_ptr<uint8_t[]>> pages;
  };

  Pager(FileSystem& files, const std::string& path, OpenMode mode, size_t cache_pages);
  Status OpenFile();
  Status Recover(Journal::Leftover leftover);
  Expected<Frame*> FrameFor(PageNumber page);
  Expected<Frame*> FreeFrame();
  Status LoadInto(Frame* frame, PageNumber page);
  Status Spill();
  Status WriteDirty();
  void Drop(PageNumber from);
  Status RestoreFile();
  Status CheckWritable() const;

  FileSystem& files_;
  std::string path_;
  OpenMode mode_;
  size_t cache_pages_;
  std::unique_ptr<File> file_;
  Journal journal_;
  Journal::Leftover overlay_;  // read-only opening after a crash: pages to take from the journal instead
  PageNumber page_count_ = 0;
  PageNumber file_pages_ = 0;  // pages the file itself holds now
  PageNumber old_page_count_ = 0;
  bool in_transaction_ = false;
  bool broken_ = false;
  uint64_t undo_count_ = 0;
  std::vector<std::unique_ptr<Frame>> frames_;
  std::vector<Frame*> by_page_;
  std::vector<Frame*> unused_;
  std::vector<PageNumber> dirty_;  // pages made dirty in this transaction, may repeat
  std::vector<uint8_t> write_buffer_;
  size_t hand_ = 0;
  std::vector<Undo> undo_;
};

}  // namespace tarvex::jet
