// From the rows of a two-axis schedule to machine figures.
#pragma once

#include "design/state.h"

namespace torvane {

// Calculates the schedule from the texts of its rows: speeds, passes, minutes, filament length, their sums
// and the figures of the whole part. `index` says whose speeds are worked out first: -1 all rows from their
// winding angle, 0 to 25 that row alone, 26 the carriage speed of all rows from their mandrel speed. What
// follows always covers all rows. A step whose fields hold no number leaves its target as it was; of a row
// without a readable angle passes, minutes and length become empty.
void RecalculateTwoAxisLayers(DesignState& s, int index);

// Copies rows 1 to N into the layer table, then recalculates them all.
void SyncGridToLayerTable(DesignState& s);

}  // namespace torvane
