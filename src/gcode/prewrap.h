// Before the winding: the starting position, and mandrel pre-wraps.
#pragma once

#include "gcode/session.h"

namespace torvane {

// Moves the carriage to the home end, where the first pass begins. With `beforePreWrap` the operator
// presses the button first.
void WriteStartPosition(GCodeSession& session, bool beforePreWrap);

// Pre-wrap 1 or 2: the mandrel turns while the carriage runs to the far end by an advance a revolution,
// then stands until the operator presses the button, and the carriage comes back.
void WritePreWrap(GCodeSession& session, int n);

}  // namespace torvane
