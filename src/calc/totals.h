// What the whole part will come to: wall, volume, weight, glue and build time.
#pragma once

#include "design/state.h"

namespace torvane {

// Writes the wall thickness of a panel's part (0 two axes, 1 four): two bands for each layer, in the inches
// of the band.
void EstimateThickness(DesignState& s, int panel);

// Writes volume (cubic inches or centimetres), weight (pounds) and glue (grams) of the two-axis part, from
// its thickness as shown: a thin shell at the right diameter.
void EstimatePart(DesignState& s);

// Sets the build time of the two-axis schedule from its total minutes, in the whole hours and minutes that a
// program declares. Sixty minutes can be left over.
void EstimateTwoAxisBuildTime(DesignState& s);

// The same of the four-axis schedule. Its hours are rounded and less one, so minutes run from 30 to 90; the
// executor adds them up.
void EstimateFourAxisBuildTime(DesignState& s);

}  // namespace torvane
