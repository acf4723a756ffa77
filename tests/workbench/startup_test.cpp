#include <gtest/gtest.h>

#include "persist/settings.h"
#include "support/station_on_stage.h"
#include "workbench/document/design_commands.h"
#include "workbench/document/recent_files.h"
#include "workbench/document/startup.h"

namespace torvane {
namespace {

std::string Stored(const Stage& stage, std::string_view key) {
  return GetSetting(stage.store, kSettings, key, "missing");
}

TEST(Startup, OnAnEmptyStoreComesUpBlankInInchesWithTwoAxes) {
  StationOnStage onStage;
  const DesignState& s = onStage.Started().s;
  EXPECT_EQ(s.gUnits.text(), "in");
  EXPECT_FALSE(s.gShow4Axis);
  EXPECT_FALSE(s.gDirty);
  EXPECT_FALSE(s.gMirrorOnChange);
  EXPECT_EQ(s.cmbHSTRPM.text() + s.cmbHGRPM.text() + s.cmbPreWrapRPM(1).text(), "201040");
  EXPECT_EQ(s.cmbHGRPM.entries().back(), "90");
  EXPECT_EQ(s.iMaxMandrelRPM[2], 45);
  EXPECT_EQ(s.txtHGSpeedMM.text(), "25.4");
  EXPECT_TRUE(onStage.station().FirstRunOrUpgrade);
  EXPECT_EQ(Stored(onStage.stage, "gVersionNumber"), "420");
  EXPECT_EQ(Stored(onStage.stage, "chkUpdateCellsAuto"), "1");
}

TEST(Startup, UpgradesTheStoreOfAVersionTwoStation) {
  StationOnStage onStage;
  MemoryStore& store = onStage.stage.store;
  SaveSetting(store, kSettings, "gVersionNumber", "214");
  SaveSetting(store, kSettings, "mnu2Axis", "0");
  SaveSetting(store, kSettings, "gLastFileInUse", "C:\\Torvane\\TV_Design_Files\\old.t4d");
  SaveSetting(store, "TV2_Calibration_DC", "gCarriageBoardID", "board 7");
  const DesignState& s = onStage.Started().s;
  EXPECT_TRUE(onStage.station().FirstRunOrUpgrade);
  EXPECT_EQ(s.iMaxMandrelRPM[0], 20);
  EXPECT_EQ(Stored(onStage.stage, "gLastFileInUse"), "");
  EXPECT_EQ(GetSetting(store, "TV2_Calibration_DC", "gCarriageBoardID", "missing"), "");
  EXPECT_FALSE(s.gShow4Axis);
}

TEST(Startup, ReopensTheLastDesignByItsNameAlone) {
  StationOnStage first;
  Station& station = first.Started();
  TypeTube(station, 2, "45");
  ASSERT_TRUE(SaveDesign(station, "C:\\Torvane\\TV_Design_Files\\tube.t2d"));
  SaveStoredSettings(station.s, first.stage.store);

  Station second(first.stage.AsPlatform());
  SaveSetting(first.stage.store, kSettings, "gLastFileInUse", "E:\\elsewhere\\tube.t2d");
  Form_Load(second);
  EXPECT_EQ(second.s.txtWA(2).text(), "45.0");
  EXPECT_EQ(second.s.gLastFileInUse.text(), "C:\\Torvane\\TV_Design_Files\\tube.t2d");
  EXPECT_FALSE(second.s.gDirty || second.FirstRunOrUpgrade);

  // One that is gone is forgotten, and one of the first generation is not opened.
  for (const char* last :
       {"C:\\Torvane\\TV_Design_Files\\gone.t2d", "C:\\Torvane\\TV_Design_Files\\tube.TVD"}) {
    SaveSetting(first.stage.store, kSettings, "gLastFileInUse", last);
    Station third(first.stage.AsPlatform());
    Form_Load(third);
    EXPECT_EQ(third.s.gFileName.text(), "") << last;
    EXPECT_EQ(third.s.txtNumberOfLayers(0).text(), "0") << last;
  }
}

TEST(Startup, PutsStoredNumbersIntoTheComputersSign) {
  StationOnStage onStage;
  MemoryStore& store = onStage.stage.store;
  SaveSetting(store, kSettings, "gDHYtoMandrelCenter", "4,4375");
  SaveSetting(store, kSettings, "txtHGSpeed", "1,5");
  SaveSetting(store, kSettings, "txtLimitSwitchApproachSpeed", "");
  SaveSetting(store, kSettings, "txtAddPasses", "");
  SaveSetting(store, kSettings, "iMaxMandrelRPM(1)", "0");
  SaveSetting(store, "TV2_Calibration", "mMaxRPM", "90.2");
  const DesignState& s = onStage.Started().s;
  EXPECT_EQ(s.gDHYtoMandrelCenter.text(), "4.4375");
  EXPECT_EQ(s.txtHGSpeed.text(), "1.5");
  EXPECT_EQ(s.txtHGSpeedMM.text(), "38.10") << "the twin follows its inch field";
  EXPECT_EQ(s.txtLimitSwitchApproachSpeed.text(), "1");
  EXPECT_EQ(s.txtAddPasses.text(), "");
  EXPECT_EQ(s.iMaxMandrelRPM, (std::array<double, 3>{27, 54, 81}));
}

TEST(Startup, ReadsTheCalibrationOfItsDecimalSign) {
  StationOnStage onStage(',');
  MemoryStore& store = onStage.stage.store;
  SaveSetting(store, "TV2_Calibration", "mMaxRPM", "20");
  SaveSetting(store, "TV2_Calibration_DC", "mMaxRPM", "47,5");
  SaveSetting(store, "TV2_Calibration_DC", "gCarriageBoardID", "wrong");
  SaveSetting(store, "TV2_Calibratio_DCn", "gCarriageBoardID", "right");
  const DesignState& s = onStage.Started().s;
  EXPECT_TRUE(s.gDecimalComma);
  EXPECT_EQ(s.mMaxRPM, 47.5);
  EXPECT_EQ(s.cMaxSpeed, 9.04);
  EXPECT_EQ(s.gCarriageBoardID.text(), "right");
  EXPECT_EQ(s.cmbHGRPM.entries().back(), "45");
}

TEST(StartGuard, KeepsTheFirstFiveSecondsQuiet) {
  StationOnStage onStage;
  Station& station = onStage.Started();
  onStage.stage.clock.Set(station.started + std::chrono::milliseconds(5000));
  TypeTube(station, 1, "");
  station.s.gGridSync = false;
  station.s.txtWA(1) = "45";
  station.s.txtDiameterLeft = "3";
  EXPECT_EQ(station.s.txtMRPM(1).text(), "");
  onStage.stage.clock.Advance(std::chrono::milliseconds(1));
  station.s.txtDiameterLeft = "4";
  EXPECT_EQ(station.s.txtMRPM(1).text(), "28.6");
}

TEST(RecentFilesTest, AreTheLastNineTheLatestFirst) {
  MemoryStore under;
  {
    KeptStore store(under);
    for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"}) NoteRecentFile(store, name);
    NoteRecentFile(store, "g");
    ForgetRecentFile(store, "i");
    NoteRecentFile(store, "k");
  }
  EXPECT_EQ(RecentFiles(under), (std::vector<std::string>{"k", "g", "j", "h", "f", "e", "d", "c", "b"}));
}

TEST(Open, AFileThatCannotBeReadIsToldAndLeavesTheGridFollowing) {
  StationOnStage onStage;
  Station& station = onStage.Started();
  TypeTube(station, 1, "45");
  onStage.stage.messageDialog.answers.push_back({false, false});
  btnOPen_Click(station);
  EXPECT_EQ(station.s.txtWA(1).text(), "45") << "a cancelled open changes nothing";
  EXPECT_TRUE(station.s.gMirrorOnChange);
  EXPECT_EQ(onStage.stage.messageDialog.shown[0].number, 1);
  EXPECT_EQ(onStage.stage.fileDialog.asked[0].filter, "Torvane 2Ax Design File (*.t2d)|*.t2d|");

  const std::string path = "C:\\Torvane\\TV_Design_Files\\large.t2d";
  onStage.stage.files.Put(path, std::string(kLargestText + 1, '\n'));
  EXPECT_EQ(OpenDesign(station, path), Opened::No);
  EXPECT_EQ(onStage.stage.messageBox.shown.size(), 1U);
  EXPECT_TRUE(station.s.gGridSync);
  EXPECT_TRUE(RecentFiles(station.keptStore).empty());
}

}  // namespace
}  // namespace torvane
