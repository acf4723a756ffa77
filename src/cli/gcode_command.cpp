#include <cstdio>
#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

#include "cli/commands.h"
#include "cli/designs.h"
#include "host/files/paths.h"
#include "text/code_page.h"
#include "workbench/document/design_commands.h"

namespace torvane {

namespace {

bool PrintProgram(Station& station) {
  Program program(station.s.signs);
  const Formed formed = FormProgram(station.s, station.platform, program);
  if (!formed) return false;
  if (formed.angleUndefined) TellOfUndefinedAngle(station);
  if (!program.refusal().empty()) {
    Complain(ToUtf8(program.refusal()));
    return false;
  }
#ifdef _WIN32
  _setmode(_fileno(stdout), _O_BINARY);
#endif
  for (const std::string_view block : program.Text()) std::fwrite(block.data(), 1, block.size(), stdout);
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return true;
  Complain("standard output could not be written");
  return false;
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
