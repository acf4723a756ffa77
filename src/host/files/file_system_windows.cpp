#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>

#include "host/files/file_system.h"

namespace torvane {

namespace {

constexpr char kNotAFile[] = "There is something else than a file under this name.";

Refusal Refused(DWORD error) { return {ReasonOf({static_cast<int>(error), std::system_category()})}; }

class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  ~Handle() { Close(); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return handle_; }
  // 0 or the system's error number.
  DWORD Close() {
    const DWORD error = *this && !CloseHandle(handle_) ? GetLastError() : 0;
    handle_ = INVALID_HANDLE_VALUE;
    return error;
  }

 private:
  HANDLE handle_;
};

HANDLE Opened(const std::filesystem::path& path, DWORD access, DWORD share, DWORD how) {
  return CreateFileW(path.c_str(), access, share, nullptr, how, FILE_ATTRIBUTE_NORMAL, nullptr);
}

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

DWORD WriteAll(const Handle& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto count = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1U << 30U));
    DWORD written = 0;
    if (!WriteFile(file.Get(), bytes.data(), count, &written, nullptr)) return GetLastError();
    if (written == 0) return ERROR_DISK_FULL;
    bytes.remove_prefix(written);
  }
  return 0;
}

DWORD SetSize(const Handle& file, LONGLONG size) {
  LARGE_INTEGER place{};
  place.QuadPart = size;
  if (!SetFilePointerEx(file.Get(), place, nullptr, FILE_BEGIN)) return GetLastError();
  return SetEndOfFile(file.Get()) ? 0 : GetLastError();
}

// `overwritten`: something of the former file is written over, or would be but for the failure.
DWORD Overwrite(const Handle& file, LONGLONG formerSize, std::string_view bytes, bool& overwritten) {
  const auto size = static_cast<LONGLONG>(bytes.size());
  // A longer end takes the room at once.
  if (const DWORD error = size > formerSize ? SetSize(file, size) : 0) return error;
  if (!SetFilePointerEx(file.Get(), LARGE_INTEGER{}, nullptr, FILE_BEGIN)) return GetLastError();
  overwritten = formerSize > 0;
  if (const DWORD error = WriteAll(file, bytes)) return error;
  return SetSize(file, size);
}

// The last resort: a file that is there.
Outcome WriteInPlace(const std::filesystem::path& path, std::string_view bytes) {
  Handle file(Opened(path, GENERIC_WRITE, FILE_SHARE_READ, OPEN_EXISTING));
  if (!file) return Refused(GetLastError());
  LARGE_INTEGER former{};
  if (!GetFileSizeEx(file.Get(), &former)) return Refused(GetLastError());

  bool overwritten = false;
  DWORD error = Overwrite(file, former.QuadPart, bytes, overwritten);
  const bool lengthLost = error != 0 && SetSize(file, former.QuadPart) != 0;
  if (error == 0 && !FlushFileBuffers(file.Get())) error = GetLastError();
  const DWORD closing = file.Close();
  if (error == 0) error = closing;
  if (error == 0) return Done{};
  Refusal refusal = Refused(error);
  if (overwritten || lengthLost) refusal.reason += " (The former file is lost.)";
  return refusal;
}

// Whether a file can be written, and is one at all.
Outcome MayBeReplaced(const std::filesystem::path& path, DWORD attributes) {
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return Refusal{kNotAFile};
  // Not every file system keeps an administrator from writing there.
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) return Refused(ERROR_ACCESS_DENIED);
  const Handle file(Opened(path, GENERIC_WRITE, kShareAll, OPEN_EXISTING));
  if (!file) return Refused(GetLastError());
  if (GetFileType(file.Get()) != FILE_TYPE_DISK) return Refusal{kNotAFile};
  return Done{};
}

