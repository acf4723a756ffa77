#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include "host/files/environment.h"
#include "host/files/wide_windows.h"

namespace torvane {

std::string EnvironmentText(const char* name) {
  std::wstring text(32767, L'\0');  // the longest there is
  const DWORD length =
      GetEnvironmentVariableW(Wide(name).c_str(), text.data(), static_cast<DWORD>(text.size()));
  text.resize(length < text.size() ? length : 0);
  return Narrow(text);
}

}  // namespace torvane
