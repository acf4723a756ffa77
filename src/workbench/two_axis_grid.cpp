// The two-axis layer schedule: what each edit of a row sets off.
#include "calc/totals.h"
#include "calc/two_axis.h"
#include "design/reset.h"
#include "design/text.h"
#include "persist/settings.h"
#include "workbench/station.h"

namespace torvane {

namespace {

constexpr double kMostLayers = 15;

void SyncGrid(Station& station) {
  if (station.s.gGridSync) SyncGridToLayerTable(station.s);
}

void Cell_Change(Station& station, int) { SyncGrid(station); }

// The pressed row's offsets beside the drawing.
void ShowLeftOffset(DesignState& s, int row) { s.lblZ2(1) = s.txtLeft(row).through("##0.00"_mask); }
void ShowRightOffset(DesignState& s, int row) {
  s.lblZ2(2) = (number(s.Length_Total) - number(s.txtRight(row))).as("##0.00"_mask);
}

void txtLeft_Change(Station& station, int row) {
  ShowLeftOffset(station.s, row);
  SyncGrid(station);
}

void txtRight_Change(Station& station, int row) {
  ShowRightOffset(station.s, row);
  SyncGrid(station);
}

void List_Change(Station& station, int) {
  station.s.gDirty = true;
  SyncGrid(station);
}

bool BeginsWith(const Field& field, std::string_view capitals) {
  return UpperCase(field.text().substr(0, capitals.size())) == capitals;
}

void cmb2AxisLayerType_Change(Station& station, int row) {
  DesignState& s = station.s;
  s.cmbExactAngle(row).Show(BeginsWith(s.cmb2AxisLayerType(row), "EX"));
  if (BeginsWith(s.cmb2AxisLayerType(row), "HOOP")) s.txtWA(row) = "90";
}

void LimitLayers(DesignState& s, int panel) {
  MarkIfZero(s.txtNumberOfLayers(panel));
  if (holds(number(s.txtNumberOfLayers(panel)) > kMostLayers)) s.txtNumberOfLayers(panel) = "15";
  s.gDirty = true;
}

void ShowTwoAxisRows(DesignState& s) {
  const int rows = RowsOf(s.txtNumberOfLayers(0));
  for (FieldArray* column :
       {&s.txtWA, &s.cmbSpeed, &s.cmbMethod, &s.txtMRPM, &s.txtCarriageSpeed, &s.lblPassesToCover,
        &s.txtAddRevs, &s.cmb2AxisLayerType, &s.lblMinutesToCover, &s.lblLengthToCover})
    for (int row = 1; row <= 18; ++row) (*column)(row).Show(row <= rows && row <= kMostLayers);
  for (FieldArray* list : {&s.cmbSpeed, &s.cmbMethod}) {
    (*list)(IndexSet::kAllRows) = "";
    (*list)(IndexSet::kAllRows).Show(false);
  }
}

void txtNumberOfLayers_Change(Station& station, int panel) {
  DesignState& s = station.s;
  LimitLayers(s, panel);
  if (panel == 0) ShowTwoAxisRows(s);
  EstimateThickness(s, panel);
  if (panel == 0 && station.StartGuardPassed()) RecalculateTwoAxisLayers(s, -1);
}

void Form_Click(Station& station, int) {
  station.s.gIsNEMA34 = ReadsAsTrue(GetSetting(station.platform.store, kSettings, "gIsNEMA34", "False"));
}

constexpr Operation kOperations[] = {
    {"Form", Event::Click, Form_Click},
    {"txtWA", Event::Change, Cell_Change},
    {"txtLeft", Event::Change, txtLeft_Change},
    {"txtRight", Event::Change, txtRight_Change},
    {"txtAddRevs", Event::Change, Cell_Change},
    {"txtMRPM", Event::Change, Cell_Change},
    {"txtCarriageSpeed", Event::Change, Cell_Change},
    {"cmbSpeed", Event::Change, List_Change},
    {"cmbMethod", Event::Change, List_Change},
    {"cmb2AxisLayerType", Event::Change, cmb2AxisLayerType_Change},
    {"txtNumberOfLayers", Event::Change, txtNumberOfLayers_Change},
};

}  // namespace

std::span<const Operation> TwoAxisGridOperations() { return kOperations; }

}  // namespace torvane
