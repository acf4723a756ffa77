#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <shellapi.h>

#include "host/files/file_system.h"
#include "host/files/wide_windows.h"
#include "host/system/command_line.h"
#include "host/system/host_launcher.h"
#include "text/code_page.h"

namespace torvane {

namespace {

bool HoldsSeparator(const std::wstring& name) { return name.find_first_of(L"\\/:") != std::wstring::npos; }

// The program in `folder` for a name without a path; empty where there is none, for the system to search.
std::wstring InFolder(const std::wstring& name, const std::wstring& folder) {
  std::wstring found(32768, L'\0');
  const DWORD length = SearchPathW(folder.c_str(), name.c_str(), L".exe", static_cast<DWORD>(found.size()),
                                   found.data(), nullptr);
  found.resize(length < found.size() ? length : 0);
  return found;
}

}  // namespace

Outcome HostLauncher::Start(std::string_view program, std::string_view arguments, std::string_view folder) {
  if (program.empty()) return Refusal{"There is no program to start."};
  std::wstring line = Wide(ToUtf8(CommandLine(program, arguments)));
  if (line.find(L'\0') != std::wstring::npos || folder.find('\0') != std::string_view::npos) {
    return Refusal{"The command line holds a NUL character."};
  }
  // The root of a drive needs the backslash that a folder's text goes without.
  const std::wstring current = Wide(ToUtf8(folder)) + L"\\";
  // Told apart from the line: a blank in its folder's name must not make a shorter name the program.
  const std::wstring name = Wide(ToUtf8(program));
  const std::wstring found = HoldsSeparator(name) ? name : InFolder(name, current);

  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESHOWWINDOW;
  start.wShowWindow = SW_SHOWNORMAL;
  PROCESS_INFORMATION started{};
  if (!CreateProcessW(found.empty() ? nullptr : found.c_str(), line.data(), nullptr, nullptr, FALSE, 0,
                      nullptr, current.c_str(), &start, &started)) {
    const std::error_code error(static_cast<int>(GetLastError()), std::system_category());
    return Refusal{std::string(program) + ": " + ReasonOf(error)};
  }
  CloseHandle(started.hThread);
  CloseHandle(started.hProcess);
  return Done{};
}

void HostLauncher::OpenLink(std::string_view url) {
  if (!IsWebAddress(url)) return;
  ShellExecuteW(nullptr, L"open", Wide(ToUtf8(url)).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

std::string HostLauncher::EnvironmentVariable(std::string_view name) const {
  const std::wstring wideName = Wide(ToUtf8(name));
  std::wstring value(32767, L'\0');  // the longest there is
  const DWORD length =
      GetEnvironmentVariableW(wideName.c_str(), value.data(), static_cast<DWORD>(value.size()));
  value.resize(length < value.size() ? length : 0);
  const auto text = FromUtf8(Narrow(value));
  return text ? text.value() : "";
}

}  // namespace torvane
