// The settings of the user who runs the program.
#pragma once

#include <memory>
#include <string_view>

#include "platform/settings_store.h"

namespace torvane {

// The file torvane/torvane.ini in the user's folder for settings; on Windows the registry, in
// HKEY_CURRENT_USER\Software\Torvane. Where there is no such place, reads give nothing and writes are
// refused.
std::unique_ptr<SettingsStore> DefaultStore();

// The settings in an INI file, a path of the computer; the user's own where it is empty.
std::unique_ptr<SettingsStore> StoreAt(std::string_view hostPath);

// What a user hears who has named a settings file that is not there, in UTF-8; nothing where it is, or where
// none was named.
std::string MissingStoreNote(std::string_view hostPath);

}  // namespace torvane
