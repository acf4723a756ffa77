// The four-axis layer schedule: what each edit of a row, of the part type and of the part sets off.
#include "calc/four_axis.h"
#include "calc/patterns.h"
#include "calc/totals.h"
#include "design/masks.h"
#include "design/reset.h"
#include "design/units.h"
#include "text/text.h"
#include "workbench/dialog/preview.h"
#include "workbench/schedule/grids.h"
#include "workbench/station/layer_count.h"
#include "workbench/station/messages.h"
#include "workbench/station/station.h"

namespace torvane {

namespace {

void MarkIfEmpty(Field& field) { field.SetMark(field.empty() ? Mark::NeedsInput : Mark::Plain); }

// A row that has become a hoop: its lead angle, then its figures.
void CalculateHoopRow(DesignState& s, int row) {
  s.gWindAngle = HoopLeadAngle(s, SteppingBandWidth(s, 1));
  CalculateAndShow(s, s.gWindAngle, "HOOP", row);
}

void optType_Click(Station& station, int index) {
  if (!station.s.optType(index).exists()) return;
  station.s.gDirty = true;
  SelectPartType(station.s, index);
}

void picType_Release(Station& station, int right) { optType_Click(station, right != 0 ? 1 : 0); }

void cmb3D_Click(Station& station, int row) {
  DesignState& s = station.s;
  s.gDirty = true;
  if (IsHoopRow(s, row)) {
    if (!s.optType(2).checked())
      ShowMessageDialog(station, messages::kHoopBehindHelix, s.gVersionNumber.text());
    s.cmbPattern(row).SetEntries({});
    s.cmbPattern(row) = "HOOP";
    CalculateHoopRow(s, row);
  } else if (s.cmb3D(row).text() == "2AX") {
    s.cmbPattern(row).SetEntries({});
    s.cmbPattern(row) = "Input Winding Angle";
  } else {
    PopulatePatternCombo(s, row);
    MarkIfEmpty(s.cmb3D(row));
  }
}

void cmb3D_Change(Station& station, int row) {
  DesignState& s = station.s;
  MarkIfEmpty(s.cmb3D(row));
  if (IsHoopRow(s, row)) {
    s.cmbPattern(row) = "HOOP";
    CalculateHoopRow(s, row);
    return;
  }
  if (holds(BandWidth(s, 1) != 0)) PopulatePatternCombo(s, row);
}

void cmbPattern_Change(Station& station, int row) {
  DesignState& s = station.s;
  const bool enabled = s.cmbPattern(row).text() != "HOOP" && s.cmb3D(row).text() != "2AX";
  s.cmbPhiW(row).Enable(enabled);
  s.cmbPhiSplit(row).Enable(enabled);
  // A row that needs a choice says so in words; any other text is one.
  if (s.cmbPattern(row).text() != kNoPattern) s.cmbPattern(row).SetMark(Mark::Plain);
  if (row == station.endView.row) DropStaleEndView(station);
}

void cmbPattern_Click(Station& station, int row) {
  ClickBesideGrids(station);
  NoteEndView(station, row, station.s.cmbPattern(row).text());
  DrawEndView(station);
  station.s.gDirty = true;
  RecalculateFourAxisRows(station.s);
}

void cmbPattern_Key(Station& station, int row) {
  DesignState& s = station.s;
  s.gDirty = true;
  const int rows = RowsOf(s.txtNumberOfLayers(1));
  if (s.cmb3D(row).text() != "2AX")
    for (int r = 1; r <= rows; ++r) PopulatePatternCombo(s, r);
  const std::string pattern = s.cmbPattern(row).text();
  const Number angle = s.Read(pattern);
  if (pattern.find('|') != std::string::npos)
    RecalculateFourAxisRow(s, row);
  else if (angle.good())
    CalculateAndShow(s, angle, pattern, row);
}

void cmbPhiW_Click(Station& station, int row) {
  DesignState& s = station.s;
  PopulatePatternCombo(s, row);
  s.gDirty = true;
  if (s.cmbPattern(row).text().find('|') != std::string::npos) RecalculateFourAxisRow(s, row);
}

void cmbRate_Click(Station& station, int) {
  station.s.gDirty = true;
  RecalculateFourAxisRows(station.s);
}

void txtZ4_Change(Station& station, int i) {
  DesignState& s = station.s;
  MarkIfZero(s.txtZ4(i));
  s.lblLengthTotal = Abs(number(s.txtZ4(3)) - number(s.txtZ4(0))).as(mask::kSpan);
  if ((i == 1 || i == 2) && station.StartGuardPassed()) Refresh4AXGrid(s);
}

void txtDia_Key(Station& station, int) {
  station.s.gDirty = true;
  Refresh4AXGrid(station.s);
}

void txtAdjust_Change(Station& station, int i) {
  station.s.gDirty = true;
  MarkIfZero(station.s.txtAdjust(i));
}

void DropEmphasis(DesignState& s, int butRow) {
  for (int row = 1; row <= kFieldRows; ++row)
    if (row != butRow) s.lbl4xLayerNo(row).SetBold(false);
}

void Row_Press(Station& station, int row) {
  station.s.gCurrentRow = row;
  DropEmphasis(station.s, row);
  station.s.lbl4xLayerNo(row).SetBold(true);
}

void Row_ReleaseRight(Station& station, int row) {
  Row_Press(station, row);
  station.s.mnuPopMenu.Show(true);
}

void TakeRow(Station& station, int row) {
  DesignState& s = station.s;
  s.gCurrentRow = row;
  s.gPolarRow = row;
  ClickBesideGrids(station);
  s.imgTRACE.Show(true);
  s.lblTrace.Show(true);
  DropEmphasis(s, row);
  s.lbl4xLayerNo(row).SetBold(true);
}

void Refresh_Click(Station& station, int) { Refresh4AXGrid(station.s); }

constexpr Operation kOperations[] = {
    {"optType", Event::Click, optType_Click},
    {"picType", Event::Release, picType_Release},
    {"cmb3D", Event::Click, cmb3D_Click},
    {"cmb3D", Event::Change, cmb3D_Change},
    {"cmbPattern", Event::Change, cmbPattern_Change},
    {"cmbPattern", Event::Click, cmbPattern_Click},
    {"cmbPattern", Event::Key, cmbPattern_Key},
    {"cmbPhiW", Event::Click, cmbPhiW_Click},
    {"cmbPhiSplit", Event::Click, SetDirty},
    {"cmbRate", Event::Click, cmbRate_Click},
    {"chkPause", Event::Click, SetDirty},
    {"txtZ4", Event::Change, txtZ4_Change},
    {"txtZ4", Event::Key, SetDirty},
    {"txtAdjust", Event::Change, txtAdjust_Change},
    {"txtDia", Event::Key, txtDia_Key},
    {"txtPODia", Event::Key, SetDirty},
    {"btn4XRow", Event::Press, Row_Press},
    {"btn4XRow", Event::PressRight, Row_Press},
    {"btn4XRow", Event::Release, Row_Press},
    {"btn4XRow", Event::ReleaseRight, Row_ReleaseRight},
    {"btn4XRow", Event::Click, ShowPreviewOfRow},
    {"picPolar", Event::Click, [](Station& station, int) { ShowPreview(station); }},
    {"Label18", Event::Click, [](Station& station, int) { ShowPreview(station); }},
    {"lbl4xLayerNo", Event::Release, TakeRow},
    {"lbl4xLayerNo", Event::ReleaseRight, TakeRow},
    {"pic3DGrid", Event::Click, [](Station& station, int) { ClickBesideGrids(station); }},
    {"lblRefresh", Event::Click, Refresh_Click},
};

}  // namespace

void ShowPreviewOfRow(Station& station, int row) {
  DesignState& s = station.s;
  // A row without its button is taken by its number, which opens nothing.
  if (!s.btn4XRow(row).shown()) {
    TakeRow(station, row);
    return;
  }
  s.gPolarRow = row;
  s.lblLayer = std::to_string(row);
  TakeRow(station, row);
  // The picture of another row stays, and its title with it.
  if (IsHoopRow(s, row)) return;
  NoteEndView(station, row, s.cmbPattern(row).text());
  if (!HasPreview(s, row)) return;
  DrawPolarCircPattern(station, row);
  ShowPreview(station, RowAngles::Shown);
}

std::span<const Operation> FourAxisGridOperations() { return kOperations; }

void ChangeFourAxisCount(Station& station) {
  DesignState& s = station.s;
  const Number rows = LayersOf(s.txtNumberOfLayers(1));
  const bool angles = s.IsNoWrap();
  for (int row = 1; row <= kFieldRows && rows.good(); ++row) {
    const bool shown = holds(row <= rows) && row <= kMostLayers;
    ShowFourAxisRow(s, row, shown);
    s.btn4XRow(row).Show(shown && !angles);
  }
  for (FieldArray* list : {&s.cmb3D, &s.cmbPattern}) {
    (*list)(IndexSet::kAllRows) = "";
    (*list)(IndexSet::kAllRows).Show(false);
  }
  s.chkPause(IndexSet::kAllRows).Show(false);
  for (FieldArray* total : {&s.lblNPasses, &s.lblMinutes, &s.lblLength})
    (*total)(IndexSet::kAllRows).Show(true);
  EstimateThickness(s, 1);
  PopulatePatternCombo(s, -1);
}

}  // namespace torvane
