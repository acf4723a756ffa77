// From the rows of a two-axis schedule to machine figures.
#pragma once

#include "design/state.h"

namespace torvane {

// Whose speeds a calculation of the schedule works out: those of one row, by its number, or
inline constexpr int kSpeedsByAngle = -1;                         // of all rows from their winding angle,
inline constexpr int kSpeedsByMandrelSpeed = IndexSet::kAllRows;  // the carriage's from the mandrel's.

// Calculates the schedule from the texts of its rows: speeds as `index` says, then passes, minutes, filament
// length, their sums and the figures of the whole part, which always cover all rows. A step whose fields hold
// no number leaves its target as it was; of a row without a readable angle passes, minutes and length become
// empty.
void RecalculateTwoAxisLayers(DesignState& s, int index);

// Copies rows 1 to N into the layer table, then recalculates them all.
void SyncGridToLayerTable(DesignState& s);

}  // namespace torvane
