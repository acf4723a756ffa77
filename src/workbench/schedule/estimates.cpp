// The design's totals follow the figures of its rows.
#include "calc/layer_figures.h"
#include "calc/totals.h"
#include "calc/two_axis.h"
#include "design/masks.h"
#include "workbench/schedule/grids.h"
#include "workbench/station/station.h"

namespace torvane {

namespace {

void lblPassesToCover_Change(Station& station, int) {
  if (station.s.gGridSync) SyncGridToLayerTable(station.s);
}

void lblMinutesToCover_Change(Station& station, int) {
  DesignState& s = station.s;
  if (!s.gGridSync) return;
  s.lblBuildTime(0).CopyFrom(s.lblMinutesToCover(IndexSet::kAllRows));
  EstimateTwoAxisBuildTime(s);
}

void lblLengthToCover_Change(Station& station, int) {
  station.s.lblLengthRequired(0).CopyFrom(station.s.lblLengthToCover(IndexSet::kAllRows));
}

// A four-axis row's figure: the sum of the rows in use. A sum that a schedule of winding angles has written
// itself stands.
void SumFourAxisRows(DesignState& s, FieldArray& column, int row, Mask mask) {
  if (row == IndexSet::kAllRows) return;
  column(IndexSet::kAllRows) = SumOfRows(column, RowsOf(s.txtNumberOfLayers(1))).as(mask);
}

void lblMinutes_Change(Station& station, int row) {
  SumFourAxisRows(station.s, station.s.lblMinutes, row, mask::kFigureOfAll);
  EstimateFourAxisBuildTime(station.s);
}

void lblLength_Change(Station& station, int row) {
  SumFourAxisRows(station.s, station.s.lblLength, row, mask::kFigureOfAll);
}

void lblNPasses_Change(Station& station, int row) {
  SumFourAxisRows(station.s, station.s.lblNPasses, row, mask::kPassesOfAll);
}

constexpr Operation kOperations[] = {
    {"lblPassesToCover", Event::Change, lblPassesToCover_Change},
    {"lblMinutesToCover", Event::Change, lblMinutesToCover_Change},
    {"lblLengthToCover", Event::Change, lblLengthToCover_Change},
    {"lblMinutes", Event::Change, lblMinutes_Change},
    {"lblLength", Event::Change, lblLength_Change},
    {"lblNPasses", Event::Change, lblNPasses_Change},
};

}  // namespace

std::span<const Operation> EstimateOperations() { return kOperations; }

}  // namespace torvane
