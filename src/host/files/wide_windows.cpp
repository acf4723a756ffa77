#include "host/files/wide_windows.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

namespace torvane {

std::wstring Wide(std::string_view utf8) {
  const int length = static_cast<int>(utf8.size());
  std::wstring wide(utf8.size(), L'\0');  // never more units than bytes
  if (length > 0) {
    const int units = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, wide.data(), length);
    wide.resize(static_cast<std::size_t>(units));
  }
  return wide;
}

std::string Narrow(std::wstring_view wide) {
  const int length = static_cast<int>(wide.size());
  std::string utf8(wide.size() * 3, '\0');  // never more than three bytes for a unit
  if (length > 0) {
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, utf8.data(),
                                          static_cast<int>(utf8.size()), nullptr, nullptr);
    utf8.resize(static_cast<std::size_t>(bytes));
  }
  return utf8;
}

}  // namespace torvane
