#include "post/motion/motions.h"

#include <gtest/gtest.h>

#include "executor/program/number.h"

namespace torvane::post {
namespace {

// Each event as a line: what it is, its seconds, and carriage, mandrel, head and the head's rotation behind
// it.
class Heard : public Listener {
 public:
  bool Take(const Event& event) override {
    constexpr const char* kNames[] = {"home", "move", "pause", "wait", "message", "pass", "layer", "end"};
    std::string line = kNames[static_cast<int>(event.kind)];
    if (event.kind == Event::Kind::Move || event.kind == Event::Kind::Pause)
      line += " " + executor::Fixed(event.seconds, 3) + ":";
    if (event.kind == Event::Kind::Move || event.kind == Event::Kind::Home)
      for (const Axis axis : kAllAxes) line += " " + executor::Fixed(event.to[axis], 3);
    if (!event.text.empty()) line += " " + std::string(event.text);
    lines.push_back(line);
    return true;
  }
  std::vector<std::string> lines;
};

using Lines = std::vector<std::string>;

constexpr const char kTwoAxes[] =
    "C C0\nG20\nG90\nX V420 T2 Z2.0\nM711 H0 M1 S0\nM17\nG28 F1\nG4 P10000 [Pause]\nG1 F2 Z4\n"
    "M0 [Wait for the button]\nD0 ST=Winding Schedule\nD0 LA=1_of_2 PA=1_of_2 FW=0.25\n"
    "M4 S10\nM602\nG1 F4 Z12\nM601\nG1 Z4\nG4 L602 C90\n"
    "D0 LA=1_of_2 PA=2_of_2 FW=0.25\nG1 Z12\nG4 L601 C10\n"
    "M650 a@b MSG=x\nD0 GM=Winding_Process_Complete\nM5\nM18\nX99\nM4 S10\n";

// At 10 revolutions a minute the mandrel turns 60 degrees a second: 8 in at 4 in/s take 2 s and 120 degrees.
const Lines kTwoAxesHeard = {
    "home 0.000 0.000 0.000 0.000",
    "pause 1.000:",
    "move 1.000: 50.800 0.000 0.000 0.000",
    "wait Wait for the button",
    "message Winding Schedule",
    "layer Layer 1 of 2",
    "pass Layer 1 of 2, pass 1 of 2",
    "move 2.000: 254.000 120.000 0.000 0.000",
    "move 2.000: 50.800 240.000 0.000 0.000",
    "move 3.500: 50.800 450.000 0.000 0.000",  // until 0 + 90
    "pass Layer 1 of 2, pass 2 of 2",
    "move 2.000: 254.000 570.000 0.000 0.000",
    "move 4.667: 254.000 850.000 0.000 0.000",  // until 120 + 10, the next time
    "message Winding_Process_Complete",
    "end",
};

TEST(Motions, TurnRegistersAndDwellsIntoAnglesAndSeconds) {
  Heard heard;
  Motions motions(heard, 1);
  EXPECT_FALSE(motions.Take(kTwoAxes));
  EXPECT_TRUE(motions.Finish());
  EXPECT_EQ(heard.lines, kTwoAxesHeard);
  EXPECT_EQ(motions.LeftOut(), (Lines{"Notices to addresses are not sent (line 22)",
                                      "The motors are not switched off (line 25)"}));
}

TEST(Motions, AreTheSameHoweverTheProgramIsCut) {
  const std::string program = kTwoAxes;
  for (const std::size_t size : {1U, 2U, 7U, 64U, 150U}) {
    Heard heard;
    Motions motions(heard, 1);
    for (std::size_t at = 0; at < program.size(); at += size)
      if (!motions.Take(std::string_view(program).substr(at, size))) break;
    EXPECT_TRUE(motions.Finish());
    EXPECT_EQ(heard.lines, kTwoAxesHeard) << size;
  }
}

// The identification line tells the head's distance in inches: 2 in are 50.8 mm. The swing at the end takes
// the mandrel's time: 45 degrees at 24 degrees a second.
TEST(Motions, MoveADeliveryHeadFromWhereItIsRetracted) {
  Heard heard;
  Motions motions(heard, 1);
  motions.Take(
      "G21\nX V420 T4 Z10 Y2\nG28 E10 R4 F10 C0\nG1 I10 J10\nG1 F10 Z30 Y40.8 E5 B12 R1 S0\nM0\n"
      "G1 F20 Z70 S4 C48.02\nG2 Z90 C45 Y20.8 B-12 S4\nM18\nG28 E10 R4 F20\nX99");
  EXPECT_TRUE(motions.Finish());
  EXPECT_EQ(heard.lines,
            (Lines{"home 0.000 0.000 0.000 0.000", "move 2.000: 20.000 0.000 -10.000 12.000", "wait",
                   // 40 mm at 20 mm/s, and the mandrel a hair behind them.
                   "move 2.001: 60.000 48.020 -10.000 12.000", "move 1.875: 80.000 93.020 -30.000 -12.000",
                   "move 4.000: 0.000 93.020 0.000 0.000", "end"}));
}

TEST(Motions, GiveARunWithoutEndTurnsAndWaits) {
  Heard heard;
  Motions motions(heard, 2);
  motions.Take("G20\nX V420 T2 Z2\nG28 F1\nG1 F2 Z4\nM4 S10\nG51 Z4 Z6\n");
  EXPECT_TRUE(motions.Finish());
  EXPECT_EQ(heard.lines,
            (Lines{"home 0.000 0.000 0.000 0.000", "move 1.000: 50.800 0.000 0.000 0.000",
                   "move 1.000: 101.600 60.000 0.000 0.000", "move 1.000: 50.800 120.000 0.000 0.000",
                   "wait Take the heat away, then press to go on", "move 1.000: 101.600 180.000 0.000 0.000",
                   "move 1.000: 50.800 240.000 0.000 0.000", "end"}));
  EXPECT_EQ(motions.LeftOut(),
            (Lines{"A run without end becomes 2 turns to and fro, with a wait after each, in "
                   "which the mandrel stands (line 6)"}));
}

TEST(Motions, AreRefusedWithTheLineThatNoControllerCanRun) {
  const std::string begun = "G20\nX V420 T2 Z2\nG28 F1\n";
  const std::pair<std::string, std::string> kCases[] = {
      {"G20\nG7 X\n", "line 2: there is no such command"},
      {"G20\nX V420 T2 Z2\nG1 F1 Z4\n", "line 3: an axis moves that has not been sent to its limit switch"},
      {begun + "M4 S10\nG4 C90\n", "line 5: the program breaks off: it has no end"},
      {begun + "M5\nD0 ST=Heat Shrink Tape\nM5\n", "line 6: the program breaks off: it has no end"},
      {begun + "G4 C90\nX99\n", "line 4: the mandrel is told to turn and has no speed"},
      {begun + "M4 S10\nG4 L601 C90\nX99\n", "line 5: it waits for an angle that has not been saved"},
      {begun + "G21\nX99\n", "line 4: the unit of lengths changes behind lengths"},
      {begun + "X V420 T2 Z3\nX99\n", "line 4: a second line says where the axes stand at home"},
      {"", "line 0: the program breaks off: it has no end"},
  };
  for (const auto& [program, reason] : kCases) {
    Heard heard;
    Motions motions(heard, 1);
    motions.Take(program);
    const Outcome outcome = motions.Finish();
    ASSERT_FALSE(outcome) << reason;
    EXPECT_EQ(outcome.reason(), reason);
  }
}

// Of a program without tape and heat gun the mandrel's stop is the last word.
TEST(Motions, EndWhereTheMandrelStops) {
  Heard heard;
  Motions motions(heard, 1);
  motions.Take("G20\nX V420 T2 Z2\nG28 F1\nM5");
  EXPECT_TRUE(motions.Finish());
  EXPECT_EQ(heard.lines, (Lines{"home 0.000 0.000 0.000 0.000", "end"}));
}

}  // namespace
}  // namespace torvane::post
