// Number text straight into a text's own room, for programs of millions of lines.
#pragma once

#include <cstddef>

#include "text/number_text.h"

namespace torvane {

// The largest double has 309 digits in front of the point; a mask adds at most nine behind it.
inline constexpr std::size_t kLongestNumberText = 340;

// As FormatNumberText, into `out`, which has room for the longest one. Returns its end.
char* WriteNumberText(char* out, NumberSigns signs, double value, Mask mask);

}  // namespace torvane
