#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <thread>

#include "host/file_system.h"

namespace torvane {

namespace {

constexpr char kNotAFile[] = "There is something else than a file under this name.";

Refusal Refused(int error) { return {ReasonOf({error, std::generic_category()})}; }

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() { Close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  explicit operator bool() const { return number_ >= 0; }
  int Number() const { return number_; }
  // 0 or the system's error number: some file systems tell only here that the bytes found no room.
  int Close() {
    const int error = number_ >= 0 && close(number_) != 0 ? errno : 0;
    number_ = -1;
    return error == EINTR ? 0 : error;
  }

 private:
  int number_;
};

int WriteAll(const Descriptor& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file.Number(), bytes.data(), bytes.size());
    if (written > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (written == 0) {
      return ENOSPC;
    } else if (errno != EINTR) {
      return errno;
    }
  }
  return 0;
}

// Where a file system cannot take room beforehand, the writing itself must show whether there is any.
int TakeRoom(const Descriptor& file, off_t from, off_t to) {
  if (to <= from) return 0;
  int error = EINTR;
  while (error == EINTR) error = posix_fallocate(file.Number(), from, to - from);
  return error == EOPNOTSUPP || error == ENOSYS || error == EINVAL ? 0 : error;
}

int Overwrite(const Descriptor& file, off_t formerSize, const std::vector<std::string_view>& parts) {
  off_t size = 0;
  for (const auto part : parts) size += static_cast<off_t>(part.size());
  if (const int error = TakeRoom(file, formerSize, size)) return error;
  for (const auto part : parts) {
    if (const int error = WriteAll(file, part)) return error;
  }
  return ftruncate(file.Number(), size) == 0 ? 0 : errno;
}

}  // namespace

Result<std::string> ReadRegularFile(const std::filesystem::path& path) {
  struct stat found {};
  // Asked before opening: opening a line to a machine can move its signals.
  if (stat(path.c_str(), &found) != 0) return Refused(errno);
  if (!S_ISREG(found.st_mode)) return Refusal{kNotAFile};
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!file || fstat(file.Number(), &found) != 0) return Refused(errno);
  if (!S_ISREG(found.st_mode)) return Refusal{kNotAFile};

  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(found.st_size));
  std::array<char, 65536> block{};
  for (;;) {
    const ssize_t count = read(file.Number(), block.data(), block.size());
    if (count == 0) return bytes;
    if (count > 0) bytes.append(block.data(), static_cast<std::size_t>(count));
    if (count < 0 && errno != EINTR) return Refused(errno);
  }
}

Outcome WriteInPlace(const std::filesystem::path& path, const std::vector<std::string_view>& parts) {
  struct stat former {};
  const bool made = stat(path.c_str(), &former) != 0;
  if (made && errno != ENOENT) return Refused(errno);
  if (!made && !S_ISREG(former.st_mode)) return Refusal{kNotAFile};
  Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666));
  if (!file || fstat(file.Number(), &former) != 0) return Refused(errno);
  if (!S_ISREG(former.st_mode)) return Refusal{kNotAFile};

  int error = Overwrite(file, former.st_size, parts);
  const bool overwritten = error != 0 && former.st_size > 0 && lseek(file.Number(), 0, SEEK_CUR) > 0;
  const bool lengthLost = error != 0 && ftruncate(file.Number(), former.st_size) != 0;
  const int closing = file.Close();
  const bool closingLost = error == 0 && closing != 0 && former.st_size > 0;
  if (error == 0) error = closing;
  if (error == 0) return Done{};
  if (made) unlink(LinksFollowed(path).c_str());
  Refusal refusal = Refused(error);
  if ((overwritten || lengthLost || closingLost) && !made) refusal.reason += " (The former file is lost.)";
  return refusal;
}

Outcome ReplaceAtOnce(const std::filesystem::path& path, std::string_view bytes) {
  const std::string beside = path.string() + ".new";
  unlink(beside.c_str());  // left by a station that ended in the middle
  Descriptor file(open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
  if (!file) return Refused(errno);

  int error = WriteAll(file, bytes);
  struct stat former {};
  if (error == 0 && stat(path.c_str(), &former) == 0 && fchmod(file.Number(), former.st_mode & 07777) != 0) {
    error = errno;
  }
  if (error == 0 && fsync(file.Number()) != 0) error = errno;
  const int closing = file.Close();
  if (error == 0) error = closing;
  if (error == 0 && std::rename(beside.c_str(), path.c_str()) != 0) error = errno;
  if (error == 0) return Done{};
  unlink(beside.c_str());
  return Refused(error);
}

std::optional<FileStamp> StampOf(const std::filesystem::path& path) {
  struct stat found {};
  if (stat(path.c_str(), &found) != 0) return std::nullopt;
  return FileStamp{std::int64_t{found.st_mtim.tv_sec} * 1'000'000'000 + found.st_mtim.tv_nsec,
                   static_cast<std::uint64_t>(found.st_size), static_cast<std::uint64_t>(found.st_ino)};
}

FileLock::FileLock(const std::filesystem::path& path, std::chrono::milliseconds patience) {
  using std::chrono::steady_clock;
  handle_ = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666);
  if (handle_ < 0) {
    taken_ = Refused(errno);
    return;
  }
  const auto end = steady_clock::now() + patience;
  while (flock(static_cast<int>(handle_), LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) {
      taken_ = Refused(errno);
      return;
    }
    if (steady_clock::now() >= end) {
      taken_ = Refusal{"Another program keeps it locked."};
      return;
    }
    // Short against the time that a write takes, so that a busy neighbour does not keep winning.
    std::this_thread::sleep_for(std::chrono::microseconds(200));
  }
}

FileLock::~FileLock() {
  if (handle_ >= 0) close(static_cast<int>(handle_));
}

}  // namespace torvane
