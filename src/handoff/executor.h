// Starting the executor, for builds and for traces.
#pragma once

#include <string>
#include <string_view>

#include "workbench/station.h"

namespace torvane {

std::span<const Operation> TraceOperations();

// Starts the executor with an argument in the station's folder; an empty one starts it without a program.
bool StartExecutor(Station& station, const std::string& argument);

// False, with the settings dialog open, until the operator has confirmed the carriage offset: the wording of
// manual operation and of the trace.
bool OffsetIsConfirmedForManual(Station& station);

}  // namespace torvane
