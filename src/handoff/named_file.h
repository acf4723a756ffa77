// Files that were named outside the station's own dialogs.
#pragma once

#include <string>

#include "workbench/station/station.h"

namespace torvane {

// Opens a file that was named on the command line, dropped on a window, or handed over by another start. A
// design opens as OpenNamedDesign does it. A program of winding goes to `dryRun`, the dry run's program as a
// station path: never to the machine's own executor, which may stand in the station's folder. A file that is
// not there or cannot be read is told, and the design stays.
void OpenNamedFile(Station& station, const std::string& path, const std::string& dryRun);

}  // namespace torvane
