// The station's text: 8 bits a character, code page 1252, as in design files and programs.
#pragma once

#include <string>
#include <string_view>

namespace torvane {

// Blanks cut off at both ends; a blank is the space alone.
std::string_view Trim(std::string_view text);

// Letters of the code page, those above ASCII included, in the other case.
std::string LowerCase(std::string_view text);
std::string UpperCase(std::string_view text);
bool EqualNoCase(std::string_view a, std::string_view b);

std::string Replaced(std::string_view text, char from, char to);

// The name in a path: what stands behind its last backslash, all of it if it holds none.
std::string BehindLastBackslash(std::string_view path);

// The text less its last `count` characters; empty if it is no longer than that.
std::string_view WithoutLast(std::string_view text, std::size_t count);

}  // namespace torvane
