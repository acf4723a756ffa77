// What the part's fields and the design's unit set off.
#pragma once

#include "workbench/station/operations.h"

namespace torvane {

std::span<const Operation> PartOperations();
std::span<const Operation> UnitOperations();

}  // namespace torvane
