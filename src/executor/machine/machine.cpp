#include "executor/machine/machine.h"

#include <algorithm>
#include <cmath>

namespace torvane::executor {

namespace {

constexpr double kDegreesPerRpm = 6;  // degrees a second
constexpr double kPauseUnit = 1e-4;   // P10000 is a second
// A mandrel this close to the angle that is waited for has reached it.
constexpr double kSame = 1e-6;

// A carriage that is later than the mandrel by less than its speed is rounded to is in time.
constexpr double kSlower = 1.02;

// The way on to an angle, at most a turn.
double WayTo(double angle, double from) {
  double way = std::fmod(angle - from, 360);
  if (way < 0) way += 360;
  return way > 360 - kSame ? 0 : way;
}

}  // namespace

std::string_view NameOf(DrivenAxis axis) {
  constexpr std::array<std::string_view, kAxes> kNames = {"mandrel", "carriage", "delivery head",
                                                          "head's rotation"};
  return kNames[static_cast<std::size_t>(axis)];
}

Motion Machine::Run(const Statement& statement) {
  Motion motion;
  const Words& words = statement.words;
  switch (statement.command) {
    case Command::Move:
      return Move(words);
    case Command::Ellipse:
    case Command::Withdraw:
      return EndWrap(words, statement.command == Command::Ellipse);
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
      spin_.SpeedUpTo(std::abs(words.At('S')) * kDegreesPerRpm);
      break;
    case Command::Stop:
      return Stop();
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

// The mandrel runs out before anything else goes on.
Motion Machine::Stop() {
  Motion motion;
  Plan plan;
  plan.to = at_;
  spin_.SpeedUpTo(0);
  plan.end = spin_.RampSeconds();
  if (plan.end == 0) return motion;
  plan.keeps = true;
  plan.lost[static_cast<std::size_t>(DrivenAxis::Mandrel)] = plan.mandrel = plan.end;
  Finish(plan, 0, motion);
  return motion;
}

// Seconds for a way from rest to rest; 0 where there is no speed.
double Machine::TimeFor(DrivenAxis axis, double way, double speed, Plan& plan) const {
  if (std::abs(way) < kSame || speed == 0) return 0;
  const double acceleration = axis == DrivenAxis::Carriage  ? drive_.carriage * UnitsPerInch()
                              : axis == DrivenAxis::Head    ? drive_.head * UnitsPerInch()
                              : axis == DrivenAxis::Mandrel ? drive_.mandrel
                                                            : drive_.rotation;
  const double seconds = RestToRest(way, speed, acceleration);
  plan.lost[static_cast<std::size_t>(axis)] = seconds - std::abs(way / speed);
  return seconds;
}

// What the register and the angle behind it are rounded to, the click of the mandrel at which it stands, and
// how far it turns while the carriage makes one: within that the mandrel may be there or just beyond.
double Machine::WaitFor(double way, Motion& motion) const {
  constexpr double kAngleRounding = 0.005;
  if (!(drive_.mandrelClick > 0)) return way;
  const double carriage = feed_ > 0 ? spin_.Target() * drive_.carriageClick * UnitsPerInch() / feed_ : 0;
  const double near = kAngleRounding + drive_.mandrelClick + carriage;
  const bool here = way<near, beyond = way> 360 - near;
  motion.justReached = here || beyond;
  if (here && drive_.reading == Drive::Reading::Late) return way + 360;
  return beyond && drive_.reading == Drive::Reading::Early ? 0 : way;
}

double Machine::TurnTo(const Words& words, Motion& motion) const {
  if (!words.Has('L')) return words.At('C');
  const auto& saved = words.At('L') == 601 ? farRegister_ : homeRegister_;
  if (!saved) {
    motion.trouble = Trouble::RegisterEmpty;
    return 0;
  }
  return WaitFor(WayTo(*saved + words.At('C'), at_.mandrel), motion);
}

double Machine::MandrelSpeed(const Words& words) const {
  return words.Has('S') ? std::abs(words.At('S')) * kDegreesPerRpm : spin_.Target();
}

void Machine::TurnBy(double degrees, double speed, Plan& plan, Motion& motion) const {
  motion.ownTurn = true;
  motion.turn = degrees;
  plan.to.mandrel = at_.mandrel + degrees;
  if (speed == 0 && std::abs(degrees) >= kSame) motion.trouble = Trouble::MandrelStands;
  plan.keeps = speed > 0 && speed == spin_.Target();
  if (std::abs(degrees) < kSame) return;
  plan.mandrel =
      plan.keeps ? spin_.Seconds(std::abs(degrees)) : TimeFor(DrivenAxis::Mandrel, degrees, speed, plan);
}

void Machine::HeadTargets(const Words& words, Plan& plan) const {
  if (words.Has('Y')) {
    plan.to.head = words.At('Y');
    plan.head = TimeFor(DrivenAxis::Head, plan.to.head - at_.head, std::abs(words.At('E')), plan);
  }
  if (words.Has('B')) {
    plan.to.rotation = words.At('B');
    plan.rotation = TimeFor(DrivenAxis::Rotation, plan.to.rotation - at_.rotation,
                            std::abs(words.At('R')) * kDegreesPerRpm, plan);
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
    const double way = plan.to.carriage - at_.carriage;
    if (feed_ == 0 && std::abs(way) >= kSame) motion.trouble = Trouble::CarriageStands;
    plan.carriage = TimeFor(DrivenAxis::Carriage, way, feed_, plan);
  }
  const double speed = MandrelSpeed(words);
  if (words.Has('C') || words.Has('L')) {
    TurnBy(TurnTo(words, motion), speed, plan, motion);
  } else {
    plan.turning = speed;
    plan.keeps = speed == spin_.Target();
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
    plan.turning = spin_.Target();
    plan.keeps = true;
  } else if (words.Has('C') || words.Has('L')) {
    const double turn = TurnTo(words, motion);
    // The mandrel turns one way only: it gets to an angle behind it by going on.
    TurnBy(turn < 0 ? WayTo(turn, 0) : turn, spin_.Target(), plan, motion);
    plan.end = plan.mandrel;
  }
  Finish(plan, spin_.Target(), motion);
  return motion;
}

// The head's path round an end is the machine's own affair: known are where it ends and how far the mandrel
// turns meanwhile.
Motion Machine::EndWrap(const Words& words, bool swings) {
  Motion motion;
  Plan plan;
  plan.to = at_;
  plan.to.carriage = words.At('Z');
  if (words.Has('Y')) plan.to.head = words.At('Y');
  if (words.Has('B')) plan.to.rotation = words.At('B');
  const double speed = MandrelSpeed(words);
  TurnBy(TurnTo(words, motion), speed, plan, motion);
  plan.end = plan.mandrel;
  if (words.Has('F')) feed_ = std::abs(words.At('F'));
  Plan alone = plan;
  const double carriage = TimeFor(DrivenAxis::Carriage, plan.to.carriage - at_.carriage, feed_, alone);
  motion.slowSwing = swings && carriage > kSlower * plan.mandrel;
  if (motion.slowSwing && drive_.reading == Drive::Reading::Late) {
    plan.end = carriage;
    plan.lost = alone.lost;
  }
  plan.carriage = plan.head = plan.rotation = plan.end;
  Finish(plan, speed, motion);
  return motion;
}

Motion Machine::Home(const Words& words) {
  Motion motion;
  Plan plan;
  plan.to = {homeZ_, homeY_, 0, at_.mandrel};
  if (words.Has('F')) feed_ = std::abs(words.At('F'));
  plan.carriage = plan.end = TimeFor(DrivenAxis::Carriage, homeZ_ - at_.carriage, feed_, plan);
  plan.head = plan.rotation = plan.end;
  motion.feed = feed_;
  Cut(plan, motion);
  return motion;
}

void Machine::Finish(const Plan& plan, double mandrelSpeed, Motion& motion) {
  motion.mandrelTurns = motion.ownTurn ? motion.turn != 0 : plan.turning > 0;
  const std::array<double, kAxes> until = {plan.mandrel, plan.carriage, plan.head, plan.rotation};
  const auto last = std::find(until.begin(), until.end(), plan.end) - until.begin();
  if (last < std::ssize(until)) {
    motion.slowest = static_cast<DrivenAxis>(last);
    motion.lost = plan.lost[static_cast<std::size_t>(last)];
  }
  motion.feed = feed_;
  motion.rpm = mandrelSpeed / kDegreesPerRpm;
  Cut(plan, motion);
}

// Cuts the plan where an axis arrives, so that all axes run evenly in each piece.
void Machine::Cut(const Plan& plan, Motion& motion) {
  std::array<double, 5> cuts = {plan.carriage, plan.head, plan.rotation, plan.mandrel, plan.end};
  std::sort(cuts.begin(), cuts.end());
  const Position start = at_;
  const bool free = plan.turning > 0 || (plan.keeps && !motion.ownTurn);
  const auto along = [](double from, double to, double now, double end) {
    return now >= end ? to : from + (to - from) * (now / end);
  };
  const auto at = [&](double now) {
    Position p;
    p.carriage = along(start.carriage, plan.to.carriage, now, plan.carriage);
    p.head = along(start.head, plan.to.head, now, plan.head);
    p.rotation = along(start.rotation, plan.to.rotation, now, plan.rotation);
    p.mandrel = free ? start.mandrel + (plan.keeps ? spin_.Way(now) : plan.turning * now)
                     : along(start.mandrel, plan.to.mandrel, now, plan.mandrel);
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
  spin_.Pass(plan.end);
  if (plan.end > 0) {
    // An axis that has no speed of its own, or that follows later, counts as arrived.
    at_.head = plan.to.head;
    at_.rotation = plan.to.rotation;
  }
}

}  // namespace torvane::executor
