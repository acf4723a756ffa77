// The part's fields: their marks, and what follows from each.
#include "calc/four_axis.h"
#include "calc/patterns.h"
#include "calc/two_axis.h"
#include "design/masks.h"
#include "design/reset.h"
#include "workbench/dialog/settings_dialog.h"
#include "workbench/part/operations.h"
#include "workbench/part/twins.h"
#include "workbench/station/messages.h"
#include "workbench/station/station.h"

namespace torvane {

namespace {

void RecalculateAfterStart(Station& station) {
  if (station.StartGuardPassed()) RecalculateTwoAxisLayers(station.s, kSpeedsByAngle);
}

void txtDia_Change(Station& station, int i) {
  DesignState& s = station.s;
  if (i <= 1) {
    s.Diameter_Left.CopyFrom(s.txtDia(0));
    s.Diameter_Right.CopyFrom(s.txtDia(1));
  }
  MarkIfZero(s.txtDia(i));
}

void txtDiameterLeft_Change(Station& station, int) {
  DesignState& s = station.s;
  s.gDirty = true;
  s.Diameter_Left.CopyFrom(s.txtDiameterLeft);
  s.txtDia(3) = s.txtDiameterLeft.through(mask::kDiameter);
  MarkIfZero(s.txtDiameterLeft);
  RecalculateAfterStart(station);
}

void txtDiameterRight_Change(Station& station, int) {
  DesignState& s = station.s;
  s.gDirty = true;
  s.Diameter_Right = number(s.txtDiameterRight).plain();
  s.txtDia(2) = s.txtDiameterRight.through(mask::kDiameter);
  MarkIfZero(s.txtDiameterRight);
  RecalculateAfterStart(station);
}

void txtBandThickness_Change(Station& station, int i) {
  DesignState& s = station.s;
  s.gDirty = true;
  MarkIfZero(s.txtBandThickness(i));
  s.Band_Thickness.CopyFrom(s.txtBandThickness(i));
  MirrorInTwin(station, s.txtBandThicknessMM(i), s.txtBandThickness(i), mask::kBandMM);
  RecalculateAfterStart(station);
}

// A four-axis schedule follows a new band width with its figures and its pattern lists.
void FollowBandWidth(DesignState& s, int i) {
  const int rows = RowsOf(s.txtNumberOfLayers(1));
  for (int row = 1; row <= rows; ++row) {
    const std::string pattern = s.cmbPattern(row).text();
    const Number angle = s.Read(pattern);
    Number mandrelRPM = 0;
    Number carriageSpeed = 0;
    if (!s.IsNoWrap())
      SplitPatternFields(s, pattern);
    else if (angle.good())
      CalculateFourAxisRow(s, angle, mandrelRPM, carriageSpeed, pattern, 0);
  }
  if (i == 1 && holds(number(s.txtBandWidth(1)) > 0))
    for (int row = 1; row <= rows; ++row) PopulatePatternCombo(s, row);
}

void txtBandWidth_Change(Station& station, int i) {
  DesignState& s = station.s;
  MirrorInTwin(station, s.txtBandWidthMM(i), s.txtBandWidth(i), mask::kBandMM);
  s.gDirty = true;
  MarkIfZero(s.txtBandWidth(i));
  s.Band_Width.CopyFrom(s.txtBandWidth(s.Panel()));
  if (!s.gShow4Axis)
    RecalculateAfterStart(station);
  else if (station.StartGuardPassed())
    FollowBandWidth(s, i);
}

void txtLengthTotal_Change(Station& station, int i) {
  if (i != 0) return;
  DesignState& s = station.s;
  s.Length_Total.CopyFrom(s.txtLengthTotal(0));
  s.lblZ2(4) = s.txtLengthTotal(0).through(mask::kLengthLine);
  RecalculateAfterStart(station);
}

void txtZ2_Change(Station& station, int i) {
  DesignState& s = station.s;
  s.gLeftStopText.CopyFrom(s.txtZ2(0));
  s.gRightStopText.CopyFrom(s.txtZ2(1));
  MarkIfZero(s.txtZ2(i));
  s.gDirty = true;
  const Number left = number(s.txtZ2(0));
  const Number right = number(s.txtZ2(1));
  s.txtZ2(2) = (s.gIsLHDrive ? right - left : left - right).as(mask::kStop);
  RecalculateAfterStart(station);
  const Comparison tooLow = number(s.gCarriageOffsetFromRMPFace) > number(s.txtZ2(1));
  if (tooLow != Comparison::Impossible) s.txtZ2(1).SetMark(holds(tooLow) ? Mark::StopTooLow : Mark::Plain);
}

template <FieldArray Fields::*array>
void Mark_Change(Station& station, int i) {
  MarkIfZero((station.s.*array)(i));
}

// A stop inside the carriage's offset would drive it into its limit switch: how to mend it, at every other
// click.
void txtZ2_Click(Station& station, int) {
  DesignState& s = station.s;
  if (s.txtZ2(1).mark() != Mark::StopTooLow) return;
  if (!station.gSlamMessageShown) {
    const bool fourAxis = s.optX(1).checked();
    ShowMessageDialog(station, messages::kStopInsideOffset, fourAxis ? "4" : "2");
    OpenSettings(station, fourAxis ? 2 : 1, CarriageOffsetMark::TooLow);
  }
  station.gSlamMessageShown = !station.gSlamMessageShown;
}

constexpr Operation kOperations[] = {
    {"txtDia", Event::Change, txtDia_Change},
    {"txtDiameterLeft", Event::Change, txtDiameterLeft_Change},
    {"txtDiameterRight", Event::Change, txtDiameterRight_Change},
    {"txtBandThickness", Event::Change, txtBandThickness_Change},
    {"txtBandWidth", Event::Change, txtBandWidth_Change},
    {"txtLengthTotal", Event::Change, txtLengthTotal_Change},
    {"txtLengthTotal", Event::Click, SetDirty},
    {"txtLengthTotal", Event::Key, SetDirty},
    {"txtSkirtLeft", Event::Key, SetDirty},
    {"txtSkirtRight", Event::Key, SetDirty},
    {"txtZ2", Event::Change, txtZ2_Change},
    {"txtZ2", Event::Click, txtZ2_Click},
    {"txtPODia", Event::Change, Mark_Change<&Fields::txtPODia>},
};

}  // namespace

std::span<const Operation> PartOperations() { return kOperations; }

}  // namespace torvane
