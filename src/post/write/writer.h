// Writes a machine's program while the motions come.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/result.h"
#include "post/machine/machine.h"
#include "post/motion/event.h"
#include "post/write/dialect.h"
#include "post/write/ramp.h"

namespace torvane::post {

class Writer : public Listener {
 public:
  // `put` takes the program's bytes as they come; false: it takes no more. `title` is the program's name.
  Writer(const Machine& machine, std::string_view title, std::function<bool(std::string_view)> put);

  bool Take(const Event& event) override;
  // Refused, with the program's line, where the machine cannot run it.
  Outcome Finish() const;
  // What the operator should know, in words.
  std::vector<std::string> Notes() const;

 private:
  using Counts = std::array<long long, kAxes>;  // of the last decimal

  bool Begin();
  bool Home(const Event& event);
  bool Move(const Event& event);
  bool WriteBlock(const Counts& to, double seconds);
  bool MayReset(int line);
  bool FitsMachine(const Event& event);
  double SecondsFor(const Event& event);
  std::vector<Block> BlocksOf(const Event& event, double seconds) const;
  Counts CountsOf(const Place& place) const;
  double Held(std::size_t axis, long long count) const;
  std::string WordOf(std::size_t axis, long long count) const;
  double FeedOf(const std::array<double, kAxes>& way, double seconds) const;
  void WatchRate(double seconds);
  bool Put(const Lines& lines);
  bool PutLine(const std::string& line);
  bool Refuse(int line, const std::string& reason);

  const Machine& machine_;
  const Dialect& dialect_;
  std::string title_;
  std::function<bool(std::string_view)> put_;
  double turnsBack_ = 0;  // whole turns that the mandrel's coordinate has been set back by
  Counts at_;             // where the controller stands
  double mostAngle_ = 0;  // of the mandrel's coordinate
  double owed_ = 0;       // seconds of motions too small to be written
  long long number_ = 0;  // of the last line
  int slowed_ = 0, slowedLine_ = 0, resets_ = 0;
  double slowedBy_ = 0;  // most that one of them takes longer, as a factor
  Axis slowest_ = Axis::Carriage;
  std::deque<double> last_;  // blocks' seconds, as many as the planner looks ahead
  double lastSum_ = 0;
  int tooFast_ = 0;
  std::string refusal_;
  bool begun_ = false;
};

}  // namespace torvane::post
