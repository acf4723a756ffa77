#include "host/ini_text.h"

#include <algorithm>

#include "host/code_page.h"

namespace torvane {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

std::string_view WithoutBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// The byte that an escape at the start of the text stands for; -1 if it is none.
int EscapedByte(std::string_view text) {
  if (text.size() < 3 || text[0] != '%') return -1;
  const int high = HexDigit(text[1]), low = HexDigit(text[2]);
  return high < 0 || low < 0 ? -1 : high * 16 + low;
}

// Controls are the sign of a damaged file, or would not outlive an editor. A tab may be a hand's own.
bool IsControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F || byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 ||
         byte == 0x9D;
}

// `special`: never bare. `atStart`: not bare as the first character.
std::string Escaped(std::string_view text, std::string_view special, std::string_view atStart) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const bool atAnEnd = i == 0 || i + 1 == text.size();
    if (IsControl(c) || special.find(c) != std::string_view::npos || (atAnEnd && c == ' ') ||
        (i == 0 && atStart.find(c) != std::string_view::npos) || EscapedByte(text.substr(i)) >= 0) {
      const auto byte = static_cast<unsigned char>(c);
      result += {'%', kHexDigits[byte / 16U], kHexDigits[byte % 16U]};
    } else {
      result += c;
    }
  }
  return ToUtf8(result);
}

std::optional<std::string> Unescaped(std::string_view utf8) {
  const auto text = FromUtf8(WithoutBlanks(utf8));
  if (!text) return std::nullopt;
  std::string result;
  for (std::string_view rest = text.value(); !rest.empty();) {
    const int byte = EscapedByte(rest);
    if (byte < 0 && IsControl(rest[0]) && rest[0] != '\t') return std::nullopt;
    result += byte < 0 ? rest[0] : static_cast<char>(byte);
    rest.remove_prefix(byte < 0 ? 1 : 3);
  }
  return result;
}

// Between the brackets; nothing where that cannot be read.
std::optional<std::string> SectionName(std::string_view heading) {
  const auto close = heading.find(']');
  if (close == std::string_view::npos) return std::nullopt;
  const auto rest = WithoutBlanks(heading.substr(close + 1));
  if (!rest.empty() && rest[0] != ';' && rest[0] != '#') return std::nullopt;
  return Unescaped(heading.substr(1, close - 1));
}

}  // namespace

IniText::IniText(std::string_view bytes) {
  std::optional<std::string> section = "";
  while (!bytes.empty()) {
    const auto end = bytes.find('\n');
    Line line;
    line.raw = bytes.substr(0, end);
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);

    std::string_view text = line.raw;
    if (lines_.empty() && text.substr(0, 3) == kByteOrderMark) text.remove_prefix(3);
    if (!text.empty() && text.back() == '\r') text.remove_suffix(1);
    text = WithoutBlanks(text);
    if (!text.empty() && text[0] == '[') {
      section = SectionName(text);
      line.heading = true;
    } else if (const auto sign = text.find('=');
               sign != std::string_view::npos && text[0] != ';' && text[0] != '#' && section) {
      const auto key = Unescaped(text.substr(0, sign));
      const auto value = Unescaped(text.substr(sign + 1));
      if (key && value) {
        line.key = key;
        line.value = *value;
      }
    }
    line.section = section;
    lines_.push_back(std::move(line));
  }
}

const IniText::Line* IniText::FindLine(std::string_view section, std::string_view key) const {
  const auto found = std::find_if(lines_.begin(), lines_.end(), [&](const Line& line) {
    return line.key == key && line.section == section;
  });
  return found == lines_.end() ? nullptr : &*found;
}

std::optional<std::string> IniText::Find(std::string_view section, std::string_view key) const {
  const Line* line = FindLine(section, key);
  return line ? std::optional(line->value) : std::nullopt;
}

void IniText::Set(std::string_view section, std::string_view key, std::string_view value) {
  Line entry;
  entry.raw = Escaped(key, "=", ";#[") + "=" + Escaped(value, "", "");
  entry.section = section;
  entry.key = key;
  entry.value = value;

  if (const Line* former = FindLine(section, key)) {
    lines_[static_cast<std::size_t>(former - lines_.data())] = std::move(entry);
    return;
  }
  // Behind the section's last entry, so that a comment above the next section stays with that one.
  const auto last = std::find_if(lines_.rbegin(), lines_.rend(), [&](const Line& line) {
    return line.section == section && (line.key || line.heading);
  });
  if (last != lines_.rend()) {
    lines_.insert(last.base(), std::move(entry));
    return;
  }
  if (!lines_.empty()) lines_.emplace_back();
  Line heading;
  heading.raw = "[" + Escaped(section, "]", "") + "]";
  heading.section = section;
  heading.heading = true;
  lines_.push_back(std::move(heading));
  lines_.push_back(std::move(entry));
}

std::vector<SettingsStore::Entry> IniText::Entries() const {
  std::vector<SettingsStore::Entry> entries;
  for (const Line& line : lines_) {
    if (line.key && FindLine(*line.section, *line.key) == &line) {
      entries.push_back({*line.section, *line.key, line.value});
    }
  }
  return entries;
}

std::string IniText::Bytes() const {
  std::string bytes;
  for (const Line& line : lines_) bytes += line.raw + "\n";
  return bytes;
}

}  // namespace torvane
