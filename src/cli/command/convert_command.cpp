#include <cstdio>

#include "cli/command/commands.h"
#include "cli/computer/designs.h"
#include "host/files/paths.h"
#include "text/code_page.h"
#include "workbench/document/design_commands.h"

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
  const Result<std::string> saved = WriteDesign(opened.station(), name);
  if (!saved) {
    Complain(Because(out, saved.reason()));
    return kFailed;
  }
  const Result<std::string> written = HostPath(name);
  std::printf("%s\n", written ? written.value().c_str() : ToUtf8(name).c_str());
  return kDone;
}

}  // namespace torvane
