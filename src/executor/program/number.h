// Numbers as programs write them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace torvane::executor {

// `decimal` is the program's sign, '.' or ','. A number may have no digit before or behind the sign, and the
// sign alone is 0. Under a decimal comma a point is read as well: a few fixed words keep theirs. Nothing for
// an empty text, for anything else that is no number, and for a number that no machine could mean.
std::optional<double> ReadNumber(std::string_view text, char decimal);

// With that many decimals and a point; never "-0.00".
std::string Fixed(double value, int decimals);

// "1 pass", "2 passes".
std::string Counted(long long count, std::string_view one, std::string_view more);

}  // namespace torvane::executor
