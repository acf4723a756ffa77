#include "design/catalogue.h"

#include "design/rows.h"
#include "text/text.h"

namespace torvane {

namespace {

constexpr IndexSet UpTo(int last) { return {0, last, false}; }

constexpr IndexSet kPanels = UpTo(1);
constexpr IndexSet kPreWraps = {1, 2, false};
constexpr IndexSet kRows = {1, kFieldRows, false};
constexpr IndexSet kRowsAndAll = {1, kFieldRows, true};
constexpr IndexSet kRowNumbers = {1, kLongRows, false};
constexpr IndexSet kRowNumbersAndAll = {1, kLongRows, true};

// Of arrays whose members mean different things, by rising index.
// clang-format off
constexpr FieldWords kDiameters[] = {
    {"Left diameter", "Diameter of the mandrel at its left end.", FieldUnit::Length},
    {"Right diameter", "Diameter of the mandrel at its right end.", FieldUnit::Length},
    {"Left diameter", "Diameter of the mandrel at its left end.", FieldUnit::Length},
    {"Right diameter", "Diameter of the mandrel at its right end.", FieldUnit::Length},
};
constexpr FieldWords kStops[] = {
    {"Left stop", "Where winding stops, counted from the mandrel post at home.", FieldUnit::Length},
    {"Right stop", "Where winding stops, counted from the mandrel post at home.", FieldUnit::Length},
    {"Winding length", "From stop to stop.", FieldUnit::Length},
};
constexpr FieldWords kEnds[] = {
    {"Left stop", "Where winding stops, counted from the mandrel post at home.", FieldUnit::Length},
    {"Left end of the row", "Where the pressed row turns back at the left.", FieldUnit::Length},
    {"Right end of the row", "Where the pressed row turns back at the right.", FieldUnit::Length},
    {"Right stop", "Where winding stops, counted from the mandrel post at home.", FieldUnit::Length},
    {"Total length", "Length of the part between its ends.", FieldUnit::Length},
};
constexpr FieldWords kPlaces[] = {
    {"Left Z", "The part's left end, counted from the mandrel post at home.", FieldUnit::Length},
    {"Inner left Z", "Where the left dome begins, counted from the mandrel post at home.", FieldUnit::Length},
    {"Inner right Z", "Where the right dome begins, counted from the mandrel post at home.", FieldUnit::Length},
    {"Right Z", "The part's right end, counted from the mandrel post at home.", FieldUnit::Length},
};
constexpr FieldWords kOpenings[] = {
    {"Left polar opening", "Diameter of the opening at the left end.", FieldUnit::Length},
    {"Right polar opening", "Diameter of the opening at the right end.", FieldUnit::Length},
};
constexpr FieldWords kOffsets[] = {
    {"Offset 0, wrap Y at the left", "From the axis to the delivery head in the left end wrap.", FieldUnit::Length},
    {"Offset 1, wrap Z at the left", "Where the carriage stands in the left end wrap.", FieldUnit::Length},
    {"Offset 2, left end of the run", "Where the trace shows the left end of the run along the part.", FieldUnit::Length},
    {"Offset 3, head gap", "From the part to the delivery head along the run.", FieldUnit::Length},
    {"Offset 4, right end of the run", "Where the trace shows the right end of the run along the part.", FieldUnit::Length},
    {"Offset 5, wrap Z at the right", "Where the carriage stands in the right end wrap.", FieldUnit::Length},
    {"Offset 6, wrap Y at the right", "From the axis to the delivery head in the right end wrap.", FieldUnit::Length},
};
constexpr FieldWords kFamilies[] = {
    {"2 axes", "The machine moves the carriage and turns the mandrel.", FieldUnit::None, "2Ax"},
    {"4 axes", "The delivery head also moves in and out, and turns.", FieldUnit::None, "4Ax"},
};
constexpr FieldWords kPartTypes[] = {
    {"Flat ends", "The band turns back on the mandrel's flat ends.", FieldUnit::None, "4-Axis Flat Ends"},
    {"Hemispherical ends", "The band turns round the polar openings of two domes.", FieldUnit::None, "4-Axis Hemi Ends"},
    {"No end wraps", "The band turns back on the tube itself.", FieldUnit::None, "3-Axis No Wrap"},
};
constexpr FieldWords kVideos[] = {
    {"2-Axis Software Overview", "Opens the film in the web browser.", FieldUnit::None, "2-Axis Software Overview"},
    {"4-Axis Software Overview", "Opens the film in the web browser.", FieldUnit::None, "4-Axis Software Overview"},
};
// clang-format on

constexpr FieldRow kCatalogue[] = {
    // clang-format off
    // Part, both families
    {"txtLengthTotal", &Fields::txtLengthTotal, Kind::Text, UsedBy::ByIndex, kPanels, "", {"Total length", "Length of the part between its ends.", FieldUnit::Length}},
    {"txtBandWidth", &Fields::txtBandWidth, Kind::Text, UsedBy::ByIndex, kPanels, "", {"Band width", "Width of the filament band in inches.", FieldUnit::Inches}},
    {"txtBandThickness", &Fields::txtBandThickness, Kind::Text, UsedBy::ByIndex, kPanels, "", {"Band thickness", "Thickness of the filament band in inches.", FieldUnit::Inches}},
    {"txtBandWidthMM", &Fields::txtBandWidthMM, Kind::Text, UsedBy::ByIndex, kPanels, "", {"Band width, mm", "Width of the filament band in millimetres.", FieldUnit::Millimetres}},
    {"txtBandThicknessMM", &Fields::txtBandThicknessMM, Kind::Text, UsedBy::ByIndex, kPanels, "", {"Band thickness, mm", "Thickness of the filament band in millimetres.", FieldUnit::Millimetres}},
    {"txtNumberOfLayers", &Fields::txtNumberOfLayers, Kind::Text, UsedBy::ByIndex, kPanels, "", {"Number of Layers", "1 to 15. Each layer becomes a row of the schedule."}},
    {"lblBuildTime", &Fields::lblBuildTime, Kind::ReadOut, UsedBy::ByIndex, kPanels, "", {"Est. Build Time", "Minutes of winding, without pauses."}},
    {"lblLengthRequired", &Fields::lblLengthRequired, Kind::ReadOut, UsedBy::ByIndex, kPanels, "", {"Filament Length", "Filament for all layers.", FieldUnit::Filament}},
    {"lblFinalThickness", &Fields::lblFinalThickness, Kind::ReadOut, UsedBy::ByIndex, kPanels, "", {"Wall Thickness", "Two bands for each layer."}},
    {"lblFilamentVOlume", &Fields::lblFilamentVOlume, Kind::ReadOut, UsedBy::ByIndex, kPanels, "", {"Part Volume", "Volume of the wound wall."}},
    {"lblTotalGlueWgt", &Fields::lblTotalGlueWgt, Kind::ReadOut, UsedBy::ByIndex, kPanels, "", {"Est. Glue Weight", "Resin for the whole part."}},
    {"lblEstWeight", &Fields::lblEstWeight, Kind::ReadOut, UsedBy::ByIndex, kPanels, "", {"Est. Total Weight", "Weight of the wound part."}},
    {"txtDia", &Fields::txtDia, Kind::Text, UsedBy::LowIsFour, UpTo(3), "", {}, kDiameters},
    // Part, two axes
    {"txtDiameterLeft", &Fields::txtDiameterLeft, Kind::Text, UsedBy::TwoAxis, {}, "", {"Left diameter", "Diameter of the mandrel at its left end.", FieldUnit::Length}},
    {"txtDiameterRight", &Fields::txtDiameterRight, Kind::Text, UsedBy::TwoAxis, {}, "", {"Right diameter", "Diameter of the mandrel at its right end.", FieldUnit::Length}},
    {"txtZ2", &Fields::txtZ2, Kind::Text, UsedBy::TwoAxis, UpTo(2), "", {}, kStops},
    {"lblZ2", &Fields::lblZ2, Kind::ReadOut, UsedBy::TwoAxis, UpTo(4), "", {}, kEnds},
    // Part, four axes
    {"txtZ4", &Fields::txtZ4, Kind::Text, UsedBy::FourAxis, UpTo(3), "", {}, kPlaces},
    {"txtPODia", &Fields::txtPODia, Kind::Text, UsedBy::FourAxis, UpTo(1), "", {}, kOpenings},
    {"txtAdjust", &Fields::txtAdjust, Kind::Text, UsedBy::FourAxis, UpTo(6), "", {}, kOffsets},
    {"txtSkirtLeft", &Fields::txtSkirtLeft, Kind::Text, UsedBy::FourAxis, {}, "", {"Left skirt", "Length of the left skirt.", FieldUnit::Length}},
    {"txtSkirtRight", &Fields::txtSkirtRight, Kind::Text, UsedBy::FourAxis, {}, "", {"Right skirt", "Length of the right skirt.", FieldUnit::Length}},
    {"cmbRate", &Fields::cmbRate, Kind::List, UsedBy::FourAxis, {}, "", {"Winding rate", "Speed class of the whole part."}},
    {"lblLengthTotal", &Fields::lblLengthTotal, Kind::ReadOut, UsedBy::FourAxis, {}, "", {"Length", "From the left to the right end of the part.", FieldUnit::Length}},
    {"lblGrazeAngle", &Fields::lblGrazeAngle, Kind::ReadOut, UsedBy::FourAxis, {}, "", {"Grazing angle", "The least angle at which the band still touches the polar opening."}},
    {"optX", &Fields::optX, Kind::Option, UsedBy::Station, UpTo(1), "False", {}, kFamilies},
    {"optType", &Fields::optType, Kind::Option, UsedBy::FourAxis, UpTo(2), "False", {}, kPartTypes},
    // Rows of the two-axis schedule
    {"txtWA", &Fields::txtWA, Kind::Text, UsedBy::TwoAxis, kRowsAndAll, "", {"Winding Angle", "Degrees to the mandrel's axis; 90 winds a hoop. The row follows as you type.", FieldUnit::Degrees}},
    {"txtRight", &Fields::txtRight, Kind::Text, UsedBy::TwoAxis, kRowsAndAll, "", {"Right offset", "How far before the right stop the row turns back.", FieldUnit::Length}},
    {"txtLeft", &Fields::txtLeft, Kind::Text, UsedBy::TwoAxis, kRowsAndAll, "", {"Left offset", "How far before the left stop the row turns back.", FieldUnit::Length}},
    {"cmbSpeed", &Fields::cmbSpeed, Kind::List, UsedBy::TwoAxis, kRowsAndAll, "", {"Speed", "Speed class of the row."}},
    {"cmbMethod", &Fields::cmbMethod, Kind::List, UsedBy::TwoAxis, kRowsAndAll, "", {"Method", "ms shifts the mandrel between passes, cs the carriage."}},
    {"txtMRPM", &Fields::txtMRPM, Kind::Text, UsedBy::TwoAxis, kRowsAndAll, "", {"Mandrel", "Turns of the mandrel a minute. A speed that you type stays until the row is calculated anew.", FieldUnit::Rpm}},
    {"txtCarriageSpeed", &Fields::txtCarriageSpeed, Kind::ReadOut, UsedBy::TwoAxis, kRows, "", {"Carriage Speed", "Follows from angle, diameter and mandrel speed. A click opens the speed classes.", FieldUnit::Speed}},
    {"lblPassesToCover", &Fields::lblPassesToCover, Kind::ReadOut, UsedBy::TwoAxis, kRowsAndAll, "", {"Passes", "Passes that cover the mandrel once."}},
    {"txtAddRevs", &Fields::txtAddRevs, Kind::Text, UsedBy::TwoAxis, kRowsAndAll, "", {"Add'l Wrap", "Degrees that the mandrel turns on at each end.", FieldUnit::Degrees}},
    {"cmb2AxisLayerType", &Fields::cmb2AxisLayerType, Kind::List, UsedBy::TwoAxis, kRows, "", {"Layer Type", "HOOP lays band beside band, REG crosses the part at its angle."}},
    {"cmbExactAngle", &Fields::cmbExactAngle, Kind::List, UsedBy::TwoAxis, kRows, "", {"Exact Winding Angle", "The angle that closes the pattern without a gap."}},
    {"lblMinutesToCover", &Fields::lblMinutesToCover, Kind::ReadOut, UsedBy::TwoAxis, kRowsAndAll, "", {"Minutes", "Time of the row."}},
    {"lblLengthToCover", &Fields::lblLengthToCover, Kind::ReadOut, UsedBy::TwoAxis, kRowsAndAll, "", {"Length", "Filament of the row.", FieldUnit::Filament}},
    // Rows of the four-axis schedule
    {"lbl4xLayerNo", &Fields::lbl4xLayerNo, Kind::ReadOut, UsedBy::FourAxis, kRowNumbers, "", {"Layer", "Number of the layer. A press shows its pattern."}},
    {"cmb3D", &Fields::cmb3D, Kind::List, UsedBy::FourAxis, kRowNumbersAndAll, "", {"Layer Type", "HOOP lays band beside band, REG follows a pattern."}},
    {"chkPause", &Fields::chkPause, Kind::Check, UsedBy::FourAxis, kRowNumbersAndAll, "0", {"Pause", "The machine waits behind this layer. Without end wraps the tick does nothing."}},
    {"lblRPM", &Fields::lblRPM, Kind::ReadOut, UsedBy::FourAxis, kRowNumbers, "", {"RPM", "Turns of the mandrel a minute."}},
    {"lblcSpeed", &Fields::lblcSpeed, Kind::ReadOut, UsedBy::FourAxis, kRowNumbers, "", {"Carriage Speed", "Speed of the carriage along the part.", FieldUnit::Speed}},
    {"cmbPattern", &Fields::cmbPattern, Kind::List, UsedBy::FourAxis, kRowNumbersAndAll, "", {"Pattern", "Winding angle | groups x circuits | end wrap."}},
    {"cmbPhiW", &Fields::cmbPhiW, Kind::List, UsedBy::FourAxis, kRowNumbers, "", {"End Wrap", "Turn of the mandrel at each end."}},
    {"cmbPhiSplit", &Fields::cmbPhiSplit, Kind::List, UsedBy::FourAxis, kRowNumbers, "", {"Split", "Share of the end wrap before the head moves."}},
    {"lblNPasses", &Fields::lblNPasses, Kind::ReadOut, UsedBy::FourAxis, kRowNumbersAndAll, "", {"Passes", "Passes that cover the mandrel once."}},
    {"lblMinutes", &Fields::lblMinutes, Kind::ReadOut, UsedBy::FourAxis, kRowNumbersAndAll, "", {"Minutes", "Time of the row."}},
    {"lblLength", &Fields::lblLength, Kind::ReadOut, UsedBy::FourAxis, kRowNumbersAndAll, "", {"Length", "Filament of the row.", FieldUnit::Filament}},
    {"btn4XRow", &Fields::btn4XRow, Kind::Control, UsedBy::FourAxis, kRows, "", {"Layer", "Shows the row's pattern; the right button opens its menu."}},
    // Identity of the design and working copies of its values
    {"gFilePath", &Fields::gFilePath, Kind::Value, UsedBy::Station, {}, ""},
    {"gFileName", &Fields::gFileName, Kind::Value, UsedBy::Station, {}, ""},
    {"gLastFileInUse", &Fields::gLastFileInUse, Kind::Value, UsedBy::Station, {}, ""},
    {"gVersionNumber", &Fields::gVersionNumber, Kind::Value, UsedBy::Station, {}, ""},
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
    {"chkWindingSchedule", &Fields::chkWindingSchedule, Kind::Check, UsedBy::Station, {}, "1", {"Winding", "The layers themselves are part of the program.", FieldUnit::None, "Winding"}},
    {"chkPreWrap1", &Fields::chkPreWrap1, Kind::Check, UsedBy::Station, {}, "0", {"Pre-Wrap #1", "Wraps the bare mandrel before winding.", FieldUnit::None, "Pre-Wrap #1"}},
    {"chkPreWrap2", &Fields::chkPreWrap2, Kind::Check, UsedBy::Station, {}, "0", {"Pre-Wrap #2", "A second wrap of the bare mandrel.", FieldUnit::None, "Pre-Wrap #2"}},
    {"chkHeatGunApp", &Fields::chkHeatGunApp, Kind::Check, UsedBy::Station, {}, "0", {"Heat Gun", "A pass of the heat gun ends the program.", FieldUnit::None, "Heat Gun"}},
    {"chkPromptForHST", &Fields::chkPromptForHST, Kind::Check, UsedBy::Station, {}, "0", {"Shrink Tape", "Shrink tape follows the last layer.", FieldUnit::None, "Shrink Tape"}},
    {"chkNotify1", &Fields::chkNotify1, Kind::Check, UsedBy::Station, {}, "0", {"Send Text Message When Complete", "Sends a message to the first address at the end.", FieldUnit::None, "Send Text Message When Complete"}},
    {"chkNotify2", &Fields::chkNotify2, Kind::Check, UsedBy::Station, {}, "0", {"2nd message", "Sends a message to the second address as well."}},
    {"txtPreWrapAdvance", &Fields::txtPreWrapAdvance, Kind::Text, UsedBy::Station, kPreWraps, "", {"Pre-wrap advance", "How far the carriage goes in one turn of the mandrel, in inches.", FieldUnit::Inches}},
    {"txtPreWrapAdvanceMM", &Fields::txtPreWrapAdvanceMM, Kind::Text, UsedBy::Station, kPreWraps, "", {"Pre-wrap advance, mm", "How far the carriage goes in one turn of the mandrel, in millimetres.", FieldUnit::Millimetres}},
    {"cmbPreWrapRPM", &Fields::cmbPreWrapRPM, Kind::List, UsedBy::Station, kPreWraps, "", {"Pre-wrap RPM", "Turns of the mandrel a minute in the pre-wrap.", FieldUnit::Rpm}},
    {"txtHGSpeed", &Fields::txtHGSpeed, Kind::Text, UsedBy::Station, {}, "", {"Heat gun speed", "Carriage speed in inches per second.", FieldUnit::InchesPerSecond}},
    {"txtHGSpeedMM", &Fields::txtHGSpeedMM, Kind::Text, UsedBy::Station, {}, "", {"Heat gun speed, mm", "Carriage speed in millimetres per second.", FieldUnit::MillimetresPerSecond}},
    {"cmbHGRPM", &Fields::cmbHGRPM, Kind::List, UsedBy::Station, {}, "", {"Heat gun RPM", "Turns of the mandrel a minute under the heat gun.", FieldUnit::Rpm}},
    {"txtHSTWidth", &Fields::txtHSTWidth, Kind::Text, UsedBy::Station, {}, "", {"Shrink tape width", "Width of the tape in inches.", FieldUnit::Inches}},
    {"txtHSTWidthMM", &Fields::txtHSTWidthMM, Kind::Text, UsedBy::Station, {}, "", {"Shrink tape width, mm", "Width of the tape in millimetres.", FieldUnit::Millimetres}},
    {"cmbHSTRPM", &Fields::cmbHSTRPM, Kind::List, UsedBy::Station, {}, "", {"Shrink tape RPM", "Turns of the mandrel a minute under the tape.", FieldUnit::Rpm}},
    {"txtStepSize2Ax", &Fields::txtStepSize2Ax, Kind::Text, UsedBy::Station, {}, "", {"Step", "How far a press of an arrow shifts both stops.", FieldUnit::Length}},
    {"txtStepSize4Ax", &Fields::txtStepSize4Ax, Kind::Text, UsedBy::Station, {}, "", {"Step", "How far a press of an arrow shifts the part or an offset.", FieldUnit::Length}},
    // Constants of the station
    {"txtLimitSwitchApproachSpeed", &Fields::txtLimitSwitchApproachSpeed, Kind::Value, UsedBy::Station, {}, ""},
    {"txtMandrelAdvanceAfterPreWrapCarriageStop", &Fields::txtMandrelAdvanceAfterPreWrapCarriageStop, Kind::Value, UsedBy::Station, {}, ""},
    {"txtPreWrapFullLengthYN", &Fields::txtPreWrapFullLengthYN, Kind::Value, UsedBy::Station, {}, ""},
    {"txtMandrelRotateAfterLayerCompletion", &Fields::txtMandrelRotateAfterLayerCompletion, Kind::Value, UsedBy::Station, {}, ""},
    {"txtMandrelAdvanceAfterHSTCarriageStop", &Fields::txtMandrelAdvanceAfterHSTCarriageStop, Kind::Value, UsedBy::Station, {}, ""},
    {"txtHeatGunJustKeepGoingYN", &Fields::txtHeatGunJustKeepGoingYN, Kind::Value, UsedBy::Station, {}, ""},
    {"txtAddPasses", &Fields::txtAddPasses, Kind::Value, UsedBy::Station, {}, ""},
    {"txtAddExtra360AtFarEndYN", &Fields::txtAddExtra360AtFarEndYN, Kind::Value, UsedBy::Station, {}, ""},
    {"txtUseProportionalFilamentSpacingYN", &Fields::txtUseProportionalFilamentSpacingYN, Kind::Value, UsedBy::Station, {}, ""},
    {"txt2AXAdd360YN", &Fields::txt2AXAdd360YN, Kind::Value, UsedBy::Station, {}, ""},
    {"txt3AX1stPass360", &Fields::txt3AX1stPass360, Kind::Value, UsedBy::Station, {}, ""},
    {"gMidAngle", &Fields::gMidAngle, Kind::Value, UsedBy::Station, {}, ""},
    {"gSplitAngle", &Fields::gSplitAngle, Kind::Value, UsedBy::Station, {}, ""},
    {"gDHYtoMandrelCenter", &Fields::gDHYtoMandrelCenter, Kind::Value, UsedBy::Station, {}, ""},
    {"gDHStructureWidth", &Fields::gDHStructureWidth, Kind::Value, UsedBy::Station, {}, ""},
    {"gCarriageOffsetFromRMPFace", &Fields::gCarriageOffsetFromRMPFace, Kind::Value, UsedBy::Station, {}, ""},
    {"gPauseBeforeHoop", &Fields::gPauseBeforeHoop, Kind::Value, UsedBy::Station, {}, ""},
    {"txtMailServer", &Fields::txtMailServer, Kind::Value, UsedBy::Station, {}, ""},
    {"txtEmail1", &Fields::txtEmail1, Kind::Value, UsedBy::Station, {}, ""},
    {"txtEmail2", &Fields::txtEmail2, Kind::Value, UsedBy::Station, {}, ""},
    {"gCarriageBoardID", &Fields::gCarriageBoardID, Kind::Value, UsedBy::Station, {}, ""},
    {"gMandrelBoardID", &Fields::gMandrelBoardID, Kind::Value, UsedBy::Station, {}, ""},
    {"chkDontShowVideoLinks", &Fields::chkDontShowVideoLinks, Kind::Check, UsedBy::Window, {}, "0", {"Don't Show These Links", "The start card leaves the links out.", FieldUnit::None, "Don't Show These Links"}},
    // The main window's place, in twips, and whether it fills the screen
    {"Me.Top", &Fields::meTop, Kind::Value, UsedBy::Window, {}, "400"},
    {"Me.Left", &Fields::meLeft, Kind::Value, UsedBy::Window, {}, "400"},
    {"Me.Width", &Fields::meWidth, Kind::Value, UsedBy::Window, {}, "17000"},
    {"Me.Height", &Fields::meHeight, Kind::Value, UsedBy::Window, {}, "12500"},
    {"Me.WasMaximized", &Fields::meWasMaximized, Kind::Value, UsedBy::Window, {}, "0"},
    // Buttons, menu entries, pictures and windows
    {"btn2XRow", &Fields::btn2XRow, Kind::Control, UsedBy::Window, kRows, "", {"Layer", "A press chooses the row to copy, paste or delete; the right button opens its menu."}},
    {"lblL", &Fields::lblL, Kind::Control, UsedBy::Window, kRows, "", {"Layer", "A press chooses the row to copy, paste or delete; the right button opens its menu."}},
    {"btnReCalc", &Fields::btnReCalc, Kind::Control, UsedBy::Window, {}, "", {"ReCalc All Rows", "Calculates every row afresh.", FieldUnit::None, "ReCalc All Rows"}},
    {"mnuPopMenu", &Fields::mnuPopMenu, Kind::Control, UsedBy::Window, {}, "", {"Row menu", "What can be done with the pressed row."}},
    {"mnuWhatsThis", &Fields::mnuWhatsThis, Kind::Control, UsedBy::Window, {}, "", {"What's this", "Then click what you want to know about.", FieldUnit::None, "Whats This ?"}},
    {"mnuCopy", &Fields::mnuCopy, Kind::Control, UsedBy::Window, {}, "", {"Copy Row", "Copies the pressed row of the 2-axis schedule.", FieldUnit::None, "Copy Row"}},
    {"mnuPaste", &Fields::mnuPaste, Kind::Control, UsedBy::Window, {}, "", {"Paste Row", "Puts the copied row in the place of the pressed one.", FieldUnit::None, "Paste Row"}},
    {"mnuClearRow", &Fields::mnuClearRow, Kind::Control, UsedBy::Window, {}, "", {"Clear Row", "Empties the pressed row.", FieldUnit::None, "Clear Row"}},
    {"mnuDeleteRow", &Fields::mnuDeleteRow, Kind::Control, UsedBy::Window, {}, "", {"Delete Row", "Takes the pressed row out; those below move up.", FieldUnit::None, "Delete Row"}},
    {"mnuReCalcSpeeds", &Fields::mnuReCalcSpeeds, Kind::Control, UsedBy::Window, {}, "", {"ReCalc This Row", "Calculates the pressed row afresh.", FieldUnit::None, "ReCalcThis Row"}},
    {"mnuRecalcAllRows", &Fields::mnuRecalcAllRows, Kind::Control, UsedBy::Window, {}, "", {"ReCalc All Rows", "Calculates every row afresh.", FieldUnit::None, "ReCalc All Rows"}},
    {"imgBUILD", &Fields::imgBUILD, Kind::Control, UsedBy::Window, {}, "", {"Build", "Writes the program of this design and hands it to the executor."}},
    {"lblBuild", &Fields::lblBuild, Kind::Control, UsedBy::Window, {}, "", {"Build", "Writes the program of this design and hands it to the executor.", FieldUnit::None, "Build"}},
    {"lblBeginBuild", &Fields::lblBeginBuild, Kind::Control, UsedBy::Window, {}, "", {"Begin Build", "Writes the program of this design and hands it to the executor."}},
    {"mnuBeginWinding", &Fields::mnuBeginWinding, Kind::Control, UsedBy::Window, {}, "", {"Begin Build", "Writes the program of this design and hands it to the executor.", FieldUnit::None, "Begin Build Process w/G-Code"}},
    {"Command2", &Fields::Command2, Kind::Control, UsedBy::Window, {}, "", {"View G-Code", "Writes the program and shows it.", FieldUnit::None, "View G-Code"}},
    {"lblManualOperation", &Fields::lblManualOperation, Kind::Control, UsedBy::Window, {}, "", {"Manual", "Starts the executor for work by hand.", FieldUnit::None, "Manual"}},
    {"mnuManually", &Fields::mnuManually, Kind::Control, UsedBy::Window, {}, "", {"Operate Torvane Manually", "Starts the executor for work by hand.", FieldUnit::None, "Operate Torvane Manually"}},
    {"mnuLaunchExecutor", &Fields::mnuLaunchExecutor, Kind::Control, UsedBy::Window, {}, "", {"Launch Executor", "Starts the executor without a program.", FieldUnit::None, "Launch Executor w/o G-Code"}},
    {"mnuViewDesignFile", &Fields::mnuViewDesignFile, Kind::Control, UsedBy::Window, {}, "", {"View Design File", "Shows the design file as text."}},
    {"mnuViewDesignDirectory", &Fields::mnuViewDesignDirectory, Kind::Control, UsedBy::Window, {}, "", {"View Design Folder", "Opens the folder of the designs."}},
    {"mnuViewGCodeDirectory", &Fields::mnuViewGCodeDirectory, Kind::Control, UsedBy::Window, {}, "", {"View G-Code Folder", "Opens the folder of the programs."}},
    {"mnuViewMakeFile", &Fields::mnuViewMakeFile, Kind::Control, UsedBy::Window, {}, "", {"View Make File", "Nothing yet; scripts know it."}},
    {"picVidLinks", &Fields::picVidLinks, Kind::Control, UsedBy::Window, {}, "", {"Links", "Where to watch and to read more."}},
    {"lblCommunity", &Fields::lblCommunity, Kind::Control, UsedBy::Window, {}, "", {"Community", "Opens the page of those who wind with it.", FieldUnit::None, "Post some pics of your stuff at the Torvane Community"}},
    {"lblVidLink", &Fields::lblVidLink, Kind::Control, UsedBy::Window, kPanels, "", {}, kVideos},
    {"picVidLink", &Fields::picVidLink, Kind::Control, UsedBy::Window, kPanels, "", {}, kVideos},
    {"frmSplash", &Fields::frmSplash, Kind::Control, UsedBy::Window, {}, "", {"Torvane Designer", "A click closes this picture."}},
    {"lblLayer", &Fields::lblLayer, Kind::Caption, UsedBy::Window, {}, "", {"Pattern view", "The layer whose pattern is shown."}},
    {"picPolar", &Fields::picPolar, Kind::Control, UsedBy::Window, {}, "", {"Pattern, seen from the end", "A click opens the preview of the pattern."}},
    {"Label18", &Fields::Label18, Kind::Control, UsedBy::Window, {}, "", {"Enlarge", "Opens the preview of the pattern.", FieldUnit::None, "Click to Enlarge"}},
    {"lblTrace", &Fields::lblTrace, Kind::Control, UsedBy::Window, {}, "", {"Trace", "The machine visits the design's points. It moves."}},
    {"imgTRACE", &Fields::imgTRACE, Kind::Control, UsedBy::Window, {}, "", {"Trace", "The machine visits the design's points. It moves."}},
    {"lblNumberOfLayers", &Fields::lblNumberOfLayers, Kind::Control, UsedBy::Window, kPanels, "", {"Number of Layers", "A click makes as many rows as the number beside it says.", FieldUnit::None, "Number of Layers"}},
    {"btn2AxLeftRight", &Fields::btn2AxLeftRight, Kind::Control, UsedBy::Window, kPanels, "", {"Shift part", "Shifts both stops by a step."}},
    {"btnLR", &Fields::btnLR, Kind::Control, UsedBy::Window, kPanels, "", {"Shift part", "Shifts all places in Z, and the offsets along the part, by a step."}},
    {"btnCloser", &Fields::btnCloser, Kind::Control, UsedBy::FourAxis, kPanels, "", {"Offset 3, head gap", "Moves the delivery head by a step."}},
    {"btnLeftCloser", &Fields::btnLeftCloser, Kind::Control, UsedBy::FourAxis, kPanels, "", {"Offset 0, wrap Y at the left", "Moves the delivery head by a step."}},
    {"btnRightCloser", &Fields::btnRightCloser, Kind::Control, UsedBy::FourAxis, kPanels, "", {"Offset 6, wrap Y at the right", "Moves the delivery head by a step."}},
    {"btnLDHZ", &Fields::btnLDHZ, Kind::Control, UsedBy::FourAxis, kPanels, "", {"Offset 1, wrap Z at the left", "Moves the delivery head by a step."}},
    {"btnRDHZ", &Fields::btnRDHZ, Kind::Control, UsedBy::FourAxis, kPanels, "", {"Offset 5, wrap Z at the right", "Moves the delivery head by a step."}},
    {"btnLeft", &Fields::btnLeft, Kind::Control, UsedBy::FourAxis, kPanels, "", {"Offset 2, left end of the run", "Moves the delivery head by a step."}},
    {"btnRight", &Fields::btnRight, Kind::Control, UsedBy::FourAxis, kPanels, "", {"Offset 4, right end of the run", "Moves the delivery head by a step."}},
    {"picType", &Fields::picType, Kind::Control, UsedBy::Window, {}, "", {"Part type", "Leads to the next part type or the one before."}},
    {"picFlat", &Fields::picFlat, Kind::Control, UsedBy::FourAxis, {}, "", {"Flat ends", "The band turns back on the mandrel's flat ends."}},
    {"picDome", &Fields::picDome, Kind::Control, UsedBy::FourAxis, {}, "", {"Hemispherical ends", "The band turns round the polar openings of two domes."}},
    {"pic2AxNoWrap", &Fields::pic2AxNoWrap, Kind::Control, UsedBy::FourAxis, {}, "", {"No end wraps", "The band turns back on the tube itself."}},
    {"lblRefresh", &Fields::lblRefresh, Kind::Control, UsedBy::Window, {}, "", {"Recalculate", "Calculates every row afresh."}},
    {"lblGoTrace", &Fields::lblGoTrace, Kind::Control, UsedBy::Window, {}, "", {"Trace", "The machine visits the design's points. It moves."}},
    {"lblHome", &Fields::lblHome, Kind::Control, UsedBy::Window, {}, "", {"Go Home", "The machine drives to its limit switches. It moves."}},
    // What the window says of itself
    {"frmMain", &Fields::frmMain, Kind::Control, UsedBy::Window, {}, "", {"Torvane Designer", "Design of wound parts."}},
    {"lblStatusBar1", &Fields::lblStatusBar1, Kind::Caption, UsedBy::Window, {}, "", {"Design", "File of the design."}},
    {"lblStatusBar2", &Fields::lblStatusBar2, Kind::Caption, UsedBy::Window, {}, "", {"Hint", "What the station says of its last step."}},
    {"lblVersion", &Fields::lblVersion, Kind::Caption, UsedBy::Window, {}, "", {"Version", "Version of the station."}},
    {"lblUnits", &Fields::lblUnits, Kind::Caption, UsedBy::Design, UpTo(0), "", {"Units", "Unit of the design."}},
    {"lbl2or4AX", &Fields::lbl2or4AX, Kind::Caption, UsedBy::Window, {}, "", {"Family", "Axes of the machine."}},
    {"lblLengthHeading", &Fields::lblLengthHeading, Kind::Caption, UsedBy::Design, {}, "", {"Length", "Filament of each row."}},
    {"lblCarriageSpeedHeading", &Fields::lblCarriageSpeedHeading, Kind::Caption, UsedBy::Design, {}, "", {"Carriage Speed", "Speed of the carriage along the part."}},
    {"lblSpeedUnits", &Fields::lblSpeedUnits, Kind::Caption, UsedBy::Design, {}, "", {"Unit of speed", "Of the carriage."}},
    {"lblLengthUnits", &Fields::lblLengthUnits, Kind::Caption, UsedBy::Design, {}, "", {"Unit of length", "Of the filament."}},
    {"Label1(47)", &Fields::lblPatternHeading, Kind::Caption, UsedBy::Window, {}, "Pattern", {"Pattern", "Winding angle | groups x circuits | end wrap."}},
    {"lblLengthHeading4Ax", &Fields::lblLengthHeading4Ax, Kind::Caption, UsedBy::Window, {}, "", {"Length", "Filament of each row."}},
    {"lblCarriageSpeedHeading4Ax", &Fields::lblCarriageSpeedHeading4Ax, Kind::Caption, UsedBy::Window, {}, "", {"Carriage Speed", "Speed of the carriage along the part."}},
    // clang-format on
};

}  // namespace

std::span<const FieldRow> Catalogue() { return kCatalogue; }

bool IsUsed(const FieldRow& row, int index, Family family) {
  const bool fourAxes = family == Family::FourAxes;
  switch (row.usedBy) {
    case UsedBy::TwoAxis:
      return !fourAxes;
    case UsedBy::FourAxis:
      return fourAxes;
    case UsedBy::ByIndex:
      return fourAxes == (index == 1);
    case UsedBy::LowIsFour:
      return fourAxes == (index <= 1);
    case UsedBy::Design:
    case UsedBy::Station:
      return true;
    case UsedBy::Window:
      return false;
  }
  return false;
}

const FieldWords& WordsOf(const Field& field) {
  const FieldRow& row = field.row();
  if (row.membersWords.empty()) return row.words;
  return row.membersWords[static_cast<std::size_t>(row.indexes.Place(field.index()))];
}

std::string_view TextOf(FieldUnit unit, bool inches) {
  switch (unit) {
    case FieldUnit::Length:
      return inches ? "in" : "mm";
    case FieldUnit::Speed:
      return inches ? "in/s" : "mm/s";
    case FieldUnit::Filament:
      return inches ? "ft" : "m";
    case FieldUnit::Inches:
      return "in";
    case FieldUnit::Millimetres:
      return "mm";
    case FieldUnit::InchesPerSecond:
      return "in/s";
    case FieldUnit::MillimetresPerSecond:
      return "mm/s";
    case FieldUnit::Degrees:
      return "deg";
    case FieldUnit::Rpm:
      return "RPM";
    case FieldUnit::None:
      break;
  }
  return {};
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

const Field* FindField(const Fields& fields, std::string_view name) {
  return FindField(const_cast<Fields&>(fields), name);
}

}  // namespace torvane
