#include "persist/kept_store.h"

namespace torvane {

KeptStore::KeptStore(SettingsStore& under) : under_(under) {
  const Outcome readable = under.Readable();
  leftAlone_ = refused_ = !readable;
  if (!readable) refusal_ = readable.reason();
}

std::optional<std::string> KeptStore::Read(std::string_view section, std::string_view key) const {
  if (!kept_.empty())
    if (const auto kept = kept_.find(Name(section, key)); kept != kept_.end()) return kept->second;
  return leftAlone_ ? std::nullopt : under_.Read(section, key);
}

Outcome KeptStore::Write(std::string_view section, std::string_view key, std::string_view value) {
  return WriteAll({{std::string(section), std::string(key), std::string(value)}});
}

Outcome KeptStore::WriteAll(const std::vector<Entry>& entries) {
  Outcome written = leftAlone_ ? Refusal{refusal_} : under_.WriteAll(entries);
  if (!written) {
    for (const Entry& entry : entries) kept_[Name(entry.section, entry.key)] = entry.value;
    if (!refused_) refusal_ = written.reason();
    refused_ = true;
    return written;
  }
  for (const Entry& entry : entries) kept_.erase(Name(entry.section, entry.key));
  Settle();
  return written;
}

void KeptStore::WriteLater(std::string_view section, std::string_view key, std::string_view value) {
  kept_[Name(section, key)] = value;
}

void KeptStore::Settle() {
  if (leftAlone_) return;
  std::vector<Entry> entries;
  for (const auto& [name, value] : kept_) entries.push_back({name.first, name.second, value});
  if (const Outcome written = entries.empty() ? Done{} : under_.WriteAll(entries); !written) {
    if (!refused_) refusal_ = written.reason();
    refused_ = true;
    return;
  }
  kept_.clear();
  refused_ = false;
  told_ = false;
}

std::vector<SettingsStore::Entry> KeptStore::All() const {
  std::vector<Entry> entries = leftAlone_ ? std::vector<Entry>() : under_.All();
  for (Entry& entry : entries)
    if (const auto kept = kept_.find(Name(entry.section, entry.key)); kept != kept_.end())
      entry.value = kept->second;
  for (const auto& [name, value] : kept_)
    if (leftAlone_ || !under_.Read(name.first, name.second))
      entries.push_back({name.first, name.second, value});
  return entries;
}

std::optional<std::string> KeptStore::TakeRefusal() {
  if (!refused_ || told_) return std::nullopt;
  told_ = true;
  return refusal_;
}

}  // namespace torvane
