// Going on with a part whose tow has snapped, from any pass of its program.
#pragma once

#include <string>
#include <string_view>

#include "platform/result.h"

namespace torvane {

// A pass of a layer, by the numbers that the program's displays show.
struct RestartPlace {
  int layer = 0, pass = 0;
};

// The program that winds from there to the end. It sets the axes up as the original does and goes to where
// the pass begins; the operator turns the mandrel to its index mark, where it stood when the original began;
// then the mandrel turns to the pass's own angle, saving the angles at both ends again on its way. From the
// pass on its lines are those of the original. `name` is the original's, for the comment at its head.
//
// Refused, with the reason for the operator, where the original has no such pass, where it does not tell at
// which angle the pass begins, and where the restart would not lay the same bands by its own reading.
Result<std::string> RestartProgram(std::string_view original, std::string_view name, RestartPlace place);

// By how much a restart misses the bands that the original lays from the place on: along the part in the
// program's unit, round it in degrees. Both are beyond all measure where their traverses do not answer each
// other.
struct Misses {
  double along = 0, round = 0;
};
Misses MissesOf(std::string_view original, std::string_view restart, RestartPlace place);

// "Tube-4x24-RESTART.T2G" for "Tube-4x24.T2G".
std::string RestartName(std::string_view program);

}  // namespace torvane
