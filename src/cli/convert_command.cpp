#include <cstdio>

#include "cli/commands.h"
#include "cli/designs.h"
#include "host/files/paths.h"
#include "persist/four_axis_file.h"
#include "persist/two_axis_file.h"
#include "text/code_page.h"

namespace torvane {

int RunConvert(Computer& computer, const std::string& design, const std::string& out) {
  const bool twoAxis = IsTwoAxisEnding(EndingOf(design));
  if (twoAxis != IsTwoAxisEnding(EndingOf(out)) || (!twoAxis && EndingOf(out) != "t4d"))
    throw UsageError{out + ": a design is saved under a name of its own family, ." +
                     (twoAxis ? "t2d" : "t4d")};
  computer.MakeStationFolders();
  OpenedDesign opened(computer, design);
  if (!opened) return kFailed;
  const Result<std::string> path = AbsoluteStationPath(out);
  if (!path) throw UsageError{Because(out, path.reason())};
  std::string name = path.value();
  Station& station = opened.station();
  const Result<std::string> saved = twoAxis ? SaveTorvaneMakeFileVer20(station.s, station.platform, name)
                                            : SaveTorvaneMakeFileVer40(station.s, station.platform, name);
  if (!saved) {
    Complain(Because(out, saved.reason()));
    return kFailed;
  }
  const Result<std::string> written = HostPath(name);
  std::printf("%s\n", written ? written.value().c_str() : ToUtf8(name).c_str());
  return kDone;
}

}  // namespace torvane
