// Settings stores in memory.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/settings_store.h"

namespace torvane {

class MemoryStore : public SettingsStore {
 public:
  std::optional<std::string> Read(std::string_view section, std::string_view key) const override;
  Outcome Write(std::string_view section, std::string_view key, std::string_view value) override;
  // Sorted by section and key.
  std::vector<Entry> All() const override;

  // From now on every write is refused; with an empty reason none is.
  void FailWrites(std::string reason) { refusal_ = std::move(reason); }

 private:
  std::string refusal_;
  std::map<std::pair<std::string, std::string>, std::string> values_;
};

// Shows another store, which must outlive it, with what was written here laid over it. That store is never
// written to.
class OverlayStore : public SettingsStore {
 public:
  explicit OverlayStore(const SettingsStore& under) : under_(under) {}

  Outcome Readable() const override { return under_.Readable(); }
  std::optional<std::string> Read(std::string_view section, std::string_view key) const override;
  Outcome Write(std::string_view section, std::string_view key, std::string_view value) override;
  // The other store's entries in its order, then those that are only here.
  std::vector<Entry> All() const override;

 private:
  const SettingsStore& under_;
  MemoryStore over_;
};

}  // namespace torvane
