// Starting the executor, for builds and for traces.
#pragma once

#include <span>
#include <string_view>

#include "workbench/station/station.h"

namespace torvane {

// The operations that send the machine to points of the design, and that jog the design's own points.
std::span<const Operation> TraceOperations();

// A double click in such a field drives the machine to the place that it holds.
bool DrivesMachine(const Field& field);

// Starts the executor with an argument in the station's folder; an empty one starts it without a program.
Outcome StartExecutor(Station& station, std::string_view argument);

// False, with the settings dialog open, until the operator has confirmed the carriage offset: the wording of
// manual operation and of the trace.
bool OffsetIsConfirmedForManual(Station& station);

}  // namespace torvane
