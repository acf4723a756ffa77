// Where a station keeps its designs and its programs of winding, and how that folder comes to be.
#pragma once

#include <string>
#include <string_view>

#include "platform/result.h"

namespace torvane {

// The station's folder: `asked` if somebody did, else the folder of the running program. A program of a
// system-wide installation, which has its samples in ../share/torvane/samples, serves many users, each of
// whom has a folder Torvane of his own at home; refused where the user has no home. All are paths of the
// computer.
Result<std::string> StationFolder(std::string_view asked, std::string_view programFolder);

// The folder of the sample designs that came with the program: ../share/torvane/samples of a system-wide
// installation, else `samples` beside the program; empty where there is neither.
std::string SampleFolder(std::string_view programFolder);

// The folder of the operator's guide and its pictures, likewise: ../share/torvane/guide, or `docs` beside the
// program; empty where there is neither.
std::string GuideFolder(std::string_view programFolder);

// The same of the files that describe machines: ../share/torvane/machines, else `machines` beside the
// program.
std::string MachineFolder(std::string_view programFolder);

// Makes the folder hold what a station looks for: links to the programs of the installation, the folders of
// designs and of G-code files, and the samples as long as there is no design. What the user has put there
// stays, an executor of his own too. Nothing where the program is not installed. Two may do it at once.
Outcome PrepareStationFolder(std::string_view folder, std::string_view programFolder);

}  // namespace torvane
