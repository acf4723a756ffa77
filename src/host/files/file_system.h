// Whole files by the computer's own paths. The reasons do not name the file: the caller knows it.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/files.h"
#include "platform/result.h"

namespace torvane {

// The system's words for an error, as station text.
std::string ReasonOf(const std::error_code& error);

// What a symbolic link leads to, through more links if need be, whether or not there is a file at the end;
// another path as it is.
std::filesystem::path LinksFollowed(std::filesystem::path path);

// Hands a file's bytes over block by block, as long as `take` wants more. Refuses whatever is no regular
// file, and does not wait for a pipe's other end.
Outcome ReadBlocks(const std::filesystem::path& path, const std::function<bool(std::string_view)>& take);

// Also refuses a file of more than `limit` bytes, before it takes their room.
Result<std::string> ReadRegularFile(const std::filesystem::path& path, std::uint64_t limit = UINT64_MAX);

// Whether there is a file that holds just these bytes; takes no room for them.
bool HoldsJust(const std::filesystem::path& path, std::string_view bytes);

// What a symbolic link under the name of a file is to a write: the way to the file, or what it takes away.
enum class Links { Followed, Replaced };

// Whether a file that has been written may take its name.
using Acceptance = std::function<Outcome(const std::filesystem::path& written)>;

struct Replacement {
  // Why the folder took no second file, so that the former one was written over; empty where it was not.
  std::string inPlace;
};

// Replaces or makes the file in one step, so that a reader, also one after a kill or a power cut, finds the
// former bytes or all the new ones, and several may write at once. The new file gets the rights of the former
// one, and its owner as far as the system gives files away. A file that may only be read is refused. A
// refusal leaves the former file and nothing beside it.
//
// Where rights or a mount keep the folder from taking a second file, the former one is written over: only
// then can a kill leave a part, and a refusal says so if the former bytes are lost. The content is in memory
// as a whole then, so that its own refusal loses nothing.
//
// `accept` reads the new file where it lies, before it takes the name: its refusal leaves the former one, and
// so does a folder that takes no second file.
Result<Replacement> ReplaceWhole(const std::filesystem::path& path, const FileContent& content,
                                 Lasting lasting = Lasting::Now, Links links = Links::Followed,
                                 const Acceptance& accept = {});

// Makes `copy` keep the bytes of the file, with its rights, for when ReplaceWhole takes its name: until then
// both names may lead to one file. A link under the name of the copy is replaced.
Result<Replacement> CopyWhole(const std::filesystem::path& path, const std::filesystem::path& copy);

// Removes what processes that are gone have left in a folder in the middle of a write.
void RemoveLeftovers(const std::filesystem::path& folder);

// The name of a file that is written beside another: it holds the number of the process that writes it.
std::string NameBeside(unsigned long process, int attempt);
// That number; nothing for any other file.
std::optional<unsigned long> WriterOf(std::string_view name);

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
  // It was not taken because another has it.
  bool Kept() const { return kept_; }

 private:
  std::intptr_t handle_ = -1;
  bool kept_ = false;
  Outcome taken_ = Done{};
};

}  // namespace torvane
