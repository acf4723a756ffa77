// The winding schedule of a design without end wraps on the four-axis machine.
#pragma once

#include "gcode/session.h"

namespace torvane {

// Wound from end to end with mandrel-shift dwells, the delivery head turning in every move. Writes nothing
// without `chkWindingSchedule`.
void WriteThreeAxisProgram(GCodeSession& session);

}  // namespace torvane
