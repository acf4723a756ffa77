// What a number reads as where its signs may mean something else than the operator thinks.
#pragma once

#include <string>
#include <string_view>

#include "design/field.h"

namespace torvane {

// A number that holds the group sign of the computer is read over that sign: "12.50" is 1250 where the
// decimal sign is a comma. One sentence that says so; empty for any other text.
std::string NumberHint(NumberSigns signs, std::string_view text);

// The same for a field that takes a number; empty for any other field.
std::string NumberHint(const Field& field, NumberSigns signs);

}  // namespace torvane
