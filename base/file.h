#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "base/status.h"

namespace tarvex {

// One open file. The storage engine touches the disk through this interface only, so that a test can stand
// in for the disk: fail a write, lose what was not synced.
class File {
 public:
  virtual ~File() = default;

  // Length in bytes.
  virtual Expected<uint64_t> Size() = 0;
  // Fills `into` from `offset`; Fault::Io when the file ends before that.
  virtual Status Read(uint64_t offset, std::span<uint8_t> into) = 0;
  // Writes all of `from`; Fault::NoSpace when the disk is full. The file grows as needed.
  virtual Status Write(uint64_t offset, std::span<const uint8_t> from) = 0;
  virtual Status Truncate(uint64_t size) = 0;
  // Returns when everything written so far is on the disk and survives a loss of power.
  virtual Status Sync() = 0;
};

// How a file is opened, and what others may do meanwhile.
enum class OpenMode {
  Read,       // others may read
  ReadWrite,  // others may do nothing; Fault::ReadOnly when the file cannot be written
  Create,     // as ReadWrite; Fault::Exists when there is such a file
};

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // Fault::NotFound, Exists, ReadOnly, InUse (others hold the file), Io.
  virtual Expected<std::unique_ptr<File>> Open(const std::string& path, OpenMode mode) = 0;
  virtual bool Exists(const std::string& path) = 0;
  virtual Status Remove(const std::string& path) = 0;
  // Makes the creation or removal of `path` durable.
  virtual Status SyncFolderOf(const std::string& path) = 0;
};

}  // namespace tarvex
