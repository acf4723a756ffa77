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

// The words that arguments of a program come to: split at each blank, so that joined by one blank they are
// the text again. None for an empty text.
std::vector<std::string> WordsOf(std::string_view arguments);

// What PathArgument says of a whole command line of Windows, the program's name in front with or without
// quotes. Its library's words would lose blanks and quotes of a bare path.
std::optional<std::wstring_view> BarePath(std::wstring_view commandLine);

}  // namespace torvane
