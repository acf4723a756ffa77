// The run between two statements, and the check points from which it can be taken up again.
#pragma once

#include <string_view>
#include <vector>

#include "executor/machine/machine.h"
#include "executor/program/reader.h"

namespace torvane::executor {

// What the display statements have put on the machine's screen. Views into the program.
struct Screen {
  std::string_view stage, message;
  double layer = 0, layers = 0, pass = 0, passes = 0;  // 0: not shown
  std::string_view rpm, carriageSpeed, windingAngle, method, minutesLeft;

  void Take(const Display& display);
};

// All that a run needs to go on from the end of a statement.
struct Moment {
  Reader reader;
  Machine machine;
  Screen screen;
  double elapsed = 0;  // seconds
  // Where the last statement takes the carriage, and how it turns the mandrel.
  double targetZ = 0, rpm = 0;
  int line = 0;  // of the last statement; 0 before the first

  // Takes the statement of a line that the reader has read. The time of its motion is the caller's to add.
  Motion Take(const Line& line);
  Motion Begin(const Statement& statement);
};

// Moments at even distances, so many at most: where a program is longer, every other one is given up and the
// distance doubles.
class CheckPoints {
 public:
  static constexpr std::size_t kMost = 512;

  // Each moment of a run in its order, the first before the first line.
  void Offer(const Moment& moment);
  // The last one from which that line is still to be read; there must be one.
  const Moment& BeforeLine(int line) const;
  // The last one that lies before that second, or the beginning.
  const Moment& BeforeTime(double seconds) const;
  std::size_t Count() const { return kept_.size(); }

 private:
  std::vector<Moment> kept_;
  int distance_ = 128;  // in lines
};

}  // namespace torvane::executor
