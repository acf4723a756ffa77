// Whether the windows are light or dark, as the operator has chosen it in the station; the dry run follows.
#pragma once

#include <cstdint>
#include <string_view>

namespace torvane {

enum class Appearance : std::uint8_t { System, Light, Dark };

// Where the settings hold it.
inline constexpr std::string_view kAppearanceSection = "Designer_Window", kAppearanceKey = "Appearance";

// System for any other text.
Appearance AppearanceOf(std::string_view stored);
std::string_view StoredAs(Appearance appearance);

// Whether the windows are dark. Asks the toolkit for the desktop's own palette, so the one set by the program
// has to be set again behind it.
bool IsDark(Appearance appearance);

}  // namespace torvane
