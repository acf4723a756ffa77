#include "stage/stage.h"

#include <utility>

namespace torvane {

std::optional<std::string> MemoryStore::Read(std::string_view section, std::string_view key) const {
  const auto found = values_.find({std::string(section), std::string(key)});
  return found == values_.end() ? std::nullopt : std::optional(found->second);
}

Outcome MemoryStore::Write(std::string_view section, std::string_view key, std::string_view value) {
  if (!refusal_.empty()) return Refusal{refusal_};
  values_[{std::string(section), std::string(key)}] = value;
  return Done{};
}

std::vector<SettingsStore::Entry> MemoryStore::All() const {
  std::vector<Entry> entries;
  for (const auto& [name, value] : values_) entries.push_back({name.first, name.second, value});
  return entries;
}

std::optional<std::string> OverlayStore::Read(std::string_view section, std::string_view key) const {
  auto value = over_.Read(section, key);
  return value ? value : under_.Read(section, key);
}

Outcome OverlayStore::Write(std::string_view section, std::string_view key, std::string_view value) {
  return over_.Write(section, key, value);
}

std::vector<SettingsStore::Entry> OverlayStore::All() const {
  std::vector<Entry> entries = under_.All();
  for (Entry& entry : entries) {
    if (auto value = over_.Read(entry.section, entry.key)) entry.value = *value;
  }
  for (Entry& entry : over_.All()) {
    if (!under_.Read(entry.section, entry.key)) entries.push_back(std::move(entry));
  }
  return entries;
}

MemoryFiles::MemoryFiles(std::string programFolder)
    : programFolder_(std::move(programFolder)), currentFolder_(programFolder_) {
  folders_.insert(programFolder_);
}

std::string MemoryFiles::Full(std::string_view path) const {
  const bool absolute = !path.empty() && (path[0] == '\\' || (path.size() > 1 && path[1] == ':'));
  std::string full = absolute ? std::string(path) : currentFolder_ + "\\" + std::string(path);
  while (!full.empty() && full.back() == '\\') full.pop_back();
  return full;
}

// The root of a drive is always there.
bool MemoryFiles::IsFolder(const std::string& full) const {
  return full.find('\\') == std::string::npos || folders_.count(full) > 0;
}

bool MemoryFiles::Exists(std::string_view path) const { return files_.count(Full(path)) > 0; }

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

Outcome MemoryFiles::WriteWhole(std::string_view path, const std::vector<std::string_view>& parts) {
  const std::string full = Full(path);
  if (const auto refusal = refusals_.find(full); refusal != refusals_.end()) return Refusal{refusal->second};
  if (path.empty() || path.back() == '\\' || IsFolder(full)) return Refusal{"Not a file"};
  if (!IsFolder(full.substr(0, full.rfind('\\')))) return Refusal{"No such folder"};
  std::string bytes;
  for (const auto part : parts) bytes += part;
  std::size_t others = 0;
  for (const auto& [name, held] : files_)
    if (name != full) others += held.size();
  if (bytes.size() > room_ || others > room_ - bytes.size()) return Refusal{"No space left on device"};
  Keep(full, std::move(bytes));
  return Done{};
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

bool StagedMessageDialog::Ask(const Message& message) {
  shown.push_back(message);
  shown.back().ticked = nullptr;  // ends with the question
  if (observer) observer(message);
  Answer answer;
  if (!answers.empty()) {
    answer = answers.front();
    answers.pop_front();
  }
  if (answer.noShow && message.offer && message.ticked) message.ticked();
  return answer.yes && !message.okOnly;
}

void StagedMessageBox::Show(std::string_view title, std::string_view text, BoxIcon icon) {
  shown.push_back({std::string(title), std::string(text), icon});
  if (observer) observer(Box(shown.back()));
}

std::optional<std::string> StagedFileDialog::AskOpen(std::string_view filter, std::string_view folder) {
  return Answered({false, std::string(filter), std::string(folder), ""});
}

std::optional<std::string> StagedFileDialog::AskSave(std::string_view filter, std::string_view folder,
                                                     std::string_view proposedName) {
  return Answered({true, std::string(filter), std::string(folder), std::string(proposedName)});
}

std::optional<std::string> StagedFileDialog::Answered(const Request& request) {
  asked.push_back(request);
  if (observer) observer(request);
  if (answers.empty()) return std::nullopt;
  auto answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

Outcome StagedLauncher::Start(std::string_view commandLine, std::string_view folder) {
  const auto failure = std::exchange(failure_, std::nullopt);
  const Started started{std::string(commandLine), std::string(folder), failure.has_value()};
  starts.push_back(started);
  if (startObserver) startObserver(started);
  if (failure) return Refusal{*failure};
  return Done{};
}

void StagedLauncher::OpenLink(std::string_view url) {
  links.emplace_back(url);
  if (linkObserver) linkObserver(std::string(url));
}

std::string StagedLauncher::EnvironmentVariable(std::string_view name) const {
  const auto found = environment.find(name);
  return found == environment.end() ? "" : found->second;
}

}  // namespace torvane
