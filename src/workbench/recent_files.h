// The designs last opened or saved, the latest first. They stand in a section of the store of their own.
#pragma once

#include <string>
#include <vector>

#include "platform/settings_store.h"

namespace torvane {

inline constexpr int kMostRecentFiles = 9;

// Paths of the station.
std::vector<std::string> RecentFiles(const SettingsStore& store);
// Puts a design in front; beyond the most there are the last one goes.
void NoteRecentFile(SettingsStore& store, const std::string& path);
void ForgetRecentFile(SettingsStore& store, const std::string& path);

}  // namespace torvane