// Moves a file into the place of another, which hands over its rights; 0 or the system's error number.
DWORD PutInPlaceOf(const std::filesystem::path& target, const std::filesystem::path& beside,
                   bool takesRights) {
  // A program that looks at the file, a virus scanner say, holds the name for a moment.
  for (int attempt = 0;; ++attempt) {
    if (takesRights && ReplaceFileW(target.c_str(), beside.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS,
                                    nullptr, nullptr))
      return 0;
    if (MoveFileExW(beside.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
      return 0;
    const DWORD failed = GetLastError();
    const bool held = failed == ERROR_SHARING_VIOLATION || failed == ERROR_ACCESS_DENIED;
    if (!held || attempt == 100) return failed;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
}

// 0 or the system's error number, the target being as it was; so it is if `given`, what became of the
// content, is a refusal.
DWORD PutWhole(const std::filesystem::path& target, const FileContent& content, bool takesRights,
               const Acceptance& accept, Outcome& given) {
  DWORD error = ERROR_FILE_EXISTS;
  for (int attempt = 1; error == ERROR_FILE_EXISTS; ++attempt) {
    const auto beside = target.parent_path() / NameBeside(GetCurrentProcessId(), attempt);
    Handle file(Opened(beside, GENERIC_WRITE, 0, CREATE_NEW));
    error = file ? 0 : GetLastError();
    if (!file) continue;
    given = content([&](std::string_view bytes) {
      error = WriteAll(file, bytes);
      return error == 0;
    });
    if (error == 0 && given && !FlushFileBuffers(file.Get())) error = GetLastError();
    const DWORD closing = file.Close();
    if (error == 0) error = closing;
    if (error == 0 && given && accept) given = accept(beside);
    if (error == 0 && given) error = PutInPlaceOf(target, beside, takesRights);
    if (error != 0 || !given) DeleteFileW(beside.c_str());
    return error;
  }
  return error;
}

bool Runs(unsigned long process) {
  const HANDLE opened = OpenProcess(SYNCHRONIZE, FALSE, process);
  if (opened == nullptr) return GetLastError() != ERROR_INVALID_PARAMETER;
  const bool runs = WaitForSingleObject(opened, 0) == WAIT_TIMEOUT;
  CloseHandle(opened);
  return runs;
}

}  // namespace

Outcome ReadBlocks(const std::filesystem::path& path, const std::function<bool(std::string_view)>& take) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return Refused(GetLastError());
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return Refusal{kNotAFile};
  const Handle file(Opened(path, GENERIC_READ, kShareAll, OPEN_EXISTING));
  if (!file) return Refused(GetLastError());
  if (GetFileType(file.Get()) != FILE_TYPE_DISK) return Refusal{kNotAFile};

  std::array<char, 65536> block{};
  for (;;) {
    DWORD count = 0;
    if (!ReadFile(file.Get(), block.data(), static_cast<DWORD>(block.size()), &count, nullptr)) {
      return Refused(GetLastError());
    }
    if (count == 0 || !take({block.data(), count})) return Done{};
  }
}

Result<Replacement> ReplaceWhole(const std::filesystem::path& path, const FileContent& content, Lasting,
                                 Links links, const Acceptance& accept) {
  const auto target = links == Links::Followed ? LinksFollowed(path) : path;
  const DWORD attributes = GetFileAttributesW(target.c_str());
  const bool there = attributes != INVALID_FILE_ATTRIBUTES;
  const bool link = there && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  if (there && !link) {
    const Outcome may = MayBeReplaced(target, attributes);
    if (!may) return Refusal{may.reason()};
  }
  Outcome given = Done{};
  const DWORD error = PutWhole(target, content, there && !link, accept, given);
  if (error == 0 && given) return Replacement{};
  if (error == 0) return Refusal{given.reason()};
  if (error != ERROR_ACCESS_DENIED || !there || link || accept) return Refused(error);
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

// A new file has the rights that its folder hands down, as the file that is copied has.
Result<Replacement> CopyWhole(const std::filesystem::path& path, const std::filesystem::path& copy) {
  const auto bytes = ReadRegularFile(path);
  if (!bytes) return Refusal{bytes.reason()};
  return ReplaceWhole(copy, ContentOf({bytes.value()}), Lasting::Now, Links::Replaced);
}

void RemoveLeftovers(const std::filesystem::path& folder) {
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const auto name = entry->path().filename().u8string();
    const auto writer = WriterOf(std::string(name.begin(), name.end()));
    if (writer && !Runs(*writer)) DeleteFileW(entry->path().c_str());
  }
}

std::optional<FileStamp> StampOf(const std::filesystem::path& path) {
  // With no right asked for, folders and files that others hold can be looked at too.
  const Handle file(
      CreateFileW(path.c_str(), 0, kShareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  BY_HANDLE_FILE_INFORMATION found{};
  if (!file || !GetFileInformationByHandle(file.Get(), &found)) return std::nullopt;
  const auto joined = [](DWORD high, DWORD low) { return (std::uint64_t{high} << 32U) | low; };
  // The system counts in units of 100 ns from the year 1601.
  constexpr std::int64_t kUnitsTo1970 = 116'444'736'000'000'000;
  const auto written = static_cast<std::int64_t>(
      joined(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime));
  return FileStamp{(written - kUnitsTo1970) * 100, joined(found.nFileSizeHigh, found.nFileSizeLow),
                   joined(found.nFileIndexHigh, found.nFileIndexLow)};
}

FileLock::FileLock(const std::filesystem::path& path, std::chrono::milliseconds patience) {
  using std::chrono::steady_clock;
  const HANDLE file = Opened(path, GENERIC_READ | GENERIC_WRITE, kShareAll, OPEN_ALWAYS);
  if (file == INVALID_HANDLE_VALUE) {
    taken_ = Refused(GetLastError());
    return;
  }
  handle_ = reinterpret_cast<std::intptr_t>(file);
  const auto end = steady_clock::now() + patience;
  OVERLAPPED start{};
  while (!LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &start)) {
    const DWORD error = GetLastError();
    if (error != ERROR_LOCK_VIOLATION && error != ERROR_IO_PENDING) {
      taken_ = Refused(error);
      return;
    }
    if (steady_clock::now() >= end) {
      kept_ = true;
      taken_ = Refusal{"Another program keeps it locked."};
      return;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

FileLock::~FileLock() {
  if (handle_ != -1) CloseHandle(reinterpret_cast<HANDLE>(handle_));
}

}  // namespace torvane
