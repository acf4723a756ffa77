#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>

#include "host/default_store.h"
#include "host/ini_store.h"

namespace torvane {

namespace {

// Empty where the variable is not set to an absolute path.
std::string FolderFrom(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && value[0] == '/' ? value : "";
}

std::string HomeFolder() {
  if (std::string home = FolderFrom("HOME"); !home.empty()) return home;
  passwd entry{};
  passwd* found = nullptr;
  std::array<char, 4096> texts{};
  if (getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found) != 0 || found == nullptr) return "";
  return entry.pw_dir;
}

}  // namespace

std::unique_ptr<SettingsStore> DefaultStore() {
  std::string folder = FolderFrom("XDG_CONFIG_HOME");
  if (folder.empty()) {
    const std::string home = HomeFolder();
    if (home.empty()) return std::make_unique<IniStore>("");
    folder = home + "/.config";
  }
  return std::make_unique<IniStore>(folder + "/torvane/torvane.ini");
}

}  // namespace torvane
