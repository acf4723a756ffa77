// The designs last opened or saved, the latest first. They stand in a section of the store of their own.
#pragma once

#include <string>
#include <vector>

#include "persist/kept_store.h"

namespace torvane {

inline constexpr int kMostRecentFiles = 9;

// Paths of the station.
std::vector<std::string> RecentFiles(const SettingsStore& store);
// Puts a design in front; beyond the most there are the last one goes. The store has it a moment later, since
// it moves up to all of them.
void NoteRecentFile(KeptStore& store, const std::string& path);
void ForgetRecentFile(KeptStore& store, const std::string& path);

}  // namespace torvane
