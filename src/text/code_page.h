// The station's 8-bit text, code page 1252, against the UTF-8 of file names, settings files and terminals.
#pragma once

#include <string>
#include <string_view>

#include "platform/result.h"

namespace torvane {

// Every byte has a character: the five that the page leaves undefined stand for the control of their number.
std::string ToUtf8(std::string_view text);

// Refuses malformed UTF-8 and characters that the page does not hold; the reason names the first of them.
Result<std::string> FromUtf8(std::string_view utf8);

// Whether the bytes of a file are UTF-16, in either order: by their mark, or without one by two characters of
// ASCII in front.
bool IsUtf16(std::string_view bytes);

// Such bytes in UTF-8, the mark with them. Refuses half a character.
Result<std::string> Utf8OfUtf16(std::string_view bytes);

}  // namespace torvane
