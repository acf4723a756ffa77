#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include "host/files/environment.h"
#include "host/files/file_system.h"
#include "host/files/paths.h"

namespace torvane {

Result<std::string> RunningProgramFolder() {
  std::wstring program(32768, L'\0');  // the longest path there is
  const DWORD length = GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
  if (length == 0 || length == program.size()) {
    const std::error_code error(static_cast<int>(GetLastError()), std::system_category());
    return Refusal{"The program's folder is not known: " + ReasonOf(error)};
  }
  program.resize(length);
  return HostText(std::filesystem::path(program).parent_path());
}

std::string UserFolder() { return EnvironmentText("USERPROFILE"); }

}  // namespace torvane
