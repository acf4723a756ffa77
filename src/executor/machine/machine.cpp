#include "executor/machine/machine.h"

#include <algorithm>
#include <cmath>

namespace torvane::executor {

namespace {

constexpr double kDegreesPerRpm = 6;  // degrees a second
constexpr double kPauseUnit = 1e-4;   // P10000 is a second
// A mandrel this close to the angle that is waited for has reached it.
constexpr double kSame = 1e-6;

// The way on to an angle, at most a turn.
double WayTo(double angle, double from) {
  double way = std::fmod(angle - from, 360);
  if (way < 0) way += 360;
  return way > 360 - kSame ? 0 : way;
}

// Seconds for a way; 0 and a trouble where there is no speed.
double TimeFor(double way, double speed, Trouble ifNone, Trouble& trouble) {
  if (std::abs(way) < kSame) return 0;
  if (speed == 0) {
    trouble = ifNone;
    return 0;
  }
  return std::abs(way / speed);
}

}  // namespace

Motion Machine::Run(const Statement& statement) {
  Motion motion;
  const Words& words = statement.words;
  switch (statement.command) {
    case Command::Move:
      return Move(words);
    case Command::Ellipse:
    case Command::Withdraw:
      return EndWrap(words);
    case Command::Dwell:
      return Dwell(words);
    case Command::Home:
      return Home(words);
    case Command::Inches:
      millimetres_ = false;
      break;
    case Command::Millimetres:
      millimetres_ = true;
      break;
    case Command::Turn:
      spin_ = std::abs(words.At('S')) * kDegreesPerRpm;
      break;
    case Command::Stop:
      spin_ = 0;
      break;
    case Command::SaveFar:
      farRegister_ = at_.mandrel;
      break;
    case Command::SaveHome:
      homeRegister_ = at_.mandrel;
      break;
    case Command::Identity:
      homeZ_ = words.At('Z');
      homeY_ = words.At('Y');
      hasHead_ = words.Has('Y');
      at_.carriage = homeZ_;
      at_.head = homeY_;
      break;
    default:
      break;
  }
  return motion;
}

double Machine::TurnTo(const Words& words, Trouble& trouble) const {
  if (!words.Has('L')) return words.At('C');
  const auto& saved = words.At('L') == 601 ? farRegister_ : homeRegister_;
  if (!saved) {
    trouble = Trouble::RegisterEmpty;
    return 0;
  }
  return WayTo(*saved + words.At('C'), at_.mandrel);
}

double Machine::MandrelSpeed(const Words& words) const {
  return words.Has('S') ? std::abs(words.At('S')) * kDegreesPerRpm : spin_;
}

void Machine::TurnBy(double degrees, double speed, Plan& plan, Motion& motion) const {
  motion.ownTurn = true;
  motion.turn = degrees;
  plan.to.mandrel = at_.mandrel + degrees;
  plan.mandrel = TimeFor(degrees, speed, Trouble::MandrelStands, motion.trouble);
}

void Machine::HeadTargets(const Words& words, Plan& plan) const {
  if (words.Has('Y')) {
    plan.to.head = words.At('Y');
    const double speed = std::abs(words.At('E'));
    plan.head = speed > 0 ? std::abs(plan.to.head - at_.head) / speed : 0;
  }
  if (words.Has('B')) {
    plan.to.rotation = words.At('B');
    const double speed = std::abs(words.At('R')) * kDegreesPerRpm;
    plan.rotation = speed > 0 ? std::abs(plan.to.rotation - at_.rotation) / speed : 0;
  }
}

Motion Machine::Move(const Words& words) {
  Motion motion;
  Plan plan;
  plan.to = at_;
  if (words.Has('F')) feed_ = std::abs(words.At('F'));
  if (words.Has('Z')) {
    motion.carriageMoves = true;
    plan.to.carriage = words.At('Z');
    plan.carriage = TimeFor(plan.to.carriage - at_.carriage, feed_, Trouble::CarriageStands, motion.trouble);
  }
  const double speed = MandrelSpeed(words);
  if (words.Has('C') || words.Has('L')) {
    TurnBy(TurnTo(words, motion.trouble), speed, plan, motion);
  } else {
    plan.turning = speed;
  }
  HeadTargets(words, plan);
  plan.end = std::max(plan.carriage, plan.mandrel);
  // While carriage or mandrel do their work the head follows; it is waited for only where it moves alone or
  // the mandrel stands.
  if (plan.end == 0 || (plan.turning == 0 && !motion.ownTurn))
    plan.end = std::max({plan.end, plan.head, plan.rotation});
  Finish(plan, speed, motion);
  return motion;
}

Motion Machine::Dwell(const Words& words) {
  Motion motion;
  Plan plan;
  plan.to = at_;
  HeadTargets(words, plan);
  if (words.Has('P')) {
    plan.end = std::abs(words.At('P')) * kPauseUnit;
    plan.turning = spin_;
  } else if (words.Has('C') || words.Has('L')) {
    const double turn = TurnTo(words, motion.trouble);
    // The mandrel turns one way only: it gets to an angle behind it by going on.
    TurnBy(turn < 0 ? WayTo(turn, 0) : turn, spin_, plan, motion);
    plan.end = plan.mandrel;
  }
  Finish(plan, spin_, motion);
  return motion;
}

// The head's path round an end is the machine's own affair: known are where it ends and how far the mandrel
// turns meanwhile.
Motion Machine::EndWrap(const Words& words) {
  Motion motion;
  Plan plan;
  plan.to = at_;
  plan.to.carriage = words.At('Z');
  if (words.Has('Y')) plan.to.head = words.At('Y');
  if (words.Has('B')) plan.to.rotation = words.At('B');
  const double speed = MandrelSpeed(words);
  TurnBy(TurnTo(words, motion.trouble), speed, plan, motion);
  plan.carriage = plan.head = plan.rotation = plan.end = plan.mandrel;
  if (words.Has('F')) feed_ = std::abs(words.At('F'));
  Finish(plan, speed, motion);
  return motion;
}

Motion Machine::Home(const Words& words) {
  Motion motion;
  Plan plan;
  plan.to = {homeZ_, homeY_, 0, at_.mandrel};
  if (words.Has('F')) feed_ = std::abs(words.At('F'));
  if (feed_ > 0) plan.carriage = plan.end = std::abs(homeZ_ - at_.carriage) / feed_;
  plan.head = plan.rotation = plan.end;
  motion.feed = feed_;
  Cut(plan, motion);
  return motion;
}

void Machine::Finish(const Plan& plan, double mandrelSpeed, Motion& motion) {
  motion.mandrelTurns = motion.ownTurn ? motion.turn != 0 : plan.turning > 0;
  motion.feed = feed_;
  motion.rpm = mandrelSpeed / kDegreesPerRpm;
  Cut(plan, motion);
}

// Cuts the plan where an axis arrives, so that all axes run evenly in each piece.
void Machine::Cut(const Plan& plan, Motion& motion) {
  std::array<double, 5> cuts = {plan.carriage, plan.head, plan.rotation, plan.mandrel, plan.end};
  std::sort(cuts.begin(), cuts.end());
  const Position start = at_;
  const bool free = plan.turning > 0;
  const auto along = [](double from, double to, double now, double end) {
    return now >= end ? to : from + (to - from) * (now / end);
  };
  const auto at = [&](double now) {
    Position p;
    p.carriage = along(start.carriage, plan.to.carriage, now, plan.carriage);
    p.head = along(start.head, plan.to.head, now, plan.head);
    p.rotation = along(start.rotation, plan.to.rotation, now, plan.rotation);
    p.mandrel =
        free ? start.mandrel + plan.turning * now : along(start.mandrel, plan.to.mandrel, now, plan.mandrel);
    return p;
  };
  double before = 0;
  for (const double cut : cuts) {
    if (cut > plan.end || (cut <= before && !(cut == plan.end && motion.count == 0))) continue;
    const Position to = at(cut);
    motion.segments[motion.count++] = {cut - before, at_, to};
    at_ = to;
    before = cut;
  }
  if (plan.end > 0) {
    // An axis that has no speed of its own, or that follows later, counts as arrived.
    at_.head = plan.to.head;
    at_.rotation = plan.to.rotation;
  }
}

}  // namespace torvane::executor
