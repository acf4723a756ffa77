// The part's fields: their marks, their twins in millimetres, and what follows from each.
#include "calc/two_axis.h"
#include "design/reset.h"
#include "design/units.h"
#include "workbench/station.h"

namespace torvane {

namespace {

void RecalculateAfterStart(Station& station) {
  if (station.StartGuardPassed()) RecalculateTwoAxisLayers(station.s, -1);
}

void SetTwin(Field& twin, const Field& inches, Mask mask) {
  twin = (number(inches) * kMillimetresPerInch).as(mask);
}

void Mirror(const DesignState& s, Field& twin, const Field& inches, Mask mask) {
  if (s.gMirrorOnChange) SetTwin(twin, inches, mask);
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
  s.txtDia(3) = s.txtDiameterLeft.through("##0.00"_mask);
  MarkIfZero(s.txtDiameterLeft);
  RecalculateAfterStart(station);
}

void txtDiameterRight_Change(Station& station, int) {
  DesignState& s = station.s;
  s.gDirty = true;
  s.Diameter_Right = number(s.txtDiameterRight).plain();
  s.txtDia(2) = s.txtDiameterRight.through("##0.00"_mask);
  MarkIfZero(s.txtDiameterRight);
  RecalculateAfterStart(station);
}

void txtBandThickness_Change(Station& station, int i) {
  DesignState& s = station.s;
  s.gDirty = true;
  MarkIfZero(s.txtBandThickness(i));
  s.Band_Thickness.CopyFrom(s.txtBandThickness(i));
  Mirror(s, s.txtBandThicknessMM(i), s.txtBandThickness(i), "##0.000"_mask);
  RecalculateAfterStart(station);
}

void txtBandWidth_Change(Station& station, int i) {
  DesignState& s = station.s;
  Mirror(s, s.txtBandWidthMM(i), s.txtBandWidth(i), "##0.000"_mask);
  s.gDirty = true;
  MarkIfZero(s.txtBandWidth(i));
  s.Band_Width.CopyFrom(s.txtBandWidth(s.Panel()));
  if (!s.gShow4Axis) RecalculateAfterStart(station);
}

void txtLengthTotal_Change(Station& station, int i) {
  if (i != 0) return;
  DesignState& s = station.s;
  s.Length_Total.CopyFrom(s.txtLengthTotal(0));
  s.lblZ2(4) = s.txtLengthTotal(0).through("##00.0"_mask);
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
  s.txtZ2(2) = (s.gIsLHDrive ? right - left : left - right).as("##0.00"_mask);
  RecalculateAfterStart(station);
  const Comparison tooLow = number(s.gCarriageOffsetFromRMPFace) > number(s.txtZ2(1));
  if (tooLow != Comparison::Impossible) s.txtZ2(1).SetMark(holds(tooLow) ? Mark::StopTooLow : Mark::Plain);
}

template <FieldArray Fields::*array>
void Mark_Change(Station& station, int i) {
  MarkIfZero((station.s.*array)(i));
}

void txtAdjust_Change(Station& station, int i) {
  station.s.gDirty = true;
  MarkIfZero(station.s.txtAdjust(i));
}

void txtZ4_Change(Station& station, int i) {
  DesignState& s = station.s;
  MarkIfZero(s.txtZ4(i));
  s.lblLengthTotal = Abs(number(s.txtZ4(3)) - number(s.txtZ4(0))).as("####.00"_mask);
}

void txtPreWrapAdvance_Change(Station& station, int i) {
  DesignState& s = station.s;
  Mirror(s, s.txtPreWrapAdvanceMM(i), s.txtPreWrapAdvance(i), "##0.00"_mask);
}

void txtHGSpeed_Change(Station& station, int) {
  DesignState& s = station.s;
  Mirror(s, s.txtHGSpeedMM, s.txtHGSpeed, "##0.00"_mask);
}

void txtHSTWidth_Change(Station& station, int) {
  DesignState& s = station.s;
  Mirror(s, s.txtHSTWidthMM, s.txtHSTWidth, "##0.00"_mask);
}

constexpr Operation kOperations[] = {
    {"txtDia", Event::Change, txtDia_Change},
    {"txtDiameterLeft", Event::Change, txtDiameterLeft_Change},
    {"txtDiameterRight", Event::Change, txtDiameterRight_Change},
    {"txtBandThickness", Event::Change, txtBandThickness_Change},
    {"txtBandWidth", Event::Change, txtBandWidth_Change},
    {"txtLengthTotal", Event::Change, txtLengthTotal_Change},
    {"txtZ2", Event::Change, txtZ2_Change},
    {"txtPODia", Event::Change, Mark_Change<&Fields::txtPODia>},
    {"txtAdjust", Event::Change, txtAdjust_Change},
    {"txtZ4", Event::Change, txtZ4_Change},
    {"txtPreWrapAdvance", Event::Change, txtPreWrapAdvance_Change},
    {"txtHGSpeed", Event::Change, txtHGSpeed_Change},
    {"txtHSTWidth", Event::Change, txtHSTWidth_Change},
};

}  // namespace

std::span<const Operation> InputCheckOperations() { return kOperations; }

}  // namespace torvane
