// Files by the station's paths: texts with backslashes, whatever the computer's own form is.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/result.h"

namespace torvane {

// The most that a design or a settings file holds, in bytes. What is larger is none.
inline constexpr std::uint64_t kLargestText = std::uint64_t{16} * 1024 * 1024;

// Hands the bytes of a file over, block by block and from the first one whenever it is called, as long as
// `take` wants more. Refuses if they will not be whole.
using FileContent = std::function<Outcome(const std::function<bool(std::string_view)>& take)>;

// When a new file has outlived a power cut: at once, or within the seconds that the system takes to sync its
// folder. Until then such a cut brings the former file back, whole.
enum class Lasting { Now, Later };

// The parts one behind the other; what they view must outlive it.
inline FileContent ContentOf(std::vector<std::string_view> parts) {
  return [parts = std::move(parts)](const std::function<bool(std::string_view)>& take) -> Outcome {
    for (const std::string_view part : parts)
      if (!take(part)) break;
    return Done{};
  };
}

class Files {
 public:
  virtual ~Files() = default;

  // Full path of the folder that holds the program, with no backslash behind it. Names without a folder refer
  // to it.
  virtual std::string ProgramFolder() const = 0;
  // Full path of the folder with the sample designs that came with the program; empty where none did.
  virtual std::string SampleFolder() const = 0;
  // Names of the files in a folder, in the order of their bytes; none where it cannot be read.
  virtual std::vector<std::string> NamesIn(std::string_view folder) const = 0;

  virtual bool Exists(std::string_view path) const = 0;
  // Both names lead to one file that is there.
  virtual bool AreOne(std::string_view path, std::string_view other) const = 0;
  // When a file was last written, in a count of the computer's own: of two files the later has the greater.
  // Nothing where there is no such file.
  virtual std::optional<std::int64_t> LastWritten(std::string_view path) const = 0;
  virtual Result<std::string> ReadWhole(std::string_view path) const = 0;
  // The same, but a file of more than `limit` bytes is refused before it is read; the reason says the limit.
  virtual Result<std::string> ReadAtMost(std::string_view path, std::uint64_t limit) const = 0;
  // Replaces or makes the file with the content, in one step: whenever the computer stops, the file holds
  // what it held or all of the content. Follows links. A refusal, the content's own too, leaves the file as
  // it was.
  virtual Outcome WriteWhole(std::string_view path, const FileContent& content, Lasting lasting) = 0;
  // The parts one behind the other.
  Outcome WriteWhole(std::string_view path, const std::vector<std::string_view>& parts) {
    return WriteWhole(path, ContentOf(parts), Lasting::Now);
  }
  // Makes `copy` keep the bytes and rights of the other for when WriteWhole replaces that, in the same way; a
  // link under its name is replaced.
  virtual Outcome Copy(std::string_view path, std::string_view copy) = 0;
  // Removes what stations that died in the middle of a write have left in a folder.
  virtual void RemoveLeftovers(std::string_view folder) = 0;
  // Locks a file of that name, made if need be, against every other holder for as long as the result lives,
  // at most until the process ends, however it ends. Null while another holds it; refused where there can be
  // no lock.
  virtual Result<std::shared_ptr<void>> Lock(std::string_view path) = 0;
  // Done also if there is no such file.
  virtual Outcome Remove(std::string_view path) = 0;
  // Done also if the folder is there already.
  virtual Outcome MakeFolder(std::string_view path) = 0;
};

}  // namespace torvane
