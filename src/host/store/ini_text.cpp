#include "host/store/ini_text.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "text/code_page.h"

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
  utf8 = WithoutBlanks(utf8);
  const bool plain =
      std::all_of(utf8.begin(), utf8.end(), [](char c) { return c >= ' ' && c <= '~' && c != '%'; });
  if (plain) return std::string(utf8);
  const auto text = FromUtf8(utf8);
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

// A line without its end, without blanks round it and without the mark in front of the first.
struct Line {
  std::string_view text;
  std::size_t next;  // place of the next line
};

Line LineAt(std::string_view bytes, std::size_t place) {
  const auto end = bytes.find('\n', place);
  std::string_view text = bytes.substr(place, end == std::string_view::npos ? end : end - place);
  if (place == 0 && text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  if (text.ends_with('\r')) text.remove_suffix(1);
  return {WithoutBlanks(text), end == std::string_view::npos ? bytes.size() : end + 1};
}

bool IsHeading(std::string_view line) { return line.starts_with('['); }

// Between the brackets; nothing where that cannot be read.
std::optional<std::string> SectionName(std::string_view heading) {
  const auto close = heading.find(']');
  if (close == std::string_view::npos) return std::nullopt;
  const auto rest = WithoutBlanks(heading.substr(close + 1));
  if (!rest.empty() && rest[0] != ';' && rest[0] != '#') return std::nullopt;
  return Unescaped(heading.substr(1, close - 1));
}

struct KeyAndValue {
  std::string key, value;
};

// Nothing where the line is no entry or its key cannot be read.
std::optional<std::string> KeyOf(std::string_view line) {
  const auto sign = line.find('=');
  if (sign == std::string_view::npos || line[0] == ';' || line[0] == '#' || IsHeading(line))
    return std::nullopt;
  return Unescaped(line.substr(0, sign));
}

std::optional<std::string> ValueOf(std::string_view line) {
  return Unescaped(line.substr(line.find('=') + 1));
}

// Nothing where the line is no entry or cannot be read.
std::optional<KeyAndValue> EntryOf(std::string_view line) {
  auto key = KeyOf(line);
  auto value = key ? ValueOf(line) : std::nullopt;
  if (!value) return std::nullopt;
  return KeyAndValue{std::move(*key), std::move(*value)};
}

// Walks over the lines with the section that each stands in; nothing is the section below a heading that
// cannot be read.
template <class Visit>
void ForEachLine(std::string_view bytes, Visit visit) {
  std::optional<std::string> section = "";
  for (std::size_t place = 0; place < bytes.size();) {
    const Line line = LineAt(bytes, place);
    if (IsHeading(line.text)) section = SectionName(line.text);
    visit(place, line, section);
    place = line.next;
  }
}

// Whether the end of the text is one that a line can have. A file that was cut off mostly ends within a line;
// where the room for it was taken before, NULs follow.
bool EndsWell(std::string_view bytes) {
  const auto end = bytes.rfind('\n');
  const Line last = LineAt(bytes, end == std::string_view::npos ? 0 : end + 1);
  if (last.text.empty() || last.text[0] == ';' || last.text[0] == '#') return true;
  return IsHeading(last.text) ? SectionName(last.text).has_value() : EntryOf(last.text).has_value();
}

std::size_t HashOf(std::string_view section, std::string_view key) {
  const std::hash<std::string_view> hash;
  return hash(key) * 31 + hash(section);
}

}  // namespace

IniText::IniText(std::string bytes) : text_(std::move(bytes)) { Index(); }

Result<IniText> IniText::OfFile(std::string bytes) {
  if (IsUtf16(bytes)) {
    auto text = Utf8OfUtf16(bytes);
    if (!text) return Refusal{text.reason()};
    bytes = text.Take();
  }
  if (EndsWell(bytes)) return IniText(std::move(bytes));
  const auto lines = std::count(bytes.begin(), bytes.end(), '\n') + 1;
  return Refusal{"It was cut off: its last line, " + std::to_string(lines) + ", cannot be read."};
}

void IniText::Index() {
  std::optional<std::string> current = "";
  ForEachLine(text_, [&](std::size_t place, const Line& line, const std::optional<std::string>& section) {
    if (section != current) headings_.push_back(static_cast<Place>(place));
    current = section;
    if (!section) return;
    if (const auto entry = EntryOf(line.text)) Enter(place, *section, entry->key);
  });
}

