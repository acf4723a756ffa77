// The settings dialog: twins worked out by hand, what OK hands over and what Cancel does not take back.
#include <gtest/gtest.h>

#include "persist/settings.h"
#include "support/station_on_stage.h"

namespace torvane {
namespace {

class SettingsDialogTest : public testing::Test {
 protected:
  void SetUp() override { Open(); }
  void Open() { station.Run("mnuProperties", Event::Click); }
  Field& Shown(const char* name) { return *station.FindField(name); }
  std::string TextOf(const char* name) { return Shown(name).text(); }
  void Type(const char* name, const char* text) { station.Type(Shown(name), text); }
  void Close(const char* button) {
    station.Run(button, Event::Click);
    ASSERT_TRUE(station.windows.empty());
  }

  StationOnStage onStage;
  Station& station = onStage.Started();
};

// 4.4375 x 25.4 = 112.7125 and 1.875 x 25.4 = 47.625, whose half is rounded away from zero.
TEST_F(SettingsDialogTest, OpensWithTheStationsConstantsInBothUnits) {
  EXPECT_EQ(TextOf("txtDHYtoMandrelCenter"), "4.4375");
  EXPECT_EQ(TextOf("txtDHYtoMandrelCenterMM"), "112.71");
  EXPECT_EQ(TextOf("txtDHStructureWidthMM"), "50.80");
  EXPECT_EQ(TextOf("txtLimitSwitchApproachSpeedMM"), "25.40");
  for (const char* inches : {"txtCarriageOffsetFromRMPFace", "Text3"}) EXPECT_EQ(TextOf(inches), "1.875");
  for (const char* millimetres : {"txtCarriageOffsetFromRMPFaceMM", "Text2"})
    EXPECT_EQ(TextOf(millimetres), "47.63");
  EXPECT_EQ(TextOf("lblcMaxSpeed"), "9.0");
  EXPECT_EQ(TextOf("lblcMaxSpeedMM"), "229.62");
}

TEST_F(SettingsDialogTest, OkHandsOverWhatWasTyped) {
  Type("txtDHYtoMandrelCenterMM", "100");  // 100 / 25.4 = 3.937
  EXPECT_EQ(TextOf("txtDHYtoMandrelCenter"), "3.94");
  EXPECT_EQ(TextOf("txtDHYtoMandrelCenterMM"), "100");
  Type("txtAddPasses", "2");
  Type("txtNoListPatternDegrees", "30");
  Type("txtDelayTimeInG456ToWaitForMandrelinMS", "500");
  EXPECT_EQ(TextOf("txtDelayTimeInG456ToWaitForMandrelinMS"), "500");
  EXPECT_EQ(station.s.gDHYtoMandrelCenter.text(), "4.4375");
  EXPECT_EQ(station.s.gNoListPatternDegrees, 25);
  Close("btnOK");
  EXPECT_EQ(station.s.gDHYtoMandrelCenter.text(), "3.94");
  EXPECT_EQ(station.s.txtAddPasses.text(), "2");
  EXPECT_EQ(station.s.gNoListPatternDegrees, 30);
  EXPECT_EQ(station.s.gDelayTimeInG456ToWaitForMandrelinMS, 500);

  // A number that cannot be read leaves the value, a text is taken as it is.
  Open();
  Type("txtNoListPatternDegrees", "steep");
  Type("txtAddPasses", "");
  Close("btnOK");
  EXPECT_EQ(station.s.gNoListPatternDegrees, 30);
  EXPECT_EQ(station.s.txtAddPasses.text(), "");
}

TEST_F(SettingsDialogTest, CancelDropsAllButSpeedClassesAndTheMeasuredOffset) {
  EXPECT_EQ(Shown("Text2").mark(), Mark::NeedsInput);
  Type("txtAddPasses", "7");
  Type("Text2", "50");  // 50 / 25.4 = 1.9685
  EXPECT_EQ(TextOf("txtCarriageOffsetFromRMPFace"), "1.97");
  EXPECT_EQ(TextOf("Text3"), "1.97");
  EXPECT_EQ(TextOf("txtCarriageOffsetFromRMPFaceMM"), "50");
  Type("txtcSpeed(0)", "3");
  EXPECT_EQ(TextOf("txtcSpeedmm(0)"), "76.20");
  Type("txtmSpeedmm(2)", "44");
  EXPECT_EQ(TextOf("txtmSpeed(2)"), "44.00");
  Close("btnCancel");
  EXPECT_EQ(station.s.txtAddPasses.text(), "0");
  EXPECT_EQ(station.s.gCarriageOffsetFromRMPFace.text(), "1.875");
  EXPECT_EQ(station.s.iMaxCarriageSpeeds[0], 3);
  EXPECT_EQ(station.s.iMaxMandrelRPM[2], 44);
  EXPECT_EQ(onStage.stage.store.Read("Settings", "gHasUserCheckedCarriageZOffset"), "1");
  Open();
  EXPECT_EQ(Shown("Text2").mark(), Mark::Plain);
}

TEST_F(SettingsDialogTest, AnswersAreYesOrNo) {
  Type("txtAddExtra360AtFarEndYN", "x");
  EXPECT_EQ(TextOf("txtAddExtra360AtFarEndYN"), "Y");
  Type("txtAddExtra360AtFarEndYN", "n");
  EXPECT_EQ(TextOf("txtAddExtra360AtFarEndYN"), "N");
  // Of these two the key that was released decides.
  Type("txtHeatGunJustKeepGoingYN", "Yx");
  EXPECT_EQ(TextOf("txtHeatGunJustKeepGoingYN"), "N");
  Type("txtHeatGunJustKeepGoingYN", "ny");
  EXPECT_EQ(TextOf("txtHeatGunJustKeepGoingYN"), "Y");
}

TEST_F(SettingsDialogTest, WarnsOfWhatTheMachineCannotDo) {
  Type("txtDelayTimeInG456ToWaitForMandrelinMS", "501");
  EXPECT_EQ(TextOf("txtDelayTimeInG456ToWaitForMandrelinMS"), "499");
  Type("txtcSpeed(2)", "9");
  EXPECT_TRUE(onStage.stage.messageDialog.shown.empty());
  Type("txtcSpeed(2)", "9.01");
  ASSERT_EQ(onStage.stage.messageDialog.shown.size(), 1U);
  EXPECT_EQ(onStage.stage.messageDialog.shown[0].number, 5);
  EXPECT_TRUE(onStage.stage.messageDialog.shown[0].text.ends_with("is indicated at 9.04."));
  EXPECT_EQ(TextOf("txtcSpeedmm(2)"), "228.85");  // 9.01 x 25.4 = 228.854
  Type("txtmSpeed(0)", "90.3");
  EXPECT_EQ(onStage.stage.messageDialog.shown.size(), 2U);
}

TEST_F(SettingsDialogTest, ComesUpOnTheTabLastLookedAt) {
  station.Run("lblTab", Event::Click, 2);
  Close("btnCancel");
  int opened = -1;
  station.settingsOpened = [&opened](int tab) { opened = tab; };
  station.Run("Command3", Event::Click);
  EXPECT_EQ(opened, 2);
  EXPECT_TRUE(Shown("pic4Axis").shown());
  EXPECT_FALSE(Shown("picGeneral").shown());
  Close("btnOK");
  onStage.stage.store.Write("Settings", "LastSettingsTab", "7");
  station.Run("Command3", Event::Click);
  EXPECT_EQ(opened, 0);
}

TEST_F(SettingsDialogTest, HoldsTheOtherWindowsUnlessTheOffsetHasToBeMeasuredFirst) {
  const auto modal = [&] { return station.windows.Find("frmSettings")->modal(); };
  EXPECT_TRUE(modal());
  for (const char* opener : {"mnuSpeeds", "Label9", "Label10", "Command3"}) {
    Close("btnCancel");
    station.Run(opener, Event::Click);
    EXPECT_TRUE(modal()) << opener;
  }
  for (const char* check : {"imgBUILD", "lblGoTrace", "lblManualOperation"}) {
    Close("btnCancel");
    station.Run(check, Event::Click);
    EXPECT_FALSE(modal()) << check;
  }
  station.Run("mnuSpeeds", Event::Click);
  EXPECT_FALSE(modal()) << "it is open already";
  Close("btnCancel");
  station.s.gCarriageOffsetFromRMPFace = "2";
  station.s.txtZ2(1) = "1";
  station.Run("txtZ2", Event::Click, 1);
  EXPECT_TRUE(modal()) << "a stop that is too low is no check of the build";
}

TEST_F(SettingsDialogTest, AKeyThatLeavesTheOffsetAsItWasConfirmsIt) {
  const auto confirmed = [&] { return IsCarriageOffsetConfirmed(onStage.stage.store); };
  const char* const offsets[] = {"txtCarriageOffsetFromRMPFace", "txtCarriageOffsetFromRMPFaceMM", "Text2",
                                 "Text3"};
  for (const char* offset : offsets) EXPECT_EQ(Shown(offset).mark(), Mark::NeedsInput) << offset;
  station.ReleaseKey(Shown("txtDHStructureWidth"));
  EXPECT_FALSE(confirmed());
  station.ReleaseKey(Shown("Text2"));
  EXPECT_TRUE(confirmed());
  EXPECT_EQ(TextOf("Text3"), "1.875") << "47.63 mm would be 1.88 in";
  EXPECT_EQ(TextOf("Text2"), "47.63");
  Close("btnCancel");
  Open();
  for (const char* offset : offsets) EXPECT_EQ(Shown(offset).mark(), Mark::Plain) << offset;
}

TEST_F(SettingsDialogTest, EachOfTwoWindowsRunsItsOwnButtons) {
  Window& settings = *station.windows.Find("frmSettings");
  station.Run("mnuMachine", Event::Click);
  ASSERT_EQ(station.windows.Top().name(), "frmMachine");
  station.RunIn(settings, "btnCancel", Event::Click);
  EXPECT_EQ(station.windows.Find("frmSettings"), nullptr);
  ASSERT_NE(station.windows.Find("frmMachine"), nullptr);
  // What a window does not have is the main window's.
  station.RunIn(*station.windows.Find("frmMachine"), "mnu4Axis", Event::Click);
  EXPECT_TRUE(station.s.gShow4Axis);
}

}  // namespace
}  // namespace torvane
