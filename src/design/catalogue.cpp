#include "design/catalogue.h"

#include "text/text.h"

namespace torvane {

namespace {

constexpr IndexSet UpTo(int last) { return {0, last, false}; }

constexpr IndexSet kPanels = UpTo(1);
constexpr IndexSet kPreWraps = {1, 2, false};
constexpr IndexSet kRows = {1, 18, false};
constexpr IndexSet kRowsAndAll = {1, 18, true};
constexpr IndexSet kLongRows = {1, 25, false};
constexpr IndexSet kLongRowsAndAll = {1, 25, true};

constexpr FieldRow kCatalogue[] = {
    // clang-format off
    // Part, both families
    {"txtLengthTotal", &Fields::txtLengthTotal, Kind::Text, UsedBy::ByIndex, kPanels, ""},
    {"txtBandWidth", &Fields::txtBandWidth, Kind::Text, UsedBy::ByIndex, kPanels, ""},
    {"txtBandThickness", &Fields::txtBandThickness, Kind::Text, UsedBy::ByIndex, kPanels, ""},
    {"txtBandWidthMM", &Fields::txtBandWidthMM, Kind::Text, UsedBy::ByIndex, kPanels, ""},
    {"txtBandThicknessMM", &Fields::txtBandThicknessMM, Kind::Text, UsedBy::ByIndex, kPanels, ""},
    {"txtNumberOfLayers", &Fields::txtNumberOfLayers, Kind::Text, UsedBy::ByIndex, kPanels, ""},
    {"lblBuildTime", &Fields::lblBuildTime, Kind::ReadOut, UsedBy::ByIndex, kPanels, ""},
    {"lblLengthRequired", &Fields::lblLengthRequired, Kind::ReadOut, UsedBy::ByIndex, kPanels, ""},
    {"lblFinalThickness", &Fields::lblFinalThickness, Kind::ReadOut, UsedBy::ByIndex, kPanels, ""},
    {"lblFilamentVOlume", &Fields::lblFilamentVOlume, Kind::ReadOut, UsedBy::ByIndex, kPanels, ""},
    {"lblTotalGlueWgt", &Fields::lblTotalGlueWgt, Kind::ReadOut, UsedBy::ByIndex, kPanels, ""},
    {"lblEstWeight", &Fields::lblEstWeight, Kind::ReadOut, UsedBy::ByIndex, kPanels, ""},
    {"txtDia", &Fields::txtDia, Kind::Text, UsedBy::LowIsFour, UpTo(3), ""},
    // Part, two axes
    {"txtDiameterLeft", &Fields::txtDiameterLeft, Kind::Text, UsedBy::TwoAxis, {}, ""},
    {"txtDiameterRight", &Fields::txtDiameterRight, Kind::Text, UsedBy::TwoAxis, {}, ""},
    {"txtZ2", &Fields::txtZ2, Kind::Text, UsedBy::TwoAxis, UpTo(2), ""},
    {"lblZ2", &Fields::lblZ2, Kind::ReadOut, UsedBy::TwoAxis, UpTo(4), ""},
    // Part, four axes
    {"txtZ4", &Fields::txtZ4, Kind::Text, UsedBy::FourAxis, UpTo(3), ""},
    {"txtPODia", &Fields::txtPODia, Kind::Text, UsedBy::FourAxis, UpTo(1), ""},
    {"txtAdjust", &Fields::txtAdjust, Kind::Text, UsedBy::FourAxis, UpTo(6), ""},
    {"txtSkirtLeft", &Fields::txtSkirtLeft, Kind::Text, UsedBy::FourAxis, {}, ""},
    {"txtSkirtRight", &Fields::txtSkirtRight, Kind::Text, UsedBy::FourAxis, {}, ""},
    {"cmbRate", &Fields::cmbRate, Kind::List, UsedBy::FourAxis, {}, ""},
    {"lblLengthTotal", &Fields::lblLengthTotal, Kind::ReadOut, UsedBy::FourAxis, {}, ""},
    {"lblGrazeAngle", &Fields::lblGrazeAngle, Kind::ReadOut, UsedBy::FourAxis, {}, ""},
    {"optX", &Fields::optX, Kind::Option, UsedBy::Both, UpTo(1), "False"},
    {"optType", &Fields::optType, Kind::Option, UsedBy::FourAxis, UpTo(2), "False"},
    // Rows of the two-axis schedule
    {"txtWA", &Fields::txtWA, Kind::Text, UsedBy::TwoAxis, kRowsAndAll, ""},
    {"txtRight", &Fields::txtRight, Kind::Text, UsedBy::TwoAxis, kRowsAndAll, ""},
    {"txtLeft", &Fields::txtLeft, Kind::Text, UsedBy::TwoAxis, kRowsAndAll, ""},
    {"cmbSpeed", &Fields::cmbSpeed, Kind::List, UsedBy::TwoAxis, kRowsAndAll, ""},
    {"cmbMethod", &Fields::cmbMethod, Kind::List, UsedBy::TwoAxis, kRowsAndAll, ""},
    {"txtMRPM", &Fields::txtMRPM, Kind::Text, UsedBy::TwoAxis, kRowsAndAll, ""},
    {"txtCarriageSpeed", &Fields::txtCarriageSpeed, Kind::ReadOut, UsedBy::TwoAxis, kRows, ""},
    {"lblPassesToCover", &Fields::lblPassesToCover, Kind::ReadOut, UsedBy::TwoAxis, kRowsAndAll, ""},
    {"txtAddRevs", &Fields::txtAddRevs, Kind::Text, UsedBy::TwoAxis, kRowsAndAll, ""},
    {"cmb2AxisLayerType", &Fields::cmb2AxisLayerType, Kind::List, UsedBy::TwoAxis, kRows, ""},
    {"cmbExactAngle", &Fields::cmbExactAngle, Kind::List, UsedBy::TwoAxis, kRows, ""},
    {"lblMinutesToCover", &Fields::lblMinutesToCover, Kind::ReadOut, UsedBy::TwoAxis, kRowsAndAll, ""},
    {"lblLengthToCover", &Fields::lblLengthToCover, Kind::ReadOut, UsedBy::TwoAxis, kRowsAndAll, ""},
    // Rows of the four-axis schedule
    {"lbl4xLayerNo", &Fields::lbl4xLayerNo, Kind::ReadOut, UsedBy::FourAxis, kLongRows, ""},
    {"cmb3D", &Fields::cmb3D, Kind::List, UsedBy::FourAxis, kLongRowsAndAll, ""},
    {"chkPause", &Fields::chkPause, Kind::Check, UsedBy::FourAxis, kLongRowsAndAll, "0"},
    {"lblRPM", &Fields::lblRPM, Kind::ReadOut, UsedBy::FourAxis, kLongRows, ""},
    {"lblcSpeed", &Fields::lblcSpeed, Kind::ReadOut, UsedBy::FourAxis, kLongRows, ""},
    {"cmbPattern", &Fields::cmbPattern, Kind::List, UsedBy::FourAxis, kLongRowsAndAll, ""},
    {"cmbPhiW", &Fields::cmbPhiW, Kind::List, UsedBy::FourAxis, kLongRows, ""},
    {"cmbPhiSplit", &Fields::cmbPhiSplit, Kind::List, UsedBy::FourAxis, kLongRows, ""},
    {"lblNPasses", &Fields::lblNPasses, Kind::ReadOut, UsedBy::FourAxis, kLongRowsAndAll, ""},
    {"lblMinutes", &Fields::lblMinutes, Kind::ReadOut, UsedBy::FourAxis, kLongRowsAndAll, ""},
    {"lblLength", &Fields::lblLength, Kind::ReadOut, UsedBy::FourAxis, kLongRowsAndAll, ""},
    {"btn4XRow", &Fields::btn4XRow, Kind::Control, UsedBy::FourAxis, kRows, ""},
    // Identity of the design and working copies of its values
    {"gFilePath", &Fields::gFilePath, Kind::Value, UsedBy::Both, {}, ""},
    {"gFileName", &Fields::gFileName, Kind::Value, UsedBy::Both, {}, ""},
    {"gLastFileInUse", &Fields::gLastFileInUse, Kind::Value, UsedBy::Both, {}, ""},
    {"gVersionNumber", &Fields::gVersionNumber, Kind::Value, UsedBy::Both, {}, ""},
    {"Author", &Fields::Author, Kind::Value, UsedBy::Design, {}, ""},
    {"Author_Email", &Fields::Author_Email, Kind::Value, UsedBy::Design, {}, ""},
    {"Comments", &Fields::Comments, Kind::Value, UsedBy::Design, {}, ""},
    {"Date_of_Creation", &Fields::Date_of_Creation, Kind::Value, UsedBy::Design, {}, ""},
    {"Diameter_Left", &Fields::Diameter_Left, Kind::Value, UsedBy::Design, {}, ""},
    {"Diameter_Right", &Fields::Diameter_Right, Kind::Value, UsedBy::Design, {}, ""},
    {"Length_Total", &Fields::Length_Total, Kind::Value, UsedBy::Design, {}, ""},
    {"Band_Width", &Fields::Band_Width, Kind::Value, UsedBy::Design, {}, ""},
    {"Band_Thickness", &Fields::Band_Thickness, Kind::Value, UsedBy::Design, {}, ""},
    {"Number_of_Layers", &Fields::Number_of_Layers, Kind::Value, UsedBy::Design, {}, ""},
    {"gLeftStopText", &Fields::gLeftStopText, Kind::Value, UsedBy::Design, {}, ""},
    {"gRightStopText", &Fields::gRightStopText, Kind::Value, UsedBy::Design, {}, ""},
    {"gUnits", &Fields::gUnits, Kind::Value, UsedBy::Design, {}, "in"},
    {"gPartType", &Fields::gPartType, Kind::Value, UsedBy::FourAxis, {}, "FLAT"},
    // The program last written
    {"gGCodeFileName", &Fields::gGCodeFileName, Kind::Value, UsedBy::Window, {}, ""},
    {"gGCodeFilePath", &Fields::gGCodeFilePath, Kind::Value, UsedBy::Window, {}, ""},
    {"gGCodeFolder", &Fields::gGCodeFolder, Kind::Value, UsedBy::Window, {}, ""},
    {"gFarEndZ", &Fields::gFarEndZ, Kind::Value, UsedBy::Window, {}, ""},
    {"gHomeEndZ", &Fields::gHomeEndZ, Kind::Value, UsedBy::Window, {}, ""},
    // Choices of a build
    {"chkWindingSchedule", &Fields::chkWindingSchedule, Kind::Check, UsedBy::Both, {}, "1"},
    {"chkPreWrap1", &Fields::chkPreWrap1, Kind::Check, UsedBy::Both, {}, "0"},
    {"chkPreWrap2", &Fields::chkPreWrap2, Kind::Check, UsedBy::Both, {}, "0"},
    {"chkHeatGunApp", &Fields::chkHeatGunApp, Kind::Check, UsedBy::Both, {}, "0"},
    {"chkPromptForHST", &Fields::chkPromptForHST, Kind::Check, UsedBy::Both, {}, "0"},
    {"chkNotify1", &Fields::chkNotify1, Kind::Check, UsedBy::Both, {}, "0"},
    {"chkNotify2", &Fields::chkNotify2, Kind::Check, UsedBy::Both, {}, "0"},
    {"txtPreWrapAdvance", &Fields::txtPreWrapAdvance, Kind::Text, UsedBy::Both, kPreWraps, ""},
    {"txtPreWrapAdvanceMM", &Fields::txtPreWrapAdvanceMM, Kind::Text, UsedBy::Both, kPreWraps, ""},
    {"cmbPreWrapRPM", &Fields::cmbPreWrapRPM, Kind::List, UsedBy::Both, kPreWraps, ""},
    {"txtHGSpeed", &Fields::txtHGSpeed, Kind::Text, UsedBy::Both, {}, ""},
    {"txtHGSpeedMM", &Fields::txtHGSpeedMM, Kind::Text, UsedBy::Both, {}, ""},
    {"cmbHGRPM", &Fields::cmbHGRPM, Kind::List, UsedBy::Both, {}, ""},
    {"txtHSTWidth", &Fields::txtHSTWidth, Kind::Text, UsedBy::Both, {}, ""},
    {"txtHSTWidthMM", &Fields::txtHSTWidthMM, Kind::Text, UsedBy::Both, {}, ""},
    {"cmbHSTRPM", &Fields::cmbHSTRPM, Kind::List, UsedBy::Both, {}, ""},
    {"txtStepSize2Ax", &Fields::txtStepSize2Ax, Kind::Text, UsedBy::Both, {}, ""},
    {"txtStepSize4Ax", &Fields::txtStepSize4Ax, Kind::Text, UsedBy::Both, {}, ""},
    // Constants of the station
    {"txtLimitSwitchApproachSpeed", &Fields::txtLimitSwitchApproachSpeed, Kind::Value, UsedBy::Both, {}, ""},
    {"txtMandrelAdvanceAfterPreWrapCarriageStop", &Fields::txtMandrelAdvanceAfterPreWrapCarriageStop, Kind::Value, UsedBy::Both, {}, ""},
    {"txtPreWrapFullLengthYN", &Fields::txtPreWrapFullLengthYN, Kind::Value, UsedBy::Both, {}, ""},
    {"txtMandrelRotateAfterLayerCompletion", &Fields::txtMandrelRotateAfterLayerCompletion, Kind::Value, UsedBy::Both, {}, ""},
    {"txtMandrelAdvanceAfterHSTCarriageStop", &Fields::txtMandrelAdvanceAfterHSTCarriageStop, Kind::Value, UsedBy::Both, {}, ""},
    {"txtHeatGunJustKeepGoingYN", &Fields::txtHeatGunJustKeepGoingYN, Kind::Value, UsedBy::Both, {}, ""},
    {"txtAddPasses", &Fields::txtAddPasses, Kind::Value, UsedBy::Both, {}, ""},
    {"txtAddExtra360AtFarEndYN", &Fields::txtAddExtra360AtFarEndYN, Kind::Value, UsedBy::Both, {}, ""},
    {"txtUseProportionalFilamentSpacingYN", &Fields::txtUseProportionalFilamentSpacingYN, Kind::Value, UsedBy::Both, {}, ""},
    {"txt2AXAdd360YN", &Fields::txt2AXAdd360YN, Kind::Value, UsedBy::Both, {}, ""},
    {"txt3AX1stPass360", &Fields::txt3AX1stPass360, Kind::Value, UsedBy::Both, {}, ""},
    {"gMidAngle", &Fields::gMidAngle, Kind::Value, UsedBy::Both, {}, ""},
    {"gSplitAngle", &Fields::gSplitAngle, Kind::Value, UsedBy::Both, {}, ""},
    {"gDHYtoMandrelCenter", &Fields::gDHYtoMandrelCenter, Kind::Value, UsedBy::Both, {}, ""},
    {"gDHStructureWidth", &Fields::gDHStructureWidth, Kind::Value, UsedBy::Both, {}, ""},
    {"gCarriageOffsetFromRMPFace", &Fields::gCarriageOffsetFromRMPFace, Kind::Value, UsedBy::Both, {}, ""},
    {"gPauseBeforeHoop", &Fields::gPauseBeforeHoop, Kind::Value, UsedBy::Both, {}, ""},
    {"txtMailServer", &Fields::txtMailServer, Kind::Value, UsedBy::Both, {}, ""},
    {"txtEmail1", &Fields::txtEmail1, Kind::Value, UsedBy::Both, {}, ""},
    {"txtEmail2", &Fields::txtEmail2, Kind::Value, UsedBy::Both, {}, ""},
    {"gCarriageBoardID", &Fields::gCarriageBoardID, Kind::Value, UsedBy::Both, {}, ""},
    {"gMandrelBoardID", &Fields::gMandrelBoardID, Kind::Value, UsedBy::Both, {}, ""},
    {"chkDontShowVideoLinks", &Fields::chkDontShowVideoLinks, Kind::Check, UsedBy::Window, {}, "0"},
    // The main window's place, in twips, and whether it fills the screen
    {"Me.Top", &Fields::meTop, Kind::Value, UsedBy::Window, {}, "400"},
    {"Me.Left", &Fields::meLeft, Kind::Value, UsedBy::Window, {}, "400"},
    {"Me.Width", &Fields::meWidth, Kind::Value, UsedBy::Window, {}, "17000"},
    {"Me.Height", &Fields::meHeight, Kind::Value, UsedBy::Window, {}, "12500"},
    {"Me.WasMaximized", &Fields::meWasMaximized, Kind::Value, UsedBy::Window, {}, "0"},
    // Buttons, menu entries, pictures and windows
    {"btn2XRow", &Fields::btn2XRow, Kind::Control, UsedBy::Window, kRows, ""},
    {"lblL", &Fields::lblL, Kind::Control, UsedBy::Window, kRows, ""},
    {"btnReCalc", &Fields::btnReCalc, Kind::Control, UsedBy::Window, {}, ""},
    {"mnuPopMenu", &Fields::mnuPopMenu, Kind::Control, UsedBy::Window, {}, ""},
    {"mnuWhatsThis", &Fields::mnuWhatsThis, Kind::Control, UsedBy::Window, {}, ""},
    {"mnuCopy", &Fields::mnuCopy, Kind::Control, UsedBy::Window, {}, ""},
    {"mnuPaste", &Fields::mnuPaste, Kind::Control, UsedBy::Window, {}, ""},
    {"mnuClearRow", &Fields::mnuClearRow, Kind::Control, UsedBy::Window, {}, ""},
    {"mnuDeleteRow", &Fields::mnuDeleteRow, Kind::Control, UsedBy::Window, {}, ""},
    {"mnuReCalcSpeeds", &Fields::mnuReCalcSpeeds, Kind::Control, UsedBy::Window, {}, ""},
    {"mnuRecalcAllRows", &Fields::mnuRecalcAllRows, Kind::Control, UsedBy::Window, {}, ""},
    {"imgBUILD", &Fields::imgBUILD, Kind::Control, UsedBy::Window, {}, ""},
    {"lblBuild", &Fields::lblBuild, Kind::Control, UsedBy::Window, {}, ""},
    {"lblBeginBuild", &Fields::lblBeginBuild, Kind::Control, UsedBy::Window, {}, ""},
    {"mnuBeginWinding", &Fields::mnuBeginWinding, Kind::Control, UsedBy::Window, {}, ""},
    {"Command2", &Fields::Command2, Kind::Control, UsedBy::Window, {}, ""},
    {"lblManualOperation", &Fields::lblManualOperation, Kind::Control, UsedBy::Window, {}, ""},
    {"mnuManually", &Fields::mnuManually, Kind::Control, UsedBy::Window, {}, ""},
    {"mnuLaunchExecutor", &Fields::mnuLaunchExecutor, Kind::Control, UsedBy::Window, {}, ""},
    {"mnuViewDesignFile", &Fields::mnuViewDesignFile, Kind::Control, UsedBy::Window, {}, ""},
    {"mnuViewDesignDirectory", &Fields::mnuViewDesignDirectory, Kind::Control, UsedBy::Window, {}, ""},
    {"mnuViewGCodeDirectory", &Fields::mnuViewGCodeDirectory, Kind::Control, UsedBy::Window, {}, ""},
    {"mnuViewMakeFile", &Fields::mnuViewMakeFile, Kind::Control, UsedBy::Window, {}, ""},
    {"picVidLinks", &Fields::picVidLinks, Kind::Control, UsedBy::Window, {}, ""},
    {"lblCommunity", &Fields::lblCommunity, Kind::Control, UsedBy::Window, {}, ""},
    {"lblVidLink", &Fields::lblVidLink, Kind::Control, UsedBy::Window, kPanels, ""},
    {"picVidLink", &Fields::picVidLink, Kind::Control, UsedBy::Window, kPanels, ""},
    {"frmSplash", &Fields::frmSplash, Kind::Control, UsedBy::Window, {}, ""},
    {"lblLayer", &Fields::lblLayer, Kind::Caption, UsedBy::Window, {}, ""},
    {"picPolar", &Fields::picPolar, Kind::Control, UsedBy::Window, {}, ""},
    {"Label18", &Fields::Label18, Kind::Control, UsedBy::Window, {}, ""},
    {"lblTrace", &Fields::lblTrace, Kind::Control, UsedBy::Window, {}, ""},
    {"imgTRACE", &Fields::imgTRACE, Kind::Control, UsedBy::Window, {}, ""},
    {"lblNumberOfLayers", &Fields::lblNumberOfLayers, Kind::Control, UsedBy::Window, kPanels, ""},
    {"btn2AxLeftRight", &Fields::btn2AxLeftRight, Kind::Control, UsedBy::Window, kPanels, ""},
    {"btnLR", &Fields::btnLR, Kind::Control, UsedBy::Window, kPanels, ""},
    {"btnCloser", &Fields::btnCloser, Kind::Control, UsedBy::FourAxis, kPanels, ""},
    {"btnLeftCloser", &Fields::btnLeftCloser, Kind::Control, UsedBy::FourAxis, kPanels, ""},
    {"btnRightCloser", &Fields::btnRightCloser, Kind::Control, UsedBy::FourAxis, kPanels, ""},
    {"btnLDHZ", &Fields::btnLDHZ, Kind::Control, UsedBy::FourAxis, kPanels, ""},
    {"btnRDHZ", &Fields::btnRDHZ, Kind::Control, UsedBy::FourAxis, kPanels, ""},
    {"btnLeft", &Fields::btnLeft, Kind::Control, UsedBy::FourAxis, kPanels, ""},
    {"btnRight", &Fields::btnRight, Kind::Control, UsedBy::FourAxis, kPanels, ""},
    {"picType", &Fields::picType, Kind::Control, UsedBy::Window, {}, ""},
    {"picFlat", &Fields::picFlat, Kind::Control, UsedBy::FourAxis, {}, ""},
    {"picDome", &Fields::picDome, Kind::Control, UsedBy::FourAxis, {}, ""},
    {"pic2AxNoWrap", &Fields::pic2AxNoWrap, Kind::Control, UsedBy::FourAxis, {}, ""},
    {"lblRefresh", &Fields::lblRefresh, Kind::Control, UsedBy::Window, {}, ""},
    {"lblGoTrace", &Fields::lblGoTrace, Kind::Control, UsedBy::Window, {}, ""},
    {"lblHome", &Fields::lblHome, Kind::Control, UsedBy::Window, {}, ""},
    // What the window says of itself
    {"frmMain", &Fields::frmMain, Kind::Control, UsedBy::Window, {}, ""},
    {"lblStatusBar1", &Fields::lblStatusBar1, Kind::Caption, UsedBy::Window, {}, ""},
    {"lblStatusBar2", &Fields::lblStatusBar2, Kind::Caption, UsedBy::Window, {}, ""},
    {"lblVersion", &Fields::lblVersion, Kind::Caption, UsedBy::Window, {}, ""},
    {"lblUnits", &Fields::lblUnits, Kind::Caption, UsedBy::Design, UpTo(0), ""},
    {"lbl2or4AX", &Fields::lbl2or4AX, Kind::Caption, UsedBy::Window, {}, ""},
    {"lblLengthHeading", &Fields::lblLengthHeading, Kind::Caption, UsedBy::Design, {}, ""},
    {"lblCarriageSpeedHeading", &Fields::lblCarriageSpeedHeading, Kind::Caption, UsedBy::Design, {}, ""},
    {"lblSpeedUnits", &Fields::lblSpeedUnits, Kind::Caption, UsedBy::Design, {}, ""},
    {"lblLengthUnits", &Fields::lblLengthUnits, Kind::Caption, UsedBy::Design, {}, ""},
    {"Label1(47)", &Fields::lblPatternHeading, Kind::Caption, UsedBy::Window, {}, "Pattern"},
    {"lblLengthHeading4Ax", &Fields::lblLengthHeading4Ax, Kind::Caption, UsedBy::Window, {}, ""},
    {"lblCarriageSpeedHeading4Ax", &Fields::lblCarriageSpeedHeading4Ax, Kind::Caption, UsedBy::Window, {}, ""},
    // clang-format on
};

}  // namespace

std::span<const FieldRow> Catalogue() { return kCatalogue; }

bool IsUsed(const FieldRow& row, int index, bool fourAxis) {
  switch (row.usedBy) {
    case UsedBy::TwoAxis:
      return !fourAxis;
    case UsedBy::FourAxis:
      return fourAxis;
    case UsedBy::ByIndex:
      return fourAxis == (index == 1);
    case UsedBy::LowIsFour:
      return fourAxis == (index <= 1);
    case UsedBy::Design:
    case UsedBy::Both:
      return true;
    case UsedBy::Window:
      return false;
  }
  return false;
}

std::string NameOf(const Field& field) {
  std::string name(field.row().name);
  if (std::holds_alternative<FieldArray Fields::*>(field.row().member))
    name += "(" + std::to_string(field.index()) + ")";
  return name;
}

Field* FindField(Fields& fields, std::string_view name) {
  for (const FieldRow& row : kCatalogue)
    if (const auto* single = std::get_if<Field Fields::*>(&row.member); single != nullptr && row.name == name)
      return &(fields.*(*single));
  const auto wanted = TakeApart(name);
  if (!wanted || wanted->count != 1) return nullptr;
  for (const FieldRow& row : kCatalogue) {
    const auto* array = std::get_if<FieldArray Fields::*>(&row.member);
    if (array == nullptr || row.name != wanted->name) continue;
    Field& field = (fields.*(*array))(wanted->index[0]);
    return field.exists() ? &field : nullptr;
  }
  return nullptr;
}

}  // namespace torvane
