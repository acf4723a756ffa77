// The start of the program, up to the first look at a design, and its end.
#pragma once

#include "workbench/station/station.h"

namespace torvane {

// Starts the program: fills the lists, reads the store, reopens the last design.
void Form_Load(Station& station);
// Ends it: asks about unsaved changes, writes the store.
void Form_Unload(Station& station);

}  // namespace torvane
