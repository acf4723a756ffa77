#include "window/grid/layer_columns.h"

namespace torvane {

namespace {

constexpr LayerColumn kTwoAxes[] = {
    {nullptr, nullptr, CellKind::Row, 46, 64, 1},
    {nullptr, &Fields::cmb2AxisLayerType, CellKind::List, 98, 124, 1},
    {nullptr, &Fields::txtWA, CellKind::Angle, 94, 150, 1},
    {nullptr, &Fields::cmbSpeed, CellKind::List, 78, 0, 0},
    {nullptr, &Fields::cmbMethod, CellKind::List, 74, 90, 3},
    {nullptr, &Fields::txtAddRevs, CellKind::Text, 78, 0, 0},
    {nullptr, &Fields::txtMRPM, CellKind::Text, 86, 116, 2},
    {&Fields::lblCarriageSpeedHeading, &Fields::txtCarriageSpeed, CellKind::Figure, 102, 126, 4},
    {nullptr, &Fields::lblPassesToCover, CellKind::Figure, 72, 92, 3},
    {nullptr, &Fields::lblMinutesToCover, CellKind::Minutes, 80, 110, 1},
    {&Fields::lblLengthHeading, &Fields::lblLengthToCover, CellKind::Figure, 78, 0, 0},
    {nullptr, nullptr, CellKind::Proof, 46, 0, 0},
};

constexpr LayerColumn kFourAxes[] = {
    {nullptr, nullptr, CellKind::Row, 52, 84, 1},
    {nullptr, &Fields::cmb3D, CellKind::List, 86, 124, 2},
    {&Fields::lblPatternHeading, &Fields::cmbPattern, CellKind::List, 192, 296, 1},
    {nullptr, &Fields::cmbPhiW, CellKind::List, 76, 0, 0},
    {nullptr, &Fields::cmbPhiSplit, CellKind::List, 68, 0, 0},
    {nullptr, &Fields::chkPause, CellKind::Check, 62, 92, 2},
    {nullptr, &Fields::lblRPM, CellKind::Figure, 66, 100, 2},
    {&Fields::lblCarriageSpeedHeading4Ax, &Fields::lblcSpeed, CellKind::Figure, 98, 126, 4},
    {nullptr, &Fields::lblNPasses, CellKind::Figure, 66, 92, 3},
    {nullptr, &Fields::lblMinutes, CellKind::Minutes, 72, 110, 1},
    {&Fields::lblLengthHeading4Ax, &Fields::lblLength, CellKind::Figure, 72, 0, 0},
    {nullptr, nullptr, CellKind::Proof, 46, 0, 0},
};

}  // namespace

std::span<const LayerColumn> LayerColumns(Family family) {
  if (family == Family::FourAxes) return kFourAxes;
  return kTwoAxes;
}

}  // namespace torvane
