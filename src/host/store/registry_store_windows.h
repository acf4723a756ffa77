// The settings store in the user's registry: HKEY_CURRENT_USER\Software\Torvane\<section>, a text value for
// each key. The registry itself takes no note of case.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/settings_store.h"

namespace torvane {

class RegistryStore : public SettingsStore {
 public:
  Outcome Readable() const override;
  std::optional<std::string> Read(std::string_view section, std::string_view key) const override;
  // Refuses what the registry cannot hold: a NUL, a section with a backslash in it or of no name.
  Outcome Write(std::string_view section, std::string_view key, std::string_view value) override;
  std::vector<Entry> All() const override;
};

}  // namespace torvane
