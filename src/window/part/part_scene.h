// What the drawing of a two-axis part shows, read from the state: the painter only scales and strokes.
#pragma once

#include <QString>
#include <optional>

#include "workbench/station/station.h"

namespace torvane {

struct PartScene {
  // Design units; a value that cannot be read or is not above 0 is missing.
  std::optional<double> leftStop, rightStop, length, leftDiameter, rightDiameter, band, offset;
  bool homeRight = true;
  bool stopTooLow = false;
  QString total, winding;  // dimension texts with their unit
  QString leftDiameterText, rightDiameterText;
  QString leftStopText, rightStopText, offsetText;
  QString legend;  // of the pressed row
  QString bandText;
  std::optional<double> angle;  // of the pressed row, degrees

  bool operator==(const PartScene&) const = default;

  // Enough is known to draw the mandrel.
  bool complete() const { return leftStop && rightStop && length && leftDiameter && rightDiameter; }
  // Z grows to the left; the fields decide, and without them the drive.
  bool zGrowsLeft() const {
    return leftStop && rightStop && *leftStop != *rightStop ? *leftStop > *rightStop : homeRight;
  }
};

PartScene SceneOfTwoAxes(const Station& station);

}  // namespace torvane
