#include "text/text.h"

#include <algorithm>
#include <charconv>

namespace torvane {

namespace {

// In code page 1252 the accented letters stand 32 apart, as in ASCII, but for these four pairs; 0xD7 and
// 0xF7 between them are the signs of multiplication and division, and 0xDF has no capital.
unsigned char Lower(unsigned char c) {
  if (c >= 'A' && c <= 'Z') return static_cast<unsigned char>(c + 32);
  if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return static_cast<unsigned char>(c + 32);
  switch (c) {
    case 0x8A:
      return 0x9A;
    case 0x8C:
      return 0x9C;
    case 0x8E:
      return 0x9E;
    case 0x9F:
      return 0xFF;
    default:
      return c;
  }
}

unsigned char Upper(unsigned char c) {
  if (c >= 'a' && c <= 'z') return static_cast<unsigned char>(c - 32);
  if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return static_cast<unsigned char>(c - 32);
  switch (c) {
    case 0x9A:
      return 0x8A;
    case 0x9C:
      return 0x8C;
    case 0x9E:
      return 0x8E;
    case 0xFF:
      return 0x9F;
    default:
      return c;
  }
}

template <class Change>
std::string Changed(std::string_view text, Change change) {
  std::string result(text);
  for (char& c : result) c = static_cast<char>(change(static_cast<unsigned char>(c)));
  return result;
}

}  // namespace

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string LowerCase(std::string_view text) { return Changed(text, Lower); }

std::string UpperCase(std::string_view text) { return Changed(text, Upper); }

bool EqualNoCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return Lower(static_cast<unsigned char>(x)) == Lower(static_cast<unsigned char>(y));
  });
}

std::string Replaced(std::string_view text, char from, char to) {
  std::string result(text);
  std::replace(result.begin(), result.end(), from, to);
  return result;
}

std::string BehindLastBackslash(std::string_view path) {
  return std::string(path.substr(path.rfind('\\') + 1));
}

std::string_view BeforeLastBackslash(std::string_view path) {
  const auto end = path.rfind('\\');
  return end == std::string_view::npos ? std::string_view{} : path.substr(0, end);
}

std::optional<IndexedName> TakeApart(std::string_view text) {
  const auto open = text.find('(');
  if (open == std::string_view::npos) return IndexedName{text};
  IndexedName result{text.substr(0, open)};
  const char* at = text.data() + open;
  const char* const end = text.data() + text.size();
  while (result.count < 2) {
    const auto read = std::from_chars(at + 1, end, result.index[static_cast<std::size_t>(result.count)]);
    if (read.ec != std::errc() || read.ptr == end) break;
    ++result.count;
    at = read.ptr;
    if (*at == ')') return at + 1 == end ? std::optional(result) : std::nullopt;
    if (*at != ',') break;
  }
  return std::nullopt;
}

std::string_view WithoutLast(std::string_view text, std::size_t count) {
  return text.substr(0, text.size() > count ? text.size() - count : 0);
}

}  // namespace torvane
