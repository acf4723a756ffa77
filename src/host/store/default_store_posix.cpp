#include <cstdlib>
#include <string>

#include "host/files/paths.h"
#include "host/store/default_store.h"
#include "host/store/ini_store.h"

namespace torvane {

namespace {

// Empty where the variable is not set to an absolute path.
std::string FolderFrom(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && value[0] == '/' ? value : "";
}

}  // namespace

std::unique_ptr<SettingsStore> DefaultStore() {
  std::string folder = FolderFrom("XDG_CONFIG_HOME");
  if (folder.empty()) {
    const std::string home = UserFolder();
    if (home.empty()) return std::make_unique<IniStore>("");
    folder = home + "/.config";
  }
  return std::make_unique<IniStore>(folder + "/torvane/torvane.ini");
}

}  // namespace torvane
