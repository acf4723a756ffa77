// The speeds that lay the filament at an angle.
#pragma once

#include "design/state.h"

namespace torvane {

// Mandrel speed (revolutions per minute) and carriage speed (length units per second) of a winding angle
// in degrees. The angle's tangent is mandrel surface speed over carriage speed. Exactly 90 is a hoop: the
// mandrel runs at its class limit and the carriage advances one band width a revolution. Otherwise the
// carriage starts at its class speed and comes down in steps of 0.025 until the mandrel's class limit
// holds; when it would fall below one step, the limit gives way by 5 and the search starts again.
// `speedClass` is 1 slow, 2 medium, 3 fast. An out-value whose step fails, and both of a search that no
// longer moves, stay as the caller gave them.
void CalculateSpeedsForAngle(const DesignState& s, Number& mandrelRPM, Number& carriageSpeed,
                             double windingAngle, int speedClass);

}  // namespace torvane
