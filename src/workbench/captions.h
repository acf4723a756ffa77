// The words on the station's controls.
#pragma once

#include "design/state.h"

namespace torvane {

void SetCaptions(DesignState& s);

}  // namespace torvane
