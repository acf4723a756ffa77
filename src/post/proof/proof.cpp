#include "post/proof/proof.h"

#include <algorithm>
#include <cmath>

#include "executor/machine/ramp.h"
#include "executor/program/number.h"

namespace torvane::post {

namespace {

constexpr double kLength = 0.002, kAngle = 0.02;   // millimetres, degrees
constexpr double kShare = 0.01, kInstant = 0.002;  // of a time, and in seconds

bool IsAngle(Axis axis) { return axis == Axis::Mandrel || axis == Axis::HeadRotation; }

}  // namespace

Proof::Proof(const Machine& machine, Source source)
    : machine_(machine), source_(std::move(source)), player_(machine) {}

bool Proof::Take(const Event& event) {
  if (!refusal_.empty()) return false;
  Step step;
  switch (event.kind) {
    case Event::Kind::Home:
      return Expect(Step::Kind::Rapid, event, "the way to the limit switches", step) &&
             (IsThere(event.to) || Differ(event, "the axes are not sent to their limit switches"));
    case Event::Kind::Move:
      return Move(event);
    case Event::Kind::Pause:
      if (!Expect(Step::Kind::Pause, event, "a pause", step)) return false;
      owed_ += event.seconds;
      return CheckTime(event, step.seconds, 1);
    case Event::Kind::Wait:
      return Expect(Step::Kind::Wait, event, "a wait for the operator", step);
    case Event::Kind::End:
      ended_ = true;
      // The program of a controller that knows no end has none.
      if (machine_.controller != Controller::Marlin) return Expect(Step::Kind::End, event, "the end", step);
      return true;
    case Event::Kind::Message:
    case Event::Kind::Pass:
    case Event::Kind::Layer:
      break;
  }
  return true;
}

Outcome Proof::Finish() {
  Step step;
  if (refusal_.empty() && ended_ && Next(step))
    refusal_ = "the written line " + std::to_string(number_) + " stands behind the end: " + line_;
  if (refusal_.empty() && !ended_) refusal_ = "the program breaks off";
  if (!refusal_.empty()) return Refusal{refusal_};
  return Done{};
}

bool Proof::Move(const Event& event) {
  owed_ += event.seconds;
  if (IsTiny(event)) return true;
  double seconds = 0, share = 0;
  int blocks = 0;
  do {
    Step step;
    if (!Expect(Step::Kind::Move, event, "a motion", step)) return false;
    seconds += step.seconds;
    ++blocks;
    if (!IsOnWay(event, share)) return Differ(event, "an axis is not where it belongs");
  } while (!IsThere(event.to));
  const Place at = player_.At();
  for (const Axis axis : kAllAxes)
    if (machine_[axis]) most_[axis] = std::max(most_[axis], std::abs(at[axis] - event.to[axis]));
  return CheckTime(event, seconds, blocks);
}

// So small that the controller need not be told; its time belongs to the next motion.
bool Proof::IsTiny(const Event& event) const {
  const Place at = player_.At();
  return std::all_of(kAllAxes.begin(), kAllAxes.end(), [&](Axis axis) {
    const double tolerance = machine_[axis] ? Tolerance(axis) / 2 : 0;
    return std::abs(event.to[axis] - event.from[axis]) <= tolerance &&
           std::abs(event.to[axis] - at[axis]) <= 2 * tolerance;
  });
}

bool Proof::IsThere(const Place& to) const {
  const Place at = player_.At();
  return std::all_of(kAllAxes.begin(), kAllAxes.end(), [&](Axis axis) {
    return !machine_[axis] || std::abs(at[axis] - to[axis]) <= Tolerance(axis);
  });
}

// On the straight way, and not behind `share` of it, which goes on to where it stands.
bool Proof::IsOnWay(const Event& event, double& share) const {
  const Place at = player_.At();
  Axis longest = Axis::Carriage;
  double most = 0;
  for (const Axis axis : kAllAxes) {
    if (!machine_[axis]) continue;
    const double way = std::abs(event.to[axis] - event.from[axis]) / Tolerance(axis);
    if (way <= most) continue;
    most = way;
    longest = axis;
  }
  const double way = event.to[longest] - event.from[longest];
  const double now = std::clamp((at[longest] - event.from[longest]) / way, 0.0, 1.0);
  if (now < share) return false;
  share = now;
  return std::all_of(kAllAxes.begin(), kAllAxes.end(), [&](Axis axis) {
    const double due = event.from[axis] + share * (event.to[axis] - event.from[axis]);
    return !machine_[axis] || std::abs(at[axis] - due) <= Tolerance(axis);
  });
}

// A motion may take as long as the slowest axis needs, and where it is cut into blocks, as long as from rest
// to rest. No axis runs faster than it can.
bool Proof::CheckTime(const Event& event, double seconds, int blocks) {
  const double told = owed_;
  owed_ = 0;
  seconds_ += seconds;
  double least = 0, most = told;
  for (const Axis axis : kAllAxes) {
    if (!machine_[axis]) continue;
    const MachineAxis& has = *machine_[axis];
    const double way =
        std::abs(machine_.CoordinateOf(axis, event.to[axis]) - machine_.CoordinateOf(axis, event.from[axis]));
    const double needs = way / has.rate;
    least = std::max(least, needs);
    most = std::max(most, needs);
    if (blocks > 1 && way > 0 && told > 0)
      most = std::max(most, executor::RestToRest(way, way / std::max(told, needs), has.acceleration) +
                                2 / machine_.blocksPerSecond);
  }
  if (seconds > most * (1 + kShare) + kInstant)
    return Differ(event,
                  "it takes " + executor::Fixed(seconds, 4) + " s and not " + executor::Fixed(most, 4));
  if (seconds < told * (1 - kShare) - kInstant)
    return Differ(event,
                  "it takes " + executor::Fixed(seconds, 4) + " s and not " + executor::Fixed(told, 4));
  if (seconds < least * (1 - kShare) - kInstant) return Differ(event, "an axis is not so fast");
  return true;
}

double Proof::Tolerance(Axis axis) const {
  return std::max(IsAngle(axis) ? kAngle : kLength, player_.StepOf(axis));
}

bool Proof::Next(Step& step) {
  while (source_(line_)) {
    ++number_;
    const Result<Step> taken = player_.Take(line_);
    if (!taken) {
      refusal_ = "the written line " + std::to_string(number_) + ": " + taken.reason() + ": " + line_;
      return false;
    }
    step = taken.value();
    if (step.kind != Step::Kind::Nothing) return true;
  }
  return false;
}

bool Proof::Expect(Step::Kind kind, const Event& event, const char* what, Step& step) {
  if (Next(step) && step.kind == kind) return true;
  return refusal_.empty() ? Differ(event, std::string(what) + " is expected") : false;
}

bool Proof::Differ(const Event& event, const std::string& what) {
  refusal_ = "line " + std::to_string(event.line) + " and the written line " + std::to_string(number_) +
             " differ: " + what + ": " + line_;
  return false;
}

}  // namespace torvane::post
