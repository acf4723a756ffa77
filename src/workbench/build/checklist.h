// The choices of a build.
#pragma once

#include "workbench/station/station.h"

namespace torvane {

// The second pre-wrap exists only behind the first.
void LinkPreWraps(Station& station);

std::span<const Operation> ChecklistOperations();

// Starts the blinking and tells the operator if a value of a chosen finishing pass or pre-wrap seems too
// high; true then.
bool CheckWrapHGValues(Station& station);

}  // namespace torvane
