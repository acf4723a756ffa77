// Paths of the station (8-bit texts with backslashes) against paths of the computer (UTF-8; with slashes
// where the computer has slashes: /srv/winder/torvane is \srv\winder\torvane to the station).
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/result.h"

namespace torvane {

// Refuses a path that holds a NUL.
Result<std::string> HostPath(std::string_view stationPath);

// Refuses a path that the station's text cannot say: NUL, a character outside its code page, or a name with
// a backslash in it where that is no separator.
Result<std::string> StationPath(std::string_view hostPath);

// The full path of one that may be relative to the process's working folder, as on a command line.
Result<std::string> AbsolutePath(std::string_view hostPath);

// StationPath of it.
Result<std::string> AbsoluteStationPath(std::string_view hostPath);

// The folder of the running program's file, as a path of the computer.
Result<std::string> RunningProgramFolder();

// The folder of the user who runs the program, as a path of the computer; empty where there is none.
std::string UserFolder();

// For the standard library's file routines, and back.
std::filesystem::path SystemPath(std::string_view hostPath);
std::string HostText(const std::filesystem::path& path);

}  // namespace torvane
