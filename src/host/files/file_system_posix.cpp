#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <memory>
#include <thread>

#include "host/files/file_system.h"

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

int Overwrite(const Descriptor& file, off_t formerSize, std::string_view bytes) {
  const auto size = static_cast<off_t>(bytes.size());
  if (const int error = TakeRoom(file, formerSize, size)) return error;
  if (const int error = WriteAll(file, bytes)) return error;
  return ftruncate(file.Number(), size) == 0 ? 0 : errno;
}

// The file that stands under a name, before another takes its place.
struct Former {
  Former(std::filesystem::path name, Links links) : path(std::move(name)) {
    if ((links == Links::Followed ? stat : lstat)(path.c_str(), &found) != 0) error = errno;
  }

  bool IsFile() const { return error == 0 && S_ISREG(found.st_mode); }

  std::filesystem::path path;
  struct stat found {};
  int error = 0;  // why it cannot be looked at; ENOENT where there is none
};

// The last resort. The path is no link.
Outcome WriteInPlace(const std::filesystem::path& path, std::string_view bytes) {
  struct stat former {};
  Descriptor file(open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY));
  if (!file || fstat(file.Number(), &former) != 0) return Refused(errno);
  if (!S_ISREG(former.st_mode)) return Refusal{kNotAFile};

  int error = Overwrite(file, former.st_size, bytes);
  const bool overwritten = error != 0 && former.st_size > 0 && lseek(file.Number(), 0, SEEK_CUR) > 0;
  const bool lengthLost = error != 0 && ftruncate(file.Number(), former.st_size) != 0;
  int closing = fsync(file.Number()) == 0 ? 0 : errno;
  if (const int failed = file.Close()) closing = failed;
  const bool closingLost = error == 0 && closing != 0 && former.st_size > 0;
  if (error == 0) error = closing;
  if (error == 0) return Done{};
  Refusal refusal = Refused(error);
  if (overwritten || lengthLost || closingLost) refusal.reason += " (The former file is lost.)";
  return refusal;
}

// Gives a new file the owner and the rights of a former one; 0 or the system's error number.
int TakeRights(const Descriptor& file, const Former& former) {
  constexpr char kRightsOfOthers[] = "system.posix_acl_access";
  struct stat made {};
  if (fstat(file.Number(), &made) != 0) return errno;
  const uid_t owner = former.found.st_uid;
  const gid_t group = former.found.st_gid;
  // Who may not give it away owns it from now on, as a mixed file would be worse; the group's rights are
  // kept.
  if ((made.st_uid != owner || made.st_gid != group) && fchown(file.Number(), owner, group) != 0 &&
      fchown(file.Number(), static_cast<uid_t>(-1), group) != 0)
    return EPERM;
  std::array<char, 4096> list{};
  const ssize_t size = getxattr(former.path.c_str(), kRightsOfOthers, list.data(), list.size());
  if (size > 0 &&
      fsetxattr(file.Number(), kRightsOfOthers, list.data(), static_cast<std::size_t>(size), 0) != 0)
    return errno;
  if (size < 0 && errno == ENODATA) fremovexattr(file.Number(), kRightsOfOthers);
  const mode_t rights = former.found.st_mode & 07777;
  if (fstat(file.Number(), &made) == 0 && (made.st_mode & 07777) == rights) return 0;
  return fchmod(file.Number(), rights) == 0 ? 0 : errno;
}

// A file beside another, locked for as long as its process writes it.
class Beside {
 public:
  Beside(const std::filesystem::path& folder, mode_t rights) {
    for (int attempt = 1; error_ == EEXIST; ++attempt) {
      path_ = folder / NameBeside(static_cast<unsigned long>(getpid()), attempt);
      file_ = std::make_unique<Descriptor>(
          open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, rights));
      error_ = *file_ ? 0 : errno;
      // Whoever looks for leftovers can be between the two calls, and takes it for one.
      if (error_ == 0 && IsTakenAway()) error_ = EEXIST;
    }
  }
  ~Beside() {
    if (error_ == 0 && !placed_) unlink(path_.c_str());
  }
  Beside(const Beside&) = delete;
  Beside& operator=(const Beside&) = delete;

  int Error() const { return error_; }
  const Descriptor& File() const { return *file_; }
  const std::filesystem::path& Path() const { return path_; }

  // 0 or the system's error number.
  int PutInPlaceOf(const std::filesystem::path& target) {
    if (fsync(file_->Number()) != 0) return errno;
    if (std::rename(path_.c_str(), target.c_str()) != 0) return errno;
    placed_ = true;
    return 0;
  }

 private:
  bool IsTakenAway() const {
    if (flock(file_->Number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return true;
    struct stat made {};
    return fstat(file_->Number(), &made) == 0 && made.st_nlink == 0;
  }

  std::filesystem::path path_;
  std::unique_ptr<Descriptor> file_;
  int error_ = EEXIST;
  bool placed_ = false;
};

// 0 or the system's error number, the target being as it was; so it is if `given`, what became of the
// content, is a refusal.
int PutWhole(const std::filesystem::path& target, const Former& rights, const FileContent& content,
             Lasting lasting, const Acceptance& accept, Outcome& given) {
  const auto parent = target.parent_path();
  const auto folder = parent.empty() ? std::filesystem::path(".") : parent;
  Beside beside(folder, rights.IsFile() ? 0600 : 0666);
  if (beside.Error() != 0) return beside.Error();
  if (rights.IsFile()) {
    if (const int error = TakeRights(beside.File(), rights)) return error;
  }
  int written = 0;
  given = content([&](std::string_view bytes) {
    written = WriteAll(beside.File(), bytes);
    return written == 0;
  });
  if (written == 0 && given && accept) given = accept(beside.Path());
  if (written != 0 || !given) return written;
  if (const int error = beside.PutInPlaceOf(target)) return error;
  if (lasting == Lasting::Later) return 0;
  // Not every file system can be asked for this; the new file stands in any case.
  const Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened) fsync(opened.Number());
  return 0;
}

