// The text of a settings file: sections in brackets and lines "key=value", in UTF-8. Lines that begin with
// ";" or "#" are comments; blanks round a section's name, a key and a value do not count. What would not
// survive that (line breaks, blanks at an end, "=" in a key ...) stands as "%" and two hexadecimal digits,
// the byte in code page 1252; a "%" that is followed by anything else is itself.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/settings_store.h"

namespace torvane {

class IniText {
 public:
  IniText() = default;
  // Takes any bytes, up to 4 GB. Lines that say nothing are kept as they stand.
  explicit IniText(std::string bytes);
  // The text of a file as an editor may have saved it: UTF-8 with or without a mark, or UTF-16, which becomes
  // UTF-8 with a mark. Refused where the file was cut off.
  static Result<IniText> OfFile(std::string bytes);

  // The first line of that section and key counts. Case matters.
  std::optional<std::string> Find(std::string_view section, std::string_view key) const;
  void Set(std::string_view section, std::string_view key, std::string_view value);
  // In the order of their lines.
  std::vector<SettingsStore::Entry> Entries() const;
  const std::string& Bytes() const { return text_; }

 private:
  using Place = std::uint32_t;  // of a line's first byte

  // Finds the entries' lines anew.
  void Index();
  // Where in `entries_` the line of that name is found, or would be.
  std::size_t SlotOf(std::string_view section, std::string_view key) const;
  // Nothing happens where an earlier line has the name.
  void Enter(std::size_t line, std::string_view section, std::string_view key);
  std::string SectionAt(std::size_t line) const;
  // Where a new line of a section goes, behind a heading that is made if there is none yet.
  std::size_t RoomIn(std::string_view section);
  void Insert(std::size_t place, std::size_t replaced, std::string_view line);

  // A key is a place and no text of its own: the file stands here once, and hardly anything beside it.
  std::string text_;
  std::vector<Place> entries_;  // a table by hash; one more than the place, 0 where it is free
  std::size_t entered_ = 0;
  std::vector<Place> headings_;  // but for those of the section that they stand in
};

}  // namespace torvane
