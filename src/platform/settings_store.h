// The per-user store of named texts that outlives the program.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/result.h"

namespace torvane {

class SettingsStore {
 public:
  struct Entry {
    std::string section, key, value;
  };

  virtual ~SettingsStore() = default;

  // Refused, with a reason that names the store, where there is one that cannot be read. A store in which
  // nothing has been written yet can be.
  virtual Outcome Readable() const { return Done{}; }
  // Nothing where the key is missing or the store cannot be read.
  virtual std::optional<std::string> Read(std::string_view section, std::string_view key) const = 0;
  // The value is in the store when this returns. Another key's value never changes with it.
  virtual Outcome Write(std::string_view section, std::string_view key, std::string_view value) = 0;
  // Several in one step where the store can, else one by one up to the first that is refused.
  virtual Outcome WriteAll(const std::vector<Entry>& entries) {
    for (const Entry& entry : entries)
      if (Outcome written = Write(entry.section, entry.key, entry.value); !written) return written;
    return Done{};
  }
  virtual std::vector<Entry> All() const = 0;
};

}  // namespace torvane
