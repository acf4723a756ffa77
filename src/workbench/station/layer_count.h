// How many layers there may be, and what follows from a new count of them.
#pragma once

#include <algorithm>

#include "design/rows.h"
#include "workbench/station/station.h"

namespace torvane {

// How many rows the schedule in use has.
inline int LayerRows(const DesignState& s) {
  return std::clamp(RowsOf(s.txtNumberOfLayers(s.Panel())), 0, kMostLayers);
}

// The row pressed last, 0 where the schedule in use has no such row.
inline int PressedRow(const DesignState& s) {
  return s.gCurrentRow >= 1 && s.gCurrentRow <= LayerRows(s) ? s.gCurrentRow : 0;
}

// Shows as many rows of the four-axis schedule as its count says, and works the wall thickness out anew.
void ChangeFourAxisCount(Station& station);

}  // namespace torvane
