// What follows from a new count of layers in each family.
#pragma once

#include "workbench/station.h"

namespace torvane {

// A machine winds no more layers in one go; what is typed above becomes this.
inline constexpr int kMostLayers = 15;

void ChangeFourAxisCount(Station& station);

}  // namespace torvane
