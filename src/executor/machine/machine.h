// The machine that runs a program, in time but without its motors' acceleration.
#pragma once

#include <array>
#include <optional>

#include "executor/program/statement.h"

namespace torvane::executor {

// Lengths in the program's unit, angles in degrees. The mandrel's angle is the sum of its turns; the band
// lies on the mandrel at that angle, modulo a turn, and at the carriage's Z.
struct Position {
  double carriage = 0, head = 0, rotation = 0, mandrel = 0;
};

// Every axis runs evenly over a segment.
struct Segment {
  double seconds = 0;
  Position from, to;
};

enum class Trouble {
  None,
  CarriageStands,  // a move without speed
  MandrelStands,   // a turn without speed
  RegisterEmpty,   // nothing has been saved there
};

// What one statement makes the machine do: the window plays it, the proof adds it up.
struct Motion {
  std::array<Segment, 5> segments;
  std::size_t count = 0;
  Trouble trouble = Trouble::None;
  bool carriageMoves = false;  // the statement moves it along Z, if only by nothing
  bool mandrelTurns = false;   // it turns while the statement runs
  bool ownTurn = false;        // the turn is told by the statement: C
  double feed = 0, rpm = 0;    // the speeds in force
  double turn = 0;             // degrees the mandrel was told to go
};

class Machine {
 public:
  // Runs the statement. What is in trouble goes to its target in no time, so that the rest can be followed.
  Motion Run(const Statement& statement);

  const Position& At() const { return at_; }
  // Halted in the middle of a motion, it stands there.
  void HaltAt(const Position& position) { at_ = position; }
  bool Turning() const { return spin_ > 0; }
  bool Millimetres() const { return millimetres_; }
  double UnitsPerInch() const { return millimetres_ ? 25.4 : 1; }
  // The carriage's Z at its limit switch.
  double HomeZ() const { return homeZ_; }
  // A delivery head that moves in and out: the program tells where it stands when it is retracted.
  bool HasHead() const { return hasHead_; }

 private:
  // Until when each axis runs, in seconds from the statement's start.
  struct Plan {
    Position to;
    double carriage = 0, head = 0, rotation = 0, mandrel = 0;
    double turning = 0;  // degrees a second of a mandrel that has no target
    double end = 0;
  };

  Motion Move(const Words& words);
  Motion Dwell(const Words& words);
  Motion EndWrap(const Words& words);
  Motion Home(const Words& words);
  double TurnTo(const Words& words, Trouble& trouble) const;
  // Degrees a second.
  double MandrelSpeed(const Words& words) const;
  void TurnBy(double degrees, double speed, Plan& plan, Motion& motion) const;
  void Finish(const Plan& plan, double mandrelSpeed, Motion& motion);
  void HeadTargets(const Words& words, Plan& plan) const;
  void Cut(const Plan& plan, Motion& motion);

  Position at_;
  double feed_ = 0;  // length a second
  double spin_ = 0;  // degrees a second, kept up until the mandrel is stopped
  std::optional<double> farRegister_, homeRegister_;
  bool millimetres_ = false;
  double homeZ_ = 0, homeY_ = 0;
  bool hasHead_ = false;
};

}  // namespace torvane::executor
