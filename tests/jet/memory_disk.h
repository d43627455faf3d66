#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "base/file.h"

namespace tarvex::jet {

// A disk in memory that can fail on purpose and remembers what was done to it, so that the state after a loss
// of power can be made up.
class MemoryDisk : public FileSystem {
 public:
  using Content = std::vector<uint8_t>;

  enum class Kind { Read, Write, Truncate, Sync, Create, Remove, SyncFolder };
  struct Event {
    Kind kind;
    std::string path;
    uint64_t offset = 0;  // Truncate: the new size
    Content bytes;        // Write
  };

  Expected<std::unique_ptr<File>> Open(const std::string& path, OpenMode mode) override;
  bool Exists(const std::string& path) override { return files_.contains(path); }
  Status Remove(const std::string& path) override;
  Status SyncFolderOf(const std::string& path) override;

  Content& At(const std::string& path) { return *files_.at(path); }
  void Put(const std::string& path, Content content) {
    files_[path] = std::make_shared<Content>(std::move(content));
  }

  // Operations from now on are counted; number `at` of them (from 1) fails, and with `all_after` every later
  // one too. 0: none fails. A failing write still leaves its first half in the file.
  void FailAt(int at, bool all_after);
  int operations() const { return operations_; }
  bool has_failed() const { return fail_at_ > 0 && operations_ >= fail_at_; }

  // From now on events are kept, and the present state is what is safely on the disk.
  void StartRecording();
  const std::vector<Event>& events() const { return events_; }

  enum class Loss {
    Nothing,   // everything written has reached the disk
    Unsynced,  // nothing but what was synced has
    Some,      // each unsynced write has or has not
    Torn,      // each unsynced 512 bytes have or have not
  };
  // The disk as it may be when the power goes after the first `events` events.
  std::unique_ptr<MemoryDisk> AfterPowerLoss(size_t events, Loss loss, std::mt19937& random) const;

 private:
  friend class MemoryFile;
  // Counts an operation; a failure when it is the one to fail.
  Status Count(Event event);

  std::map<std::string, std::shared_ptr<Content>> files_;
  int operations_ = 0;
  int fail_at_ = 0;
  bool all_after_ = false;
  bool recording_ = false;
  std::vector<Event> events_;
  std::map<std::string, Content> recorded_from_;
};

}  // namespace tarvex::jet
