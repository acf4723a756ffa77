// Command lines: of programs that are started, and of the running one.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace torvane {

// Without blanks at its ends.
std::string_view Bare(std::string_view text);

// Ignores the case of ASCII letters.
bool SameName(std::string_view a, std::string_view b);

// Whether an address may be opened: http and https alone.
bool IsWebAddress(std::string_view url);

// The words behind the running program's name, in UTF-8, from what main() was given. On Windows its console
// takes UTF-8 from here on.
std::vector<std::string> ProgramArguments(int count, char** words);

}  // namespace torvane
