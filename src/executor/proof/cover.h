// How much of the mandrel's surface the bands of a layer cover.
#pragma once

#include <stop_token>

#include "executor/machine/mandrel.h"

namespace torvane::executor {

constexpr int kFewestRows = 32, kMostRows = 4096;

// Share of the surface between zLow and zHigh under a band, 0 to 1, by a raster that shows a tenth of a band
// both ways as far as `rowsAtMost` and 16384 places round go. Very many traverses get fewer rows, so that the
// time stays in proportion to their number.
double CoveredShare(const Layer& layer, const Mandrel& mandrel, double zLow, double zHigh, int rowsAtMost,
                    const std::stop_token& stop);

}  // namespace torvane::executor
