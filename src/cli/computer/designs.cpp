#include "cli/computer/designs.h"

#include <chrono>

#include "design/catalogue.h"
#include "design/reset.h"
#include "handoff/launch.h"
#include "host/files/paths.h"
#include "persist/settings.h"
#include "text/code_page.h"
#include "text/text.h"
#include "workbench/document/design_commands.h"
#include "workbench/document/startup.h"
#include "workbench/schedule/grids.h"

namespace torvane {

namespace {

void SetFields(Station& station, const std::vector<Assignment>& fields) {
  for (const Assignment& assignment : fields) {
    Field* field = FindField(station.s, assignment.name);
    if (field == nullptr) throw UsageError{"there is no field " + ToUtf8(assignment.name)};
    *field = assignment.text;
  }
}

}  // namespace

std::string EndingOf(const std::string& path) {
  return LowerCase(path.size() < 3 ? path : path.substr(path.size() - 3));
}

bool IsTwoAxisEnding(const std::string& ending) { return ending == "t2d" || ending == "tvd"; }

OpenedDesign::OpenedDesign(Computer& computer, const std::string& design)
    : settings_(computer.RunSettings()) {
  const std::string ending = EndingOf(design);
  if (!IsTwoAxisEnding(ending) && ending != "t4d") {
    Complain(design + ": not a design, its name ends in neither .t2d nor .t4d");
    return;
  }
  const Result<std::string> path = AbsoluteStationPath(design);
  if (!path) {
    Complain(Because(design, path.reason()));
    return;
  }
  const Platform platform = computer.AsPlatform(settings_);
  if (!platform.files.Exists(path.value())) {
    Complain(design + ": there is no such file");
    return;
  }
  // The station does not begin with the design that was open last.
  SaveSetting(settings_, kSettings, "gLastFileInUse", "");
  SaveSetting(settings_, kSettings, "mnu2Axis", IsTwoAxisEnding(ending) ? "1" : "0");
  constexpr auto kPastStartGuard = std::chrono::seconds(6);
  auto station = std::make_unique<WholeStation>(platform);
  computer.stage.clock.Advance(-kPastStartGuard);
  Form_Load(*station);
  ShowAxisDisplay(station->s, !IsTwoAxisEnding(ending));
  computer.stage.clock.Advance(kPastStartGuard);
  ClickBesideGrids(*station);
  if (OpenDesign(*station, path.value()) != Opened::Whole) {
    Complain(design + ": not read");
    return;
  }
  SetFields(*station, computer.fields());
  station_ = std::move(station);
}

}  // namespace torvane
