// Lines of single sections whose numbers can be worked out on paper.
#include <gtest/gtest.h>

#include <array>

#include "gcode/dialect.h"
#include "gcode/end_wraps.h"
#include "gcode/hoop.h"
#include "gcode/prewrap.h"
#include "gcode/two_axis_program.h"
#include "support/station_on_stage.h"

namespace torvane {
namespace {

struct Sections : testing::Test {
  std::string Text() {
    std::string text;
    for (const std::string_view block : program.Text()) text += block;
    return text;
  }

  std::string ShiftAngle(std::string_view endCode, Number windingAngle, int step) const {
    return torvane::TextOf(s.signs,
                           MandrelShift(s, endCode, windingAngle).AngleAt(step).as(dialect::kShiftAngleMask))
        .text;
  }

  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
  Program program{s.signs};
  GCodeSession session{s, program};
};

TEST_F(Sections, DwellAnglesOfBothSpacings) {
  s.Band_Width = "0.5";
  s.Diameter_Left = "4";
  s.Diameter_Right = "2";
  // 2 inches round: 6.2832; the band takes 0.7071 of it at 45 degrees, so eight whole bands and one more.
  EXPECT_EQ(ShiftAngle("H", 45, 1), "40.00");
  EXPECT_EQ(ShiftAngle("H", 45, 10), "400.00") << "no turn is taken off";
  EXPECT_EQ(ShiftAngle("F", 45, 1), "20.00");
  s.gIsLHDrive = true;
  EXPECT_EQ(ShiftAngle("H", 45, 1), "20.00");
  s.gIsLHDrive = false;
  s.txtUseProportionalFilamentSpacingYN = "N";
  EXPECT_EQ(ShiftAngle("H", 45, 1), "40.51");
  s.txtUseProportionalFilamentSpacingYN = "";
  EXPECT_EQ(ShiftAngle("H", 90, 1), "") << "a hoop has no bands beside each other";
  s.Band_Width = "wide";
  EXPECT_EQ(ShiftAngle("H", 45, 1), "");
}

TEST_F(Sections, ABandLiesOnTheSlantAlongTheAxis) {
  s.Band_Width = "0.5";
  EXPECT_NEAR(BandOnAxis(s, 30).value(), 1, 1e-6);
  EXPECT_FALSE(BandOnAxis(s, 0).good());
}

TEST_F(Sections, PreWrapFeedsShowTheirMask) {
  s.txtZ2(0) = "28";
  s.txtZ2(1) = "4";
  s.cmbPreWrapRPM(1) = "40";
  s.txtPreWrapAdvance(1) = "1.5";
  WritePreWrap(session, 1);
  EXPECT_NE(Text().find("G1 F1. Z28.00 [Carriage Move for Pre-Wrap]"), std::string::npos) << Text();
  EXPECT_NE(Text().find("D0 ST=Mandrel Pre-Wrap #1 PA=40 WA=1.5 FL= [Display Layer Properties]\r\n"),
            std::string::npos);
  s.txtPreWrapAdvance(2) = "0";
  s.cmbPreWrapRPM(2) = "20";
  WritePreWrap(session, 2);
  EXPECT_NE(Text().find("D0 ST=Mandrel Pre-Wrap #2 PA=20 WA=0 \r\nM4 S20"), std::string::npos) << Text();
  EXPECT_EQ(Text().find("Pre-Wrap]", Text().find("#2 PRE-WRAP")),
            Text().find("Pre-Wrap]", Text().find("Rev's after Pre-Wrap", Text().find("#2 PRE-WRAP"))))
      << "without an advance the carriage stands";
}

struct Wrapped : Sections {
  Wrapped() {
    station.Run("optX", Event::Click, 1);
    station.Run("optType", Event::Click, 0);
    s.cmbRate = "MED";
    s.txtDia(0) = "4";
    s.txtDia(1) = "4";
    s.txtZ4(0) = "28";
    s.txtZ4(3) = "4";
    s.txtAdjust(1) = "30";
    s.txtAdjust(3) = "1";
    s.txtAdjust(5) = "2";
    s.txtAdjust(6) = "2";
    s.txtBandWidth(1) = "0.5";
    s.txtNumberOfLayers(1) = "2";
    s.cmbPhiW(1) = "180\xB0";
    s.cmbPhiSplit(1) = "45\xB0";
    s.gDelayTimeInG456ToWaitForMandrelinMS = 0;
    s.gWindAngle = 30;
  }
};

// An end wrap of 180 degrees, which the running angle holds already.
void WriteWrap(GCodeSession& session, End end, std::optional<Number> shift = std::nullopt) {
  const Slot ellipse{0, dialect::kRunningAngle}, withdrawal{1, dialect::kRunningAngle};
  const Passage passage =
      session.program.Spelled([&] { WriteEndWrap(session, 1, end, 180, shift, ellipse, withdrawal); });
  const Number behind = session.gMandrelAngle;
  session.program.Repeat(passage, std::array{AngleBehindEllipse(session, behind, 180), behind});
}

// Wrap 180, split 45, S of 4, no delay, a span of 2 inches.
TEST_F(Wrapped, EndWrapAtTheRight) {
  session.gMandrelAngle = 1000;
  session.gMoveB = -45;
  WriteWrap(session, End::Right);
  const std::string text = Text();
  // A slope of 45 degrees is not quite 45 by the pi of machines: a rotation that shows as 0 keeps its words.
  EXPECT_TRUE(text.starts_with(
      "G3 K40.00 F0.36 Z2.00 E1.68 Y2.00 R0.00 B-45.00 U1.00 V2.00 H4.00 W2.00 S4.00 C135.00 A955.00 "
      "[CCW ELLIPSE AT RIGHT END]\r\n"))
      << text;
  // Then back by 1 inch in Y and from -45 to 60 degrees in 1.875 seconds.
  EXPECT_NE(text.find("G6 K2.00 F1.07 Z4.00 E0.53 Y3.00 R11.20 B60.00 U1.00 V2.00 H4.00 W2.00 S4.00 C45.00 "
                      "A1000.00 [DH G6 WITHDRAWL RIGHT END]\r\n"),
            std::string::npos)
      << text;
}

TEST_F(Wrapped, AnEllipseWithoutRotationHasNoWordsForIt) {
  s.txtDia(0) = "0";
  session.gMoveB = -90;
  WriteWrap(session, End::Right);
  const std::string ellipse = Text().substr(0, Text().find("\r\n"));
  EXPECT_EQ(ellipse.find(" R"), ellipse.find(" RIGHT END")) << ellipse;
  EXPECT_EQ(ellipse.find(" B"), std::string::npos) << ellipse;
  EXPECT_NE(Text().find(" R", ellipse.size()), Text().find(" RIGHT END", ellipse.size()));
}

// Without a diameter the head has a quarter turn of the mandrel, 3.75 seconds at S of 4, for its 45 degrees.
TEST_F(Wrapped, AnEllipseOnNoDiameterTakesAQuarterTurn) {
  s.txtDia(0) = "0";
  session.gMoveB = -45;
  WriteWrap(session, End::Right);
  EXPECT_NE(Text().find(" R2.80 B-90.00 "), std::string::npos) << Text();
}

// Wrapped where the traverse ends, the head still turns square to the part and back by 150 degrees.
TEST_F(Wrapped, AWrapAtTheEndOfTheTraverseTurnsTheHead) {
  s.txtZ4(2) = "4";
  s.txtAdjust(5) = "4";
  session.gMoveB = -45;
  WriteWrap(session, End::Right);
  EXPECT_TRUE(Text().starts_with("G3 K40.00 F0.00 Z4.00 E1.68 Y2.00 R2.80 B-90.00 ")) << Text();
  EXPECT_NE(Text().find(" Y3.00 R16.00 B60.00 "), std::string::npos) << Text();
}

TEST_F(Wrapped, ShiftIsTurnedInTheSameTime) {
  session.gMandrelAngle = 1000;
  WriteWrap(session, End::Right, Number(7.5));
  EXPECT_NE(Text().find("F1.07 Z4.00 E0.53 Y3.00"), std::string::npos) << Text();
  EXPECT_NE(Text().find("C52.50 A1000.00 [DH G6 WITHDRAWL RIGHT END + MANDREL SHIFT ANG=7.50 DEG.]"),
            std::string::npos)
      << Text();
}

TEST_F(Wrapped, SpeedsFollowRateAndMotors) {
  struct Case {
    const char* rate;
    bool large;
    const char *ellipse, *withdrawal;
  };
  for (const Case& c : {Case{"SLOW", false, "S3.00", "S3.00"},
                        {"SLOW", true, "S3.00", "S2.00"},
                        {"FAST", false, "S10.00", "S4.00"},
                        {"FAST", true, "S12.00", "S6.00"},
                        {"MED", true, "S6.00", "S4.00"},
                        {"MEDIUM", false, "S6.00", "S6.00"}}) {
    Program fresh(s.signs);
    GCodeSession own{s, fresh};
    s.cmbRate = c.rate;
    s.gIsNEMA34 = c.large;
    WriteWrap(own, End::Left);
    std::string text;
    for (const std::string_view block : fresh.Text()) text += block;
    const auto withdrawal = text.find("G5 ");
    EXPECT_LT(text.find(c.ellipse), withdrawal) << c.rate;
    EXPECT_NE(text.find(c.withdrawal, withdrawal), std::string::npos) << c.rate;
  }
}

TEST_F(Wrapped, HoopTurnsOnceMoreThanItsBands) {
  s.txtZ4(0) = "14";
  s.cmbPattern(1) = "HOOP";
  s.cmbPattern(2) = "HOOP";
  s.lblRPM(2) = "30.00";
  s.lblcSpeed(2) = "0.25";
  s.txtNumberOfLayers(1) = "1.5";  // two layers, so that this is the last
  WriteHoopLayer(session, 2);
  const std::string text = Text();
  EXPECT_TRUE(
      text.starts_with("M0 [PAUSE BEFORE HOOP WINDING]\r\n"
                       "G1 F1 Z4.00 Y3.00 R20 B0 [Move Carriage to Beginning of Hoop Start]\r\n"
                       "M0 [PAUSE BEFORE HOOP WINDING]\r\n"
                       "G1 F0.25 Z14.00 R10.00 B8.04 S30.00 C7560.00 A7560.00  [MOVE LEFT END]\r\n"
                       "G1 F0.25 Z4.00 R10.00 B-8.04 S30.00 C7560.00 A15120.00  [MOVE BACK RIGHT END]\r\n"
                       "M0 [PAUSE AFTER HOOP WINDING]\r\n"
                       "[END Layer 2: HOOP LAYER   "))
      << text;
}

TEST_F(Wrapped, AHoopsHeadIsTurnedFiveDegreesAtLeast) {
  EXPECT_EQ(HoopHeadAngle(0).value(), 84);
  EXPECT_EQ(HoopHeadAngle(78).value(), 6);
  EXPECT_EQ(HoopHeadAngle(79.5).value(), 5);
  EXPECT_EQ(HoopHeadAngle(90).value(), 5);
  EXPECT_FALSE(HoopHeadAngle(Number::Failure()).good());
}

TEST_F(Wrapped, StartPositionStaysWithinHalfAPart) {
  s.txtZ4(2) = "4";
  s.cmbPattern(1) = "18.12 | 4 x 12 | 180\xB0";
  WriteStartPosition(session, 0, 1);
  // 2 / tan(18.12) = 6.112 beyond the inner end; half the part's 24 inches is farther.
  EXPECT_EQ(Text(), "G1 F1.000 Z10.11 Y3 E1.000 B71.88 R10 S0\r\n");
  EXPECT_NEAR(session.gMandrelStartAngle.value(), -57.30, 0.01);
  s.cmbPattern(1) = "5 | 3 x 17 | 180\xB0";
  WriteStartPosition(session, 0, 1);
  EXPECT_NE(Text().find("Z16.00"), std::string::npos) << Text();
}

// A hoop first and no band: the start keeps the Z it had.
TEST_F(Wrapped, StartPositionOfAHoopWithoutABandIsWritten) {
  s.txtZ4(2) = "5";
  s.cmbPattern(1) = "HOOP";
  s.txtBandWidth(1) = "";
  WriteStartPosition(session, 1, 0);
  EXPECT_NE(Text().find(" Z5.00 Y3 "), std::string::npos) << Text();
}

TEST_F(Wrapped, StartPositionWithoutASpeedIsWritten) {
  s.txtZ4(2) = "5";
  s.txtLimitSwitchApproachSpeed = "";
  WriteStartPosition(session, 0, 0);
  EXPECT_TRUE(Text().starts_with("G1 F0.000 Z5.00 Y3 ")) << Text();
}

TEST_F(Wrapped, StartPositionWithoutAPatternIsTheInnerEnd) {
  station.Run("optType", Event::Click, 1);
  s.txtZ4(2) = "28";
  s.txtZ4(3) = "30";
  s.cmbPattern(1) = "Select ...";
  s.gWindAngle = 0;
  WriteStartPosition(session, 0, 1);
  EXPECT_EQ(Text(), "G1 F1.000 Z28.00 Y3 E1.000 B90.00 R10 S0\r\n");
}

}  // namespace
}  // namespace torvane
