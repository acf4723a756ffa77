// Before the winding: the starting position, and mandrel pre-wraps.
#pragma once

#include "gcode/session.h"

namespace torvane {

// Moves the machine to where the first pass of four-axis layer `layer` begins, or to the home end of a
// two-axis design. `mark` is the pre-wrap that it belongs to, 0 if to none: behind the move the operator
// presses the button, in four axes of the first alone. With `layer` 0 the four-axis values stand as they are.
void WriteStartPosition(GCodeSession& session, int mark, int layer);

// Pre-wrap 1 or 2: the mandrel turns while the carriage runs to the far end by an advance a revolution,
// then stands until the operator presses the button, and the machine goes back to its start.
void WritePreWrap(GCodeSession& session, int n);

}  // namespace torvane
