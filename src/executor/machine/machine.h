// The machine that runs a program, in time; with its motors' acceleration where that is known.
#pragma once

#include <array>
#include <optional>

#include "executor/machine/ramp.h"
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

enum class DrivenAxis : std::uint8_t { Mandrel, Carriage, Head, Rotation };
constexpr std::size_t kAxes = 4;
// "carriage", "delivery head".
std::string_view NameOf(DrivenAxis axis);

// What no program says of the machine that runs it.
struct Drive {
  // Inches and degrees a second squared; 0 at once.
  double carriage = 0, head = 0, mandrel = 0, rotation = 0;
  // Degrees by which a mandrel may miss an angle that it is sent to, and inches of the carriage.
  double mandrelClick = 0, carriageClick = 0;
  // A dwell against an angle that the mandrel has just reached goes on at once, or turns a whole revolution;
  // exactly, it does what its figures say. A swing round an end takes as long as the mandrel turns; late, it
  // takes the carriage's time where that is longer.
  enum class Reading : std::uint8_t { Exact, Early, Late } reading = Reading::Exact;

  bool Accelerates() const { return carriage > 0 || head > 0 || mandrel > 0 || rotation > 0; }
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
  bool slowSwing = false;  // the carriage needs longer for its way round an end than the mandrel for its turn
  bool justReached = false;  // it waits for an angle where the mandrel may be or may just have been
  DrivenAxis slowest = DrivenAxis::Mandrel;  // that the statement waits for
  double lost = 0;                           // seconds that its acceleration takes
};

class Machine {
 public:
  explicit Machine(const Drive& drive = {}) : drive_(drive), spin_(drive.mandrel) {}

  // Runs the statement. What is in trouble goes to its target in no time, so that the rest can be followed.
  Motion Run(const Statement& statement);

  const Position& At() const { return at_; }
  // Halted in the middle of a motion, it stands there.
  void HaltAt(const Position& position) { at_ = position; }
  bool Turning() const { return spin_.Target() > 0; }
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
    bool keeps = false;  // that speed is the one that it keeps up
    double end = 0;
    std::array<double, kAxes> lost{};  // to acceleration
  };

  Motion Move(const Words& words);
  Motion Dwell(const Words& words);
  Motion EndWrap(const Words& words, bool swings);
  Motion Home(const Words& words);
  Motion Stop();
  double TimeFor(DrivenAxis axis, double way, double speed, Plan& plan) const;
  // The way on to a register's angle, as this controller reads it.
  double WaitFor(double way, Motion& motion) const;
  double TurnTo(const Words& words, Motion& motion) const;
  // Degrees a second.
  double MandrelSpeed(const Words& words) const;
  void TurnBy(double degrees, double speed, Plan& plan, Motion& motion) const;
  void Finish(const Plan& plan, double mandrelSpeed, Motion& motion);
  void HeadTargets(const Words& words, Plan& plan) const;
  void Cut(const Plan& plan, Motion& motion);

  Drive drive_;
  Position at_;
  double feed_ = 0;  // length a second
  Spin spin_;        // kept up until the mandrel is stopped
  std::optional<double> farRegister_, homeRegister_;
  bool millimetres_ = false;
  double homeZ_ = 0, homeY_ = 0;
  bool hasHead_ = false;
};

}  // namespace torvane::executor
