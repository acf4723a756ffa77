#include "workbench/document/recent_files.h"

#include "persist/settings.h"

namespace torvane {

namespace {

constexpr std::string_view kSection = "RecentFiles";

std::string KeyOf(int place) { return "File" + std::to_string(place); }

void Store(KeptStore& store, const std::vector<std::string>& files) {
  for (int place = 1; place <= kMostRecentFiles; ++place) {
    const auto i = static_cast<std::size_t>(place) - 1;
    const std::string file = i < files.size() ? files[i] : "";
    if (GetSetting(store, kSection, KeyOf(place), "") != file) store.WriteLater(kSection, KeyOf(place), file);
  }
}

}  // namespace

std::vector<std::string> RecentFiles(const SettingsStore& store) {
  std::vector<std::string> files;
  for (int place = 1; place <= kMostRecentFiles; ++place) {
    std::string file = GetSetting(store, kSection, KeyOf(place), "");
    if (!file.empty()) files.push_back(std::move(file));
  }
  return files;
}

void NoteRecentFile(KeptStore& store, const std::string& path) {
  std::vector<std::string> files = RecentFiles(store);
  std::erase(files, path);
  files.insert(files.begin(), path);
  Store(store, files);
}

void ForgetRecentFile(KeptStore& store, const std::string& path) {
  std::vector<std::string> files = RecentFiles(store);
  std::erase(files, path);
  Store(store, files);
}

}  // namespace torvane
