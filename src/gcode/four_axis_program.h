// The winding schedule of a design with wrapped ends.
#pragma once

#include "gcode/session.h"

namespace torvane {

// Every layer with its groups and passes. Writes nothing without `chkWindingSchedule`.
void Write4AxWindingGCode(GCodeSession& session);

}  // namespace torvane
