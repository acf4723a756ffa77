// Files on the computer's disks.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/files/file_system.h"
#include "platform/files.h"

namespace torvane {

// Reasons do not name the file.
class HostFiles : public Files {
 public:
  // The program's folder and that of its samples, empty for none, as paths of the computer; refused where the
  // station's text cannot say the first. Samples that it cannot say are none.
  static Result<HostFiles> At(std::string_view programFolder, std::string_view sampleFolder = {});

  std::string ProgramFolder() const override { return programFolder_; }
  std::string SampleFolder() const override { return sampleFolder_; }
  // Without those whose names the station's text cannot say.
  std::vector<std::string> NamesIn(std::string_view folder) const override;

  // A folder or a device is no file.
  bool Exists(std::string_view path) const override;
  std::optional<std::int64_t> LastWritten(std::string_view path) const override;
  Result<std::string> ReadWhole(std::string_view path) const override;
  Result<std::string> ReadAtMost(std::string_view path, std::uint64_t limit) const override;
  bool AreOne(std::string_view path, std::string_view other) const override;
  using Files::WriteWhole;
  Outcome WriteWhole(std::string_view path, const FileContent& content, Lasting lasting) override;
  Outcome Copy(std::string_view path, std::string_view copy) override;
  void RemoveLeftovers(std::string_view folder) override;
  Result<std::shared_ptr<void>> Lock(std::string_view path) override;
  Outcome Remove(std::string_view path) override;
  Outcome MakeFolder(std::string_view path) override;

  // Told once for each folder in which a file had to be written over in place, in words for the operator.
  std::function<void(const std::string& text)> tell;

 private:
  HostFiles(std::string programFolder, std::string sampleFolder);
  Result<std::filesystem::path> Found(std::string_view path) const;

  // Once for each folder, since somewhere else no start looks for leftovers.
  void Tidy(const std::filesystem::path& folder);
  Outcome Told(std::string_view path, const std::filesystem::path& file, const Result<Replacement>& replaced);

  std::string programFolder_, sampleFolder_;
  std::set<std::filesystem::path> toldOf_, tidied_;
};

}  // namespace torvane
