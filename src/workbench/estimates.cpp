// The design's totals follow the figures of its rows.
#include "calc/totals.h"
#include "calc/two_axis.h"
#include "workbench/station.h"

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

constexpr Operation kOperations[] = {
    {"lblPassesToCover", Event::Change, lblPassesToCover_Change},
    {"lblMinutesToCover", Event::Change, lblMinutesToCover_Change},
    {"lblLengthToCover", Event::Change, lblLengthToCover_Change},
};

}  // namespace

std::span<const Operation> EstimateOperations() { return kOperations; }

}  // namespace torvane
