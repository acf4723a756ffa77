#include "calc/patterns.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>

#include "calc/four_axis.h"
#include "calc/layer_figures.h"
#include "design/units.h"
#include "support/station_on_stage.h"

namespace torvane {
namespace {

std::vector<std::string> ListOf(const PatternPart& part) {
  std::vector<std::string> list;
  for (const Pattern& pattern : ClosingPatterns({}, part))
    list.push_back(PatternText({}, pattern, part.wrapAngle));
  return list;
}

TEST(Patterns, OfATubeOfFourInches) {
  const auto list = ListOf({4 * kPi, 0.25, 24, 180, 25});
  const std::vector<std::string> first = {"7.460 | 2 x 25 | 180\xB0",
                                          "21.44 | 2 x 24 | 180\xB0",
                                          "",
                                          "4.990 | 3 x 17 | 180\xB0",
                                          "19.24 | 3 x 16 | 180\xB0",
                                          "",
                                          "18.12 | 4 x 12 | 180\xB0",
                                          "",
                                          "3 | 5 x 10 | 180\xB0",
                                          ""};
  ASSERT_GT(list.size(), first.size());
  EXPECT_EQ(std::vector<std::string>(list.begin(), list.begin() + static_cast<long>(first.size())), first);
  const std::vector<std::string> last = {"15.25 | 24 x 2 | 180\xB0", "", "15.23 | 25 x 2 | 180\xB0", ""};
  EXPECT_EQ(std::vector<std::string>(list.end() - 4, list.end()), last);

  const auto other = ListOf({6 * kPi, 0.5, 30, 180, 25});
  EXPECT_EQ(other[0], "8.930 | 2 x 19 | 180\xB0");
  EXPECT_EQ(other[2], "22.73 | 3 x 12 | 180\xB0");
}

TEST(Patterns, ALowerLimitOnlyRemoves) {
  std::vector<std::string> kept;
  for (const Pattern& pattern : ClosingPatterns({}, {4 * kPi, 0.25, 24, 180, 25}))
    if (!pattern.blank() && pattern.angle < 20) kept.push_back(PatternText({}, pattern, 180));
  std::vector<std::string> limited;
  for (const std::string& entry : ListOf({4 * kPi, 0.25, 24, 180, 20}))
    if (!entry.empty()) limited.push_back(entry);
  EXPECT_EQ(limited, kept);
}

// What a pattern promises: its passes turn the mandrel by whole turns and a part of a circle each, so that a
// circuit comes back to where it began, within the rounding of its angle.
TEST(Patterns, EveryListedOneCloses) {
  for (const double wrap : {111.0, 150.0, 180.0, 230.0})
    for (const double diameter : {2.0, 4.0, 150.0})
      for (const double length : {diameter * 2, diameter * 6}) {
        const PatternPart part{diameter * kPi, diameter / 16, length, wrap, 40};
        for (const Pattern& pattern : ClosingPatterns({}, part)) {
          if (pattern.blank()) continue;
          const double degreesOfAngle = pattern.angle * kPi / 180;
          const double traverse = length * std::tan(degreesOfAngle) / part.circumference * 360;
          const double circuit = pattern.groups * 2 * (traverse + wrap);
          const double rounding = pattern.groups * 2 * length / part.circumference * 360 *
                                  (0.006 * kPi / 180) / (std::cos(degreesOfAngle) * std::cos(degreesOfAngle));
          const double turns = circuit / 360;
          EXPECT_NEAR(turns, std::round(turns), rounding / 360) << pattern.angle << " " << pattern.groups;
          // The bands of all circuits cover the circumference with at most one band left over.
          EXPECT_GE(pattern.groups * pattern.circuits * part.bandWidth / std::cos(degreesOfAngle),
                    part.circumference * 0.9);
        }
      }
}

TEST(Patterns, EndAtOnceForAnyPart) {
  const auto start = std::chrono::steady_clock::now();
  for (const PatternPart& part : {PatternPart{10000 * kPi, 0.0001, 24, 180, 25},
                                  {1e300, 1e-300, 1, 180, 25},
                                  {-5, 0.25, 24, 180, 25},
                                  {12, -0.25, 24, 180, 25},
                                  {12, 0.25, 0, 180, 25},
                                  {0, 0.25, 24, 180, 25},
                                  {12, 0.25, 24, 1e300, 25}})
    EXPECT_LE(ClosingPatterns({}, part).size(), 100U);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

struct FourAxisRow : testing::Test {
  FourAxisRow() {
    station.Run("optX", Event::Click, 1);
    station.Run("optType", Event::Click, 0);
    s.txtDia(0) = "4";
    s.txtDia(1) = "4";
    s.txtPODia(0) = "2";
    s.txtZ4(0) = "28";
    s.txtZ4(3) = "4";
    s.txtBandWidth(1) = "0.25";
    s.txtNumberOfLayers(1) = "1";
    s.cmbPhiW(1) = "180\xB0";
    s.cmbPhiSplit(1) = "45\xB0";
  }
  std::string Figures(int row) {
    return s.lblRPM(row).text() + "|" + s.lblcSpeed(row).text() + "|" + s.lblNPasses(row).text() + "|" +
           s.lblMinutes(row).text() + "|" + s.lblLength(row).text();
  }

  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
};

TEST_F(FourAxisRow, FollowsItsPattern) {
  s.cmbRate = "FAST";
  PopulatePatternCombo(s, 1);
  EXPECT_EQ(s.cmbPattern(1).text(), "Select ...");
  EXPECT_EQ(s.cmbPattern(1).mark(), Mark::NeedsInput);
  EXPECT_EQ(s.lblGrazeAngle.text(), "120.0 \xB0");
  station.Choose(s.cmbPattern(1), "18.12 | 4 x 12 | 180\xB0");
  EXPECT_EQ(Figures(1), "9.37|6.00|48|14.7|252.3");
  EXPECT_EQ(s.lblNPasses(26).text() + "|" + s.lblMinutes(26).text() + "|" + s.lblLength(26).text(),
            "48|14.7|252.3");
  EXPECT_EQ(s.gBuildMinutes, 15);
}

TEST_F(FourAxisRow, OfMillimetresRunsAtTheClassInInches) {
  ShowUnits(s, "N");
  s.iMaxCarriageSpeeds = {2, 4, 6};
  for (const auto& [rate, speed] :
       {std::pair("SLOW", "50.80"), std::pair("MED", "101.60"), std::pair("FAST", "152.40")}) {
    s.cmbRate = rate;
    CalculateAndShow(s, 45, "45 | 2 x 3 | 180\xB0", 1);
    EXPECT_EQ(s.lblcSpeed(1).text(), speed);
  }
}

// Pi has six digits here, as its programs have it.
TEST_F(FourAxisRow, TurnsAreMeasuredInTheShortPi) {
  EXPECT_NEAR(GrazingAngle(4, 2).value(), 120.0001014, 1e-6);
  // One turn round 100,000 inches, with a rise of an inch.
  EXPECT_NEAR(HelixLength(1e5, 1, 1, 60, 1).value(), 3 * 314159.0, 0.001);
}

TEST_F(FourAxisRow, KeepsAStoredPatternWhateverItsCase) {
  s.LayerTable4Ax.Set(1, 5, "3 | 5 X 10 | 180\xB0");
  PopulatePatternCombo(s, 1);
  EXPECT_EQ(s.cmbPattern(1).text(), "3 | 5 X 10 | 180\xB0");
  EXPECT_EQ(s.cmbPattern(1).mark(), Mark::Plain);
  EXPECT_EQ(s.lblNPasses(1).text(), "50");
  s.LayerTable4Ax.Set(1, 5, "7.465 | 2 X 25 | 180\xB0");
  PopulatePatternCombo(s, 1);
  EXPECT_EQ(s.cmbPattern(1).text(), "Select ...") << "the angle counts to its last digit";
  s.LayerTable4Ax.Set(1, 5, "3 | 5 X 10 | 180\xB0");
  s.cmbPhiW(1) = "170\xB0";
  PopulatePatternCombo(s, 1);
  EXPECT_EQ(s.cmbPattern(1).text(), "Select ...");
}

TEST_F(FourAxisRow, OfABlankBandOrWrapKeepsItsList) {
  PopulatePatternCombo(s, 1);
  const auto before = s.cmbPattern(1).entries();
  s.cmbPhiW(1) = "N/A";
  PopulatePatternCombo(s, 1);
  EXPECT_EQ(s.cmbPattern(1).entries(), before);
}

TEST_F(FourAxisRow, GrazingAngleOfOpenings) {
  EXPECT_EQ(FormatNumberText({}, GrazingAngle(4, 1).value(), "###.0"_mask), "151.0");
  EXPECT_EQ(GrazingAngle(4, 4).value(), 0);
  EXPECT_EQ(GrazingAngle(4, 0).value(), 0) << "the arc sine of 1 is 0 here";
  EXPECT_FALSE(GrazingAngle(4, 5).good());
  EXPECT_NEAR(ArcSin(0.5).value(), 0.5236, 1e-4);
  EXPECT_EQ(ArcCos(1).value(), 0);
}

TEST_F(FourAxisRow, OfAnAngleScheduleWindsLikeTwoAxes) {
  station.Run("optType", Event::Click, 2);
  s.cmbRate = "FAST";
  s.iMaxMandrelRPM = {60, 60, 60};
  station.Type(s.cmbPattern(1), "45");
  station.Run("lblRefresh", Event::Click);
  EXPECT_EQ(Figures(1), "28.65|6.00|36|7.0|241.4");
  EXPECT_EQ(s.lblLength(26).text(), "241.4");
  EXPECT_EQ(s.Length_Total.text(), "24");
}

TEST_F(FourAxisRow, BuildTimeRoundsItsHours) {
  struct Case {
    const char* total;
    int hours, minutes;
  };
  for (const Case& c : {Case{"70", 0, 70}, {"90", 1, 30}, {"150", 1, 90}, {"30", 0, 30}, {"45", 0, 45}}) {
    s.lblMinutes(IndexSet::kAllRows) = c.total;
    EXPECT_EQ(s.gBuildHours, c.hours) << c.total;
    EXPECT_EQ(s.gBuildMinutes, c.minutes) << c.total;
  }
}

}  // namespace
}  // namespace torvane
