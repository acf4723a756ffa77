// The settings of the user who runs the program.
#pragma once

#include <memory>

#include "platform/settings_store.h"

namespace torvane {

// The file torvane/torvane.ini in the user's folder for settings; on Windows the registry, in
// HKEY_CURRENT_USER\Software\Torvane. Where there is no such place, reads give nothing and writes are
// refused.
std::unique_ptr<SettingsStore> DefaultStore();

}  // namespace torvane
