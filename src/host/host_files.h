// Files on the computer's disks.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace torvane {

// Reasons do not name the file.
class HostFiles : public Files {
 public:
  // The program's folder as a path of the computer; refused where the station's text cannot say it. The
  // process's working folder is current at first, the program's folder if that cannot be said.
  static Result<HostFiles> At(std::string_view programFolder);

  std::string ProgramFolder() const override { return programFolder_; }
  std::string CurrentFolder() const override { return currentFolder_; }
  void MakeProgramFolderCurrent() override { currentFolder_ = programFolder_; }

  // A folder or a device is no file.
  bool Exists(std::string_view path) const override;
  std::optional<std::int64_t> LastWritten(std::string_view path) const override;
  Result<std::string> ReadWhole(std::string_view path) const override;
  Outcome WriteWhole(std::string_view path, const std::vector<std::string_view>& parts) override;
  Outcome Remove(std::string_view path) override;
  Outcome MakeFolder(std::string_view path) override;

 private:
  HostFiles(std::string programFolder, std::string currentFolder);
  Result<std::filesystem::path> Found(std::string_view path) const;

  std::string programFolder_, currentFolder_;
};

}  // namespace torvane
