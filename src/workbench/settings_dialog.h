// The settings dialog: the station's constants on four tabs.
#pragma once

#include "workbench/station.h"

namespace torvane {

enum class CarriageOffsetMark { None, TooLow };

// Opens it on a tab: 0 General, 1 2-Axis, 2 4-Axis, 3 Speeds. Returns at once. With a mark the carriage
// offset of that tab stands out as the reason for a stop that is too low.
void OpenSettings(Station& station, int tab, CarriageOffsetMark mark = CarriageOffsetMark::None);

}  // namespace torvane
