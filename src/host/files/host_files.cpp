#include "host/files/host_files.h"

#include <algorithm>

#include "host/files/paths.h"

namespace torvane {

namespace {

std::string WithoutBackslash(std::string path) {
  if (!path.empty() && path.back() == '\\') path.pop_back();
  return path;
}

}  // namespace

Result<HostFiles> HostFiles::At(std::string_view programFolder, std::string_view sampleFolder) {
  const auto program = AbsoluteStationPath(programFolder);
  if (!program) return Refusal{"The program cannot run in this folder. " + program.reason()};
  const auto samples = sampleFolder.empty() ? Result<std::string>("") : AbsoluteStationPath(sampleFolder);
  return HostFiles(WithoutBackslash(program.value()), samples ? WithoutBackslash(samples.value()) : "");
}

HostFiles::HostFiles(std::string programFolder, std::string sampleFolder)
    : programFolder_(std::move(programFolder)), sampleFolder_(std::move(sampleFolder)) {}

Result<std::filesystem::path> HostFiles::Found(std::string_view path) const {
  if (path.empty()) return Refusal{"There is no file name."};
  const auto name = HostPath(path);
  if (!name) return Refusal{name.reason()};
  const auto folder = HostPath(programFolder_ + "\\");
  if (!folder) return Refusal{folder.reason()};
  return SystemPath(folder.value()) / SystemPath(name.value());
}

bool HostFiles::Exists(std::string_view path) const {
  std::error_code error;
  const auto file = Found(path);
  return file && std::filesystem::is_regular_file(file.value(), error);
}

std::vector<std::string> HostFiles::NamesIn(std::string_view folder) const {
  std::vector<std::string> names;
  const auto found = Found(folder);
  if (!found) return names;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(found.value(), error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code unknown;
    if (!entry->is_regular_file(unknown)) continue;
    if (const auto name = StationPath(HostText(entry->path().filename()))) names.push_back(name.value());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::optional<std::int64_t> HostFiles::LastWritten(std::string_view path) const {
  if (!Exists(path)) return std::nullopt;
  const std::optional<FileStamp> stamp = StampOf(Found(path).value());
  if (!stamp) return std::nullopt;
  return stamp->modified;
}

Result<std::string> HostFiles::ReadWhole(std::string_view path) const { return ReadAtMost(path, UINT64_MAX); }

Result<std::string> HostFiles::ReadAtMost(std::string_view path, std::uint64_t limit) const {
  const auto file = Found(path);
  if (!file) return Refusal{file.reason()};
  return ReadRegularFile(file.value(), limit);
}

bool HostFiles::AreOne(std::string_view path, std::string_view other) const {
  std::error_code error;
  const auto file = Found(path), another = Found(other);
  return file && another && std::filesystem::equivalent(file.value(), another.value(), error);
}

Outcome HostFiles::WriteWhole(std::string_view path, const FileContent& content, Lasting lasting) {
  const auto file = Found(path);
  if (!file) return Refusal{file.reason()};
  Tidy(LinksFollowed(file.value()).parent_path());
  return Told(path, file.value(), ReplaceWhole(file.value(), content, lasting));
}

void HostFiles::Tidy(const std::filesystem::path& folder) {
  if (tidied_.insert(folder).second) torvane::RemoveLeftovers(folder);
}

Outcome HostFiles::Copy(std::string_view path, std::string_view copy) {
  const auto from = Found(path), to = Found(copy);
  if (!from || !to) return Refusal{(from ? to : from).reason()};
  return Told(copy, to.value(), CopyWhole(from.value(), to.value()));
}

Outcome HostFiles::Told(std::string_view path, const std::filesystem::path& file,
                        const Result<Replacement>& replaced) {
  if (!replaced) return Refusal{replaced.reason()};
  const std::string& why = replaced.value().inPlace;
  if (!why.empty() && tell && toldOf_.insert(file.parent_path()).second)
    tell("The folder of this file takes no second file, so it was written over in place:\r\n" +
         std::string(path) + "\r\n" + why +
         "\r\n\r\nIf the computer stops in the middle of such a write, the file is lost. "
         "See to it that you may make files in that folder.");
  return Done{};
}

void HostFiles::RemoveLeftovers(std::string_view folder) {
  if (const auto found = Found(folder)) Tidy(found.value());
}

Result<std::shared_ptr<void>> HostFiles::Lock(std::string_view path) {
  const auto file = Found(path);
  if (!file) return Refusal{file.reason()};
  const auto lock = std::make_shared<FileLock>(file.value(), std::chrono::milliseconds(0));
  if (lock->Kept()) return std::shared_ptr<void>();
  if (!lock->Taken()) return Refusal{lock->Taken().reason()};
  return std::shared_ptr<void>(lock);
}

Outcome HostFiles::Remove(std::string_view path) {
  const auto file = Found(path);
  if (!file) return Refusal{file.reason()};
  std::error_code error;
  if (std::filesystem::is_directory(file.value(), error)) return Refusal{"This is a folder."};
  std::filesystem::remove(file.value(), error);
  if (error) return Refusal{ReasonOf(error)};
  return Done{};
}

Outcome HostFiles::MakeFolder(std::string_view path) {
  const auto folder = Found(path);
  if (!folder) return Refusal{folder.reason()};
  std::error_code error;
  std::filesystem::create_directory(folder.value(), error);
  if (error) return Refusal{ReasonOf(error)};
  return Done{};
}

}  // namespace torvane
