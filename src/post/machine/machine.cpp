#include "post/machine/machine.h"

namespace torvane::post {

namespace {

constexpr double kMillimetresPerInch = 25.4;

}  // namespace

double Machine::CoordinateOf(Axis axis, double place) const {
  const MachineAxis& at = *(*this)[axis];
  const bool length = axis == Axis::Carriage || axis == Axis::Head;
  const double units = length && inches ? place / kMillimetresPerInch : place;
  return at.home + (at.reversed ? -units : units);
}

double Machine::PlaceOf(Axis axis, double coordinate) const {
  const MachineAxis& at = *(*this)[axis];
  const bool length = axis == Axis::Carriage || axis == Axis::Head;
  const double units = at.reversed ? at.home - coordinate : coordinate - at.home;
  return length && inches ? units * kMillimetresPerInch : units;
}

std::string_view NameOf(Axis axis) {
  constexpr std::array<std::string_view, kAxes> kNames = {"carriage", "mandrel", "head", "headRotation"};
  return kNames[static_cast<std::size_t>(axis)];
}

std::string_view NameOf(Controller controller) {
  constexpr std::array<std::string_view, 4> kNames = {"linuxcnc", "grbl", "grblhal", "marlin"};
  return kNames[static_cast<std::size_t>(controller)];
}

std::string_view EndingOf(Controller controller) {
  constexpr std::array<std::string_view, 4> kEndings = {".ngc", ".nc", ".nc", ".gcode"};
  return kEndings[static_cast<std::size_t>(controller)];
}

}  // namespace torvane::post
