// Files by the station's paths: texts with backslashes, whatever the computer's own form is.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/result.h"

namespace torvane {

class Files {
 public:
  virtual ~Files() = default;

  // Full path of the folder that holds the program, with no backslash behind it.
  virtual std::string ProgramFolder() const = 0;
  // The folder that names without a folder refer to. It belongs to this object, not to the process.
  virtual std::string CurrentFolder() const = 0;
  virtual void MakeProgramFolderCurrent() = 0;

  virtual bool Exists(std::string_view path) const = 0;
  // When a file was last written, in a count of the computer's own: of two files the later has the greater.
  // Nothing where there is no such file.
  virtual std::optional<std::int64_t> LastWritten(std::string_view path) const = 0;
  virtual Result<std::string> ReadWhole(std::string_view path) const = 0;
  // Replaces or makes the file with the parts one behind the other. A file that cannot be written whole is
  // left as it was where the system lets it: the room is taken before the first byte is changed.
  virtual Outcome WriteWhole(std::string_view path, const std::vector<std::string_view>& parts) = 0;
  // Done also if there is no such file.
  virtual Outcome Remove(std::string_view path) = 0;
  // Done also if the folder is there already.
  virtual Outcome MakeFolder(std::string_view path) = 0;
};

}  // namespace torvane
