// After the winding: heat shrink tape, heat gun, and the end of the file.
#pragma once

#include "gcode/session.h"

namespace torvane {

// The passes that the operator chose, behind which the carriage stands at its home end or runs to and fro for
// good; without any the mandrel stops.
void WriteFinishingPasses(GCodeSession& session);

}  // namespace torvane
