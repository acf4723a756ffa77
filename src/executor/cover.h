// How much of the mandrel's surface the bands of a layer cover.
#pragma once

#include "executor/mandrel.h"

namespace torvane::executor {

// Share of the surface between zLow and zHigh under a band, 0 to 1, by a raster that shows a tenth of a band
// both ways as far as 4096 rows and 16384 places round go. `coarse` takes few rows: enough for an open layer.
double CoveredShare(const Layer& layer, const Mandrel& mandrel, double zLow, double zHigh, bool coarse);

}  // namespace torvane::executor
