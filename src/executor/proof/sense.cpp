#include "executor/proof/sense.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "executor/program/number.h"

namespace torvane::executor {

namespace {

// The station's own are 0.25 to 90.
constexpr double kHighestAcceleration = 1000;
// Inches a second, revolutions a minute: the head's whole way in a tenth of a second, its whole turn
// likewise.
constexpr double kFastestHead = 50, kFastestRotation = 600;
// The band winds itself up where the carriage stands.
constexpr double kMostTurnsInPlace = 50;

struct Sense {
  const Line& line;
  const Place& place;
  Findings& findings;

  const Words& words() const { return line.statement.words; }
  void Say(Kind kind, const std::string& text) {
    findings.Add(kind, line.number, place.layer, text + place.InBrackets() + '.');
  }

  void WatchSigns();
  void WatchAccelerations();
  void WatchHead(const Machine& machine, const Limits& limits);
  void WatchTurn(const Motion& motion);
};

void Sense::WatchSigns() {
  const Command command = line.statement.command;
  const bool wraps = command == Command::Ellipse || command == Command::Withdraw;
  for (const auto& [letter, what] : {std::pair('F', "carriage speed"),
                                     {'E', "delivery head speed"},
                                     {'R', "speed of the head's rotation"},
                                     {'S', "mandrel speed"},
                                     {'P', "pause"}}) {
    const double value = words().At(letter);
    if (!(value < 0)) continue;
    Say(Kind::NegativeSpeed,
        std::string("A ") + what + " of " + Fixed(value, 2) + " has no meaning" +
            (wraps ? ": the end wrap takes less time than the head is to be done before the mandrel" : ""));
    return;
  }
}

void Sense::WatchAccelerations() {
  for (const char letter : {'I', 'J', 'K', 'N', 'O', 'T'}) {
    const double value = words().At(letter);
    if (!words().Has(letter) || (value > 0 && value <= kHighestAcceleration)) continue;
    Say(Kind::Acceleration, std::string("The acceleration ") + letter + " is set to " + Fixed(value, 2) +
                                "; above 0 up to " + Fixed(kHighestAcceleration, 0) + " make sense");
    return;
  }
}

void Sense::WatchHead(const Machine& machine, const Limits& limits) {
  const double fastest = kFastestHead * machine.UnitsPerInch();
  if (limits.headSpeed <= 0 && std::abs(words().At('E')) > fastest)
    Say(Kind::HeadSpeed, "The delivery head is to run at " + Fixed(std::abs(words().At('E')), 2) + ' ' +
                             (machine.Millimetres() ? "mm/s" : "in/s") + "; none runs faster than " +
                             Fixed(fastest, 0));
  if (std::abs(words().At('R')) > kFastestRotation)
    Say(Kind::HeadSpeed, "The delivery head is to be turned at " + Fixed(std::abs(words().At('R')), 2) +
                             " revolutions a minute; none turns faster than " + Fixed(kFastestRotation, 0));
}

void Sense::WatchTurn(const Motion& motion) {
  const double turns = std::abs(words().At('C')) / 360;
  const bool along = line.statement.command == Command::Move && motion.carriageMoves;
  if (along || words().Has('L') || turns <= kMostTurnsInPlace) return;
  Say(Kind::LongTurn, "The mandrel makes " + Fixed(turns, 1) + " turns while the carriage stands");
}

}  // namespace

void WatchSense(const Line& line, const Motion& motion, const Place& place, const Machine& machine,
                const Limits& limits, Findings& findings) {
  Sense sense{line, place, findings};
  switch (line.statement.command) {
    case Command::Move:
      sense.WatchAccelerations();
      break;
    case Command::Ellipse:
    case Command::Withdraw:
    case Command::Dwell:
    case Command::Home:
    case Command::Turn:
      break;
    default:
      return;
  }
  sense.WatchSigns();
  sense.WatchHead(machine, limits);
  sense.WatchTurn(motion);
}

void WatchBytes(const Line& line, Findings& findings) {
  const auto control = [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; };
  const auto at = std::find_if(line.text.begin(), line.text.end(), control);
  if (at == line.text.end()) return;
  findings.Add(Kind::ControlBytes, line.number, 0,
               "The line holds a byte that is no text (" + std::to_string(static_cast<int>(*at)) +
                   "): another reader may end the line there and take what follows for a statement.");
}

}  // namespace torvane::executor
