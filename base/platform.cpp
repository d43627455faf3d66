#include "base/platform.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>

namespace tarvex::platform {
namespace {

Status SystemFailure(const std::string& path, int error) {
  std::string detail = path + ": " + std::strerror(error);
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return {Fault::NotFound, std::move(detail)};
    case EEXIST:
      return {Fault::Exists, std::move(detail)};
    case EACCES:
    case EPERM:
    case EROFS:
      return {Fault::ReadOnly, std::move(detail)};
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return {Fault::NoSpace, std::move(detail)};
    default:
      return {Fault::Io, std::move(detail)};
  }
}

class DiskFile final : public File {
 public:
  DiskFile(int descriptor, std::string path) : descriptor_(descriptor), path_(std::move(path)) {}
  ~DiskFile() override { ::close(descriptor_); }
  DiskFile(const DiskFile&) = delete;
  DiskFile& operator=(const DiskFile&) = delete;

  Expected<uint64_t> Size() override {
    struct stat info {};
    if (::fstat(descriptor_, &info) != 0) return SystemFailure(path_, errno);
    if (!S_ISREG(info.st_mode)) return Status{Fault::Io, path_ + ": not a regular file"};
    return static_cast<uint64_t>(info.st_size);
  }

  Status Read(uint64_t offset, std::span<uint8_t> into) override {
    size_t done = 0;
    while (done < into.size()) {
      const ssize_t n =
          ::pread(descriptor_, into.data() + done, into.size() - done, static_cast<off_t>(offset + done));
      if (n < 0 && errno == EINTR) continue;
      if (n < 0) return SystemFailure(path_, errno);
      if (n == 0) return {Fault::Io, path_ + ": the file ends too early"};
      done += static_cast<size_t>(n);
    }
    return Ok();
  }

  Status Write(uint64_t offset, std::span<const uint8_t> from) override {
    size_t done = 0;
    while (done < from.size()) {
      const ssize_t n =
          ::pwrite(descriptor_, from.data() + done, from.size() - done, static_cast<off_t>(offset + done));
      if (n < 0 && errno == EINTR) continue;
      if (n < 0) return SystemFailure(path_, errno);
      done += static_cast<size_t>(n);
    }
    return Ok();
  }

  Status Truncate(uint64_t size) override {
    if (::ftruncate(descriptor_, static_cast<off_t>(size)) != 0) return SystemFailure(path_, errno);
    return Ok();
  }

  Status Sync() override {
    if (::fdatasync(descriptor_) != 0) return SystemFailure(path_, errno);
    return Ok();
  }

 private:
  int descriptor_;
  std::string path_;
};

class Disk final : public FileSystem {
 public:
  Expected<std::unique_ptr<File>> Open(const std::string& path, OpenMode mode) override {
    int flags = O_CLOEXEC | (mode == OpenMode::Read ? O_RDONLY : O_RDWR);
    if (mode == OpenMode::Create) flags |= O_CREAT | O_EXCL;
    const int descriptor = ::open(path.c_str(), flags, 0666);
    if (descriptor < 0) return SystemFailure(path, errno);
    auto file = std::make_unique<DiskFile>(descriptor, path);
    const int lock = (mode == OpenMode::Read ? LOCK_SH : LOCK_EX) | LOCK_NB;
    if (::flock(descriptor, lock) != 0) {
      if (errno == EWOULDBLOCK) return Status{Fault::InUse, path + ": in use by another program"};
      return SystemFailure(path, errno);
    }
    TRY_ASSIGN([[maybe_unused]] const uint64_t size, file->Size());
    return std::unique_ptr<File>(std::move(file));
  }

  bool Exists(const std::string& path) override {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0;
  }

  Status Remove(const std::string& path) override {
    if (::unlink(path.c_str()) != 0) return SystemFailure(path, errno);
    return Ok();
  }

  Status SyncFolderOf(const std::string& path) override {
    std::filesystem::path folder = std::filesystem::path(path).parent_path();
    if (folder.empty()) folder = ".";
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return SystemFailure(folder.string(), errno);
    const int result = ::fsync(descriptor);
    const int error = errno;
    ::close(descriptor);
    // Some network file systems know no sync of a folder; what they hold is as safe as they make it.
    if (result != 0 && error != EINVAL) return SystemFailure(folder.string(), error);
    return Ok();
  }
};

uint64_t NumberAfter(const std::string& text, const std::string& label) {
  const size_t at = text.find(label);
  return at == std::string::npos ? 0 : std::strtoull(text.c_str() + at + label.size(), nullptr, 10);
}

}  // namespace

FileSystem& Files() {
  static Disk disk;
  return disk;
}

double NowAsDays() {
  const auto now = std::chrono::system_clock::now();
  const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  std::tm local{};
  ::localtime_r(&seconds, &local);
  using std::chrono::day, std::chrono::month, std::chrono::year;
  const std::chrono::sys_days date = year(local.tm_year + 1900) /
                                     month(static_cast<unsigned>(local.tm_mon + 1)) /
                                     day(static_cast<unsigned>(local.tm_mday));
  const std::chrono::sys_days epoch = year(1899) / month(12) / day(30);
  return static_cast<double>((date - epoch).count()) +
         (local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec) / 86400.0;
}

uint64_t RandomBits() {
  uint64_t bits = 0;
  if (::getrandom(&bits, sizeof bits, 0) != sizeof bits) {
    bits = static_cast<uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
  }
  return bits;
}

bool InputIsTerminal() {
  return ::isatty(STDIN_FILENO) == 1;
}
bool ErrorIsTerminal() {
  return ::isatty(STDERR_FILENO) == 1;
}

std::string AbsolutePath(const std::string& path) {
  std::error_code error;
  const auto absolute = std::filesystem::absolute(path, error);
  return error ? path : absolute.lexically_normal().string();
}

Usage ProcessUsage() {
  Usage usage;
  struct rusage resources {};
  if (::getrusage(RUSAGE_SELF, &resources) == 0) {
    usage.peak_memory = static_cast<uint64_t>(resources.ru_maxrss) * 1024;
  }
  std::ifstream file("/proc/self/io");
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  usage.bytes_read = NumberAfter(text, "rchar: ");
  usage.bytes_written = NumberAfter(text, "wchar: ");
  return usage;
}

}  // namespace tarvex::platform
