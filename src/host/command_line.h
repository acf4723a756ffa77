// Command lines: of programs that are started, and of the running one.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace torvane {

// Ignores the case of ASCII letters.
bool SameName(std::string_view a, std::string_view b);

// Whether an address may be opened: http and https alone.
bool IsWebAddress(std::string_view url);

// The words behind the running program's name, in UTF-8, from what main() was given. On Windows its console
// takes UTF-8 from here on.
std::vector<std::string> ProgramArguments(int count, char** words);

// What stands behind the running program's name, in UTF-8, where it begins a path: the whole of it is that
// path, whatever blanks and words it holds, for whoever starts a program with a path sets it bare. Nothing
// where the first word is none.
std::optional<std::string> PathArgument(int count, char** words);

// The text of a variable of the environment, in UTF-8; empty where it is not set.
std::string EnvironmentText(const char* name);

}  // namespace torvane
