#include "post/motion/motions.h"

#include <algorithm>
#include <cmath>

#include "executor/measure/run.h"
#include "executor/program/number.h"

namespace torvane::post {

namespace {

using executor::Command;
using executor::Line;
using executor::Statement;

constexpr double kMillimetresPerInch = 25.4;
constexpr double kDegreesPerRpm = 6;  // degrees a second
// Degrees or millimetres that are none.
constexpr double kSame = 1e-6;
// An axis that is done so little before the others is done with them: a block of its own would make a planner
// slow down for nothing.
constexpr double kShortSeconds = 0.02, kShortShare = 0.02;

bool Stays(const Place& from, const Place& to) {
  return std::all_of(kAllAxes.begin(), kAllAxes.end(),
                     [&](Axis axis) { return std::abs(to[axis] - from[axis]) < kSame; });
}

// The identification line tells the head's distance in inches, whatever the program's unit.
Statement InProgramUnit(const Statement& statement, double unitsPerInch) {
  Statement told = statement;
  told.words = {};
  for (char letter = 'A'; letter <= 'Z'; ++letter)
    if (statement.words.Has(letter))
      told.words.Put(letter, statement.words.At(letter) * (letter == 'Y' ? unitsPerInch : 1), false);
  return told;
}

std::string_view InBrackets(std::string_view comment) {
  if (!comment.empty()) comment.remove_prefix(1);
  const auto end = comment.find_last_not_of("] ");
  return end == std::string_view::npos ? std::string_view() : comment.substr(0, end + 1);
}

const char* SentenceOf(executor::Trouble trouble) {
  switch (trouble) {
    case executor::Trouble::CarriageStands:
      return "the carriage is sent somewhere and has no speed";
    case executor::Trouble::MandrelStands:
      return "the mandrel is told to turn and has no speed";
    case executor::Trouble::RegisterEmpty:
      return "it waits for an angle that has not been saved";
    case executor::Trouble::None:
      break;
  }
  return "";
}

struct Piece {
  double seconds = 0;
  executor::Position to;
};

// The pieces of a motion without those that are too short for a block of their own.
std::vector<Piece> PiecesOf(const executor::Motion& motion) {
  double all = 0;
  for (std::size_t i = 0; i < motion.count; ++i) all += motion.segments[i].seconds;
  std::vector<Piece> pieces;
  for (std::size_t i = 0; i < motion.count; ++i) {
    const executor::Segment& segment = motion.segments[i];
    const bool isShort = segment.seconds <= std::min(kShortSeconds, kShortShare * all);
    if (isShort && !pieces.empty()) {
      pieces.back().seconds += segment.seconds;
      pieces.back().to = segment.to;
    } else {
      pieces.push_back({segment.seconds, segment.to});
    }
  }
  return pieces;
}

}  // namespace

bool Motions::Take(std::string_view block) {
  if (ended_) return false;
  const auto last = block.rfind('\n');
  if (last == std::string_view::npos) {
    rest_ += block;
    return true;
  }
  Line line;
  const auto run = [&](std::string_view lines) {
    reader_.GoOn(lines);
    while (!ended_ && reader_.Next(line))
      if (!TakeLine(line)) ended_ = true;
  };
  if (!rest_.empty()) {
    const auto first = block.find('\n') + 1;
    rest_ += block.substr(0, first);
    run(rest_);
    rest_.clear();
    block.remove_prefix(first);
  }
  const auto whole = block.rfind('\n');
  if (whole != std::string_view::npos) run(block.substr(0, whole + 1));
  rest_ = block.substr(whole == std::string_view::npos ? 0 : whole + 1);
  return !ended_;
}

Outcome Motions::Finish() {
  if (!ended_ && !rest_.empty()) Take("\n");
  // Without tape and heat gun the mandrel's stop is a program's last word.
  const bool stopped = last_ == Command::Stop && stage_ != "Heat Shrink Tape" && stage_ != "Heat Gun Curing";
  if (!ended_ && stopped)
    listener_.Take({Event::Kind::End, reader_.Number(), 0, at_, at_, false, {}});
  else if (!ended_)
    Refuse(reader_.Number(), "the program breaks off: it has no end");
  ended_ = true;
  if (!refusal_.empty()) return Refusal{refusal_};
  return Done{};
}

std::vector<std::string> Motions::LeftOut() const {
  std::vector<std::string> lines;
  for (const auto& [what, where] : leftOut_) {
    lines.push_back(what + " (line " + std::to_string(where.first));
    if (where.second > 1) lines.back() += " and " + std::to_string(where.second - 1) + " more";
    lines.back() += ")";
  }
  return lines;
}

bool Motions::TakeLine(const Line& line) {
  if (line.kind == Line::Kind::Blank) return true;
  if (line.kind == Line::Kind::Unreadable) return Refuse(line.number, line.trouble);
  const bool ends = executor::EndsRun(line.statement, stage_);
  last_ = line.statement.command;
  if (!TakeStatement(line)) return false;
  if (!ends) return true;
  Tell(Event::Kind::End, line);
  return false;
}

bool Motions::TakeStatement(const Line& line) {
  const Statement& statement = line.statement;
  switch (statement.command) {
    case Command::Identity:
      return TakeIdentity(line);
    case Command::Display:
      return TakeDisplay(line);
    case Command::Wait:
      return Tell(Event::Kind::Wait, line, InBrackets(line.comment));
    case Command::Home:
      return Home(line);
    case Command::Endless:
      return RunEndless(line);
    case Command::Notice:
      LeaveOut("Notices to addresses are not sent", line.number);
      return true;
    case Command::MotorsOff:
      LeaveOut("The motors are not switched off", line.number);
      return true;
    case Command::Inches:
    case Command::Millimetres:
      if (identified_ && machine_.Millimetres() != (statement.command == Command::Millimetres))
        return Refuse(line.number, "the unit of lengths changes behind lengths");
      machine_.Run(statement);
      return true;
    case Command::Move:
      for (const char letter : std::string_view("IJKNOT"))
        if (statement.words.Has(letter)) {
          LeaveOut("Accelerations are those of the controller's own settings", line.number);
          break;
        }
      return Run(line, statement);
    default:
      return Run(line, statement);
  }
}

bool Motions::TakeIdentity(const Line& line) {
  if (identified_) return Refuse(line.number, "a second line says where the axes stand at home");
  identified_ = true;
  const Statement told = InProgramUnit(line.statement, machine_.UnitsPerInch());
  homeY_ = told.words.At('Y');
  machine_.Run(told);
  return true;
}

bool Motions::TakeDisplay(const Line& line) {
  const executor::Display display = executor::ReadDisplay(line.statement.body);
  if (!display.message.empty()) return Tell(Event::Kind::Message, line, display.message);
  if (!display.stage.empty()) {
    stage_ = display.stage;
    layer_ = 0;
    return Tell(Event::Kind::Message, line, display.stage);
  }
  if (!display.hasLayer) return true;
  const auto counted = [](const char* what, double number, double all) {
    std::string text = what + executor::Fixed(number, 0);
    if (all > 0) text += " of " + executor::Fixed(all, 0);
    return text;
  };
  const std::string layer = counted("Layer ", display.layer, display.layers);
  if (display.layer != layer_ && !Tell(Event::Kind::Layer, line, layer)) return false;
  layer_ = display.layer;
  return Tell(Event::Kind::Pass, line, layer + counted(", pass ", display.pass, display.passes));
}

bool Motions::Run(const Line& line, const Statement& statement) {
  const executor::Motion motion = machine_.Run(statement);
  if (motion.trouble != executor::Trouble::None) return Refuse(line.number, SentenceOf(motion.trouble));
  std::vector<Piece> pieces = PiecesOf(motion);
  // A head that follows is there when the statement ends, at the latest.
  if (!pieces.empty()) pieces.back().to = machine_.At();
  return std::all_of(pieces.begin(), pieces.end(),
                     [&](const Piece& piece) { return Move(line, piece.seconds, PlaceOf(piece.to)); });
}

bool Motions::RunEndless(const Line& line) {
  LeaveOut("A run without end becomes " +
               executor::Counted(endlessTurns_, "turn to and fro", "turns to and fro") +
               ", with a wait after each, in which the mandrel stands",
           line.number);
  const auto go = [&](double z) {
    Statement way;
    way.command = Command::Move;
    way.words.Put('Z', z, false);
    return Run(line, way);
  };
  const double near = line.statement.words.At('Z'), far = line.statement.secondZ;
  if (!go(near)) return false;
  for (int turn = 0; turn < endlessTurns_; ++turn) {
    if (!go(far) || !go(near)) return false;
    // Behind the last one nothing is left to wait for.
    if (turn + 1 < endlessTurns_ && !Tell(Event::Kind::Wait, line, "Take the heat away, then press to go on"))
      return false;
  }
  return true;
}

bool Motions::Home(const Line& line) {
  const executor::Words& words = line.statement.words;
  const executor::Motion motion = machine_.Run(line.statement);
  const Place to = PlaceOf(machine_.At());
  if (!homed_) {
    homed_ = true;
    Event event{Event::Kind::Home, line.number, 0, to, to, words.Has('E') || words.Has('R'), {}};
    at_ = to;
    return listener_.Take(event);
  }
  double seconds = 0;
  for (std::size_t i = 0; i < motion.count; ++i) seconds += motion.segments[i].seconds;
  const double toMillimetres = kMillimetresPerInch / machine_.UnitsPerInch();
  if (words.At('E') != 0)
    seconds =
        std::max(seconds, std::abs((to[Axis::Head] - at_[Axis::Head]) / (words.At('E') * toMillimetres)));
  if (words.At('R') != 0)
    seconds = std::max(seconds, std::abs((to[Axis::HeadRotation] - at_[Axis::HeadRotation]) /
                                         (words.At('R') * kDegreesPerRpm)));
  return Move(line, seconds, to);
}

bool Motions::Move(const Line& line, double seconds, const Place& to) {
  Event event{Event::Kind::Move, line.number, seconds, at_, to, false, {}};
  if (Stays(at_, to)) {
    if (seconds < kSame) return true;
    event.kind = Event::Kind::Pause;
  } else if (!homed_) {
    return Refuse(line.number, "an axis moves that has not been sent to its limit switch");
  }
  seconds_ += seconds;
  at_ = to;
  return listener_.Take(event);
}

bool Motions::Tell(Event::Kind kind, const Line& line, std::string_view text) {
  return listener_.Take({kind, line.number, 0, at_, at_, false, text});
}

bool Motions::Refuse(int line, std::string reason) {
  if (refusal_.empty()) refusal_ = "line " + std::to_string(line) + ": " + std::move(reason);
  return false;
}

void Motions::LeaveOut(const std::string& what, int line) {
  auto& [first, count] = leftOut_[what];
  if (count++ == 0) first = line;
}

Place Motions::PlaceOf(const executor::Position& position) const {
  const double toMillimetres = kMillimetresPerInch / machine_.UnitsPerInch();
  Place place;
  place[Axis::Carriage] = (position.carriage - machine_.HomeZ()) * toMillimetres;
  place[Axis::Head] = (position.head - homeY_) * toMillimetres;
  place[Axis::HeadRotation] = position.rotation;
  place[Axis::Mandrel] = position.mandrel;
  return place;
}

}  // namespace torvane::post
