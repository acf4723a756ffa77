// The settings dialog: the station's constants on four tabs.
#pragma once

#include "workbench/station/station.h"

namespace torvane {

enum class CarriageOffsetMark { None, TooLow };

// Opens it on a tab: 0 General, 1 2-Axis, 2 4-Axis, 3 Speeds. Returns at once; the other windows wait until
// it is closed. With a mark the carriage offset of that tab stands out as the reason for a stop that is too
// low.
void OpenSettings(Station& station, int tab, CarriageOffsetMark mark = CarriageOffsetMark::None);

// For the offset that has to be measured first: the main window can be worked in meanwhile, unless the dialog
// was open already.
void OpenSettingsBeside(Station& station, int tab);

}  // namespace torvane
