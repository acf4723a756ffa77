// What follows from a new count of layers in each family.
#pragma once

#include "workbench/station.h"

namespace torvane {

void ChangeFourAxisCount(Station& station);

}  // namespace torvane
