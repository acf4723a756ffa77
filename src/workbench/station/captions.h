// The words on the station's controls.
#pragma once

#include "design/state.h"

namespace torvane {

// Of the main window's controls whose words do not change. Other windows bring their own.
void SetCaptions(DesignState& s);

}  // namespace torvane
