#include "design/reset.h"

#include "design/rows.h"

namespace torvane {

namespace {

void BlankTwoAxisRow(DesignState& s, int row) {
  s.txtWA(row) = "";
  s.txtRight(row) = "";
  s.txtLeft(row) = "";
  s.txtMRPM(row) = "";
  s.txtCarriageSpeed(row) = "";
  s.cmbSpeed(row) = "fast";
  s.cmbMethod(row) = "ms";
  s.txtAddRevs(row) = "0";
  s.lblPassesToCover(row) = "";
  s.lblMinutesToCover(row) = "";
  s.lblLengthToCover(row) = "";
  for (int column = 1; column <= 8; ++column) s.LayerTable2Ax.Set(row, column, "");
}

void BlankTwoAxes(DesignState& s) {
  s.lblStatusBar2 = "";
  s.txtDiameterLeft = "";
  s.txtDiameterRight = "";
  s.txtLengthTotal(0) = "";
  s.txtBandWidth(0) = "";
  s.txtBandThickness(0) = "";
  s.txtNumberOfLayers(0) = "0";
  s.txtBandWidthMM(0) = "";
  s.txtBandThicknessMM(0) = "";
  s.lblBuildTime(0) = "";
  s.lblLengthRequired(0) = "";
  s.lblFinalThickness(0) = "";
  s.lblFilamentVOlume(0) = "";
  s.lblTotalGlueWgt(0) = "";
  s.lblEstWeight(0) = "";
  for (int row = 1; row <= kMostLayers; ++row) {
    BlankTwoAxisRow(s, row);
    s.cmbExactAngle(row) = "select";
    s.cmb2AxisLayerType(row) = "select";
    s.cmbExactAngle(row).Show(false);
    s.cmb2AxisLayerType(row).Show(true);
  }
  for (int row = 1; row <= kLongRows; ++row) ShowTwoAxisRow(s, row, row <= kMostLayers);
  s.lblPassesToCover(IndexSet::kAllRows) = "";
  s.lblMinutesToCover(IndexSet::kAllRows) = "";
  s.lblLengthToCover(IndexSet::kAllRows) = "";
}

void BlankFourAxes(DesignState& s) {
  s.cmbRate = "";
  s.txtSkirtLeft = "";
  s.txtSkirtRight = "";
  s.txtNumberOfLayers(1) = "0";
  s.txtLengthTotal(1) = "0";
  s.txtBandWidth(1) = "0";
  s.txtBandThickness(1) = "0";
  s.txtDia(0) = "0";
  s.txtDia(1) = "0";
  s.txtZ4(0) = "0";
  s.txtZ4(3) = "0";
  s.txtZ4(1) = "0";
  s.txtZ4(2) = "0";
  s.txtPODia(0) = "0";
  s.txtPODia(1) = "0";
  s.txtSkirtLeft = "0";
  s.txtSkirtRight = "0";
  s.cmbRate = "MED";
  s.txtBandThicknessMM(1) = "0";
  s.txtBandWidthMM(1) = "0";
  for (int row = 1; row <= kMostLayers; ++row) {
    s.cmb3D(row) = "";
    s.lblRPM(row) = "";
    s.cmbPattern(row) = "";
    s.lblNPasses(row) = "";
    s.lblcSpeed(row) = "";
    s.lblMinutes(row) = "";
    s.lblLength(row) = "";
    s.chkPause(row) = "0";
    s.cmbPhiW(row) = kDefaultWrap;
    s.cmbPhiSplit(row) = kDefaultSplit;
  }
  const bool pauseOfFirstRow = s.chkPause(1).shown();
  for (int row = 1; row <= kFieldRows; ++row) ShowFourAxisRow(s, row, row <= kMostLayers);
  s.chkPause(1).Show(pauseOfFirstRow);
  s.txtNumberOfLayers(0).SetMark(Mark::NeedsInput);
  s.txtNumberOfLayers(1).SetMark(Mark::NeedsInput);
  for (int i = 0; i <= 6; ++i) s.txtAdjust(i) = "0";
  s.focus = &s.txtNumberOfLayers(s.mnu2Axis ? 0 : 1);
}

}  // namespace

void ShowTwoAxisRow(DesignState& s, int row, bool shown) {
  for (FieldArray* column :
       {&s.txtWA, &s.cmbSpeed, &s.cmbMethod, &s.txtMRPM, &s.txtCarriageSpeed, &s.lblPassesToCover,
        &s.txtAddRevs, &s.cmb2AxisLayerType, &s.lblMinutesToCover, &s.lblLengthToCover})
    (*column)(row).Show(shown);
}

void ShowFourAxisRow(DesignState& s, int row, bool shown) {
  for (FieldArray* column : {&s.lbl4xLayerNo, &s.cmb3D, &s.chkPause, &s.lblRPM, &s.lblcSpeed, &s.cmbPattern,
                             &s.cmbPhiW, &s.cmbPhiSplit, &s.lblNPasses, &s.lblMinutes, &s.lblLength})
    (*column)(row).Show(shown);
}

void BlankInputs(DesignState& s, int axes) {
  if (axes == 2)
    BlankTwoAxes(s);
  else
    BlankFourAxes(s);
}

void InitializeAsNew(DesignState& s) {
  s.txtDiameterLeft = "";
  s.txtDiameterRight = "";
  s.txtLengthTotal(0) = "";
  s.txtBandWidth(0) = "";
  s.txtBandThickness(0) = "";
  s.txtNumberOfLayers(0) = "";
  s.cmbRate = "";
  s.txtSkirtLeft = "";
  s.txtSkirtRight = "";
  s.lblEstWeight(0) = "";
  s.lblEstWeight(1) = "";
  for (int row = 1; row <= kLongRows; ++row) BlankTwoAxisRow(s, row);
  for (FieldArray* total : {&s.lblPassesToCover, &s.lblMinutesToCover, &s.lblLengthToCover, &s.lblNPasses,
                            &s.lblMinutes, &s.lblLength})
    (*total)(IndexSet::kAllRows) = "";
  s.gDirty = false;
  for (int row = 1; row <= kLongRows; ++row) ShowTwoAxisRow(s, row, row <= kFieldRows);
  for (FieldArray* list : {&s.cmbSpeed, &s.cmbMethod}) {
    (*list)(IndexSet::kAllRows).Show(false);
    (*list)(IndexSet::kAllRows) = "";
  }
  for (int row = 1; row <= kFieldRows; ++row) ShowFourAxisRow(s, row, row <= kMostLayers);
  for (FieldArray* list : {&s.cmb3D, &s.cmbPattern}) {
    (*list)(IndexSet::kAllRows).Show(true);
    (*list)(IndexSet::kAllRows) = "";
  }
  for (FieldArray* shown : {&s.chkPause, &s.lblNPasses, &s.lblMinutes, &s.lblLength})
    (*shown)(IndexSet::kAllRows).Show(true);
}

void ShowAxisDisplay(DesignState& s, bool show4Axis) {
  s.gShow4Axis = show4Axis;
  s.mnu2Axis = !show4Axis;
  s.mnu4Axis = show4Axis;
  s.optX(0) = show4Axis ? "False" : "True";
  s.optX(1) = show4Axis ? "True" : "False";
  s.lbl2or4AX = show4Axis ? "4Ax" : "2Ax";
}

void MarkIfZero(Field& field) {
  const Number value = field.empty() ? Number(0) : number(field);
  if (value.good()) field.SetMark(value.value() == 0 ? Mark::NeedsInput : Mark::Plain);
}

}  // namespace torvane
