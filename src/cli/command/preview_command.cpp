#include "calc/patterns.h"
#include "calc/polar_walk.h"
#include "cli/command/commands.h"
#include "cli/computer/designs.h"
#include "host/files/paths.h"
#include "text/code_page.h"
#include "workbench/dialog/picture_file.h"
#include "workbench/dialog/polar_svg.h"
#include "workbench/dialog/preview.h"

namespace torvane {

int RunPreview(Computer& computer, const std::string& design, int row, const std::string& out) {
  OpenedDesign opened(computer, design);
  if (!opened) return kFailed;
  Station& station = opened.station();
  DesignState& s = station.s;
  if (!s.gShow4Axis) throw UsageError{design + ": only four-axis designs have a picture"};
  if (row < 1 || row > RowsOf(s.txtNumberOfLayers(1)))
    throw UsageError{design + ": there is no row " + std::to_string(row)};
  NoteEndView(station, row, s.cmbPattern(row).text());
  const auto pattern = PolarPatternOf(s, SplitPatternFields(s, station.endView.pattern));
  if (!pattern) {
    Complain(design + ": row " + std::to_string(row) + " has no pattern to draw");
    return kFailed;
  }
  DrawPolarCircPattern(station, row);
  const Result<std::string> path = AbsoluteStationPath(out);
  if (!path) throw UsageError{Because(out, path.reason())};
  const std::string title = PictureTitle(s, std::to_string(row), station.endView.pattern);
  const std::string svg = SvgOf(station.endView.picture, ToUtf8(title));
  const Outcome written = station.platform.files.WriteWhole(path.value(), {svg});
  if (written) return kDone;
  Complain(Because(out, written.reason()));
  return kFailed;
}

}  // namespace torvane
