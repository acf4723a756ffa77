// A program run once more, by a machine that drives otherwise.
#pragma once

#include <stop_token>
#include <string_view>

#include "executor/machine/limits.h"
#include "executor/machine/winding.h"

namespace torvane::executor {

// What no statement behind it is reached by: the program's end, an endless run, and the message with which a
// program without a heat gun ends.
bool EndsRun(const Statement& statement, std::string_view stage);

// The machine of the limits, without its accelerations.
Drive DriveOf(const Limits& limits);
// With them.
Drive AcceleratingDriveOf(const Limits& limits);

struct Rerun {
  Winding winding;
  double seconds = 0;  // without what the operator takes
};

// The winding points into `program`. Asked to stop, it returns what it has.
Rerun RunBy(std::string_view program, const Drive& drive, const std::stop_token& stop);

// The band beside a reversal, where the carriage still gains speed, or the mandrel of a wrapped end.
struct Reversal {
  bool known = false;
  double length = 0;  // along Z, in the program's unit
  double angle = 0;   // degrees, of the band from end to end of it
};

// Of a layer's traverse on that radius.
Reversal NearReversal(const Stroke& stroke, double radius, const Drive& drive, double unitsPerInch);

}  // namespace torvane::executor
