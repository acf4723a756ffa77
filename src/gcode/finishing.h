// After the winding: heat shrink tape, heat gun, and the end of the file.
#pragma once

#include "gcode/session.h"

namespace torvane {

void WriteFinishingPasses(GCodeSession& session);

}  // namespace torvane
