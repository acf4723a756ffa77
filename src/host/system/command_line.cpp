#include "host/system/command_line.h"

#include <algorithm>

namespace torvane {

bool SameName(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [&](char x, char y) { return lower(x) == lower(y); });
}

std::vector<std::string> WordsOf(std::string_view arguments) {
  std::vector<std::string> words;
  if (arguments.empty()) return words;
  for (auto end = arguments.find(' '); end != std::string_view::npos; end = arguments.find(' ')) {
    words.emplace_back(arguments.substr(0, end));
    arguments.remove_prefix(end + 1);
  }
  words.emplace_back(arguments);
  return words;
}

std::optional<std::wstring_view> BarePath(std::wstring_view line) {
  const bool quoted = line.starts_with(L'"');
  const auto end = line.find(quoted ? L'"' : L' ', quoted ? 1 : 0);
  if (end == std::wstring_view::npos) return std::nullopt;
  line.remove_prefix(end + (quoted ? 1 : 0));
  if (line.starts_with(L' ')) line.remove_prefix(1);
  const bool drive = line.size() > 2 && line[1] == L':' && (line[2] == L'\\' || line[2] == L'/');
  if (!drive && !line.starts_with(L"\\\\")) return std::nullopt;
  return line;
}

bool IsWebAddress(std::string_view url) {
  if (url.find('\0') != std::string_view::npos) return false;
  return SameName(url.substr(0, 7), "http://") || SameName(url.substr(0, 8), "https://");
}

}  // namespace torvane
