// The two-axis layer schedule: what each edit of a row sets off, and the row menu.
#include "calc/totals.h"
#include "calc/two_axis.h"
#include "design/masks.h"
#include "design/reset.h"
#include "persist/settings.h"
#include "text/text.h"
#include "workbench/dialog/settings_dialog.h"
#include "workbench/schedule/grids.h"
#include "workbench/schedule/row_menu.h"
#include "workbench/station/all_rows.h"
#include "workbench/station/layer_count.h"
#include "workbench/station/messages.h"
#include "workbench/station/station.h"

namespace torvane {

namespace {

constexpr int kAllRows = IndexSet::kAllRows;

void SyncGrid(Station& station) {
  if (station.s.gGridSync) SyncGridToLayerTable(station.s);
}

void Cell_Change(Station& station, int) { SyncGrid(station); }

// The pressed row's offsets beside the drawing.
void ShowLeftOffset(DesignState& s, int row) {
  if (s.txtLeft(row).exists()) s.lblZ2(1) = s.txtLeft(row).through(mask::kStop);
}
void ShowRightOffset(DesignState& s, int row) {
  s.lblZ2(2) = (number(s.Length_Total) - number(s.txtRight(row))).as(mask::kStop);
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

// What stands in the all-rows row goes into every row of the schedule.
void SpreadToAllRows(DesignState& s, FieldArray& column, Mask mask) {
  const int rows = RowsOf(s.txtNumberOfLayers(0));
  for (int row = 1; row <= rows; ++row) column(row) = column(kAllRows).through(mask);
}

void RecalculateRow(Station& station, int row) {
  if (station.s.gAutoUpdateCells) RecalculateTwoAxisLayers(station.s, row);
}

template <FieldArray Fields::*column>
void Cell_Key(Station& station, int row, Mask mask) {
  station.s.gDirty = true;
  if (row == kAllRows) SpreadToAllRows(station.s, station.s.*column, mask);
  RecalculateRow(station, row);
}

void txtWA_Key(Station& station, int row) {
  DesignState& s = station.s;
  s.gDirty = true;
  if (holds(number(s.txtWA(row)) > 80)) ShowMessageDialog(station, messages::kSteepAngle);
  Cell_Key<&Fields::txtWA>(station, row, mask::kCell);
}

// A typed mandrel speed stands: until the key is up the grid does not follow, or the speed that the angle
// asks for would overwrite what is being typed.
void txtMRPM_Typing(Station& station, int) { station.s.gGridSync = false; }

void txtMRPM_Key(Station& station, int row) {
  DesignState& s = station.s;
  s.gDirty = true;
  s.gGridSync = false;
  if (row == kAllRows) SpreadToAllRows(s, s.txtMRPM, mask::kCell);
  RecalculateTwoAxisLayers(s, kSpeedsByMandrelSpeed);
  s.gGridSync = true;
  if (row == kAllRows && holds(number(s.txtMRPM(row)) > s.mMaxRPM) && station.StartGuardPassed())
    ShowMessageDialog(station, messages::kMandrelBeyondMaximum,
                      FormatNumberText(s.signs, s.mMaxRPM, mask::kMandrelSpeed));
}

void List_Click(Station& station, FieldArray& column, int row) {
  DesignState& s = station.s;
  s.gDirty = true;
  SyncGrid(station);
  if (!s.gAutoUpdateCells) return;
  if (row != kAllRows) {
    RecalculateTwoAxisLayers(s, row);
    return;
  }
  if (!column(row).empty()) {
    const int rows = RowsOf(s.txtNumberOfLayers(0));
    for (int r = 1; r <= rows; ++r) column(r).CopyFrom(column(row));
  }
  RecalculateTwoAxisLayers(s, kSpeedsByAngle);
}

void cmbSpeed_Click(Station& station, int row) {
  List_Click(station, station.s.cmbSpeed, row);
  if (row == kAllRows && station.s.gAutoUpdateCells) station.s.txtMRPM(kAllRows) = "";
}

void cmbMethod_Click(Station& station, int row) { List_Click(station, station.s.cmbMethod, row); }

bool BeginsWith(const Field& field, std::string_view capitals) {
  return UpperCase(field.text().substr(0, capitals.size())) == capitals;
}

void SetHoopAngle(DesignState& s, int row) {
  if (BeginsWith(s.cmb2AxisLayerType(row), "HOOP")) s.txtWA(row) = "90";
}

void cmb2AxisLayerType_Change(Station& station, int row) {
  DesignState& s = station.s;
  s.cmbExactAngle(row).Show(BeginsWith(s.cmb2AxisLayerType(row), "EX"));
  SetHoopAngle(s, row);
}

void cmb2AxisLayerType_Click(Station& station, int row) {
  DesignState& s = station.s;
  s.gDirty = true;
  s.cmbExactAngle(row).Show(s.cmb2AxisLayerType(row).text().find("No Dwell") != std::string::npos);
  SetHoopAngle(s, row);
}

void txtWA_Click(Station& station, int) {
  DesignState& s = station.s;
  if (!holds(LayersOf(s.txtNumberOfLayers(0)) == 0)) return;
  station.platform.messageBox.Show("Zero Layers Specified", "Please Specify Number of Layers",
                                   BoxIcon::Information);
  s.focus = &s.txtNumberOfLayers(0);
  s.lblNumberOfLayers(0).SetBold(true);
}

void txtCarriageSpeed_Click(Station& station, int row) {
  DesignState& s = station.s;
  station.platform.messageBox.Show("Carriage Speed",
                                   "Carriage Speed is set by Winding Angle, Mandrel Diameter,\r\n"
                                   "and Mandrel RPM. Click OK to set Slow, Med, and Fast Speeds.",
                                   BoxIcon::Information);
  if (s.txtWA(row).exists()) s.focus = &s.txtWA(row);
  OpenSettings(station, 3);
}

void LimitLayers(DesignState& s, int panel) {
  MarkIfZero(s.txtNumberOfLayers(panel));
  if (holds(number(s.txtNumberOfLayers(panel)) > kMostLayers))
    s.txtNumberOfLayers(panel) = Number(kMostLayers).plain();
  s.gDirty = true;
}

void ShowTwoAxisRows(DesignState& s) {
  const Number rows = LayersOf(s.txtNumberOfLayers(0));
  for (int row = 1; row <= kFieldRows; ++row)
    if (rows.good()) ShowTwoAxisRow(s, row, holds(row <= rows) && row <= kMostLayers);
  for (FieldArray* list : {&s.cmbSpeed, &s.cmbMethod}) {
    (*list)(kAllRows) = "";
    (*list)(kAllRows).Show(false);
  }
}

void txtNumberOfLayers_Change(Station& station, int panel) {
  DesignState& s = station.s;
  LimitLayers(s, panel);
  if (panel == 1) return ChangeFourAxisCount(station);
  ShowTwoAxisRows(s);
  KeepAllRows(station);
  EstimateThickness(s, panel);
  if (station.StartGuardPassed()) RecalculateTwoAxisLayers(s, kSpeedsByAngle);
}

// A click or a key in either count takes the yellow off both.
void ClearCountMarks(Station& station, int) {
  for (int panel = 0; panel <= 1; ++panel) station.s.txtNumberOfLayers(panel).SetMark(Mark::Plain);
}

void txtNumberOfLayers_Key(Station& station, int) { station.s.lblNumberOfLayers(0).SetBold(false); }

void DropEmphasis(DesignState& s, int butRow = 0) {
  for (int row = 1; row <= kLongRows; ++row)
    if (row != butRow) s.lblL(row).SetBold(false);
}

void Row_Press(Station& station, int row) {
  DesignState& s = station.s;
  s.gCurrentRow = row;
  DropEmphasis(s, row);
  s.lblL(row).SetBold(true);
  ShowLeftOffset(s, row);
  ShowRightOffset(s, row);
}

void Row_ReleaseRight(Station& station, int) {
  station.s.mnuPopMenu.Show(true);
  DropEmphasis(station.s);
}

void Row_Release(Station&, int) {}

void pic2DGrid_Click(Station& station, int) { DropEmphasis(station.s); }

// The fields of a row that the row menu works on, in its order.
constexpr FieldArray Fields::*kRowFields[] = {&Fields::txtWA,           &Fields::txtLeft,   &Fields::txtRight,
                                              &Fields::cmbSpeed,        &Fields::cmbMethod, &Fields::txtMRPM,
                                              &Fields::txtCarriageSpeed};

void CopyRow(DesignState& s, int from, int to) {
  for (const auto field : kRowFields) (s.*field)(to).CopyFrom((s.*field)(from));
}

void mnuCopy_Click(Station& station, int) { station.s.gCopyRowSource = station.s.gCurrentRow; }

void mnuPaste_Click(Station& station, int) {
  DesignState& s = station.s;
  s.gDirty = true;
  CopyRow(s, s.gCopyRowSource, s.gCurrentRow);
}

void mnuClearRow_Click(Station& station, int) {
  DesignState& s = station.s;
  for (const auto field : kRowFields) (s.*field)(s.gCurrentRow) = "";
}

void mnuDeleteRow_Click(Station& station, int) {
  DesignState& s = station.s;
  s.gDirty = true;
  const int rows = RowsOf(s.txtNumberOfLayers(0));
  for (int row = s.gCurrentRow + 1; row <= rows; ++row) CopyRow(s, row, row - 1);
  s.txtNumberOfLayers(0) = (LayersOf(s.txtNumberOfLayers(0)) - 1).plain();
}

void mnuReCalcSpeeds_Click(Station& station, int) {
  RecalculateTwoAxisLayers(station.s, station.s.gCurrentRow);
}

void mnuRecalcAllRows_Click(Station& station, int) { RecalculateTwoAxisLayers(station.s, kSpeedsByAngle); }

void mnuAllRows_Click(Station& station, int) {
  station.allRowsShown = !station.allRowsShown;
  ShowAllRowsFields(station.s, station.allRowsShown);
}

// The two controls beside the count.
template <int by>
void StepLayers(Station& station, int) {
  Field& count = station.s.txtNumberOfLayers(station.s.Panel());
  const int rows = LayerRows(station.s) + by;
  if (rows >= 0 && rows <= kMostLayers) station.Type(count, std::to_string(rows));
}

constexpr Operation kOperations[] = {
    {"txtWA", Event::Change, Cell_Change},
    {"txtWA", Event::Key, txtWA_Key},
    {"txtWA", Event::Click, txtWA_Click},
    {"txtLeft", Event::Change, txtLeft_Change},
    {"txtLeft", Event::Key,
     [](Station& station, int row) { Cell_Key<&Fields::txtLeft>(station, row, mask::kCell); }},
    {"txtRight", Event::Change, txtRight_Change},
    {"txtRight", Event::Key,
     [](Station& station, int row) { Cell_Key<&Fields::txtRight>(station, row, mask::kCell); }},
    {"txtAddRevs", Event::Change, Cell_Change},
    {"txtAddRevs", Event::Key,
     [](Station& station, int row) { Cell_Key<&Fields::txtAddRevs>(station, row, mask::kAddedTurns); }},
    {"txtMRPM", Event::Typing, txtMRPM_Typing},
    {"txtMRPM", Event::Change, Cell_Change},
    {"txtMRPM", Event::Key, txtMRPM_Key},
    {"txtCarriageSpeed", Event::Change, Cell_Change},
    {"txtCarriageSpeed", Event::Click, txtCarriageSpeed_Click},
    {"cmbSpeed", Event::Change, List_Change},
    {"cmbSpeed", Event::Click, cmbSpeed_Click},
    {"cmbMethod", Event::Change, List_Change},
    {"cmbMethod", Event::Click, cmbMethod_Click},
    {"cmb2AxisLayerType", Event::Change, cmb2AxisLayerType_Change},
    {"cmb2AxisLayerType", Event::Click, cmb2AxisLayerType_Click},
    {"txtNumberOfLayers", Event::Typing, ClearCountMarks},
    {"txtNumberOfLayers", Event::Change, txtNumberOfLayers_Change},
    {"txtNumberOfLayers", Event::Key, txtNumberOfLayers_Key},
    {"txtNumberOfLayers", Event::Click, ClearCountMarks},
    {"btn2XRow", Event::Press, Row_Press},
    {"btn2XRow", Event::PressRight, Row_Press},
    {"btn2XRow", Event::Release, Row_Release},
    {"btn2XRow", Event::ReleaseRight, Row_ReleaseRight},
    {"lblL", Event::Press, Row_Press},
    {"lblL", Event::PressRight, Row_Press},
    {"lblL", Event::Release, Row_Release},
    {"lblL", Event::ReleaseRight, Row_ReleaseRight},
    {"pic2DGrid", Event::Click, pic2DGrid_Click},
    {"Form", Event::Click, [](Station& station, int) { ClickBesideGrids(station); }},
    {"mnuWhatsThis", Event::Click, [](Station&, int) {}, {.letter = 'W'}},
    {"mnuCopy", Event::Click, mnuCopy_Click, {.letter = 'C', .usable = ARowIsPressed}},
    {"mnuPaste", Event::Click, mnuPaste_Click, {.letter = 'P', .usable = ARowIsPressed}},
    {"mnuClearRow", Event::Click, mnuClearRow_Click, {.letter = 'l', .usable = ARowIsPressed}},
    {"mnuDeleteRow", Event::Click, mnuDeleteRow_Click, {.letter = 'D', .usable = ARowIsPressed}},
    {"mnuReCalcSpeeds", Event::Click, mnuReCalcSpeeds_Click, {.letter = 'T', .usable = ARowIsPressed}},
    {"mnuRecalcAllRows", Event::Click, mnuRecalcAllRows_Click, {.letter = 'A'}},
    {"btnReCalc", Event::Click, mnuRecalcAllRows_Click},
    {"mnuAllRows",
     Event::Click,
     mnuAllRows_Click,
     {"All-Rows Row", "A row below the 2-axis schedule whose entries go to every row.", 'A', "",
      [](const Station& station) { return !station.s.gShow4Axis; }}},
    {"btnMoreLayers", Event::Click, StepLayers<1>},
    {"btnFewerLayers", Event::Click, StepLayers<-1>},
};

}  // namespace

void ClickBesideGrids(Station& station) {
  DropEmphasis(station.s);
  for (int row = 1; row <= kLongRows; ++row) station.s.lbl4xLayerNo(row).SetBold(false);
  station.s.gIsNEMA34 = ReadsAsTrue(GetSetting(station.platform.store, kSettings, "gIsNEMA34", "False"));
}

std::span<const Operation> TwoAxisGridOperations() { return kOperations; }

}  // namespace torvane
