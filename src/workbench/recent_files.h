// The designs last opened or saved, the latest first. They stand in a section of the store of their own.
#pragma once

#include <string>
#include <vector>

#include "platform/settings_store.h"

namespace torvane {

inline constexpr int kMostRecentFiles = 9;

std::vector<std::string> RecentFiles(const SettingsStore& store);
void NoteRecentFile(SettingsStore& store, const std::string& path);
void ForgetRecentFile(SettingsStore& store, const std::string& path);

}  // namespace torvane
