#pragma once

#include <memory>
#include <string>
#include <utility>

#include "base/platform.h"

namespace tarvex::database {

// Passes everything to the disk until `writes_left` writes were made; then the disk is full.
class FillingDisk : public FileSystem {
 public:
  explicit FillingDisk(int writes) : writes_left_(writes) {}
  Expected<std::unique_ptr<File>> Open(const std::string& path, OpenMode mode) override {
    TRY_ASSIGN(auto file, platform::Files().Open(path, mode));
    return std::unique_ptr<File>(std::make_unique<FillingFile>(std::move(file), writes_left_));
  }
  bool Exists(const std::string& path) override { return platform::Files().Exists(path); }
  Status Remove(const std::string& path) override { return platform::Files().Remove(path); }
  Status SyncFolderOf(const std::string& path) override { return platform::Files().SyncFolderOf(path); }

 private:
  class FillingFile : public File {
   public:
    FillingFile(std::unique_ptr<File> file, int& writes_left) : file_(std::move(file)), left_(writes_left) {}
    Expected<uint64_t> Size() override { return file_->Size(); }
    Status Read(uint64_t offset, std::span<uint8_t> into) override { return file_->Read(offset, into); }
    Status Write(uint64_t offset, std::span<const uint8_t> from) override {
      if (left_ <= 0) return {Fault::NoSpace, "no space left on the disk"};
      --left_;
      return file_->Write(offset, from);
    }
    Status Truncate(uint64_t size) override { return file_->Truncate(size); }
    Status Sync() override { return file_->Sync(); }

   private:
    std::unique_ptr<File> file_;
    int& left_;
  };

  int writes_left_;
};

}  // namespace tarvex::database
