#include "stage/memory_files.h"

namespace torvane {

MemoryFiles::MemoryFiles(std::string programFolder) : programFolder_(std::move(programFolder)) {
  folders_.insert(programFolder_);
}

std::string MemoryFiles::Full(std::string_view path) const {
  const bool absolute = !path.empty() && (path[0] == '\\' || (path.size() > 1 && path[1] == ':'));
  std::string full = absolute ? std::string(path) : programFolder_ + "\\" + std::string(path);
  while (!full.empty() && full.back() == '\\') full.pop_back();
  return full;
}

// The root of a drive is always there.
bool MemoryFiles::IsFolder(const std::string& full) const {
  return full.find('\\') == std::string::npos || folders_.count(full) > 0;
}

bool MemoryFiles::Exists(std::string_view path) const { return files_.count(Full(path)) > 0; }

std::vector<std::string> MemoryFiles::NamesIn(std::string_view folder) const {
  const std::string within = Full(folder) + "\\";
  std::vector<std::string> names;
  for (const auto& [path, bytes] : files_)
    if (path.starts_with(within) && path.find('\\', within.size()) == std::string::npos)
      names.push_back(path.substr(within.size()));
  return names;
}

std::optional<std::int64_t> MemoryFiles::LastWritten(std::string_view path) const {
  if (!Exists(path)) return std::nullopt;
  return written_.at(Full(path));
}

void MemoryFiles::Keep(const std::string& full, std::string bytes) {
  files_[full] = std::move(bytes);
  written_[full] = ++writes_;
}

Result<std::string> MemoryFiles::ReadWhole(std::string_view path) const {
  const auto found = files_.find(Full(path));
  if (found == files_.end()) return Refusal{"No such file"};
  return found->second;
}

Result<std::string> MemoryFiles::ReadAtMost(std::string_view path, std::uint64_t limit) const {
  const auto found = files_.find(Full(path));
  if (found != files_.end() && found->second.size() > limit) return Refusal{"Larger than what is read"};
  return ReadWhole(path);
}

bool MemoryFiles::AreOne(std::string_view path, std::string_view other) const {
  return Exists(path) && Full(path) == Full(other);
}

Outcome MemoryFiles::WriteWhole(std::string_view path, const FileContent& content, Lasting) {
  const std::string full = Full(path);
  if (const auto refusal = refusals_.find(full); refusal != refusals_.end()) return Refusal{refusal->second};
  if (path.empty() || path.back() == '\\' || IsFolder(full)) return Refusal{"Not a file"};
  if (!IsFolder(full.substr(0, full.rfind('\\')))) return Refusal{"No such folder"};
  std::string bytes;
  const Outcome given = content([&bytes](std::string_view block) {
    bytes += block;
    return true;
  });
  if (!given) return given;
  std::size_t others = 0;
  for (const auto& [name, held] : files_)
    if (name != full) others += held.size();
  if (bytes.size() > room_ || others > room_ - bytes.size()) return Refusal{"No space left on device"};
  Keep(full, std::move(bytes));
  return Done{};
}

Outcome MemoryFiles::Copy(std::string_view path, std::string_view copy) {
  const Result<std::string> bytes = ReadWhole(path);
  if (!bytes) return Refusal{bytes.reason()};
  return Files::WriteWhole(copy, {bytes.value()});
}

Result<std::shared_ptr<void>> MemoryFiles::Lock(std::string_view path) {
  const std::string full = Full(path);
  if (!locks_[full].expired()) return std::shared_ptr<void>();
  if (!Exists(path)) {
    const Outcome made = Files::WriteWhole(path, {});
    if (!made) return Refusal{made.reason()};
  }
  const auto lock = std::make_shared<int>();
  locks_[full] = lock;
  return std::shared_ptr<void>(lock);
}

Outcome MemoryFiles::Remove(std::string_view path) {
  files_.erase(Full(path));
  return Done{};
}

Outcome MemoryFiles::MakeFolder(std::string_view path) {
  const std::string full = Full(path);
  if (IsFolder(full)) return Done{};
  if (const auto refusal = refusals_.find(full); refusal != refusals_.end()) return Refusal{refusal->second};
  if (files_.count(full) > 0) return Refusal{"Not a folder"};
  if (!IsFolder(full.substr(0, full.rfind('\\')))) return Refusal{"No such folder"};
  folders_.insert(full);
  return Done{};
}

void MemoryFiles::Put(std::string_view path, std::string bytes) {
  const std::string full = Full(path);
  for (auto end = full.rfind('\\'); end != std::string::npos && end > 0; end = full.rfind('\\', end - 1)) {
    folders_.insert(full.substr(0, end));
  }
  Keep(full, std::move(bytes));
}

void MemoryFiles::FailWrites(std::string_view path, std::string reason) {
  refusals_[Full(path)] = std::move(reason);
}

}  // namespace torvane
