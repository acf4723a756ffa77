// Programs made by hand whose cover is known beforehand.
#include <gtest/gtest.h>

#include "executor/proof/report.h"
#include "programs.h"

namespace torvane::executor {
namespace {

Proof ProofOf(const std::string& program) { return Prove(program, Limits()); }

TEST(Proof, OfALayerThatCloses) {
  const Proof proof = ProofOf(ProgramOf({}));
  EXPECT_EQ(KindsOf(proof), Kinds{}) << Report(proof);
  ASSERT_EQ(proof.layers.size(), 1U);
  const LayerFigures& layer = proof.layers[0];
  EXPECT_EQ(layer.passesRun, 36);
  EXPECT_NEAR(layer.pattern.windingAngle, 45, 1e-6);
  EXPECT_NEAR(layer.pattern.miss, 0, 1e-4);
  EXPECT_EQ(layer.coveredShare, 1);
  EXPECT_NEAR(layer.pattern.largestGap, (10 - kTestBand) * kTestAcross, 1e-4);
  // The ways at 45 degrees, and the turns at the ends.
  const double turns = layer.seconds * kTestRpm * 6 - 36 * 2 * 24 / (4 * kTestPi) * 360;
  EXPECT_NEAR(layer.filament, 36 * 2 * 24 * std::sqrt(2.0) + turns / 360 * 4 * kTestPi, 0.01);
}

TEST(Proof, OfALayerThatMissesByAKnownAngle) {
  const Proof proof = ProofOf(ProgramOf({.step = 350.0 / 36}));
  EXPECT_EQ(KindsOf(proof), (Kinds{{"open", 1}, {"bare-strips", 1}})) << Report(proof);
  EXPECT_NEAR(proof.layers[0].pattern.miss, 10, 1e-4);
  EXPECT_NE(Report(proof).find("would begin 10.00 degrees before"), std::string::npos);
  EXPECT_NEAR(proof.layers[0].pattern.largestGap, (10 + 350.0 / 36 - kTestBand) * kTestAcross, 1e-4);
  // Too far round instead of too short: the last band lies over the first, and nothing is bare.
  EXPECT_EQ(KindsOf(ProofOf(ProgramOf({.step = 364.0 / 36}))), Kinds{});
}

TEST(Proof, OfGapsOfAKnownWidth) {
  const Proof proof = ProofOf(ProgramOf({.passes = 30, .step = 12}));
  EXPECT_EQ(KindsOf(proof), (Kinds{{"bare-strips", 1}})) << Report(proof);
  EXPECT_NEAR(proof.layers[0].pattern.miss, 0, 1e-4);
  EXPECT_NEAR(proof.layers[0].pattern.largestGap, (12 - kTestBand) * kTestAcross, 1e-4);
  EXPECT_NEAR(proof.layers[0].pattern.smallestGap, (12 - kTestBand) * kTestAcross, 1e-4);
  // Bare is what lies between the bands both ways.
  const double bare = (12 - kTestBand) / 12;
  EXPECT_NEAR(proof.layers[0].coveredShare, 1 - bare * bare, 2e-3);
  // Gaps below a tenth of a band are none.
  EXPECT_EQ(KindsOf(ProofOf(ProgramOf({.passes = 34, .step = 360.0 / 34}))), Kinds{});
}

TEST(Proof, FindsTheOneBandBesideItsPlace) {
  const Proof proof = ProofOf(ProgramOf({.oddPass = 9, .odd = 6}));
  EXPECT_EQ(KindsOf(proof), (Kinds{{"band-aside", 1}})) << Report(proof);
  EXPECT_NE(Report(proof).find("The band of pass 10 of layer 1 lies 6.00 degrees"), std::string::npos)
      << Report(proof);
  EXPECT_EQ(KindsOf(ProofOf(ProgramOf({.oddPass = 9, .odd = 4}))), Kinds{});
}

TEST(Proof, CountsPasses) {
  EXPECT_EQ(KindsOf(ProofOf(ProgramOf({.announced = 37}))), (Kinds{{"passes", 1}}));
  EXPECT_EQ(KindsOf(ProofOf(ProgramOf({.passes = 3}))), (Kinds{{"few-passes", 1}}));
  EXPECT_EQ(ProofOf(ProgramOf({.passes = 1})).layers.at(0).pattern.miss, 0) << "one pass has no next";
  const std::string stray = Begun() + LayerOf({}) + "M4 S20\nG1 Z28\n" + Ended();
  EXPECT_EQ(KindsOf(ProofOf(stray)), (Kinds{{"passes", 0}}));
  std::string missing = ProgramOf({});
  const auto at = missing.find("G1 Z28.00");
  missing.erase(at, missing.find('\n', at) - at + 1);
  const Proof proof = ProofOf(missing);
  ASSERT_FALSE(proof.findings.all().empty());
  EXPECT_NE(proof.findings.all()[0].text.find("pass 2 of layer 1 is announced and has 1 traverse"),
            std::string::npos)
      << Report(proof);
  std::string twoLayers = ProgramOf({});
  for (auto i = twoLayers.find("1_of_1 "); i != std::string::npos; i = twoLayers.find("1_of_1 ", i))
    twoLayers.replace(i, 7, "1_of_2 ");
  EXPECT_EQ(KindsOf(ProofOf(twoLayers)), (Kinds{{"passes", 0}}));
}

TEST(Proof, WatchesTheLimits) {
  const Proof far = ProofOf(ProgramOf({.farZ = 60}));
  EXPECT_EQ(KindsOf(far), (Kinds{{"travel", 1}}));
  EXPECT_EQ(far.findings.all()[0].line, 14);
  EXPECT_EQ(far.findings.all()[0].alike, 35);
  Limits limits;
  limits.carriageSpeed = 5;
  limits.mandrelSpeed = 20;
  EXPECT_EQ(KindsOf(Prove(ProgramOf({}), limits)), (Kinds{{"mandrel-speed", 1}, {"carriage-speed", 1}}));
  limits = {0, 0, 0, 0, 0};
  EXPECT_EQ(KindsOf(Prove(ProgramOf({.farZ = 60}), limits)), Kinds{});
  // Limits are inches, a millimetre program's figures are not.
  EXPECT_EQ(KindsOf(ProofOf(Ready("G21", "47.625") + "G1 F229 Z1266\nX99\n")), Kinds{});
  EXPECT_EQ(KindsOf(ProofOf(Ready("G21", "47.625") + "G1 F230 Z40\nG1 E1200 Y1\nX99\n")),
            (Kinds{{"travel", 0}, {"carriage-speed", 0}}));
}

// A mandrel of 4 in, which gets thicker to the right: 5 in.
TEST(Proof, WatchesTheHead) {
  const auto headAt = [](const std::string& y, const std::string& rightDiameter = "4.000") {
    std::string text =
        "[GENERAL PART DESCRIPTION: LeftDia=4.000 RightDia=" + rightDiameter + " ]\n" + ProgramOf({});
    text.replace(text.find("T2 Z1.875"), 9, "T4 Z1.875 Y4.4375");
    text.replace(text.find("G28 F1.000"), 10, "G28 E1 F1");
    text.insert(text.find("D0 ST="), "G1 E1 Y" + y + "\n");
    return KindsOf(ProofOf(text));
  };
  EXPECT_EQ(headAt("2.01"), Kinds{});
  EXPECT_EQ(headAt("4.44"), Kinds{});
  EXPECT_EQ(headAt("4.45"), (Kinds{{"head-travel", 0}}));
  EXPECT_EQ(headAt("1.99"), (Kinds{{"head-strikes", 1}}));
  EXPECT_EQ(headAt("-0.10"), (Kinds{{"head-travel", 0}, {"head-strikes", 1}}));
  EXPECT_EQ(headAt("2.49", "5.000")[0].first, "head-strikes");
  // A two-axis machine has no head: its place is not known and not judged.
  std::string twoAxis = ProgramOf({});
  EXPECT_EQ(KindsOf(ProofOf(twoAxis)), Kinds{});
  EXPECT_EQ(KindsOf(ProofOf(Ready("G21", "47.625") + "G1 E1 Y112.71\nX99\n")), Kinds{});
  EXPECT_EQ(KindsOf(ProofOf(Ready("G21", "47.625") + "G1 E1 Y112.73\nX99\n")), (Kinds{{"head-travel", 0}}));
}

TEST(Proof, TellsWhereAProgramEnds) {
  const std::string whole = ProgramOf({});
  const std::string head = Ready() + "G1 F1 Z4\n";
  for (const auto& [text, broken] : std::vector<std::pair<std::string, bool>>{
           {head + "X99", false},
           {head + "M4 S10\nG51 Z4 Z20", false},
           {head + "M5\n", false},
           {head, true},
           {head + "M4 S20\n", true},
           {head + "M5 [Mandrel St", true},
           {head + "D0 ST=Heat Shrink Tape\nM5\n", true},
           {head + "D0 ST=Heat Shrink Tape\nM5\nD0 GM=No Heat Gun Application\n", false},
           {head + "D0 ST=Heat Gun Curing\nM0\nM4 S10\n", true},
           {whole.substr(0, whole.find("D0 GM")), true}}) {
    const Proof proof = ProofOf(text);
    EXPECT_EQ(KindsOf(proof), broken ? (Kinds{{"breaks-off", 0}}) : Kinds{}) << text;
  }
  const Proof cut = ProofOf(whole.substr(0, whole.size() / 2));
  EXPECT_GE(cut.findings.Count(Level::Fault), 2) << Report(cut);
  EXPECT_EQ(KindsOf(ProofOf(head + "X99\nG1 Z9\nM5\n")), (Kinds{{"behind-end", 0}}));
  EXPECT_FALSE(ProofOf("[nothing]\n\nhello\n").anyStatement);
}

// A layer that stands for as long as it is told to.
TEST(Proof, WatchesTheTimeAnnounced) {
  const auto warns = [](const std::string& seconds, const std::string& announced) {
    const auto kinds = KindsOf(ProofOf("M711 H0 M0 S" + announced + "\n" + Begun() + PassLine(1, 1) +
                                       "M4 S10\nG4 P" + seconds + "0000\n" + Ended()));
    return std::count(kinds.begin(), kinds.end(), std::pair<std::string, int>("time", 0)) > 0;
  };
  EXPECT_FALSE(warns("374", "300"));
  EXPECT_TRUE(warns("375", "300"));
  EXPECT_FALSE(warns("100", "400")) << "less than the announced time is soon told";
  EXPECT_TRUE(warns("100", "401"));
  EXPECT_FALSE(warns("89", "30")) << "whole minutes are announced";
  EXPECT_TRUE(warns("90", "30"));
}

TEST(Proof, ReportsWhatItCannotReadAndGoesOn) {
  std::string text = ProgramOf({});
  text.insert(text.find("M17"), "G1 Z\xe4\n");
  const Proof proof = ProofOf(text);
  EXPECT_EQ(KindsOf(proof), (Kinds{{"unreadable", 0}}));
  EXPECT_EQ(proof.findings.all()[0].line, 5);
  EXPECT_NE(Report(proof).find("no number stands behind Z. G1: Moves the carriage"), std::string::npos);
  EXPECT_EQ(proof.layers.at(0).coveredShare, 1);
  std::string many;
  for (int i = 0; i < 1000; ++i) many += "?\n";
  EXPECT_EQ(ProofOf(Ready() + many + "X99").findings.all().size(), 20U);
}

TEST(Proof, IsTheSameUnderADecimalComma) {
  std::string comma = ProgramOf({});
  for (char& c : comma)
    if (c == '.') c = ',';
  comma.replace(comma.find("C C0"), 4, "C C1");
  const Proof with = ProofOf(comma), point = ProofOf(ProgramOf({}));
  EXPECT_EQ(Report(with), Report(point));
}

TEST(Proof, OfSpeedsAndStandstill) {
  EXPECT_EQ(KindsOf(ProofOf(Ready() + "G1 F1 Z4\nG4 C360\nX99")), (Kinds{{"standstill", 0}}));
  EXPECT_EQ(KindsOf(ProofOf(Ready() + "G1 F0 Z4\nX99")), (Kinds{{"standstill", 0}}));
  std::string slow = ProgramOf({});
  slow.insert(slow.find("M17"), "M711 H0 M50 S0\n");
  EXPECT_EQ(KindsOf(ProofOf(slow)), (Kinds{{"time", 0}}));
}

std::string CarriageShift(int passes, double farZ, double homeZ) {
  std::string text = Begun();
  const double shift = 0.25 * std::sqrt(2.0) * (35.5430635 / passes);  // as many steps as make the pitch
  for (int pass = 1; pass <= passes; ++pass) {
    text += PassLine(pass, passes, "cs");
    const double on = shift * (pass - 1);
    if (pass == 1) text += "M4 S" + Fixed(kTestRpm, 8) + "\nM602\n";
    text += "G1 F6 Z" + Fixed(pass == 1 ? 28 : farZ + on, 4) + (pass == 1 ? "\nM601\n" : "\nG4 L601\n");
    text += "G1 Z" + Fixed(pass == 1 ? 4 : homeZ + on, 4) + "\nG4 L602\n";
  }
  return text + Ended();
}

TEST(Proof, OfACarriageShift) {
  const Proof fits = ProofOf(CarriageShift(36, 28, 4));
  EXPECT_EQ(KindsOf(fits), Kinds{}) << Report(fits);
  EXPECT_NEAR(fits.layers[0].pattern.miss, 0, 0.02);
  EXPECT_EQ(fits.layers[0].coveredShare, 1);
  EXPECT_NEAR(fits.layers[0].zLow, 4 + 35 * 0.25 * std::sqrt(2.0) * 35.543 / 36, 0.01);
  EXPECT_EQ(KindsOf(ProofOf(CarriageShift(30, 28, 4))), (Kinds{{"bare-strips", 1}}));
  EXPECT_EQ(KindsOf(ProofOf(CarriageShift(36, 8, 28))), (Kinds{{"shift-ends", 1}}));
}

// A hoop row by mandrel shift of 0.25 in: out and back, and a dwell without an angle.
std::string Hoop(const std::string& feed, const std::string& rpm) {
  return Begun() + "D0 LA=1_of_1 PA=1_of_1 WA=90 WM=ms LD=4 FW=0.25\nM4 S" + rpm + "\nM602\nG1 F" + feed +
         " Z28\nM601\nG1 Z4\nG4 L602 C [Carriage Dwell Home End]\n" + Ended();
}

TEST(Proof, OfHoops) {
  EXPECT_EQ(KindsOf(ProofOf(Hoop("0.125", "30"))), (Kinds{{"hoop-dwell", 1}}));
  // 0.0167 in/s would be right: written as 0.02 the turns lie 0.3 apart.
  EXPECT_EQ(KindsOf(ProofOf(Hoop("0.02", "4"))), (Kinds{{"hoop-dwell", 1}, {"rounding", 1}}));
  const Proof wide = ProofOf(Hoop("0.15", "30"));
  EXPECT_EQ(KindsOf(wide), (Kinds{{"hoop-dwell", 1}, {"angle-off", 1}, {"bare-strips", 1}}));
  EXPECT_NEAR(wide.layers[0].pattern.largestGap, 0.3 * std::sin(std::atan(4 * kTestPi / 0.3)) - 0.25, 1e-4);
  EXPECT_NEAR(wide.layers[0].coveredShare, 1 - 1 / 36.0, 2e-3);
}

// Four places round, twelve circuits each: a traverse of 225 degrees over 24 in, a wrap of 180.
std::string Wrapped(double groupShift, double lastA) {
  std::string text = Begun();
  double a = 0;
  const auto turn = [&](const std::string& words, double degrees) {
    a += degrees;
    text += words + " C" + Fixed(degrees, 2) + " A" + Fixed(a, 2) + "\n";
  };
  for (int pass = 1; pass <= 48; ++pass) {
    text += "D0 LA=1_of_1 PA=" + std::to_string(pass) + "_of_48 WA=18.13 WM=4AX LD=4 FW=0.25 HL=\n";
    turn("G1 F4 Z28 S6.25", 225);
    turn("G2 K40 F1 Z30 S4", 135);
    turn("G5 K2 F1 Z28 S4", 45);
    turn("G1 F4 Z4 S6.25", 225);
    turn("G3 K40 F1 Z2 S4", 135);
    if (pass == 48) a += lastA;
    turn("G6 K2 F1 Z4 S4", pass % 4 == 0 ? 45 + groupShift : 45);
  }
  return text + Ended();
}

TEST(Proof, OfWrappedEnds) {
  const Proof closed = ProofOf(Wrapped(7.5, 0));
  EXPECT_EQ(KindsOf(closed), Kinds{}) << Report(closed);
  EXPECT_NEAR(closed.layers[0].pattern.miss, 0, 1e-6);
  EXPECT_EQ(closed.layers[0].coveredShare, 1);
  EXPECT_EQ(KindsOf(ProofOf(Wrapped(7.5, 1))), (Kinds{{"running-angle", 1}}));
  EXPECT_EQ(KindsOf(ProofOf(Wrapped(0, 0))), (Kinds{{"bare-strips", 1}}));
}

std::string AskedAt(const std::string& angle) {
  std::string text = ProgramOf({});
  for (auto at = text.find("WA=45"); at != std::string::npos; at = text.find("WA=45", at + 1))
    text.replace(at + 3, 2, angle);
  return text;
}

// Twice as thick at the left end, where the far dwells are set; the ways back cover it.
TEST(Proof, OfATaper) {
  const std::string head = "[GENERAL PART DESCRIPTION: LeftDia=4.000 RightDia=2.000 ]\n";
  const Proof proof = ProofOf(head + AskedAt("36.87"));
  EXPECT_EQ(KindsOf(proof), Kinds{}) << Report(proof);
  EXPECT_LT(proof.layers[0].pattern.windingAngle, 40);
  const Proof thin =
      ProofOf("[GENERAL PART DESCRIPTION: LeftDia=4.000 RightDia=6.000 ]\n" + AskedAt("51.34"));
  EXPECT_EQ(KindsOf(thin), (Kinds{{"bare-strips", 1}}));
}

}  // namespace
}  // namespace torvane::executor