// Gives a file a second name, which outlives the file that takes the first one; there is nothing to sync.
// Only with a file of the user's own: another's may have to be written over in place (ReplaceWhole), which
// would reach the second name as well.
bool KeepAs(const std::filesystem::path& file, const std::filesystem::path& copy) {
  struct stat found {
  }, replaced{};
  if (lstat(file.c_str(), &found) != 0 || !S_ISREG(found.st_mode) || found.st_uid != geteuid()) return false;
  if (lstat(copy.c_str(), &replaced) == 0 && !S_ISREG(replaced.st_mode) && !S_ISLNK(replaced.st_mode))
    return false;
  const auto beside = copy.parent_path() / NameBeside(static_cast<unsigned long>(getpid()), 0);
  unlink(beside.c_str());
  if (link(file.c_str(), beside.c_str()) != 0) return false;
  const bool kept = std::rename(beside.c_str(), copy.c_str()) == 0;
  // It is still there if both names were those of one file before.
  unlink(beside.c_str());
  return kept;
}

Result<Replacement> Replace(const std::filesystem::path& target, const Former& former, const Former& rights,
                            const FileContent& content, Lasting lasting, const Acceptance& accept = {}) {
  if (former.error != 0 && former.error != ENOENT) return Refused(former.error);
  if (former.error == 0 && !former.IsFile() && !S_ISLNK(former.found.st_mode)) return Refusal{kNotAFile};
  if (former.IsFile()) {
    const Descriptor file(open(target.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY));
    if (!file) return Refused(errno);
  }
  Outcome given = Done{};
  const int error = PutWhole(target, rights, content, lasting, accept, given);
  if (error == 0 && given) return Replacement{};
  if (error == 0) return Refusal{given.reason()};
  const bool forbidden = error == EACCES || error == EPERM || error == EBUSY;
  if (!forbidden || !former.IsFile() || accept) return Refused(error);
  std::string whole;
  given = content([&whole](std::string_view bytes) {
    whole += bytes;
    return true;
  });
  if (!given) return Refusal{given.reason()};
  const Outcome written = WriteInPlace(target, whole);
  if (!written) return Refusal{written.reason()};
  return Replacement{Refused(error).reason};
}

}  // namespace

Outcome ReadBlocks(const std::filesystem::path& path, const std::function<bool(std::string_view)>& take) {
  struct stat found {};
  // Asked before opening: opening a line to a machine can move its signals.
  if (stat(path.c_str(), &found) != 0) return Refused(errno);
  if (!S_ISREG(found.st_mode)) return Refusal{kNotAFile};
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!file || fstat(file.Number(), &found) != 0) return Refused(errno);
  if (!S_ISREG(found.st_mode)) return Refusal{kNotAFile};

  std::array<char, 65536> block{};
  for (;;) {
    const ssize_t count = read(file.Number(), block.data(), block.size());
    if (count < 0 && errno != EINTR) return Refused(errno);
    if (count == 0) return Done{};
    if (count > 0 && !take({block.data(), static_cast<std::size_t>(count)})) return Done{};
  }
}

Result<Replacement> ReplaceWhole(const std::filesystem::path& path, const FileContent& content,
                                 Lasting lasting, Links links, const Acceptance& accept) {
  const std::filesystem::path target = links == Links::Followed ? LinksFollowed(path) : path;
  const Former former(target, links);
  return Replace(target, former, former, content, lasting, accept);
}

Result<Replacement> CopyWhole(const std::filesystem::path& path, const std::filesystem::path& copy) {
  if (KeepAs(LinksFollowed(path), copy)) return Replacement{};
  const auto bytes = ReadRegularFile(path);
  if (!bytes) return Refusal{bytes.reason()};
  // What the copy is made for, a write of the file, brings the folder to the disk.
  return Replace(copy, Former(copy, Links::Replaced), Former(path, Links::Followed),
                 ContentOf({bytes.value()}), Lasting::Later);
}

void RemoveLeftovers(const std::filesystem::path& folder) {
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const auto writer = WriterOf(entry->path().filename().native());
    if (!writer) continue;
    const std::filesystem::path& path = entry->path();
    const Descriptor file(open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY));
    if (!file) continue;
    // Where the file system knows no locks, the number of the process must tell.
    const bool alive = flock(file.Number(), LOCK_EX | LOCK_NB) != 0 &&
                       (errno == EWOULDBLOCK || kill(static_cast<pid_t>(*writer), 0) == 0 || errno != ESRCH);
    struct stat held {
    }, named{};
    if (!alive && fstat(file.Number(), &held) == 0 && lstat(path.c_str(), &named) == 0 &&
        held.st_ino == named.st_ino && S_ISREG(named.st_mode))
      unlink(path.c_str());
  }
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
  // Another user's file can be locked if it can be read.
  if (handle_ < 0 && errno == EACCES) handle_ = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
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
      kept_ = true;
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
