#include "restart/restart.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "executor/measure/run.h"
#include "executor/program/number.h"

namespace torvane {

namespace {

using namespace executor;

constexpr std::string_view kLineEnd = "\r\n";
// What a restart may miss its place by.
constexpr double kAlongInches = 0.001, kRoundDegrees = 0.05;
constexpr double kBeyondMeasure = 1e9;

// Within a turn.
double Turned(double degrees) {
  const double rest = std::fmod(degrees, 360);
  return rest < 0 ? rest + 360 : rest;
}

// What an M601 or M602 has saved.
struct Saved {
  std::string_view statement;
  double angle = 0;
};

// The original up to the display of the pass.
struct Run {
  Machine machine;
  bool commas = false;
  double feed = 0;   // that a move without one takes
  double speed = 0;  // of a mandrel that keeps turning, revolutions a minute
  double approachFeed = 0, approachHead = 0, approachTurn = 0;  // of the moves that set the axes up
  std::optional<Saved> far, home;
  std::size_t preamble = 0;  // bytes up to the first display
  std::string_view display;  // the line that begins the pass
  std::size_t rest = 0;      // where the line behind it begins

  void Take(const Statement& statement) {
    const Words& words = statement.words;
    const bool feeds = statement.command == Command::Move || statement.command == Command::Ellipse ||
                       statement.command == Command::Withdraw || statement.command == Command::Home;
    if (feeds && words.Has('F')) feed = std::abs(words.At('F'));
    if (statement.command == Command::Turn) speed = std::abs(words.At('S'));
    if (statement.command == Command::Stop) speed = 0;
    if (statement.command == Command::SaveFar) far = Saved{"M601", machine.At().mandrel};
    if (statement.command == Command::SaveHome) home = Saved{"M602", machine.At().mandrel};
    if (statement.command == Command::NumberForm) commas = words.At('C') != 0;
    if (preamble != 0 || statement.command != Command::Move || !words.Has('Z')) return;
    approachFeed = feed;
    approachHead = std::abs(words.At('E'));
    approachTurn = std::abs(words.At('R'));
  }
};

std::string NameOf(RestartPlace place) {
  return "layer " + std::to_string(place.layer) + ", pass " + std::to_string(place.pass);
}

Result<Run> RunTo(std::string_view original, RestartPlace place) {
  Run run;
  Reader reader(original);
  Line line;
  bool hasLayer = false;
  while (reader.Next(line)) {
    if (line.kind == Line::Kind::Blank) continue;
    const std::string number = std::to_string(line.number);
    if (line.kind == Line::Kind::Unreadable)
      return Refusal{"Line " + number +
                     " cannot be read, so nobody knows where the mandrel stands behind it."};
    if (line.statement.command != Command::Display) {
      if (run.machine.Run(line.statement).trouble != Trouble::None)
        return Refusal{"Behind line " + number + " the program does not tell where the mandrel stands."};
      run.Take(line.statement);
      continue;
    }
    const auto at = static_cast<std::size_t>(line.text.data() - original.data());
    if (run.preamble == 0) run.preamble = at;
    const Display display = ReadDisplay(line.statement.body);
    if (!display.hasLayer || display.layer != place.layer) continue;
    hasLayer = true;
    if (display.pass != place.pass) continue;
    run.display = line.text;
    run.rest = original.size() - reader.Left();
    return run;
  }
  if (!hasLayer) return Refusal{"The program has no layer " + std::to_string(place.layer) + "."};
  return Refusal{"Layer " + std::to_string(place.layer) + " has no pass " + std::to_string(place.pass) +
                 "; a hoop begins anew with its pass 1."};
}

// A name as a comment can hold it: what would end the comment or its line, and set off a statement, is a
// blank.
std::string Harmless(std::string_view name) {
  std::string text(name);
  for (char& c : text)
    if (static_cast<unsigned char>(c) < ' ' || c == 0x7F || c == '[' || c == ']') c = ' ';
  return text;
}

// The mandrel's speed where it stands until the pass itself turns it.
double FirstSpeed(std::string_view rest) {
  Reader reader(rest);
  Line line;
  while (reader.Next(line))
    if (line.kind == Line::Kind::Statement && line.statement.words.Has('S')) {
      const double speed = std::abs(line.statement.words.At('S'));
      if (speed > 0) return speed;
    }
  return 0;
}

class Writer {
 public:
  Writer(std::string_view original, const Run& run) : original_(original), run_(run) {}

  std::string Write(std::string_view name, RestartPlace place) {
    const std::string where = torvane::NameOf(place);
    text_.reserve(original_.size() - run_.rest + run_.preamble + 1000);
    Add("[RESTART OF " + Harmless(name) + " AT LAYER " + std::to_string(place.layer) + " PASS " +
        std::to_string(place.pass) + "]");
    text_ += original_.substr(0, run_.preamble);
    GoThere(where);
    Add("D0 GM=Turn the mandrel to its index mark and tie the tow on");
    Add("D0 ST=Winding Schedule");
    Add("M0 [Wait for Button Press to Go On with " + where + "]");
    Add(std::string(run_.display));
    TurnThere();
    text_ += original_.substr(run_.rest);
    return std::move(text_);
  }

