#include "executor/measure/run.h"

#include "executor/machine/mandrel.h"

namespace torvane::executor {

namespace {

constexpr double kDegreesPerRpm = 6;  // degrees a second

}  // namespace

bool EndsRun(const Statement& statement, std::string_view stage) {
  switch (statement.command) {
    case Command::End:
    case Command::Endless:
      return true;
    case Command::Display:
      return stage != "Heat Gun Curing" && ReadDisplay(statement.body).message.substr(0, 11) == "No Heat Gun";
    default:
      return false;
  }
}

Drive DriveOf(const Limits& limits) {
  Drive drive;
  if (limits.mandrelClicks > 0) drive.mandrelClick = 360 / limits.mandrelClicks;
  if (limits.carriageClicks > 0) drive.carriageClick = 1 / limits.carriageClicks;
  return drive;
}

Drive AcceleratingDriveOf(const Limits& limits) {
  Drive drive = DriveOf(limits);
  drive.carriage = limits.carriageAcceleration;
  drive.head = limits.headAcceleration;
  drive.mandrel = limits.mandrelAcceleration * kDegreesPerRpm;
  drive.rotation = limits.rotationAcceleration * kDegreesPerRpm;
  return drive;
}

Rerun RunBy(std::string_view program, const Drive& drive, const std::stop_token& stop) {
  Rerun run;
  Machine machine(drive);
  Reader reader(program);
  Line line;
  bool ended = false;
  while (!ended && !stop.stop_requested() && reader.Next(line)) {
    if (!line.comment.empty() && line.kind == Line::Kind::Blank) run.winding.TakeComment(line.comment);
    if (line.kind != Line::Kind::Statement) continue;
    ended = EndsRun(line.statement, run.winding.stage());
    const Position before = machine.At();
    const Motion motion = machine.Run(line.statement);
    for (std::size_t i = 0; i < motion.count; ++i) run.seconds += motion.segments[i].seconds;
    run.winding.Take(line, motion, machine, before);
  }
  return run;
}

// Over the time until the slower of the two runs at its speed, half of the traverse at most.
Reversal NearReversal(const Stroke& stroke, double radius, const Drive& drive, double unitsPerInch) {
  const double turning = stroke.rpm * kDegreesPerRpm, acceleration = drive.carriage * unitsPerInch;
  const double mandrel = stroke.ownTurn ? drive.mandrel : 0;  // one that turns on does not stop at the ends
  double seconds = 0;
  if (acceleration > 0) seconds = stroke.feed / acceleration;
  if (mandrel > 0) seconds = std::max(seconds, turning / mandrel);
  if (seconds == 0 || !(stroke.feed > 0)) return {};
  seconds = std::min(seconds, RestToRest(stroke.z1 - stroke.z0, stroke.feed, acceleration) / 2);
  const double way = WayFromRest(seconds, stroke.feed, acceleration);
  const double turn = WayFromRest(seconds, turning, mandrel) * kRadians * radius;
  return {true, way, std::atan2(turn, way) / kRadians};
}

}  // namespace torvane::executor
