#include "workbench/build/build_outlook.h"

#include <algorithm>

#include "gcode/session.h"
#include "persist/settings.h"
#include "workbench/build/marks.h"
#include "workbench/station/layer_count.h"

namespace torvane {

namespace {

// "2 warnings, look first"; empty of none.
std::string ToLookAt(std::size_t count, std::string_view what) {
  if (count == 0) return {};
  return std::to_string(count) + " " + std::string(what) + (count == 1 ? "" : "s") + ", look first";
}

}  // namespace

BuildOutlook OutlookOf(const Station& station) {
  const DesignState& s = station.s;
  if (LayerRows(s) == 0 || s.gFileName.empty())
    return {false, false, "once the design has layers and a name"};
  std::string sentence = ToLookAt(MarkedFields(s).size(), "marked value");
  if (sentence.empty()) sentence = ToLookAt(WarningsBesideMarks(station).size(), "warning");
  if (!sentence.empty()) return {true, false, sentence};
  return {true, true, "writes and runs " + ProgramName(s)};
}

std::vector<BuildWarning> WarningsBesideMarks(const Station& station) {
  std::vector<BuildWarning> warnings = BuildWarnings(station);
  const std::vector<const Field*> marked = MarkedFields(station.s);
  std::erase_if(warnings, [&marked](const BuildWarning& w) {
    return std::find(marked.begin(), marked.end(), w.field) != marked.end();
  });
  if (LayerRows(station.s) > 0 && !IsCarriageOffsetConfirmed(station.platform.store))
    warnings.push_back({&station.s.gCarriageOffsetFromRMPFace, "The carriage offset is not measured",
                        "Build asks for it first. It stands in the settings.", Concern::OffsetNotMeasured});
  return warnings;
}

}  // namespace torvane
