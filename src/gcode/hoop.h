// Hoop layers of the four-axis machine.
#pragma once

#include "gcode/dialect.h"
#include "gcode/session.h"

namespace torvane {

// The delivery head's angle along a hoop, degrees: nearly square to the part, with a little lead, from the
// hoop's lead angle.
Number HoopHeadAngle(Number leadAngle);

// The lines that open hoop layer `n`, from its display values.
void WriteHoopHead(GCodeSession& session, int n, dialect::LayerDisplay display);

// Close turns along the part in one run out and one back, the head turned a little into the lead, with the
// pauses round them and the move to the next layer's start.
void WriteHoopLayer(GCodeSession& session, int n);

}  // namespace torvane
