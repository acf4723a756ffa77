// The machine's positions and times.
#include "executor/machine/machine.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace torvane::executor
