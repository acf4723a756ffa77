#include "host/file_system.h"
#include "host/paths.h"

namespace torvane {

Result<std::string> RunningProgramFolder() {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return Refusal{"The program's folder is not known: " + ReasonOf(error)};
  return HostText(program.parent_path());
}

}  // namespace torvane
