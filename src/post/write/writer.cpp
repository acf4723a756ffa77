#include "post/write/writer.h"

#include <algorithm>
#include <cmath>

#include "executor/program/number.h"

namespace torvane::post {

namespace {

constexpr double kTurn = 360;
// Below that no digit of the mandrel's angle is lost, and a reset only halts it.
constexpr double kTurnsBeforeReset = 50;
// The shortest axis way that is one.
constexpr double kSame = 1e-6;
// Beyond that the reports of the small controllers wrap round, and their steps count in 32 bits.
constexpr double kMostTurns = 5900, kMostSteps = 2147483647;
// From there on the operator is told to switch the controller off and on before the run.
constexpr double kManyTurns = 2000;

std::size_t Index(Axis axis) { return static_cast<std::size_t>(axis); }

double PowerOfTen(int decimals) { return std::pow(10.0, decimals); }

// The shortest way of the linear axes that counts as one to a controller that looks at them first.
double LeastLinear(Controller controller) { return controller == Controller::Marlin ? 1e-3 : 1e-7; }

}  // namespace

Writer::Writer(const Machine& machine, std::string_view title, std::function<bool(std::string_view)> put)
    : machine_(machine),
      dialect_(DialectOf(machine.controller)),
      title_(title),
      put_(std::move(put)),
      at_(CountsOf(Place())) {}

bool Writer::Take(const Event& event) {
  if (!refusal_.empty() || (!begun_ && !Begin())) return false;
  const std::string text = Harmless(event.text);
  switch (event.kind) {
    case Event::Kind::Home:
      return Home(event);
    case Event::Kind::Move:
      return Move(event);
    case Event::Kind::Pause: {
      const double seconds = event.seconds + owed_;
      owed_ = 0;
      return PutLine(PauseLine(machine_, seconds));
    }
    case Event::Kind::Wait:
      return Put(dialect_.wait(machine_, text)) && MayReset(event.line);
    case Event::Kind::Message:
      return Put(dialect_.message(machine_, text));
    case Event::Kind::Layer:
      return Put(dialect_.message(machine_, text)) && MayReset(event.line);
    case Event::Kind::Pass:
      return Put(dialect_.comment(machine_, text));
    case Event::Kind::End:
      return PutLine(machine_.end);
  }
  return true;
}

Outcome Writer::Finish() const {
  if (!refusal_.empty()) return Refusal{refusal_};
  return Done{};
}

std::vector<std::string> Writer::Notes() const {
  std::vector<std::string> notes;
  if (slowed_ > 0)
    notes.push_back(executor::Counted(slowed_, "move is", "moves are") +
                    " slower than the program asks, by " + executor::Fixed((slowedBy_ - 1) * 100, 0) +
                    " % at most: the " + std::string(NameOf(slowest_)) + " is not faster (line " +
                    std::to_string(slowedLine_) + ")");
  if (tooFast_ > 0)
    notes.push_back("Up to " + executor::Counted(tooFast_, "block comes", "blocks come") +
                    " faster than the controller takes them (blocksPerSecond)");
  if (resets_ > 0)
    notes.push_back("The mandrel's coordinate is set back by whole turns, " +
                    executor::Counted(resets_, "time", "times") + ", where it stands");
  if (machine_.Floats()) {
    const auto most = static_cast<float>(mostAngle_);
    const double step = std::nextafter(most, INFINITY) - most;
    constexpr double kFine = 0.02;
    if (step > kFine)
      notes.push_back("The controller keeps the mandrel's angle to " + executor::Fixed(step, 3) +
                      " degrees at the end of its turns");
    if (mostAngle_ > kManyTurns * kTurn)
      notes.push_back(
          "The mandrel makes more than 2000 turns: switch the controller off and on before the run");
  }
  return notes;
}

bool Writer::Begin() {
  begun_ = true;
  if (!Put(dialect_.comment(machine_, Harmless(title_))) ||
      !Put(dialect_.comment(machine_, "for " + Harmless(machine_.name))))
    return false;
  if (!Put(machine_.start)) return false;
  // Where the mandrel stands is its zero, whatever the run before it left.
  return Put(dialect_.setMandrel(machine_, WordOf(Index(Axis::Mandrel), 0)));
}

bool Writer::Home(const Event& event) {
  if (!FitsMachine(event)) return false;
  const Counts home = CountsOf(event.to);
  std::string words;
  double speed = INFINITY;
  for (const Axis axis : kAllAxes) {
    const bool head = axis == Axis::Head || axis == Axis::HeadRotation;
    if (axis == Axis::Mandrel || !machine_[axis] || (head && !event.headToo)) continue;
    words += (words.empty() ? "" : " ") + WordOf(Index(axis), home[Index(axis)]);
    speed = std::min(speed, machine_[axis]->rate * 60);
  }
  for (const Axis axis : kAllAxes)
    if (axis != Axis::Mandrel) at_[Index(axis)] = home[Index(axis)];
  if (!Put(dialect_.goHome(words, Digits(speed, 4)))) return false;
  return machine_.feedMode == FeedMode::PerMinute || PutLine("G93");
}

bool Writer::Move(const Event& event) {
  if (!FitsMachine(event)) return false;
  const double seconds = SecondsFor(event);
  double share = 0;
  for (const Block& block : BlocksOf(event, seconds)) {
    share += block.share;
    Place to = event.to;
    if (share < 1 - kSame)
      for (const Axis axis : kAllAxes)
        to[axis] = event.from[axis] + share * (event.to[axis] - event.from[axis]);
    if (!WriteBlock(CountsOf(to), block.seconds)) return false;
  }
  return true;
}

bool Writer::WriteBlock(const Counts& to, double seconds) {
  std::array<double, kAxes> way{};
  std::string line = "G1";
  for (const Axis axis : kAllAxes) {
    const std::size_t i = Index(axis);
    if (!machine_[axis]) continue;
    way[i] = Held(i, to[i]) - Held(i, at_[i]);
    if (way[i] != 0) line += ' ' + WordOf(i, to[i]);
  }
  seconds += owed_;
  owed_ = seconds;
  if (std::all_of(way.begin(), way.end(), [](double one) { return one == 0; })) return true;
  owed_ = 0;
  at_ = to;
  WatchRate(seconds);
  return PutLine(line + " F" + Digits(FeedOf(way, seconds), machine_.feedDigits));
}

// Sets the mandrel's coordinate back by whole turns where the machine stands anyway, or between two layers.
bool Writer::MayReset(int line) {
  const std::size_t i = Index(Axis::Mandrel);
  if (machine_.mandrelReset == MandrelReset::None) return true;
  const double held = Held(i, at_[i]);
  const double turns = std::trunc(held / kTurn);
  if (std::abs(turns) < kTurnsBeforeReset) return true;
  const MachineAxis& axis = *machine_[Axis::Mandrel];
  const long long rest = std::llround((held - turns * kTurn) * PowerOfTen(axis.decimals));
  turnsBack_ += turns;
  at_[i] = rest;
  ++resets_;
  if (Put(dialect_.setMandrel(machine_, WordOf(i, rest)))) return true;
  return Refuse(line, "the file cannot be written");
}

bool Writer::FitsMachine(const Event& event) {
  const Counts to = CountsOf(event.to);
  for (const Axis axis : kAllAxes) {
    const std::string name(NameOf(axis));
    if (!machine_[axis]) {
      if (std::abs(event.to[axis] - event.from[axis]) < kSame) continue;
      return Refuse(event.line, "the program moves the axis " + name + ", which this machine does not have");
    }
    const MachineAxis& has = *machine_[axis];
    const double at = static_cast<double>(to[Index(axis)]) / PowerOfTen(has.decimals);
    if ((has.min && at < *has.min - kSame) || (has.max && at > *has.max + kSame))
      return Refuse(event.line, "the " + name + " would go to " + has.letter + Digits(at, 7) +
                                    ", and this machine's ends at " +
                                    Digits(has.min && at < *has.min ? *has.min : *has.max, 7));
  }
  const MachineAxis& mandrel = *machine_[Axis::Mandrel];
  const double angle =
      std::abs(machine_.CoordinateOf(Axis::Mandrel, event.to[Axis::Mandrel])) - std::abs(turnsBack_) * kTurn;
  mostAngle_ = std::max(mostAngle_, angle);
  double most = machine_.maxTurns;
  if (machine_.Floats()) most = most > 0 ? std::min(most, kMostTurns) : kMostTurns;
  if (machine_.Floats() && mandrel.stepsPerUnit > 0)
    most = std::min(most, kMostSteps / mandrel.stepsPerUnit / kTurn);
  if (most > 0 && angle > most * kTurn)
    return Refuse(event.line, "the mandrel has made more than " + executor::Fixed(most, 0) +
                                  " turns, the most that this machine counts");
  return true;
}

// A controller slows down a block that is too fast for one axis, and says nothing.
double Writer::SecondsFor(const Event& event) {
  constexpr double kMatters = 1.001;
  double seconds = event.seconds;
  Axis by = Axis::Carriage;
  for (const Axis axis : kAllAxes) {
    if (!machine_[axis]) continue;
    const double way =
        machine_.CoordinateOf(axis, event.to[axis]) - machine_.CoordinateOf(axis, event.from[axis]);
    const double least = std::abs(way) / machine_[axis]->rate;
    if (least <= seconds * kMatters) continue;
    seconds = least;
    by = axis;
  }
  if (seconds == event.seconds) return seconds;
  const double factor = event.seconds > 0 ? seconds / event.seconds : 1;
  if (slowed_++ == 0) slowedLine_ = event.line;
  if (factor >= slowedBy_) {
    slowedBy_ = factor;
    slowest_ = by;
  }
  return seconds;
}

// Beside a turning mandrel this planner takes each corner of the other axes for straight.
std::vector<Block> Writer::BlocksOf(const Event& event, double seconds) const {
  if (machine_.controller != Controller::Marlin || machine_.feedLength != FeedLength::LinearFirst ||
      !(seconds > 0))
    return {{1, seconds}};
  double jumps = 0;
  for (const Axis axis : kAllAxes) {
    if (axis == Axis::Mandrel || !machine_[axis]) continue;
    const double way =
        machine_.CoordinateOf(axis, event.to[axis]) - machine_.CoordinateOf(axis, event.from[axis]);
    jumps =
        std::max(jumps, std::abs(way) / seconds / machine_[axis]->acceleration * machine_.blocksPerSecond);
  }
  return Ramped(seconds, jumps, 1 / machine_.blocksPerSecond);
}

Writer::Counts Writer::CountsOf(const Place& place) const {
  Counts counts{};
  for (const Axis axis : kAllAxes) {
    if (!machine_[axis]) continue;
    double at = machine_.CoordinateOf(axis, place[axis]);
    if (axis == Axis::Mandrel) at -= turnsBack_ * kTurn;
    counts[Index(axis)] = std::llround(at * PowerOfTen(machine_[axis]->decimals));
  }
  return counts;
}

// The coordinate as the controller keeps it.
double Writer::Held(std::size_t axis, long long count) const {
  const double value = static_cast<double>(count) / PowerOfTen(machine_.axes[axis]->decimals);
  return machine_.Floats() ? static_cast<double>(static_cast<float>(value)) : value;
}

std::string Writer::WordOf(std::size_t axis, long long count) const {
  const MachineAxis& has = *machine_.axes[axis];
  std::string digits = std::to_string(std::abs(count));
  const auto decimals = static_cast<std::size_t>(has.decimals);
  if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
  if (decimals > 0) {
    digits.insert(digits.size() - decimals, 1, '.');
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.') digits.pop_back();
  }
  return has.letter + ((count < 0 ? "-" : "") + digits);
}

// Of the rounded way, so that the time comes out.
double Writer::FeedOf(const std::array<double, kAxes>& way, double seconds) const {
  if (machine_.feedMode == FeedMode::InverseTime) return 60 / seconds;
  double all = 0, linear = 0;
  for (const Axis axis : kAllAxes) {
    const double square = way[Index(axis)] * way[Index(axis)];
    all += square;
    if (machine_[axis] && !machine_[axis]->rotary) linear += square;
  }
  const bool linearCounts =
      machine_.feedLength == FeedLength::LinearFirst && std::sqrt(linear) >= LeastLinear(machine_.controller);
  return 60 * std::sqrt(linearCounts ? linear : all) / seconds;
}

void Writer::WatchRate(double seconds) {
  last_.push_back(seconds);
  lastSum_ += seconds;
  const auto most = static_cast<std::size_t>(machine_.lookAhead) + 1;
  if (last_.size() > most) {
    lastSum_ -= last_.front();
    last_.pop_front();
  }
  constexpr double kMatters = 0.99;
  if (last_.size() == most && lastSum_ < kMatters * static_cast<double>(most) / machine_.blocksPerSecond)
    ++tooFast_;
}

bool Writer::Put(const Lines& lines) {
  return std::all_of(lines.begin(), lines.end(), [this](const std::string& line) { return PutLine(line); });
}

bool Writer::PutLine(const std::string& line) {
  std::string whole = machine_.numbers ? 'N' + std::to_string(++number_) + ' ' + line : line;
  if (whole.size() > machine_.lineLength) {
    refusal_ = "a line is longer than the controller reads: " + whole;
    return false;
  }
  whole += machine_.crlf ? "\r\n" : "\n";
  return put_(whole);
}

bool Writer::Refuse(int line, const std::string& reason) {
  refusal_ = "line " + std::to_string(line) + ": " + reason;
  return false;
}

}  // namespace torvane::post