 private:
  void Add(std::string_view line) { (text_ += line) += kLineEnd; }

  std::string Number(double value, int decimals) const {
    std::string text = Fixed(value, decimals);
    if (run_.commas) std::replace(text.begin(), text.end(), '.', ',');
    return text;
  }

  // To where the carriage and the head stand when the pass begins; then again at the speed that its moves go
  // on with.
  void GoThere(const std::string& where) {
    const Position& at = run_.machine.At();
    const std::string z = " Z" + Number(at.carriage, 4);
    std::string move = "G1 F" + Number(run_.approachFeed, 4) + z;
    if (run_.machine.HasHead())
      move += " Y" + Number(at.head, 4) + " E" + Number(run_.approachHead, 4) + " B" +
              Number(at.rotation, 4) + " R" + Number(run_.approachTurn, 4);
    Add(move + " [Move to where " + where + " begins]");
    if (run_.feed > 0) Add("G1 F" + Number(run_.feed, 4) + z + " [Speed of the carriage from here on]");
  }

  void TurnThere() {
    const bool keeps = run_.speed > 0;
    const std::string speed = Number(keeps ? run_.speed : FirstSpeed(original_.substr(run_.rest)), 4);
    if (keeps) Add("M4 S" + speed + " [Mandrel CW Rotation]");
    double at = 0;  // by the turns as they are written
    const auto turnTo = [&](double angle) {
      const double turn = std::round(Turned(angle - at) * 1000) / 1000;
      if (turn == 0 || turn == 360) return;
      Add((keeps ? "G4 C" : "G1 S" + speed + " C") + Number(turn, 3) + " [Turn the mandrel on]");
      at += turn;
    };
    std::vector<Saved> saved;
    for (const auto& each : {run_.home, run_.far})
      if (each) saved.push_back(*each);
    std::sort(saved.begin(), saved.end(),
              [](const Saved& a, const Saved& b) { return Turned(a.angle) < Turned(b.angle); });
    for (const Saved& each : saved) {
      turnTo(each.angle);
      Add(std::string(each.statement) + " [Save the angle that the original has saved]");
    }
    turnTo(run_.machine.At().mandrel);
  }

  std::string_view original_;
  const Run& run_;
  std::string text_;
};

// The traverses of a program from a place on, in their order.
std::vector<Stroke> StrokesFrom(std::string_view program, RestartPlace place) {
  std::vector<Stroke> strokes;
  const Rerun run = RunBy(program, {}, {});
  bool reached = false;
  for (const Layer& layer : run.winding.layers())
    for (const Stroke& stroke : layer.strokes) {
      const double pass = layer.passes[static_cast<std::size_t>(stroke.pass)].number;
      reached = reached || (layer.number == place.layer && pass == place.pass);
      if (reached) strokes.push_back(stroke);
    }
  return strokes;
}

}  // namespace

Misses MissesOf(std::string_view original, std::string_view restart, RestartPlace place) {
  const std::vector<Stroke> wanted = StrokesFrom(original, place), laid = StrokesFrom(restart, place);
  if (wanted.empty() || wanted.size() != laid.size()) return {kBeyondMeasure, kBeyondMeasure};
  Misses misses;
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    const Stroke &a = wanted[i], &b = laid[i];
    misses.along = std::max({misses.along, std::abs(a.z0 - b.z0), std::abs(a.z1 - b.z1)});
    const double begins = Turned(b.m0 - a.m0), turns = std::abs((b.m1 - b.m0) - (a.m1 - a.m0));
    misses.round = std::max({misses.round, std::min(begins, 360 - begins), turns});
  }
  return misses;
}

Result<std::string> RestartProgram(std::string_view original, std::string_view name, RestartPlace place) {
  const Result<Run> run = RunTo(original, place);
  if (!run) return Refusal{run.reason()};
  if (run.value().speed == 0 && FirstSpeed(original.substr(run.value().rest)) == 0)
    return Refusal{"From there on the program turns the mandrel no more."};
  std::string restart = Writer(original, run.value()).Write(name, place);
  const Misses misses = MissesOf(original, restart, place);
  const double along = kAlongInches * run.value().machine.UnitsPerInch();
  if (misses.along > along || misses.round > kRoundDegrees)
    return Refusal{"The restart would not lay the same bands" +
                   (misses.round < kBeyondMeasure
                        ? ": it would miss them by " + Fixed(misses.round, 2) + " degrees."
                        : std::string("."))};
  return restart;
}

std::string RestartName(std::string_view program) {
  const std::size_t ending = std::min(program.rfind('.'), program.size());
  return std::string(program.substr(0, ending)) + "-RESTART" + std::string(program.substr(ending));
}

}  // namespace torvane
