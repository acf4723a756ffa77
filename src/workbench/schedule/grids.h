// The layer schedules of both families.
#pragma once

#include "workbench/station/station.h"

namespace torvane {

// A click beside the grids: no row of either stands out any more, and the motors are those that the store
// tells by now.
void ClickBesideGrids(Station& station);

// A press of a four-axis row's button: selects it and shows its preview, if it has one.
void ShowPreviewOfRow(Station& station, int row);

std::span<const Operation> TwoAxisGridOperations();
std::span<const Operation> FourAxisGridOperations();
std::span<const Operation> FourAxisRowOperations();
std::span<const Operation> EstimateOperations();

}  // namespace torvane
