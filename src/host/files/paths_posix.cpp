#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

#include "host/files/file_system.h"
#include "host/files/paths.h"

namespace torvane {

Result<std::string> RunningProgramFolder() {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return Refusal{"The program's folder is not known: " + ReasonOf(error)};
  return HostText(program.parent_path());
}

std::string UserFolder() {
  const char* home = std::getenv("HOME");
  if (home != nullptr && home[0] == '/') return home;
  passwd entry{};
  passwd* found = nullptr;
  std::array<char, 4096> texts{};
  if (getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found) != 0 || found == nullptr) return "";
  return entry.pw_dir;
}

}  // namespace torvane
