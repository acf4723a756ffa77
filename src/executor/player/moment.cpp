#include "executor/player/moment.h"

#include <algorithm>
#include <cmath>

namespace torvane::executor {

void Screen::Take(const Display& display) {
  if (!display.message.empty()) {
    message = display.message;
    return;
  }
  if (!display.stage.empty()) {
    *this = Screen();
    stage = display.stage;
  }
  if (!display.hasLayer) return;
  message = {};
  layer = display.layer;
  layers = display.layers;
  pass = display.pass;
  passes = display.passes;
  rpm = display.rpm;
  carriageSpeed = display.carriageSpeed;
  windingAngle = display.windingAngle;
  method = display.method;
  // It stands in the first pass of a layer alone.
  if (!display.minutesLeft.empty()) minutesLeft = display.minutesLeft;
}

Motion Moment::Take(const Line& taken) {
  line = taken.number;
  if (taken.statement.command == Command::Display) screen.Take(ReadDisplay(taken.statement.body));
  return Begin(taken.statement);
}

Motion Moment::Begin(const Statement& statement) {
  const Motion motion = machine.Run(statement);
  if (motion.count > 0) {
    targetZ = machine.At().carriage;
    rpm = motion.mandrelTurns ? motion.rpm : 0;
  } else {
    if (statement.command == Command::Turn) rpm = std::abs(statement.words.At('S'));
    if (statement.command == Command::Stop) rpm = 0;
  }
  return motion;
}

void CheckPoints::Offer(const Moment& moment) {
  if (!kept_.empty() && moment.reader.Number() - kept_.back().reader.Number() < distance_) return;
  kept_.push_back(moment);
  if (kept_.size() <= kMost) return;
  std::size_t to = 0;
  for (std::size_t from = 0; from < kept_.size(); from += 2) kept_[to++] = kept_[from];
  kept_.resize(to);
  distance_ *= 2;
}

const Moment& CheckPoints::BeforeLine(int line) const {
  const auto behind = std::partition_point(
      kept_.begin() + 1, kept_.end(), [line](const Moment& moment) { return moment.reader.Number() < line; });
  return *(behind - 1);
}

const Moment& CheckPoints::BeforeTime(double seconds) const {
  const auto behind = std::partition_point(
      kept_.begin() + 1, kept_.end(), [seconds](const Moment& moment) { return moment.elapsed < seconds; });
  return *(behind - 1);
}

}  // namespace torvane::executor
