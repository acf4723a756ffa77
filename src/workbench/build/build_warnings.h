// What to look at before a build. It warns and stops nothing.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "workbench/station/station.h"

namespace torvane {

// What a warning is about, for whoever knows how to mend it or finds the same elsewhere.
enum class Concern : std::uint8_t {
  Other,
  Unsaved,            // the design has no file, or no recovery copy
  NoEnds,             // rows do not know their stops before the design is opened
  CarriageShift,      // later passes would leave the stops
  TooFast,            // a layer turns faster than the machine can
  Stands,             // mandrel or carriage would stand in a layer
  TypedSpeed,         // a mandrel speed that the file does not keep
  OtherFamily,        // the other family's value stands for the one shown
  SmallMotors,        // end wraps at the speeds of the smaller motors
  BuildTime,          // the declared time is not that of the layers
  OffsetNotMeasured,  // of the carriage
};

// A thing that makes a program other than the operator may think, in two short sentences, and the field that
// it hangs on.
struct BuildWarning {
  const Field* field;
  std::string what;
  std::string why;
  Concern concern = Concern::Other;
  int layer = 0;  // 0 for the design as a whole
};

// In the order in which a program runs: the file, the part, the layers. Changes nothing.
std::vector<BuildWarning> BuildWarnings(const Station& station);

}  // namespace torvane
