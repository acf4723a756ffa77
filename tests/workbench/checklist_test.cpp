#include "workbench/build/checklist.h"

#include <gtest/gtest.h>

#include "design/catalogue.h"
#include "design/units.h"
#include "persist/settings.h"
#include "support/station_on_stage.h"

namespace torvane {
namespace {

struct ChecklistTest : testing::Test {
  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
  std::vector<Message>& shown = onStage.stage.messageDialog.shown;
};

TEST_F(ChecklistTest, AValueAboveItsLimitBlinksAndIsAskedAbout) {
  struct Case {
    Field &chosen, &value;
    const char *most[2], *more[2];
  };
  for (Field* chosen : {&s.chkHeatGunApp, &s.chkPromptForHST, &s.chkPreWrap1, &s.chkPreWrap2})
    chosen->Restore("0");
  for (const Case& c : {Case{s.chkHeatGunApp, s.txtHGSpeed, {"10", "250"}, {"10.1", "250.1"}},
                        Case{s.chkPromptForHST, s.txtHSTWidth, {"4", "100"}, {"4.1", "100.1"}},
                        Case{s.chkPreWrap1, s.txtPreWrapAdvance(1), {"4", "100"}, {"4.1", "100.1"}},
                        Case{s.chkPreWrap2, s.txtPreWrapAdvance(2), {"4", "100"}, {"4.1", "100.1"}}}) {
    const bool tape = &c.value == &s.txtHSTWidth;
    for (const int unit : {0, 1}) {
      ShowUnits(s, unit == 0 ? "Y" : "N");
      c.chosen.Restore("1");
      if (tape) s.chkHeatGunApp.Restore("1");
      c.value.Restore(c.most[unit]);
      EXPECT_FALSE(CheckWrapHGValues(station)) << NameOf(c.value) << unit;
      c.value.Restore(c.more[unit]);
      shown.clear();
      EXPECT_TRUE(CheckWrapHGValues(station)) << NameOf(c.value) << unit;
      ASSERT_EQ(shown.size(), 1U);
      EXPECT_EQ(shown[0].number, 33);
      station.Run("tmrBlink", Event::Tick);
      EXPECT_EQ(c.value.mark(), Mark::TooHigh);
      station.Run("txtHGSpeed", Event::Click);
      EXPECT_EQ(c.value.mark(), Mark::Plain);
      EXPECT_TRUE(station.gWrapValuesAccepted);
      if (tape) {
        s.chkHeatGunApp.Restore("0");
        EXPECT_FALSE(CheckWrapHGValues(station)) << "the tape goes behind the heat gun alone";
      }
      c.chosen.Restore("0");
      EXPECT_FALSE(CheckWrapHGValues(station)) << "what is not chosen may be anything";
      c.value.Restore("1");
    }
  }
}

TEST_F(ChecklistTest, APreWrapFasterThanTheCarriageIsTold) {
  s.cMaxSpeed = 2;
  s.cmbPreWrapRPM(2) = "60";
  station.Type(s.txtPreWrapAdvance(2), "2");
  EXPECT_TRUE(shown.empty());
  station.Type(s.txtPreWrapAdvance(2), "2.1");
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_EQ(shown[0].number, 11);
  EXPECT_EQ(s.txtPreWrapAdvanceMM(2).text(), "53.34");
  EXPECT_EQ(GetSetting(onStage.stage.store, kSettings, "txtPreWrapAdvance2", ""), "2.1");
}

TEST_F(ChecklistTest, WithoutAFirstPreWrapThereIsNoSecond) {
  station.Check(s.chkPreWrap1, true);
  station.Check(s.chkPreWrap2, true);
  EXPECT_TRUE(s.cmbPreWrapRPM(2).enabled());
  station.Check(s.chkPreWrap1, false);
  EXPECT_FALSE(s.chkPreWrap2.checked() || s.chkPreWrap2.enabled() || s.txtPreWrapAdvance(2).enabled());
  EXPECT_EQ(GetSetting(onStage.stage.store, kSettings, "chkPreWrap2", ""), "0");
}

}  // namespace
}  // namespace torvane
