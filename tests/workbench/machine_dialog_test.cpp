#include "workbench/dialog/machine_dialog.h"

#include <gtest/gtest.h>

#include "persist/calibration.h"
#include "persist/settings.h"
#include "support/station_on_stage.h"

namespace torvane {
namespace {

struct MachineDialogTest : testing::Test {
  MachineDialogTest() {
    for (const char* key : {"MSG11", "MSG33"}) Store(key, "True");
    station.Run("mnuMachine", Event::Click);
  }
  void Store(const char* key, const char* value) { SaveSetting(onStage.stage.store, kSettings, key, value); }
  std::string Stored(std::string_view section, std::string_view key) {
    return GetSetting(onStage.stage.store, section, key, "none");
  }
  Field& Shown(const char* name) { return *station.FindField(name); }

  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
};

TEST_F(MachineDialogTest, OkStoresWhatWasChanged) {
  station.Check(Shown("chkLHDrive"), true);
  station.Check(Shown("chkShiftLayer"), false);
  station.Type(Shown("txtEmail1"), "a@b");
  station.Type(Shown("txtcMaxSpeed"), "8.5");
  station.Type(Shown("txtgCarriageBoardID"), "board 7");
  EXPECT_FALSE(s.gIsLHDrive) << "not before OK";
  station.Run("btnOK", Event::Click);
  EXPECT_TRUE(station.windows.empty());
  EXPECT_TRUE(s.gIsLHDrive);
  EXPECT_FALSE(s.chkShiftLayer || s.gIsNEMA34);
  EXPECT_EQ(s.txtEmail1.text(), "a@b");
  EXPECT_EQ(s.cMaxSpeed, 8.5);
  EXPECT_EQ(Stored(kSettings, "gIsLHDrive") + Stored(kSettings, "chkShiftLayer") +
                Stored(kSettings, "txtEmail1") + Stored(kPointCalibration, "gCarriageBoardID"),
            "True0a@bboard 7");
  EXPECT_EQ(Stored(kSettings, "gIsNEMA34") + Stored(kPointCalibration, "cMaxTravel"), "nonenone");
}

TEST_F(MachineDialogTest, AFigureThatIsNoNumberKeepsItOpen) {
  Field& speed = Shown("txtcMaxSpeed");
  station.Type(speed, "fast");
  station.Run("btnOK", Event::Click);
  ASSERT_EQ(station.windows.size(), 1U);
  EXPECT_EQ(speed.mark(), Mark::NeedsInput);
  EXPECT_EQ(s.focus, &speed);
  ASSERT_EQ(onStage.stage.messageBox.shown.size(), 1U);
  EXPECT_NE(onStage.stage.messageBox.shown[0].text.find("\"fast\" is no number"), std::string::npos);
  station.Run("btnCancel", Event::Click);
  EXPECT_TRUE(station.windows.empty());
  EXPECT_EQ(s.focus, nullptr) << "the field is gone";
  EXPECT_EQ(s.cMaxSpeed, 9.04);
  EXPECT_EQ(Stored(kPointCalibration, "cMaxSpeed"), "none");
}

TEST_F(MachineDialogTest, ShowsSilencedMessagesAgain) {
  EXPECT_EQ(Shown("lblSilenced").text(), "Silenced: 11, 33");
  EXPECT_TRUE(Shown("btnShowMessages").enabled());
  station.Run("btnShowMessages", Event::Click);
  EXPECT_EQ(Shown("lblSilenced").text(), "No message is silenced.");
  EXPECT_FALSE(Shown("btnShowMessages").enabled());
  EXPECT_EQ(Stored(kSettings, "MSG11") + Stored(kSettings, "MSG33"), "FalseFalse");
}

}  // namespace
}  // namespace torvane
