#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "base/file.h"
#include "jet/value.h"

namespace tarvex::jet {

// What a transaction says of itself, so that a log can be kept of it.
struct CommandName {
  std::string command;
  std::string user;
};

// The rollback journal: a file beside the database ("meet.mdb-journal") that holds the first contents of
// every page that a running transaction has changed. While its header is valid the database is in the middle
// of a transaction, and putting the pages back returns it to the state before.
//
//   offset size
//        0    8   "TarvexJ1"; zeros = no transaction is open
//        8    8   nonce, new for each transaction; part of every checksum, so that records left by earlier
//                 transactions never count
//       16    4   pages of the database before the transaction
//       20    8   fingerprint of the database's page 0
//       28    1   length c of the command name, then the name; then the same for the user
//     4088    8   checksum of the bytes before
//     4096        records of 4112 bytes: u32 page, u32 0, u64 checksum, 4096 bytes of the page
//
// The order that makes it safe: records written, journal synced, pages of the database written, database
// synced, header cleared, journal synced.
class Journal {
 public:
  // `path` is the database's path.
  Journal(FileSystem& files, const std::string& path);

  static std::string PathFor(const std::string& database_path) { return database_path + "-journal"; }

  // Makes ready for a transaction over a database of `page_count` pages. Touches the disk only when the
  // journal file must be made.
  Status Begin(const CommandName& name, PageNumber page_count, uint64_t fingerprint);

  bool Holds(PageNumber page) const { return page < held_.size() && held_[page]; }
  // Takes the contents of `page` as they were before the transaction.
  Status Add(PageNumber page, std::span<const uint8_t, kPageSize> original);

  // Returns when everything added is on the disk; only then may pages of the database be written.
  Status Sync();
  // Whether Sync() has happened in this transaction, so that the database may differ from its old state.
  bool IsHot() const { return hot_; }

  // Ends the transaction: the header is cleared and that is synced.
  Status Clear();

  // Reads back every page added in this transaction.
  template <class Visit>
  Status ForEachHeld(Visit visit);

  // Removes the file. Called when the database is closed between transactions.
  void Remove();

  // What a journal left behind by a process that died holds. Page numbers with the offset of their bytes.
  struct Leftover {
    std::unique_ptr<File> file;
    PageNumber page_count = 0;
    uint64_t fingerprint = 0;
    std::unordered_map<PageNumber, uint64_t> pages;
  };
  // Looks for such a journal; `file` stays empty when there is none with a valid header.
  static Expected<Leftover> FindLeftover(FileSystem& files, const std::string& path, OpenMode mode);

 private:
  static constexpr uint64_t kRecordSize = 16 + kPageSize;

  Status WriteBuffer();

  FileSystem& files_;
  std::string path_;
  std::unique_ptr<File> file_;
  uint64_t nonce_ = 0;
  uint64_t records_ = 0;          // in file and buffer
  uint64_t written_records_ = 0;  // in the file
  bool hot_ = false;
  bool synced_all_ = false;
  std::vector<uint8_t> header_;
  std::vector<uint8_t> buffer_;  // records not yet written
  std::vector<bool> held_;
  std::vector<PageNumber> order_;
};

template <class Visit>
Status Journal::ForEachHeld(Visit visit) {
  TRY(WriteBuffer());
  std::vector<uint8_t> bytes(kPageSize);
  for (size_t i = 0; i < order_.size(); ++i) {
    TRY(file_->Read(kPageSize + i * kRecordSize + 16, bytes));
    TRY(visit(order_[i], std::span<const uint8_t, kPageSize>(bytes.data(), kPageSize)));
  }
  return Ok();
}

// A 64-bit checksum; tells torn and stale data from good, not a malicious change.
uint64_t Checksum(std::span<const uint8_t> bytes, uint64_t seed);

}  // namespace tarvex::jet
