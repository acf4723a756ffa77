// The text of a settings file: sections in brackets and lines "key=value", in UTF-8. Lines that begin with
// ";" or "#" are comments; blanks round a section's name, a key and a value do not count. What would not
// survive that (line breaks, blanks at an end, "=" in a key ...) stands as "%" and two hexadecimal digits,
// the byte in code page 1252; a "%" that is followed by anything else is itself.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/settings_store.h"

namespace torvane {

class IniText {
 public:
  // Takes any bytes. Lines that say nothing are kept as they stand.
  explicit IniText(std::string_view bytes);

  // The first line of that section and key counts. Case matters.
  std::optional<std::string> Find(std::string_view section, std::string_view key) const;
  void Set(std::string_view section, std::string_view key, std::string_view value);
  std::vector<SettingsStore::Entry> Entries() const;
  std::string Bytes() const;

 private:
  struct Line {
    std::string raw;
    std::optional<std::string> section;  // nothing below a heading that cannot be read
    std::optional<std::string> key;      // nothing where the line is no entry
    std::string value;
    bool heading = false;
  };

  const Line* FindLine(std::string_view section, std::string_view key) const;

  std::vector<Line> lines_;
};

}  // namespace torvane
