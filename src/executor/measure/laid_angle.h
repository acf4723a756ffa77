// The angle at which a layer's bands really lie, from the motion alone.
#pragma once

#include <stop_token>

#include "executor/machine/mandrel.h"

namespace torvane::executor {

// A figure that is known within two others.
struct Range {
  double low = 0, high = 0;
};

// The tangent of a band's angle had the last decimals of the speeds been rounded the least favourable ways.
Range RoundedTangent(const Stroke& stroke, double tangent);

// Degrees. Where the mandrel is not equally thick, a band lies steeper where it is thicker.
struct LaidAngle {
  bool known = false;
  double median = 0;   // of all traverses, at the diameter that the station calculates with
  Range traverses;     // the flattest and the steepest traverse there
  Range alongPart;     // the middle traverse at the thinner and at the thicker end
  Range rounded;       // where rounded speeds leave the middle one
  Stroke typical;      // the middle traverse
  double advance = 0;  // the middle one's way along Z in a turn, in the program's unit
  Range roundedAdvance;
};

// Two axes calculate with the mean of the two diameters, the others with the left one. There must be a
// diameter.
double StationRadius(const Layer& layer, const Mandrel& mandrel);

// Unknown where no band runs along the part while the mandrel turns. Asked to stop, it returns anything.
LaidAngle MeasureAngle(const Layer& layer, const Mandrel& mandrel, const std::stop_token& stop);

}  // namespace torvane::executor
