#include "workbench/document/startup.h"

#include "calc/patterns.h"
#include "design/reset.h"
#include "design/rows.h"
#include "persist/calibration.h"
#include "persist/settings.h"
#include "workbench/build/checklist.h"
#include "workbench/document/design_commands.h"
#include "workbench/station/all_rows.h"
#include "workbench/station/messages.h"
#include "workbench/station/recovery.h"
#include "workbench/station/station.h"

namespace torvane {

namespace {

// A store that a station of version 2 has left behind.
void UpgradeStore(DesignState& s, SettingsStore& store) {
  SaveSetting(store, kSettings, "mnu2Axis", "1");
  ShowAxisDisplay(s, false);
  SaveSetting(store, kSettings, "gLastFileInUse", "");
  for (const std::string_view section : {kPointCalibration, kCommaCalibration}) {
    SaveSetting(store, section, "gCarriageBoardID", "");
    SaveSetting(store, section, "gMandrelBoardID", "");
  }
  constexpr const char* kClasses[][2] = {{"iMaxCarriageSpeeds(1)", "2"}, {"iMaxCarriageSpeeds(2)", "4"},
                                         {"iMaxCarriageSpeeds(3)", "6"}, {"iMaxMandrelRPM(1)", "20"},
                                         {"iMaxMandrelRPM(2)", "40"},    {"iMaxMandrelRPM(3)", "60"}};
  for (const auto& [key, value] : kClasses) SaveSetting(store, kSettings, key, value);
}

std::vector<std::string> WholeDegrees(int first, int last) {
  std::vector<std::string> entries;
  for (int degrees = first; degrees <= last; ++degrees)
    entries.push_back(std::to_string(degrees) + kDegreeSign);
  return entries;
}

// What stands in fields that no step of a new design fills.
void FillFirstTexts(DesignState& s) {
  s.lblFilamentVOlume(1) = "0.0";
  s.lblTotalGlueWgt(1) = "0.0";
  s.lblBuildTime(1) = "0.0";
  s.optType(0) = "True";
  ShowPartType(s, 0);
}

// The speed lists of the checklist are filled with the calibration.
void FillChoiceLists(DesignState& s) {
  for (int i = 1; i <= IndexSet::kAllRows; ++i) {
    s.cmbSpeed(i).SetEntries({"slow", "med", "fast"});
    s.cmbSpeed(i) = "med";
    s.cmbMethod(i).SetEntries({"ms", "cs"});
    s.cmbMethod(i) = "ms";
  }
  s.cmbSpeed(IndexSet::kAllRows) = "";
  s.cmbMethod(IndexSet::kAllRows) = "";
  s.cmbRate.SetEntries({"SLOW", "MED", "FAST"});
  const auto wraps = WholeDegrees(111, 230);
  const auto splits = WholeDegrees(25, 75);
  for (int i = 1; i <= kLongRows; ++i) {
    s.lbl4xLayerNo(i) = std::to_string(i);
    s.cmb3D(i).SetEntries({"REG", "HOOP"});
    s.cmb3D(i) = "REG";
    s.cmbPhiW(i).SetEntries(wraps);
    s.cmbPhiW(i) = kDefaultWrap;
    s.cmbPhiSplit(i).SetEntries(splits);
    s.cmbPhiSplit(i) = kDefaultSplit;
    s.cmb2AxisLayerType(i).SetEntries({"REG", "HOOP"});
    s.cmb2AxisLayerType(i) = "REG";
  }
}

}  // namespace

void Form_Load(Station& station) {
  DesignState& s = station.s;
  SettingsStore& store = station.platform.store;
  // The splash shows while the main window is made ready behind it.
  s.frmSplash.Show(true);
  s.frmMain.Show(false);
  for (Field* hidden : {&s.mnuPopMenu, &s.lblTrace, &s.imgTRACE}) hidden->Show(false);
  station.timers.Start(station.timers.tmrSplash);
  const std::string lastVersion = GetSetting(store, kSettings, "gVersionNumber", "");
  if (lastVersion.starts_with('2')) UpgradeStore(s, store);
  station.FirstRunOrUpgrade = lastVersion.empty() || lastVersion.starts_with('2');
  SetUnits(s, store, "Y");
  s.gVersionNumber = "420";
  SaveSetting(store, kSettings, "gVersionNumber", s.gVersionNumber.text());
  s.lblVersion = "Designer Version " + s.gVersionNumber.text();
  s.frmMain.SetCaption("Torvane Designer ");
  if (s.lblStatusBar2.tip().empty()) s.lblStatusBar2.CopyFrom(s.gFileName);
  s.gMirrorOnChange = true;
  s.chkPause(1).Show(true);
  s.lblStatusBar1.Show(false);
  s.gDecimalComma = NumberToText(s.signs, 5.0 / 2).find(',') != std::string::npos;
  s.gIsLHDrive = ReadsAsTrue(GetSetting(store, kSettings, "gIsLHDrive", "False"));
  ShowAllRowsFields(s, false);
  for (int i = 0; i <= 2; ++i) MarkIfZero(s.txtZ2(i));
  s.txtDiameterLeft.SetMark(Mark::NeedsInput);
  s.txtDiameterRight.SetMark(Mark::NeedsInput);
  SaveSetting(store, kSettings, "chkUpdateCellsAuto", "1");
  SaveSetting(store, kSettings, "chkLaunchwLastFile", "1");
  station.started = station.platform.clock.Now();
  FillFirstTexts(s);
  FillChoiceLists(s);
  InitializeAsNew(s);
  OpenCalibrationFile(s, store);
  ReadStoredSettings(s, store);
  LinkPreWraps(station);
  s.picVidLinks.Show(!s.chkDontShowVideoLinks.checked());
  if (s.meWasMaximized.text() == "1") {
    s.meTop = "400";
    s.meLeft = "400";
  }
  OpenLastDesignerFileInUse(station);
  s.gDirty = false;
  ShowAxisDisplay(s, GetSetting(store, kSettings, "mnu2Axis", "1") != "1");
  Refresh4AXGrid(s);
  s.gMirrorOnChange = false;
  if (station.FirstRunOrUpgrade) ShowAxisDisplay(s, false);
  for (int i = 1; i <= 20; ++i) {
    s.txtLeft(i).Show(false);
    s.txtRight(i).Show(false);
  }
  station.TellOfStore();
}

void Form_Unload(Station& station) {
  DesignState& s = station.s;
  if (station.ended) return;
  s.frmMain.Show(false);
  const bool unsaved = s.gDirty;
  const bool saved = AskToSaveFirst(station);
  SaveStoredSettings(s, station.platform.store);
  if (!unsaved || !s.gDirty) {
    DropRecovery(station);
  } else if (!WriteRecovery(station) && (!saved || !station.recovery.refusal.empty())) {
    // What is not saved is offered at the next start, whatever the answer was; without a copy for that it is
    // not thrown away unasked.
    Message question;
    question.text = "\r\nThe design is not saved, and no copy of it could be made for the next start.\r\n" +
                    station.recovery.refusal + "\r\n\r\nDo you want to end without it ?";
    if (!station.platform.messageDialog.Ask(question)) {
      s.frmMain.Show(true);
      return;
    }
  }
  while (!station.windows.empty()) station.windows.Close(station.windows.Top());
  s.frmSplash.Show(false);
  station.ended = true;
  station.recovery.lock.reset();
  station.keptStore.Settle();
  station.TellOfStore();
}

}  // namespace torvane
