#include "stage/stores.h"

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

}  // namespace torvane
