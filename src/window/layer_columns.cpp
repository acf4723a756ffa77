#include "window/layer_columns.h"

#include <algorithm>

#include "workbench/layer_count.h"

namespace torvane {

namespace {

constexpr LayerColumn kTwoAxes[] = {
    {"#", "", nullptr, nullptr, CellKind::Row, 46},
    {"Layer Type", "", nullptr, &Fields::cmb2AxisLayerType, CellKind::List, 90},
    {"Winding Angle", "(deg)", nullptr, &Fields::txtWA, CellKind::Angle, 104},
    {"Speed", "", nullptr, &Fields::cmbSpeed, CellKind::List, 84},
    {"Method", "", nullptr, &Fields::cmbMethod, CellKind::List, 78},
    {"Add'l Wrap", "(deg)", nullptr, &Fields::txtAddRevs, CellKind::Text, 84},
    {"Mandrel", "(RPM)", nullptr, &Fields::txtMRPM, CellKind::Text, 88},
    {"Carriage Speed", "", &Fields::lblSpeedUnits, &Fields::txtCarriageSpeed, CellKind::Figure, 102},
    {"Passes", "", nullptr, &Fields::lblPassesToCover, CellKind::Figure, 72},
    {"Minutes", "", nullptr, &Fields::lblMinutesToCover, CellKind::Minutes, 80},
    {"Length", "", &Fields::lblLengthUnits, &Fields::lblLengthToCover, CellKind::Figure, 100},
};

constexpr LayerColumn kFourAxes[] = {
    {"#", "", nullptr, nullptr, CellKind::Row, 52},
    {"Layer Type", "", nullptr, &Fields::cmb3D, CellKind::List, 86},
    {"", "", &Fields::lblPatternHeading, &Fields::cmbPattern, CellKind::List, 208},
    {"End Wrap", "", nullptr, &Fields::cmbPhiW, CellKind::List, 76},
    {"Split", "", nullptr, &Fields::cmbPhiSplit, CellKind::List, 68},
    {"Pause", "", nullptr, &Fields::chkPause, CellKind::Check, 62},
    {"RPM", "", nullptr, &Fields::lblRPM, CellKind::Figure, 66},
    {"Carriage Speed", "", &Fields::lblSpeedUnits, &Fields::lblcSpeed, CellKind::Figure, 98},
    {"Passes", "", nullptr, &Fields::lblNPasses, CellKind::Figure, 64},
    {"Minutes", "", nullptr, &Fields::lblMinutes, CellKind::Minutes, 72},
    {"Length", "", &Fields::lblLengthUnits, &Fields::lblLength, CellKind::Figure, 78},
};

}  // namespace

std::span<const LayerColumn> LayerColumns(bool fourAxis) {
  if (fourAxis) return kFourAxes;
  return kTwoAxes;
}

int LayerRows(const DesignState& s) {
  return std::clamp(RowsOf(s.txtNumberOfLayers(s.Panel())), 0, kMostLayers);
}

}  // namespace torvane
