#include "host/command_line.h"

#include <algorithm>

namespace torvane {

bool SameName(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [&](char x, char y) { return lower(x) == lower(y); });
}

bool IsWebAddress(std::string_view url) {
  if (url.find('\0') != std::string_view::npos) return false;
  return SameName(url.substr(0, 7), "http://") || SameName(url.substr(0, 8), "https://");
}

}  // namespace torvane
