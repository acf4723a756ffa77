// The machine's positions and times.
#include "executor/machine/machine.h"

#include <gtest/gtest.h>

#include "executor/machine/limits.h"
#include "executor/machine/winding.h"
#include "executor/program/reader.h"
#include "programs.h"
#include "stage/stores.h"

namespace torvane::executor {
namespace {

struct Trial {
  Machine machine;
  Motion last;
  double seconds = 0;

  void Do(const std::string& text) {
    Statement statement;
    std::string trouble;
    ASSERT_TRUE(ReadStatement(text, '.', statement, trouble)) << text << ": " << trouble;
    last = machine.Run(statement);
    seconds = 0;
    for (std::size_t i = 0; i < last.count; ++i) seconds += last.segments[i].seconds;
  }
};

TEST(Machine, TurnsTheMandrelWhileTheCarriageRuns) {
  Trial run;
  for (const char* text : {"X V420 T2 Z1.5", "G28 F1", "M4 S10", "G1 F2 Z11.5"}) run.Do(text);
  EXPECT_DOUBLE_EQ(run.seconds, 5);
  EXPECT_DOUBLE_EQ(run.machine.At().mandrel, 5 * 60);
  run.Do("G1 Z1.5");  // at the last speed
  EXPECT_DOUBLE_EQ(run.seconds, 5);
  run.Do("G4 P25000");
  EXPECT_DOUBLE_EQ(run.seconds, 2.5);
  EXPECT_DOUBLE_EQ(run.machine.At().mandrel, 12.5 * 60);
  run.Do("M5");
  run.Do("G1 Z3.5");
  EXPECT_DOUBLE_EQ(run.machine.At().mandrel, 12.5 * 60);
}

TEST(Machine, WaitsForAnAngleModuloATurn) {
  Trial run;
  for (const char* text : {"M4 S10", "G4 C30", "M602", "G4 C100", "M601", "G4 C500"}) run.Do(text);
  EXPECT_DOUBLE_EQ(run.machine.At().mandrel, 630);
  run.Do("G4 L602 C20");  // stands at 270, waits for 50
  EXPECT_DOUBLE_EQ(run.last.turn, 140);
  EXPECT_DOUBLE_EQ(run.seconds, 140.0 / 60);
  run.Do("G4 L602 C740");  // the same place, told two turns on
  EXPECT_DOUBLE_EQ(run.last.turn, 0);
  run.Do("G4 L601 C");
  EXPECT_DOUBLE_EQ(run.last.turn, 80);
  run.Do("G4 C-90");  // the mandrel turns one way only
  EXPECT_DOUBLE_EQ(run.last.turn, 270);
  // A mandrel a hair past the angle has reached it, further on it goes round.
  for (const char* text : {"M602", "G4 C0.0000005", "G4 L602 C0"}) run.Do(text);
  EXPECT_DOUBLE_EQ(run.last.turn, 0);
  for (const char* text : {"G4 C0.000005", "G4 L602 C0"}) run.Do(text);
  EXPECT_NEAR(run.last.turn, 360, 1e-4);
}

TEST(Machine, RunsEveryAxisAtItsOwnSpeed) {
  Trial run;
  run.Do("G1 F2 Z4 S10 C60 E1 Y3 R10 B30 A60");
  EXPECT_DOUBLE_EQ(run.seconds, 2);  // the carriage is last
  ASSERT_GE(run.last.count, 2U);
  EXPECT_DOUBLE_EQ(run.last.segments[0].seconds, 0.5);  // the head has turned
  EXPECT_DOUBLE_EQ(run.last.segments[0].to.carriage, 1);
  EXPECT_DOUBLE_EQ(run.last.segments[0].to.mandrel, 30);
  EXPECT_DOUBLE_EQ(run.machine.At().mandrel, 60);
  EXPECT_DOUBLE_EQ(run.machine.At().rotation, 30);
  run.Do("G3 K40 F1 Z6 E1 Y0.5 R2 B-45 U1 V2 H4 W1 S5 C90 A150");
  EXPECT_DOUBLE_EQ(run.seconds, 3);
  EXPECT_DOUBLE_EQ(run.machine.At().carriage, 6);
  EXPECT_DOUBLE_EQ(run.machine.At().head, 0.5);
  EXPECT_DOUBLE_EQ(run.machine.At().mandrel, 150);
  run.Do("G1 F2 Z4 Y3 E1 B0 R20 S0");  // all at once, mandrel standing
  EXPECT_DOUBLE_EQ(run.seconds, 2.5);
  EXPECT_DOUBLE_EQ(run.machine.At().mandrel, 150);
}

TEST(Machine, SaysWhatNeverArrives) {
  Trial run;
  run.Do("G1 F0 Z4");
  EXPECT_EQ(run.last.trouble, Trouble::CarriageStands);
  EXPECT_DOUBLE_EQ(run.machine.At().carriage, 4);
  run.Do("G4 C90");
  EXPECT_EQ(run.last.trouble, Trouble::MandrelStands);
  run.Do("G4 L601");
  EXPECT_EQ(run.last.trouble, Trouble::RegisterEmpty);
}

Winding WindingOf(const std::string& program) {
  Machine machine;
  Winding winding;
  Reader reader(program);
  for (Line line; reader.Next(line);) {
    if (line.kind != Line::Kind::Statement) continue;
    const Position before = machine.At();
    winding.Take(line, machine.Run(line.statement), machine, before);
  }
  return winding;
}

// The mandrel is done with its turn before the carriage arrives: what is left bends the band where it is
// longer than half of that is wide.
TEST(Winding, HasATailWhereTheMandrelIsDoneFirst) {
  const auto strokes = [](const std::string& turn) {
    return WindingOf(Begun() + PassLine(1, 1) + "G1 F6 Z28 S10 C" + turn + "\n").layers().at(0).strokes;
  };
  EXPECT_EQ(strokes("238.8").size(), 1U) << "0.12 in";
  const auto bent = strokes("238.7");
  ASSERT_EQ(bent.size(), 2U) << "0.13 in";
  EXPECT_FALSE(bent[0].tail);
  EXPECT_TRUE(bent[1].tail);
  EXPECT_NEAR(bent[1].z0, 27.87, 1e-9);
  EXPECT_DOUBLE_EQ(bent[1].z1, 28);
}

TEST(Winding, TakesDiametersFromTheHeadAlone) {
  Winding winding;
  winding.TakeComment("12345678 PART DESCRIPTION");
  EXPECT_EQ(winding.comments().leftDiameter, 0);
  winding.TakeComment("PART DESCRIPTION: LeftDia=4.5 RightDia=2");
  winding.TakeComment("PART DESCRIPTION: LeftDia=5");
  EXPECT_EQ(winding.comments().leftDiameter, 4.5) << "the first one stands";
  EXPECT_EQ(winding.comments().rightDiameter, 2);
}

TEST(Limits, AreReadFromTheCalibrationOfTheDecimalSign) {
  MemoryStore store;
  store.Write("TV2_Calibration", "cMaxTravel", "60");
  store.Write("TV2_Calibration", "cMaxSpeed", "-5");
  store.Write("TV2_Calibration", "mMaxRPM", "fast");
  store.Write("TV2_Calibration_DC", "cMaxTravel", "60,5");
  store.Write("TV4_Calibration", "dhlMaxSpeed", "3");
  store.Write("Settings", "gDHYtoMandrelCenter", "4.5");
  const Limits limits = ReadLimits(store, '.');
  EXPECT_EQ(limits.carriageTravel, 60);
  EXPECT_EQ(limits.carriageSpeed, 0) << "no machine runs below nothing: it is not watched";
  EXPECT_EQ(limits.mandrelSpeed, 0);
  EXPECT_EQ(limits.headSpeed, 3);
  EXPECT_EQ(limits.headRetracted, 4.5);
  const Limits comma = ReadLimits(store, ',');
  EXPECT_EQ(comma.carriageTravel, 60.5);
  EXPECT_EQ(comma.carriageSpeed, Limits{}.carriageSpeed) << "what is not stored is the usual machine's";
}

}  // namespace
}  // namespace torvane::executor
