// What a program winds: its layers, their passes and the lines along which the band is laid.
#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "executor/machine/machine.h"
#include "executor/program/reader.h"

namespace torvane::executor {

// A traverse: the carriage goes from z0 to z1 while the mandrel goes from m0 to m1, both evenly.
struct Stroke {
  int line = 0;
  int pass = 0;  // index of the pass in its layer
  double z0 = 0, z1 = 0, m0 = 0, m1 = 0;
  double feed = 0, rpm = 0;
  bool ownTurn = false;
  bool out = false;  // the pass's way out, not its way back
  // The end of a traverse whose mandrel had done its turn before the carriage arrived.
  bool tail = false;

  double DegreesPerLength() const { return (m1 - m0) / (z1 - z0); }
  bool Reaches(double z) const { return z0 < z1 ? z0 <= z && z <= z1 : z1 <= z && z <= z0; }
  double AngleAt(double z) const { return m0 + (z - z0) * DegreesPerLength(); }
};

struct Pass {
  double number = 0, announced = 0;
  int line = 0;
  int moves = 0;  // traverses: two make a pass
  double startZ = 0, farZ = 0, endZ = 0;
  double backZ = 0;  // where its way back ends, before the head wraps the end
  int farLine = 0, backLine = 0;
};

// Mandrel turns while the carriage stands, and those round the ends; ways of the carriage that no traverse
// is.
struct EndTurn {
  double z = 0, degrees = 0;
  double along = 0;               // the carriage's way to z, with its sign
  int pass = 0;                   // index of the pass in its layer
  std::size_t behindStrokes = 0;  // how many traverses of the layer come before it
};

struct Layer {
  int number = 0;
  int line = 0;
  bool carriageShift = false;
  double band = 0;           // width, in the program's unit; 0 unknown
  int noBandLine = 0;        // of a display that tells a width of 0; line 0: there is none
  double leftDiameter = 0;   // 0 unknown
  double toldStop = 0;       // one of its two stops, as its first display tells; 0 unknown
  bool behindShift = false;  // the layer before it shifts the carriage, and ends anywhere
  bool fourAxes = false;     // of a machine with a delivery head that moves
  // What its displays ask for: degrees, 0 where no angle is told; a hoop lays band beside band.
  double askedAngle = 0;
  bool hoop = false;
  double toldRpm = 0, toldFeed = 0;  // the speeds on the display; 0 where none is told
  // A traverse at another mandrel or carriage speed than the display tells; line 0: there is none.
  int otherSpeedLine = 0;
  bool otherRpm = false;  // of the mandrel, else of the carriage
  double otherSpeed = 0;
  int otherBandLine = 0;  // a display that tells another band width than the one before; line 0: none
  double otherBand = 0;
  int staleLine = 0;  // a dwell against a register that was saved before the layer; line 0: there is none
  int staleRegister = 0;
  std::vector<Pass> passes;
  std::vector<Stroke> strokes;
  std::vector<EndTurn> endTurns;
  double seconds = 0;
  std::array<double, kAxes> lost{};  // seconds that each axis takes to get to its speeds
  double secondsBehind = 0;          // until the next layer begins, or the winding ends
  double endZ = 0, endMandrel = 0;   // where the last statement left them
  bool wraps = false;                // turns round the ends with the head
  int ownTurns = 0;                  // turns written in degrees, each rounded to two decimals
  // A dwell against a register whose angle is empty or below 0, as hoop rows have it; line 0: there is none.
  int oddDwellLine = 0;
  double oddDwellAngle = 0;
  // By how much the A words run ahead of the turns behind the first traverse, against before.
  double startJump = 0;
  // How near to the axis the delivery head stands while it travels along; line 0: the machine has none.
  int headLine = 0;
  double nearestHead = 0;
  int angleFaultLine = 0;
  double angleFault = 0;
};

// The operator's comments in the head of the program. They steer nothing; the proof takes from them what no
// statement says: the right diameter, the band's thickness, and the left diameter where the displays lack it.
struct HeadComments {
  double leftDiameter = 0, rightDiameter = 0;
  double thicknessInches = 0, bandInches = 0;
  // The first layer and pass of a program that winds on where another one was stopped: what comes before lies
  // on the part already. 0 for a program that winds it all.
  int restartLayer = 0;
  double restartPass = 0;
};

class Winding {
 public:
  // `before` is where the machine stood when the statement began.
  void Take(const Line& line, const Motion& motion, const Machine& machine, const Position& before);
  // A line that is a comment alone.
  void TakeComment(std::string_view comment);

  const std::vector<Layer>& layers() const { return layers_; }
  // Hands the layers out; nothing may be taken behind that.
  std::vector<Layer> TakeLayers() { return std::move(layers_); }
  const HeadComments& comments() const { return comments_; }
  // Nothing while no pass runs.
  const Layer* OpenLayer() const { return open_ ? &layers_.back() : nullptr; }
  double AnnouncedLayers() const { return announcedLayers_; }
  bool ScheduleOpen() const { return schedule_; }
  // The line where the winding begins; 0 where it does not.
  int ScheduleLine() const { return scheduleLine_; }
  std::string_view stage() const { return stage_; }
  // Traverses of the schedule under no display of a pass: how many, and the first one's line.
  int StrayMoves() const { return strayMoves_; }
  int StrayLine() const { return strayLine_; }

 private:
  void BeginPass(const Display& display, const Line& line, const Machine& machine);
  void TakeMotion(const Line& line, const Motion& motion, const Machine& machine, const Position& before);
  void TakeTraverse(const Line& line, const Motion& motion, const Position& before);
  void TakeBehind(const Motion& motion, const Position& before);
  void TakeTurn(double z, double degrees, double along);
  void WatchTold(const Line& line, const Motion& motion);
  void WatchRegister(const Line& line);
  void TakeHead(const Line& line, double y);
  void CheckRunningAngle(const Line& line, const Motion& motion);
  Layer* Open() { return open_ ? &layers_.back() : nullptr; }

  std::vector<Layer> layers_;
  HeadComments comments_;
  double announcedLayers_ = 0;
  bool open_ = false;
  bool farSaved_ = false, homeSaved_ = false;  // since the layer began
  bool schedule_ = false;
  int scheduleLine_ = 0;
  std::string_view stage_;
  int strayMoves_ = 0, strayLine_ = 0;
  // Of the A words: the turns told with them, what the last one ran ahead of those, and how many turns since,
  // each rounded.
  double toldTurns_ = 0;
  bool runningKnown_ = false;
  double runningAhead_ = 0;
  int turnsSince_ = 0;
};

}  // namespace torvane::executor
