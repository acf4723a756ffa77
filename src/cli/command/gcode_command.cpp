#include <cstdio>
#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

#include "cli/command/commands.h"
#include "cli/computer/designs.h"
#include "host/files/paths.h"
#include "text/code_page.h"
#include "workbench/document/design_commands.h"

namespace torvane {

namespace {

// Printed as it is formed; what its passes tell to be too long is refused before the first block.
bool PrintProgram(Station& station) {
#ifdef _WIN32
  _setmode(_fileno(stdout), _O_BINARY);
#endif
  Program program(station.s.signs, nullptr, {}, [](std::string_view block) {
    return std::fwrite(block.data(), 1, block.size(), stdout) == block.size();
  });
  const Formed formed = FormProgram(station.s, station.platform, program);
  if (!formed) return false;
  if (formed.angleUndefined) TellOfUndefinedAngle(station);
  const bool whole = program.End();
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    Complain("standard output could not be written");
    return false;
  }
  if (!whole) Complain(ToUtf8(program.refusal()));
  return whole;
}

bool WriteProgramFile(Station& station) {
  if (WriteProgram(station) != Written::Whole) return false;
  const Result<std::string> path = HostPath(station.s.gGCodeFilePath.text());
  std::printf("%s\n", path ? path.value().c_str() : ToUtf8(station.s.gGCodeFilePath.text()).c_str());
  return true;
}

}  // namespace

int RunGCode(Computer& computer, const std::vector<std::string>& designs, bool toStandardOutput) {
  computer.MakeStationFolders();
  int status = kDone;
  for (const std::string& design : designs) {
    OpenedDesign opened(computer, design);
    if (!opened || !(toStandardOutput ? PrintProgram(opened.station()) : WriteProgramFile(opened.station())))
      status = kFailed;
  }
  return status;
}

}  // namespace torvane
