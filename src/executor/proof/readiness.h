// What a machine must have been told before it moves: its unit, who it is, where home is, that its motors are
// on, and that the operator has stepped back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "executor/machine/machine.h"
#include "executor/program/reader.h"
#include "executor/proof/finding.h"

namespace torvane::executor {

// Where in the program a statement stands.
struct Place {
  int layer = 0;  // 0 outside the layers
  std::string_view stage;
  bool winds = false;  // the layer's first band is on the mandrel, or being laid

  // For what is outside the layers, behind a sentence: " (Heat Gun Curing)".
  std::string InBrackets() const {
    return layer != 0 || stage.empty() ? std::string() : " (" + std::string(stage) + ')';
  }
};

class Readiness {
 public:
  explicit Readiness(Findings& findings) : findings_(findings) {}

  // `motion` is what the statement made the machine do.
  void Take(const Line& line, const Motion& motion, const Place& place);

  // False where no statement so far would have moved an axis.
  bool AnythingMoved() const { return moved_; }

 private:
  // The axes that a statement sets in motion.
  struct Driven {
    bool carriage = false, head = false, rotation = false, mandrel = false, home = false;

    bool Any() const { return carriage || head || rotation || mandrel || home; }
  };

  static Driven DrivenBy(const Statement& statement, const Motion& motion);
  void TakeForm(const Line& line);
  void TakeUnit(const Line& line);
  void TakeIdentity(const Line& line);
  void TakeMotors(const Line& line, const Place& place);
  void TakeDisplay(const Display& display);
  void WatchOnce(const Line& line);
  void WatchMotors(const Line& line, const Place& place);
  void WatchHome(const Line& line, const Driven& driven, const Place& place);
  void WatchButton(const Line& line, const Driven& driven, const Place& place);
  void Say(Kind kind, const Line& line, int layer, std::string text) {
    findings_.Add(kind, line.number, layer, std::move(text));
  }

  Findings& findings_;
  bool moved_ = false;
  bool anyNumber_ = false, comma_ = false;
  std::optional<Command> unit_;
  std::optional<Words> identity_;
  bool motorsOn_ = false, motorsTold_ = false;
  Driven homed_;
  // The operator has pressed the button since the mandrel stood, or since the stage began.
  bool pressed_ = false;
  bool stopped_ = false;  // by M5, and no button since
  // The winding is told to be complete; behind the M5 that follows, its end.
  bool complete_ = false, done_ = false;
};

}  // namespace torvane::executor
