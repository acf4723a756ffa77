#include <cstdio>

#include "cli/commands.h"
#include "cli/designs.h"
#include "host/code_page.h"
#include "host/paths.h"
#include "persist/two_axis_file.h"

namespace torvane {

int RunConvert(Computer& computer, const std::string& design, const std::string& out) {
  const std::string ending = EndingOf(out);
  if (ending != "t2d" && ending != "tvd")
    throw UsageError{out + ": a two-axis design is saved under a name that ends in .t2d"};
  computer.MakeStationFolders();
  OpenedDesign opened(computer, design);
  if (!opened) return kFailed;
  const Result<std::string> path = AbsoluteStationPath(out);
  if (!path) throw UsageError{out + ": " + path.reason()};
  std::string name = path.value();
  Station& station = opened.station();
  const Outcome saved = SaveTorvaneMakeFileVer20(station.s, station.platform, name);
  if (!saved) {
    Complain(out + ": " + saved.reason());
    return kFailed;
  }
  const Result<std::string> written = HostPath(name);
  std::printf("%s\n", written ? written.value().c_str() : ToUtf8(name).c_str());
  return kDone;
}

}  // namespace torvane
