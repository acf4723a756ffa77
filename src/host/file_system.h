// Whole files by the computer's own paths. The reasons do not name the file: the caller knows it.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/result.h"

namespace torvane {

// The system's words for an error, as station text.
std::string ReasonOf(const std::error_code& error);

// What a symbolic link leads to, through more links if need be, whether or not there is a file at the end;
// another path as it is.
std::filesystem::path LinksFollowed(std::filesystem::path path);

// Refuses whatever is no regular file, and does not wait for a pipe's other end.
Result<std::string> ReadRegularFile(const std::filesystem::path& path);

// Writes over the file with no other file beside it. The room is taken first; if that or a later step fails,
// the file gets its former length back, or is removed if it was new; the refusal says so if its former bytes
// are lost by then.
Outcome WriteInPlace(const std::filesystem::path& path, const std::vector<std::string_view>& parts);

// Replaces or makes the file in one step, so that a reader, also one after a power cut, finds the former
// bytes or the new ones. Uses the name with ".new" behind it; two must not do this at once (see FileLock).
Outcome ReplaceAtOnce(const std::filesystem::path& path, std::string_view bytes);

// Tells one state of a file from another, as far as the file system's clock is fine enough.
struct FileStamp {
  std::int64_t modified = 0;  // nanoseconds since 1970
  std::uint64_t size = 0;
  std::uint64_t serial = 0;  // the file's number in its file system

  bool operator==(const FileStamp&) const = default;
};

// Nothing where there is no such file.
std::optional<FileStamp> StampOf(const std::filesystem::path& path);

// Keeps other processes, and other locks of this one, out until it is destroyed. The file is made and stays:
// removing it would let two in. Gives up when its patience ends, so that a halted process halts no other.
class FileLock {
 public:
  FileLock(const std::filesystem::path& path, std::chrono::milliseconds patience);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  const Outcome& Taken() const { return taken_; }

 private:
  std::intptr_t handle_ = -1;
  Outcome taken_ = Done{};
};

}  // namespace torvane
