#include "calc/two_axis.h"

#include <gtest/gtest.h>

#include "calc/totals.h"
#include "design/units.h"
#include "support/station_on_stage.h"

namespace torvane {
namespace {

std::string Row(const DesignState& s, int row) {
  return s.txtMRPM(row).text() + "|" + s.txtCarriageSpeed(row).text() + "|" + s.lblPassesToCover(row).text() +
         "|" + s.lblMinutesToCover(row).text() + "|" + s.lblLengthToCover(row).text();
}

struct TwoAxis : testing::Test {
  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
};

TEST_F(TwoAxis, ATubeOfFourInches) {
  s.iMaxMandrelRPM = {60, 60, 60};
  TypeTube(station, 2, "45");
  EXPECT_EQ(Row(s, 1), "28.6|6.00|36|7.0|241.2");
  EXPECT_EQ(s.lblPassesToCover(26).text() + "|" + s.lblMinutesToCover(26).text() + "|" +
                s.lblLengthToCover(26).text(),
            "72|14.0|482.4");
  EXPECT_EQ(s.lblBuildTime(0).text(), "14.0");
  EXPECT_EQ(s.lblLengthRequired(0).text(), "482.4");
  EXPECT_EQ(s.gBuildMinutes, 14);
}

TEST_F(TwoAxis, AddedPassesCountInHelicalRowsAlone) {
  TypeTube(station, 2, "45");
  s.txtWA(2) = "90";
  s.txtAddPasses = "2";
  RecalculateTwoAxisLayers(s, kSpeedsByAngle);
  EXPECT_EQ(s.lblPassesToCover(1).text(), "38");
  EXPECT_TRUE(s.lblPassesToCover(1).bold());
  EXPECT_EQ(s.lblPassesToCover(2).text(), "1");
  s.txtAddPasses = "0";
  RecalculateTwoAxisLayers(s, kSpeedsByAngle);
  EXPECT_EQ(s.lblPassesToCover(1).text(), "36");
  EXPECT_FALSE(s.lblPassesToCover(1).bold());
}

TEST_F(TwoAxis, AStepWithoutItsNumberLeavesTheRest) {
  TypeTube(station, 1, "45");
  s.txtBandWidth(0) = "0";
  EXPECT_EQ(s.lblPassesToCover(1).text(), "36") << "without a band the passes stay";
  s.txtBandWidth(0) = "0.25";
  s.txtDiameterRight = "";
  RecalculateTwoAxisLayers(s, kSpeedsByAngle);
  // No mean diameter: the travel along the part is all that is left, there and back in 36 passes.
  EXPECT_EQ(s.lblLengthToCover(1).text(), "144.0");
  s.txtLengthTotal(0) = "long";
  EXPECT_EQ(s.lblMinutesToCover(1).text(), "7.0");
}

TEST_F(TwoAxis, AHoopWithoutABandStandsStill) {
  TypeTube(station, 1, "90");
  ASSERT_EQ(s.txtCarriageSpeed(1).text(), "0.19");
  s.txtBandWidth(0) = "wide";
  EXPECT_EQ(s.txtMRPM(1).text() + "|" + s.txtCarriageSpeed(1).text(), "45.0|0.00");
}

TEST_F(TwoAxis, ARowWithoutAnAngleIsNoLayerYet) {
  TypeTube(station, 3, "45");
  s.txtWA(2) = "";
  EXPECT_EQ(Row(s, 2), "28.6|6.00|||");
  s.txtWA(2) = "steep";
  EXPECT_EQ(Row(s, 2), "28.6|6.00|||");
  EXPECT_EQ(s.lblPassesToCover(26).text(), "72");
}

TEST_F(TwoAxis, ATypedMandrelSpeedStands) {
  TypeTube(station, 1, "45");
  s.gGridSync = false;
  s.txtMRPM(1) = "10";
  RecalculateTwoAxisLayers(s, kSpeedsByMandrelSpeed);
  EXPECT_EQ(s.txtMRPM(1).text(), "10");
  EXPECT_EQ(s.txtCarriageSpeed(1).text(), "2.09");
  RecalculateTwoAxisLayers(s, 1);
  EXPECT_EQ(Row(s, 1).substr(0, 9), "28.6|6.00");
  // Each row of the grid has its own speeds, to the last.
  for (const int row : {15, 18}) {
    s.txtWA(row) = "45";
    RecalculateTwoAxisLayers(s, row);
    EXPECT_EQ(Row(s, row).substr(0, 9), "28.6|6.00") << row;
  }
}

TEST_F(TwoAxis, WholePart) {
  TypeTube(station, 10, "45");
  s.Length_Total = "24";
  s.Diameter_Right = "4";
  s.lblFinalThickness(0) = "0.1";
  EstimatePart(s);
  EXPECT_EQ(s.lblFilamentVOlume(0).text(), "30.16");
  EXPECT_EQ(s.lblEstWeight(0).text(), "2.26");
  EXPECT_EQ(s.lblTotalGlueWgt(0).text(), "346");
  s.txtBandThickness(0) = "0.012";
  EstimateThickness(s, 0);
  EXPECT_EQ(s.lblFinalThickness(0).text(), "0.240");
  EXPECT_EQ(s.lblFinalThickness(0).tip(), "0.240");

  // 471.2 cubic centimetres are 28.76 cubic inches.
  ShowUnits(s, "N");
  s.Length_Total = "600";
  s.Diameter_Right = "100";
  s.lblFinalThickness(0) = "2.5";
  EstimatePart(s);
  EXPECT_EQ(s.lblFilamentVOlume(0).text(), "471.24");
  EXPECT_EQ(s.lblEstWeight(0).text(), "2.16");
  EXPECT_EQ(s.lblTotalGlueWgt(0).text(), "330");
}

TEST_F(TwoAxis, BuildTimeIsLeftInHoursAndMinutes) {
  struct Case {
    const char* total;
    int hours, minutes;
  };
  for (const Case& c : {Case{"70", 1, 10}, {"59.5", 0, 60}, {"60.5", 1, 0}, {"61.5", 1, 2}, {"0.0", 0, 0}}) {
    s.lblMinutesToCover(IndexSet::kAllRows).Restore(c.total);
    EstimateTwoAxisBuildTime(s);
    EXPECT_EQ(s.gBuildHours, c.hours) << c.total;
    EXPECT_EQ(s.gBuildMinutes, c.minutes) << c.total;
  }
}

TEST_F(TwoAxis, NoLayersShowTheMasksOfZero) {
  TypeTube(station, 1, "45");
  s.txtNumberOfLayers(0) = "0";
  EXPECT_EQ(s.lblPassesToCover(26).text(), "");
  EXPECT_EQ(s.lblMinutesToCover(26).text(), "0.0");
  EXPECT_EQ(s.lblLengthToCover(26).text(), ".0");
}

}  // namespace
}  // namespace torvane
