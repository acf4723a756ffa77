// The motions of a program, computed once for every controller, while the program is read.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "executor/machine/machine.h"
#include "executor/program/reader.h"
#include "platform/result.h"
#include "post/motion/event.h"

namespace torvane::post {

// Takes a program block by block and keeps no more of it than a line. Speeds are there at once, and a dwell
// against a register does what its figures say, as in the dry run.
class Motions {
 public:
  // `endlessTurns`: how many times a run without end goes to and fro, with a wait for the operator after
  // each.
  Motions(Listener& listener, int endlessTurns) : listener_(listener), endlessTurns_(endlessTurns) {}

  // False: nothing behind it is wanted, because the run has ended, or the listener or the program refuses.
  bool Take(std::string_view block);
  // Refused, with the line, where the program cannot be run by any controller.
  Outcome Finish();

  // What has no place in another controller's program, in words for the operator; known behind Finish.
  std::vector<std::string> LeftOut() const;
  double seconds() const { return seconds_; }

 private:
  // False: nothing behind it is wanted.
  bool TakeLine(const executor::Line& line);
  bool TakeStatement(const executor::Line& line);
  bool TakeIdentity(const executor::Line& line);
  bool TakeDisplay(const executor::Line& line);
  bool Run(const executor::Line& line, const executor::Statement& statement);
  bool RunEndless(const executor::Line& line);
  bool Home(const executor::Line& line);
  bool Move(const executor::Line& line, double seconds, const Place& to);
  bool Tell(Event::Kind kind, const executor::Line& line, std::string_view text = {});
  bool Refuse(int line, std::string reason);
  void LeaveOut(const std::string& what, int line);
  Place PlaceOf(const executor::Position& position) const;

  Listener& listener_;
  int endlessTurns_;
  executor::Machine machine_;
  executor::Reader reader_;
  std::string rest_;  // of the last block: a line that goes on in the next one
  double homeY_ = 0;
  Place at_;
  double seconds_ = 0;
  std::string stage_;
  executor::Command last_ = executor::Command::Absolute;
  double layer_ = 0;
  bool identified_ = false, homed_ = false, ended_ = false;
  std::string refusal_;
  std::map<std::string, std::pair<int, int>> leftOut_;  // first line, and how many
};

}  // namespace torvane::post
