// The station's 8-bit text against the toolkit's own.
#pragma once

#include <QString>
#include <optional>
#include <string>
#include <string_view>

namespace torvane {

// Every byte of a station's text has a character.
QString Shown(std::string_view stationText);

// Nothing where a character is outside the station's code page.
std::optional<std::string> Taken(const QString& text);

// A tool tip that shows its text as it stands. The toolkit reads one that looks like markup as such, and text
// of files, paths and programs may look like anything.
QString PlainTip(const QString& text);

}  // namespace torvane
