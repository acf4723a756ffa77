#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <shellapi.h>

#include "host/files/wide_windows.h"
#include "host/system/command_line.h"

namespace torvane {

// The words that the C library hands to main() have lost what the computer's own code page does not hold.
std::vector<std::string> ProgramArguments(int, char**) {
  SetConsoleOutputCP(CP_UTF8);
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(Narrow(words[i]));
  LocalFree(words);
  return arguments;
}

std::optional<std::string> PathArgument(int, char**) {
  const auto path = BarePath(GetCommandLineW());
  if (!path) return std::nullopt;
  return Narrow(*path);
}

}  // namespace torvane
