// The row of the two-axis schedule whose entries go to every row.
#pragma once

#include "workbench/station/station.h"

namespace torvane {

// Shows or hides the fields of the all-rows row. Only those of the two-axis schedule can be shown.
void ShowAllRowsFields(DesignState& s, bool shown);

// A new count of layers hides some of its fields; the operator's switch brings them back.
void KeepAllRows(Station& station);

}  // namespace torvane
