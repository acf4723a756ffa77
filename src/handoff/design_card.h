// What a design can be told by before it is opened: its part, its unit, its time.
#pragma once

#include <optional>
#include <string>

#include "design/catalogue.h"
#include "platform/platform.h"

namespace torvane {

struct DesignCard {
  Family family = Family::TwoAxes;
  std::string unit;     // "in" or "mm"
  std::string minutes;  // of the build, as the station shows them; empty if it does not know them
  int layers = 0;
  // Of the part, in that unit; 0 where the design lacks it.
  double length = 0, leftDiameter = 0, rightDiameter = 0, band = 0;
  double leftCap = 0, rightCap = 0;  // lengths of its hemispherical ends
  std::optional<double> angle;       // of its first layer that is no hoop, degrees
  bool hoops = false;                // it has a layer that is one
};

// Whether a file of this name is a design, and of which family.
std::optional<Family> FamilyOfDesign(std::string_view path);

// Reads a design on a station of its own, so that nothing of the one in use changes, nor its store. Nothing
// where there is no such design, or none that can be read.
std::optional<DesignCard> ReadDesignCard(const Platform& computer, const std::string& path);

}  // namespace torvane
