// An open design as a text from which it comes back exactly: every field with its looks, typed or not.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "design/state.h"

namespace torvane {

// Lines of a tagged part each, the last one "END": a text that was cut off shows it.
std::string RecoveryText(const DesignState& s);

struct RecoveredDesign {
  struct FieldText {
    std::string text;
    Looks looks;
  };

  std::string filePath, fileName;
  bool fourAxis = false;
  std::int32_t gBuildHours = 0, gBuildMinutes = 0;
  std::map<std::string, FieldText, std::less<>> fields;
  // "2,3,1" for cell (3,1) of the two-axis table, "4,3,1" for the same of the four-axis table.
  std::map<std::string, std::string, std::less<>> cells;
};

// Nothing for a text that is not whole, or is something else.
std::optional<RecoveredDesign> ReadRecovery(std::string_view text);

// Puts the design in the place of the open one; no operation runs. A field that the text does not name is
// left as it is.
void Restore(DesignState& s, const RecoveredDesign& design);

}  // namespace torvane
