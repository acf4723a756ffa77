// Every text of the station under its own name. The catalogue says what each one is.
#pragma once

#include "design/field.h"

namespace torvane {

// The machine families: carriage and mandrel, or the delivery head's two axes as well.
enum class Family : std::uint8_t { TwoAxes, FourAxes };

struct Fields {
  // Part, both families: index 0 is the two-axis panel, 1 the four-axis panel.
  FieldArray txtLengthTotal, txtBandWidth, txtBandThickness, txtBandWidthMM, txtBandThicknessMM;
  FieldArray txtNumberOfLayers;
  FieldArray lblBuildTime, lblLengthRequired, lblFinalThickness, lblFilamentVOlume, lblTotalGlueWgt,
      lblEstWeight;
  FieldArray txtDia;  // 0 and 1 four-axis, 2 and 3 the two-axis drawing

  // Part, two axes.
  Field txtDiameterLeft, txtDiameterRight;
  FieldArray txtZ2, lblZ2;

  // Part, four axes.
  FieldArray txtZ4, txtPODia, txtAdjust;
  Field txtSkirtLeft, txtSkirtRight, cmbRate, lblLengthTotal, lblGrazeAngle;
  FieldArray optX, optType;

  // Rows of the two-axis schedule.
  FieldArray txtWA, txtRight, txtLeft, cmbSpeed, cmbMethod, txtMRPM, txtCarriageSpeed, lblPassesToCover;
  FieldArray txtAddRevs, cmb2AxisLayerType, cmbExactAngle, lblMinutesToCover, lblLengthToCover;

  // Rows of the four-axis schedule.
  FieldArray lbl4xLayerNo, cmb3D, chkPause, lblRPM, lblcSpeed, cmbPattern, cmbPhiW, cmbPhiSplit, lblNPasses,
      lblMinutes, lblLength, btn4XRow;

  // Identity of the design and working copies of its values.
  Field gFilePath, gFileName, gLastFileInUse, gVersionNumber;
  Field Author, Author_Email, Comments, Date_of_Creation;
  Field Diameter_Left, Diameter_Right, Length_Total, Band_Width, Band_Thickness, Number_of_Layers;
  Field gLeftStopText, gRightStopText;
  Field gUnits, gPartType;

  // The program last written.
  Field gGCodeFileName, gGCodeFilePath, gGCodeFolder, gFarEndZ, gHomeEndZ;

  // Choices of a build.
  Field chkWindingSchedule, chkPreWrap1, chkPreWrap2, chkHeatGunApp, chkPromptForHST, chkNotify1, chkNotify2;
  FieldArray txtPreWrapAdvance, txtPreWrapAdvanceMM, cmbPreWrapRPM;
  Field txtHGSpeed, txtHGSpeedMM, cmbHGRPM, txtHSTWidth, txtHSTWidthMM, cmbHSTRPM;
  Field txtStepSize2Ax, txtStepSize4Ax;

  // Constants of the station.
  Field txtLimitSwitchApproachSpeed, txtMandrelAdvanceAfterPreWrapCarriageStop, txtPreWrapFullLengthYN;
  Field txtMandrelRotateAfterLayerCompletion, txtMandrelAdvanceAfterHSTCarriageStop;
  Field txtHeatGunJustKeepGoingYN, txtAddPasses, txtAddExtra360AtFarEndYN;
  Field txtUseProportionalFilamentSpacingYN, txt2AXAdd360YN, txt3AX1stPass360;
  Field gMidAngle, gSplitAngle, gDHYtoMandrelCenter, gDHStructureWidth, gCarriageOffsetFromRMPFace;
  Field gPauseBeforeHoop;
  Field txtMailServer, txtEmail1, txtEmail2;
  Field gCarriageBoardID, gMandrelBoardID;
  Field chkDontShowVideoLinks;

  // The main window's place, in twips, and whether it fills the screen.
  Field meTop, meLeft, meWidth, meHeight, meWasMaximized;

  // Buttons, menu entries, pictures and windows.
  FieldArray btn2XRow, lblL;
  Field btnReCalc, mnuPopMenu, mnuWhatsThis, mnuCopy, mnuPaste, mnuClearRow, mnuDeleteRow, mnuReCalcSpeeds,
      mnuRecalcAllRows;
  Field imgBUILD, lblBuild, lblBeginBuild, mnuBeginWinding, Command2, lblManualOperation, mnuManually,
      mnuLaunchExecutor, mnuViewDesignFile, mnuViewDesignDirectory, mnuViewGCodeDirectory, mnuViewMakeFile;
  Field picVidLinks, lblCommunity;
  FieldArray lblVidLink, picVidLink;
  Field frmSplash, lblLayer, picPolar, Label18, lblTrace, imgTRACE;
  FieldArray lblNumberOfLayers;
  FieldArray btn2AxLeftRight, btnLR, btnCloser, btnLeftCloser, btnRightCloser, btnLDHZ, btnRDHZ, btnLeft,
      btnRight;
  Field picType, picFlat, picDome, pic2AxNoWrap, lblRefresh, lblGoTrace, lblHome;

  // What the window says of itself.
  Field frmMain, lblStatusBar1, lblStatusBar2, lblVersion, lbl2or4AX;
  FieldArray lblUnits;
  Field lblLengthHeading, lblCarriageSpeedHeading, lblSpeedUnits, lblLengthUnits;
  Field lblPatternHeading;  // "Label1(47)"
  Field lblLengthHeading4Ax, lblCarriageSpeedHeading4Ax;
};

}  // namespace torvane
