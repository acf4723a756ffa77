// The settings dialog.
#pragma once

#include "workbench/station.h"

namespace torvane {

// Opens it on a tab: 0 General, 1 2-Axis, 2 4-Axis, 3 Speeds. Returns at once.
void OpenSettings(Station& station, int tab);

}  // namespace torvane
