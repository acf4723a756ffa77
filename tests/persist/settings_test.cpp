#include "persist/settings.h"
#include "persist/calibration.h"

#include <gtest/gtest.h>

#include <set>

#include "support/station_on_stage.h"

namespace torvane {
namespace {

// A store that remembers the order of its writes.
struct OrderedStore : SettingsStore {
  std::optional<std::string> Read(std::string_view, std::string_view) const override { return std::nullopt; }
  Outcome Write(std::string_view, std::string_view key, std::string_view) override {
    keys.emplace_back(key);
    return Done{};
  }
  std::vector<Entry> All() const override { return {}; }
  std::vector<std::string> keys;
};

TEST(Settings, AreWrittenAtExitInTheirOwnOrder) {
  DesignState s({});
  OrderedStore store;
  SaveStoredSettings(s, store);
  const std::vector<std::string> expected = {"iMaxCarriageSpeeds(1)",
                                             "iMaxCarriageSpeeds(2)",
                                             "iMaxCarriageSpeeds(3)",
                                             "iMaxMandrelRPM(1)",
                                             "iMaxMandrelRPM(2)",
                                             "iMaxMandrelRPM(3)",
                                             "gLastFileInUse",
                                             "txtLimitSwitchApproachSpeed",
                                             "txtMandrelAdvanceAfterPreWrapCarriageStop",
                                             "txtPreWrapFullLengthYN",
                                             "txtMandrelRotateAfterLayerCompletion",
                                             "txtMandrelAdvanceAfterHSTCarriageStop",
                                             "txtHeatGunJustKeepGoingYN",
                                             "txtAddPasses",
                                             "txtAddExtra360AtFarEndYN",
                                             "txtUseProportionalFilamentSpacingYN",
                                             "txt2AXAdd360YN",
                                             "txt3AX1stPass360",
                                             "txtPreWrapAdvance1",
                                             "txtPreWrapAdvance2",
                                             "txtHSTWidth",
                                             "txtHGSpeed",
                                             "Me.Top",
                                             "Me.Left",
                                             "Me.Width",
                                             "Me.Height",
                                             "Me.WasMaximized",
                                             "gMidAngle",
                                             "gSplitAngle",
                                             "gDHYtoMandrelCenter",
                                             "gDHStructureWidth",
                                             "gCarriageOffsetFromRMPFace",
                                             "gNoListPatternDegrees",
                                             "gPauseBeforeHoop",
                                             "gDelayTimeInG456ToWaitForMandrelinMS"};
  EXPECT_EQ(store.keys, expected);
}

TEST(Settings, OfABrokenStoreAreTheDefaults) {
  DesignState s({});
  OrderedStore empty;
  ReadStoredSettings(s, empty);
  std::set<std::string_view> keys;
  for (const Setting& setting : Settings()) {
    EXPECT_TRUE(keys.insert(setting.key).second) << setting.key;
    EXPECT_FALSE(setting.meaning.empty()) << setting.key;
  }
  EXPECT_EQ(s.gDHYtoMandrelCenter.text(), "4.4375");
  EXPECT_EQ(s.gNoListPatternDegrees, 25);
  EXPECT_TRUE(s.chkShiftLayer);
  EXPECT_TRUE(s.chkHeatGunApp.checked());
  EXPECT_FALSE(s.chkPreWrap1.checked());
}

TEST(Settings, ThatAreNoNumbersLeaveTheFormerValue) {
  StationOnStage onStage;
  SaveSetting(onStage.stage.store, kSettings, "iMaxCarriageSpeeds(2)", "quick");
  SaveSetting(onStage.stage.store, kSettings, "chkShiftLayer", "0");
  SaveSetting(onStage.stage.store, kSettings, "chkHeatGunApp", "-1");
  DesignState& s = onStage.station().s;
  s.iMaxCarriageSpeeds = {1, 2, 3};
  ReadStoredSettings(s, onStage.stage.store);
  EXPECT_EQ(s.iMaxCarriageSpeeds, (std::array<double, 3>{2, 2, 6}));
  EXPECT_FALSE(s.chkShiftLayer);
  EXPECT_FALSE(s.chkHeatGunApp.checked());
}

// What the machine is taken for until it is calibrated.
TEST(Calibration, OfAnEmptyStoreIsTheUsualMachine) {
  StationOnStage point, comma(',');
  const DesignState& s = point.Started().s;
  EXPECT_EQ(s.cMaxTravel, 48);
  EXPECT_EQ(s.cMaxSpeed, 9.04);
  EXPECT_EQ(s.mMaxRPM, 90.2);
  EXPECT_EQ(s.dhlMaxSpeed, 0);
  EXPECT_EQ(comma.Started().s.cMaxSpeed, 9.04);
  EXPECT_EQ(s.cmbPreWrapRPM(1).text() + "|" + s.cmbPreWrapRPM(2).text() + "|" + s.cmbHGRPM.text() + "|" +
                s.cmbHSTRPM.text(),
            "40|40|10|20");
  EXPECT_EQ(s.cmbHGRPM.entries().size(), 21U) << "to 90 RPM";
  std::string steps;
  for (const CalibrationKey& key : CalibrationKeys())
    if (key.key == "cMaxSteps" || key.key.find("Clicks") != std::string_view::npos)
      steps += CalibrationText(s, point.stage.store, key) + "|";
  EXPECT_EQ(steps, "173904|3623|21735.00|");
}

TEST(Settings, StoredBooleansReadInEitherForm) {
  for (const char* yes : {"True", "true", "1", "-1"}) EXPECT_TRUE(ReadsAsTrue(yes)) << yes;
  for (const char* no : {"False", "0", "", "yes"}) EXPECT_FALSE(ReadsAsTrue(no)) << no;
}

}  // namespace
}  // namespace torvane
