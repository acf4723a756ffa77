// Files in memory, with the one folder of the program at first. Names are told apart by case.
#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace torvane {

class MemoryFiles : public Files {
 public:
  explicit MemoryFiles(std::string programFolder = "C:\\Torvane");

  std::string ProgramFolder() const override { return programFolder_; }
  std::string SampleFolder() const override { return programFolder_ + "\\samples"; }
  std::vector<std::string> NamesIn(std::string_view folder) const override;

  bool Exists(std::string_view path) const override;
  std::optional<std::int64_t> LastWritten(std::string_view path) const override;
  Result<std::string> ReadWhole(std::string_view path) const override;
  Result<std::string> ReadAtMost(std::string_view path, std::uint64_t limit) const override;
  bool AreOne(std::string_view path, std::string_view other) const override;
  // Refused also where the file's folder is missing.
  using Files::WriteWhole;
  Outcome WriteWhole(std::string_view path, const FileContent& content, Lasting) override;
  Outcome Copy(std::string_view path, std::string_view copy) override;
  void RemoveLeftovers(std::string_view) override {}
  Result<std::shared_ptr<void>> Lock(std::string_view path) override;
  Outcome Remove(std::string_view path) override;
  Outcome MakeFolder(std::string_view path) override;

  // Puts a file there, and the folders above it.
  void Put(std::string_view path, std::string bytes);
  // From now on every write of the path is refused; the file stays as it is.
  void FailWrites(std::string_view path, std::string reason);
  // From now on all files together hold no more than that; a write beyond is refused.
  void LimitRoom(std::size_t bytes) { room_ = bytes; }
  // By full path.
  const std::map<std::string, std::string>& All() const { return files_; }

 private:
  std::string Full(std::string_view path) const;
  bool IsFolder(const std::string& full) const;

  void Keep(const std::string& full, std::string bytes);

  std::string programFolder_;
  std::map<std::string, std::string> files_, refusals_;
  std::map<std::string, std::weak_ptr<void>> locks_;
  std::map<std::string, std::int64_t> written_;  // by rising number of the write
  std::int64_t writes_ = 0;
  std::size_t room_ = std::string::npos;
  std::set<std::string> folders_;
};

}  // namespace torvane
