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
  Outcome written = leftAlone_ ? Refusal{refusal_} : under_.Write(section, key, value);
  if (!written) {
    kept_[Name(section, key)] = value;
    if (!refused_) refusal_ = written.reason();
    refused_ = true;
    return written;
  }
  if (!refused_) return written;
  kept_.erase(Name(section, key));
  while (!kept_.empty()) {
    const auto& [name, text] = *kept_.begin();
    if (!under_.Write(name.first, name.second, text)) return written;
    kept_.erase(kept_.begin());
  }
  refused_ = false;
  told_ = false;
  return written;
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