std::string IniText::SectionAt(std::size_t line) const {
  const auto behind = std::upper_bound(headings_.begin(), headings_.end(), line);
  if (behind == headings_.begin()) return "";
  return SectionName(LineAt(text_, *(behind - 1)).text).value_or("");
}

std::size_t IniText::SlotOf(std::string_view section, std::string_view key) const {
  const std::size_t mask = entries_.size() - 1;
  std::size_t slot = HashOf(section, key) & mask;
  for (; entries_[slot] != 0; slot = (slot + 1) & mask) {
    const std::size_t line = entries_[slot] - 1U;
    if (KeyOf(LineAt(text_, line).text) == key && SectionAt(line) == section) break;
  }
  return slot;
}

void IniText::Enter(std::size_t line, std::string_view section, std::string_view key) {
  if ((entered_ + 1) * 4 > entries_.size() * 3) {
    const std::vector<Place> former =
        std::exchange(entries_, std::vector<Place>(std::max<std::size_t>(64, entries_.size() * 2)));
    for (const Place place : former) {
      if (place == 0) continue;
      const std::string of = KeyOf(LineAt(text_, place - 1U).text).value_or("");
      std::size_t slot = HashOf(SectionAt(place - 1U), of) & (entries_.size() - 1);
      while (entries_[slot] != 0) slot = (slot + 1) & (entries_.size() - 1);
      entries_[slot] = place;
    }
  }
  const std::size_t slot = SlotOf(section, key);
  if (entries_[slot] != 0) return;
  entries_[slot] = static_cast<Place>(line + 1);
  ++entered_;
}

std::optional<std::string> IniText::Find(std::string_view section, std::string_view key) const {
  if (entries_.empty()) return std::nullopt;
  const Place place = entries_[SlotOf(section, key)];
  if (place == 0) return std::nullopt;
  return ValueOf(LineAt(text_, place - 1U).text);
}

void IniText::Insert(std::size_t place, std::size_t replaced, std::string_view line) {
  text_.replace(place, replaced, line);
  const auto shift = static_cast<Place>(line.size() - replaced);
  for (Place& entry : entries_)
    if (entry != 0 && entry - 1U >= place + replaced) entry += shift;
  for (Place& heading : headings_)
    if (heading >= place + replaced) heading += shift;
}

std::size_t IniText::RoomIn(std::string_view section) {
  if (!text_.empty() && text_.back() != '\n') text_ += '\n';
  std::size_t end = text_.size();
  auto heading = headings_.rbegin();
  for (; heading != headings_.rend() && SectionName(LineAt(text_, *heading).text) != section; ++heading)
    end = *heading;
  const bool headed = heading != headings_.rend();
  const std::size_t begin = headed ? *heading : 0;
  // Behind the section's last entry, so that a comment above the next section stays with that one.
  for (std::size_t next = end; (headed || section.empty()) && next > begin;) {
    const auto before = next < 2 ? std::string::npos : text_.rfind('\n', next - 2);
    const std::size_t place = before == std::string::npos ? 0 : before + 1;
    const std::string_view line = LineAt(text_, place).text;
    if (IsHeading(line) || EntryOf(line)) return next;
    next = place;
  }
  if (!text_.empty()) text_ += '\n';
  headings_.push_back(static_cast<Place>(text_.size()));
  text_ += "[" + Escaped(section, "]", "") + "]\n";
  return text_.size();
}

void IniText::Set(std::string_view section, std::string_view key, std::string_view value) {
  const std::string line = Escaped(key, "=", ";#[") + "=" + Escaped(value, "", "") + "\n";
  const Place former = entries_.empty() ? 0 : entries_[SlotOf(section, key)];
  if (former != 0) {
    const std::size_t place = former - 1U;
    Insert(place, LineAt(text_, place).next - place, line);
  } else {
    const std::size_t place = RoomIn(section);
    Insert(place, 0, line);
    Enter(place, section, key);
  }
}

std::vector<SettingsStore::Entry> IniText::Entries() const {
  std::vector<SettingsStore::Entry> entries;
  entries.reserve(entered_);
  ForEachLine(text_, [&](std::size_t place, const Line& line, const std::optional<std::string>& section) {
    auto entry = section ? EntryOf(line.text) : std::nullopt;
    if (entry && entries_[SlotOf(*section, entry->key)] == place + 1)
      entries.push_back({*section, std::move(entry->key), std::move(entry->value)});
  });
  return entries;
}

}  // namespace torvane
