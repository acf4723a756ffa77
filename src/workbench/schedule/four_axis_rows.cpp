// Copy, paste, clear and delete of the pressed row of the four-axis schedule.
#include "calc/four_axis.h"
#include "calc/patterns.h"
#include "design/reset.h"
#include "workbench/schedule/grids.h"
#include "workbench/schedule/row_menu.h"
#include "workbench/station/station.h"

namespace torvane {

namespace {

// What the operator sets in a row. The figures follow from it.
constexpr FieldArray Fields::*kInputs[] = {&Fields::cmbPhiW, &Fields::cmbPhiSplit, &Fields::cmb3D,
                                           &Fields::cmbPattern, &Fields::chkPause};

// The pattern that the row's file holds comes back with each refresh of the lists, so it goes along.
constexpr int kStoredPattern = 5;

FourAxisRow InputsOf(const DesignState& s, int row) {
  FourAxisRow inputs;
  for (std::size_t i = 0; i < std::size(kInputs); ++i) inputs[i] = (s.*kInputs[i])(row).text();
  inputs.back() = s.LayerTable4Ax(row, kStoredPattern);
  return inputs;
}

void EmptyFigures(DesignState& s, int row) {
  for (FieldArray* figure : {&s.lblRPM, &s.lblcSpeed, &s.lblNPasses, &s.lblMinutes, &s.lblLength})
    (*figure)(row) = "";
}

// The list of patterns belongs to the row's end wrap and type, so it is made before the pattern goes in.
void SetInputs(DesignState& s, int row, const FourAxisRow& inputs) {
  EmptyFigures(s, row);
  s.LayerTable4Ax.Set(row, kStoredPattern, inputs.back());
  for (std::size_t i = 0; i < std::size(kInputs); ++i) {
    if (kInputs[i] == &Fields::cmbPattern && !s.IsNoWrap()) PopulatePatternCombo(s, row);
    (s.*kInputs[i])(row) = inputs[i];
  }
}

void ClearRow(DesignState& s, int row) {
  const bool angles = s.IsNoWrap();
  SetInputs(s, row,
            angles ? FourAxisRow{"N/A", "N/A", "2AX", "Input Winding Angle", "0", ""}
                   : FourAxisRow{kDefaultWrap, kDefaultSplit, "", "", "0", ""});
  if (angles) return;
  s.cmbPattern(row).SetEntries({});
  s.cmbPattern(row).SetMark(Mark::Plain);
}

// A row of the schedule that has been pressed.
bool IsPressed(const DesignState& s) {
  return s.gCurrentRow >= 1 && s.gCurrentRow <= RowsOf(s.txtNumberOfLayers(1));
}

void mnuCopy4Ax_Click(Station& station, int) {
  if (IsPressed(station.s)) station.copiedFourAxisRow = InputsOf(station.s, station.s.gCurrentRow);
}

void mnuPaste4Ax_Click(Station& station, int) {
  DesignState& s = station.s;
  if (!IsPressed(s) || !station.copiedFourAxisRow) return;
  s.gDirty = true;
  SetInputs(s, s.gCurrentRow, *station.copiedFourAxisRow);
  RecalculateFourAxisRows(s);
}

void mnuClear4Ax_Click(Station& station, int) {
  DesignState& s = station.s;
  if (!IsPressed(s)) return;
  s.gDirty = true;
  ClearRow(s, s.gCurrentRow);
  RecalculateFourAxisRows(s);
}

void mnuDelete4Ax_Click(Station& station, int) {
  DesignState& s = station.s;
  if (!IsPressed(s)) return;
  s.gDirty = true;
  const int rows = RowsOf(s.txtNumberOfLayers(1));
  for (int row = s.gCurrentRow; row < rows; ++row) SetInputs(s, row, InputsOf(s, row + 1));
  ClearRow(s, rows);
  s.txtNumberOfLayers(1) = Number(rows - 1).plain();
  RecalculateFourAxisRows(s);
}

constexpr Operation kOperations[] = {
    {"mnuCopy4Ax",
     Event::Click,
     mnuCopy4Ax_Click,
     {"Copy 4-Axis Row", "Remembers the pressed row.", 'y', "", ARowIsPressed}},
    {"mnuPaste4Ax",
     Event::Click,
     mnuPaste4Ax_Click,
     {"Paste 4-Axis Row", "Puts the remembered row in the place of the pressed one.", 's', "",
      ARowIsPressed}},
    {"mnuClear4Ax",
     Event::Click,
     mnuClear4Ax_Click,
     {"Clear 4-Axis Row", "Empties the pressed row.", 'e', "", ARowIsPressed}},
    {"mnuDelete4Ax",
     Event::Click,
     mnuDelete4Ax_Click,
     {"Delete 4-Axis Row", "Takes the pressed row out; those below move up.", 't', "", ARowIsPressed}},
};

}  // namespace

std::span<const Operation> FourAxisRowOperations() { return kOperations; }

}  // namespace torvane
