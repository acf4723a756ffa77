// The station's text: 8 bits a character, code page 1252, as in design files and programs.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace torvane {

// Blanks cut off at both ends; a blank is the space alone.
std::string_view Trim(std::string_view text);

// Letters of the code page, those above ASCII included, in the other case.
std::string LowerCase(std::string_view text);
std::string UpperCase(std::string_view text);
// Alike but for the case of letters.
bool EqualNoCase(std::string_view a, std::string_view b);

std::string Replaced(std::string_view text, char from, char to);

// The name in a path: what stands behind its last backslash, all of it if it holds none.
std::string BehindLastBackslash(std::string_view path);

// The folder in a path: what stands before its last backslash, nothing if it holds none.
std::string_view BeforeLastBackslash(std::string_view path);

// A name with none, one or two whole numbers behind it: "gDirty", "txtWA(3)", "LayerTable2Ax(3,1)".
struct IndexedName {
  std::string_view name;
  int count = 0;  // of its indexes
  std::array<int, 2> index{};
};
// Nothing for a text with a bracket that is not of that form.
std::optional<IndexedName> TakeApart(std::string_view text);

// The text less its last `count` characters; empty if it is no longer than that.
std::string_view WithoutLast(std::string_view text, std::size_t count);

}  // namespace torvane
