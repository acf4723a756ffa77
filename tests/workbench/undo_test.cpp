#include <gtest/gtest.h>

#include "support/station_on_stage.h"

namespace torvane {
namespace {

struct UndoTest : testing::Test {
  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
};

TEST_F(UndoTest, TakesBackWholeOperations) {
  TypeTube(station, 3, "45");
  station.Type(s.txtWA(2), "6");
  station.Type(s.txtWA(2), "60");
  const std::string speed = s.txtMRPM(2).text();
  s.gCurrentRow = 2;
  station.Run("mnuDeleteRow", Event::Click);
  EXPECT_EQ(s.txtNumberOfLayers(0).text(), "2");
  ASSERT_TRUE(station.Undo());
  EXPECT_EQ(s.txtNumberOfLayers(0).text(), "3");
  EXPECT_EQ(s.txtWA(2).text(), "60");
  EXPECT_EQ(s.txtMRPM(2).text(), speed);
  EXPECT_TRUE(s.txtWA(3).shown());
  ASSERT_TRUE(station.Undo()) << "keys typed one behind the other are one operation";
  EXPECT_EQ(s.txtWA(2).text(), "45");
  EXPECT_EQ(s.txtMRPM(2).text(), "28.6");
  EXPECT_EQ(s.LayerTable2Ax(2, 1), "45");
  ASSERT_TRUE(station.Redo());
  EXPECT_EQ(s.txtWA(2).text(), "60");
  station.Type(s.txtWA(1), "30");
  EXPECT_FALSE(station.CanRedo());
  station.Type(s.txtWA(3), "50");
  ASSERT_TRUE(station.Undo());
  EXPECT_EQ(s.txtWA(3).text() + "|" + s.txtWA(1).text(), "45|30") << "each field is an operation";
}

TEST_F(UndoTest, GoesAHundredOperationsBack) {
  TypeTube(station, 2, "45");
  for (int i = 1; i <= 101; ++i) station.Type(s.txtWA(i % 2 + 1), std::to_string(i));
  int undone = 0;
  while (station.Undo()) ++undone;
  EXPECT_EQ(undone, 100);
  EXPECT_EQ(s.txtWA(1).text() + "|" + s.txtWA(2).text(), "45|1") << "the first one stands";
}

TEST_F(UndoTest, BringsADesignBackThatAUnitChangeEmptied) {
  TypeTube(station, 2, "45");
  onStage.stage.messageDialog.answers.push_back({true, false});
  station.Run("mnuMM", Event::Click);
  EXPECT_EQ(s.txtWA(1).text(), "");
  EXPECT_EQ(s.gUnits.text(), "mm");
  ASSERT_TRUE(station.Undo());
  EXPECT_EQ(s.txtWA(1).text(), "45");
  EXPECT_EQ(s.gUnits.text(), "in");
  EXPECT_TRUE(s.mnuINCH);
  EXPECT_EQ(s.lblLengthHeading.text(), "Length (ft)");
}

TEST_F(UndoTest, LeavesTheStationsChoicesAlone) {
  TypeTube(station, 1, "45");
  station.Type(s.txtHGSpeed, "3");
  EXPECT_FALSE(station.CanUndo());
  station.Run("mnuNewFile", Event::Click);
  EXPECT_FALSE(station.Undo());
}

TEST_F(UndoTest, LeavesTheSwitchOfTheAllRowsRowAlone) {
  TypeTube(station, 2, "45");
  station.Run("mnuAllRows", Event::Click);
  EXPECT_TRUE(s.txtWA(IndexSet::kAllRows).shown());
  station.Run("btnMoreLayers", Event::Click);
  EXPECT_EQ(s.txtNumberOfLayers(0).text(), "3");
  EXPECT_TRUE(s.cmbSpeed(IndexSet::kAllRows).shown()) << "a new count hides it by its own rule";
  ASSERT_TRUE(station.Undo());
  EXPECT_EQ(s.txtNumberOfLayers(0).text(), "2");
  EXPECT_TRUE(s.cmbSpeed(IndexSet::kAllRows).shown());
  station.Run("mnuAllRows", Event::Click);
  EXPECT_FALSE(s.txtWA(IndexSet::kAllRows).shown());
  for (int i = 0; i < 20; ++i) station.Run("btnMoreLayers", Event::Click);
  EXPECT_EQ(s.txtNumberOfLayers(0).text(), "15");
}

}  // namespace
}  // namespace torvane
