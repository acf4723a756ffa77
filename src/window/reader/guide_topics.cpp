#include "window/reader/guide_topics.h"

#include <span>

namespace torvane {

namespace {

constexpr std::string_view kPart[] = {"txtLengthTotal",   "txtBandWidth",       "txtBandThickness",
                                      "txtBandWidthMM",   "txtBandThicknessMM", "txtDiameterLeft",
                                      "txtDiameterRight", "lblUnits",           "drawing2Axis"};
constexpr std::string_view kFamily[] = {"optX", "lbl2or4AX"};
constexpr std::string_view kStops[] = {"txtZ2", "lblZ2", "txtStepSize2Ax", "btn2AxLeftRight"};
constexpr std::string_view kSchedule[] = {"txtNumberOfLayers",
                                          "lblNumberOfLayers",
                                          "txtWA",
                                          "txtRight",
                                          "txtLeft",
                                          "cmbSpeed",
                                          "cmbMethod",
                                          "txtMRPM",
                                          "txtCarriageSpeed",
                                          "lblPassesToCover",
                                          "txtAddRevs",
                                          "cmb2AxisLayerType",
                                          "cmbExactAngle",
                                          "lblMinutesToCover",
                                          "lblLengthToCover",
                                          "lblLengthHeading",
                                          "lblCarriageSpeedHeading",
                                          "lblSpeedUnits",
                                          "lblLengthUnits",
                                          "btn2XRow",
                                          "lblL",
                                          "btnReCalc",
                                          "lblRefresh",
                                          "mnuRefresh",
                                          "mnuPopMenu",
                                          "mnuWhatsThis",
                                          "mnuCopy",
                                          "mnuPaste",
                                          "mnuClearRow",
                                          "mnuDeleteRow",
                                          "mnuReCalcSpeeds",
                                          "mnuRecalcAllRows",
                                          "addLayer",
                                          "pic2DGrid"};
constexpr std::string_view kTotals[] = {"lblBuildTime",      "lblLengthRequired", "lblFinalThickness",
                                        "lblFilamentVOlume", "lblTotalGlueWgt",   "lblEstWeight"};
constexpr std::string_view kChecklist[] = {
    "chkWindingSchedule", "chkPreWrap1",         "chkPreWrap2",    "chkHeatGunApp", "chkPromptForHST",
    "chkNotify1",         "chkNotify2",          "txtHGSpeed",     "txtHGSpeedMM",  "txtPreWrapAdvance",
    "cmbPreWrapRPM",      "txtPreWrapAdvanceMM", "cmbHGRPM",       "txtHSTWidth",   "txtHSTWidthMM",
    "cmbHSTRPM",          "checklist",           "foldedChecklist"};
constexpr std::string_view kSave[] = {"imgBUILD",  "lblBuild", "lblBeginBuild", "mnuBeginWinding",
                                      "btnSaveAS", "btnOPen",  "lblStatusBar1", "lblStatusBar2"};
constexpr std::string_view kFourAxes[] = {"optType", "picType",      "picFlat",
                                          "picDome", "pic2AxNoWrap", "drawing4Axis"};
constexpr std::string_view kEnds[] = {"txtDia",        "txtZ4",   "txtPODia",       "txtSkirtLeft",
                                      "txtSkirtRight", "cmbRate", "lblLengthTotal", "lblGrazeAngle"};
constexpr std::string_view kOffsets[] = {"txtAdjust",     "txtStepSize4Ax", "btnLR",   "btnCloser",
                                         "btnLeftCloser", "btnRightCloser", "btnLDHZ", "btnRDHZ",
                                         "btnLeft",       "btnRight",       "pageHead"};
constexpr std::string_view kRows[] = {"lbl4xLayerNo",
                                      "cmb3D",
                                      "chkPause",
                                      "lblRPM",
                                      "lblcSpeed",
                                      "lblNPasses",
                                      "lblMinutes",
                                      "lblLength",
                                      "btn4XRow",
                                      "pic3DGrid",
                                      "lblLengthHeading4Ax",
                                      "lblCarriageSpeedHeading4Ax"};
constexpr std::string_view kPatterns[] = {"cmbPattern", "cmbPhiW", "cmbPhiSplit", "lblLayer",
                                          "picPolar",   "Label18", "Label1",      "frmPolar"};
constexpr std::string_view kMoves[] = {"lblTrace", "imgTRACE",           "lblGoTrace",
                                       "lblHome",  "lblManualOperation", "mnuManually"};
constexpr std::string_view kDryRun[] = {"mnuLaunchExecutor", "frmProgram"};
constexpr std::string_view kText[] = {"Command2", "mnuViewDesignFile", "mnuViewMakeFile", "programWindow"};
constexpr std::string_view kFiles[] = {"mnuViewDesignDirectory",
                                       "mnuViewGCodeDirectory",
                                       "mnuNewFile",
                                       "mnuOpenFile",
                                       "mnuSaveFile",
                                       "mnuSaveAsFile",
                                       "mnuQuit",
                                       "toolUndo",
                                       "toolRedo"};
constexpr std::string_view kStart[] = {"picVidLinks", "lblCommunity",          "lblVidLink", "picVidLink",
                                       "startCard",   "chkDontShowVideoLinks", "mnuRecent"};
constexpr std::string_view kSettings[] = {"frmSettings", "frmMachine", "mnuProperties", "mnuSpeeds",
                                          "mnuMachine"};
constexpr std::string_view kMessages[] = {"message"};
constexpr std::string_view kProof[] = {"marks", "provenMinutes", "provenTow", "foldedRail"};
constexpr std::string_view kWhole[] = {"frmMain", "lblVersion", "frmSplash", "frmAbout", "frmBigPic"};

struct Topic {
  std::string_view heading;
  std::span<const std::string_view> names;
};

constexpr Topic kTopics[] = {{"A part for two axes", kFamily},
                             {"The part", kPart},
                             {"The stops", kStops},
                             {"The schedule", kSchedule},
                             {"The totals", kTotals},
                             {"The checklist", kChecklist},
                             {"Save, Open, Build", kSave},
                             {"A part for four axes", kFourAxes},
                             {"Ends and openings", kEnds},
                             {"The offsets", kOffsets},
                             {"The rows of four axes", kRows},
                             {"Patterns", kPatterns},
                             {"Trace, Go Home, Manual", kMoves},
                             {"Build and the dry run", kDryRun},
                             {"The program as text", kText},
                             {"Files and backups", kFiles},
                             {"The start", kStart},
                             {"The settings", kSettings},
                             {"Messages", kMessages},
                             {"The proof while you type", kProof},
                             {kWholeGuide, kWhole}};

}  // namespace

std::string_view FieldNameOf(std::string_view widget) {
  constexpr std::string_view kLine = "line of ";
  if (widget.starts_with(kLine)) widget.remove_prefix(kLine.size());
  return widget;
}

std::string_view HeadingAbout(std::string_view name) {
  name = FieldNameOf(name);
  name = name.substr(0, name.find('('));
  for (const Topic& topic : kTopics)
    for (const std::string_view about : topic.names)
      if (about == name) return topic.heading;
  return {};
}

}  // namespace torvane
