#include "persist/recovery_text.h"

#include <gtest/gtest.h>

#include "design/units.h"
#include "support/station_on_stage.h"

namespace torvane {
namespace {

struct RecoveryCopy : testing::Test {
  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
};

TEST_F(RecoveryCopy, BringsBackEveryTextMarkAndList) {
  TypeTube(station, 2, "45");
  s.Comments = std::string("tab\there, back\\slash,\r\nline \xB0");
  station.Choose(s.optX(1), "True");
  s.txtDia(0) = "4";
  s.txtDia(1) = "4";
  s.txtZ4(0) = "28";
  s.txtBandWidth(1) = "0.25";
  s.txtNumberOfLayers(1) = "2";
  station.Choose(s.cmb3D(1), "REG");
  ShowUnits(s, "N");
  s.gBuildHours = 3;
  s.gBuildMinutes = 59;
  s.gFilePath = "C:\\tube.t4d";
  s.gFileName = "tube.t4d";
  const Snapshot before = s.TakeSnapshot();
  const std::string text = RecoveryText(s);

  StationOnStage other;
  DesignState& t = other.Started().s;
  TypeTube(other.station(), 3, "30");
  t.gGridSync = false;
  const auto design = ReadRecovery(text);
  ASSERT_TRUE(design);
  Restore(t, *design);
  const Snapshot after = t.TakeSnapshot();
  EXPECT_EQ(after.texts, before.texts);
  ASSERT_EQ(after.looks.size(), before.looks.size());
  for (std::size_t i = 0; i < before.looks.size(); ++i) {
    EXPECT_EQ(after.looks[i].mark, before.looks[i].mark) << i;
    EXPECT_EQ(after.looks[i].shown, before.looks[i].shown) << i;
    EXPECT_EQ(after.looks[i].enabled, before.looks[i].enabled) << i;
    EXPECT_EQ(after.looks[i].bold, before.looks[i].bold) << i;
  }
  EXPECT_EQ(t.cmbPattern(1).entries(), s.cmbPattern(1).entries());
  EXPECT_FALSE(t.cmbPattern(1).entries().empty());
  EXPECT_EQ(t.LayerTable2Ax(2, 1) + "|" + t.LayerTable2Ax(3, 1), "45|")
      << "of the design before nothing stays";
  EXPECT_TRUE(t.gShow4Axis);
  EXPECT_TRUE(t.mnuMM);
  EXPECT_FALSE(t.mnuINCH);
  EXPECT_EQ(t.gBuildHours * 60 + t.gBuildMinutes, 239);
  EXPECT_EQ(t.gFilePath.text() + "|" + t.gFileName.text(), "C:\\tube.t4d|tube.t4d");
  EXPECT_EQ(t.lblStatusBar2.text(), "tube.t4d");
  EXPECT_TRUE(t.gGridSync) << "the layer table follows its rows again";
  EXPECT_EQ(RecoveryText(t), text);
}

// A copy that was cut off by the crash itself, or damaged, is none.
TEST_F(RecoveryCopy, IsTakenWholeOrNotAtAll) {
  TypeTube(station, 1, "45");
  const std::string text = RecoveryText(s);
  ASSERT_TRUE(ReadRecovery(text));
  for (std::size_t length = 0; length < text.size(); length += 97)
    EXPECT_FALSE(ReadRecovery(text.substr(0, length))) << length;
  EXPECT_FALSE(ReadRecovery(text + "x"));
  for (const char* line : {"field\tx", "", "field\tx\t45\t0110\ttip", "field\tx\t45\t4110\ttip\tcaption",
                           "field\tx\t45\t011\ttip\tcaption", "cell\t2,1,1"})
    EXPECT_FALSE(ReadRecovery("TORVANE RECOVERY COPY 1\n" + std::string(line) + "\nEND")) << line;
  EXPECT_FALSE(ReadRecovery(std::string(1000, '\\')));
}

}  // namespace
}  // namespace torvane
