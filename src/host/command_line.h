// The parts of a command line that both halves of the launcher look at.
#pragma once

#include <string_view>

namespace torvane {

// Without blanks at its ends.
std::string_view Bare(std::string_view text);

// Ignores the case of ASCII letters.
bool SameName(std::string_view a, std::string_view b);

// Whether an address may be opened: http and https alone.
bool IsWebAddress(std::string_view url);

}  // namespace torvane
