// Starting the executor, for builds and for traces.
#pragma once

#include <string>
#include <string_view>

#include "workbench/station.h"

namespace torvane {

std::span<const Operation> TraceOperations();

// A double click in such a field drives the machine to the place that it holds.
bool DrivesMachine(const Field& field);

// Starts the executor with an argument in the station's folder; an empty one starts it without a program.
bool StartExecutor(Station& station, const std::string& argument);

// False, with the settings dialog open, until the operator has confirmed the carriage offset: the wording of
// manual operation and of the trace.
bool OffsetIsConfirmedForManual(Station& station);

}  // namespace torvane
