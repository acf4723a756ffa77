#include "laminate/mechanics/tube.h"

#include <algorithm>

namespace torvane::laminate {

Vector3 WallLoad(const TubeLoad& load, double radius, double side) {
  const double caps = load.closed ? load.pressure * radius / 2 : 0;
  return {caps + load.force / (2 * kPi * radius) + side * load.moment / (kPi * radius * radius),
          load.pressure * radius, load.torque / (2 * kPi * radius * radius)};
}

Deformation HeldUnder(const Stack& stack, const Vector3& load) {
  Deformation deformation = Deformation::Zero();
  deformation.head<3>() = stack.A().inverse() * load;
  return deformation;
}

TubeStiffness StiffnessOf(const Stack& stack, double radius) {
  const Matrix3 a = stack.A().inverse();
  return {2 * kPi * radius / a(0, 0), kPi * std::pow(radius, 3) / a(0, 0),
          2 * kPi * std::pow(radius, 3) / a(2, 2), 1 / a(1, 1)};
}

double Twist(const Stack& stack, double radius, double torque, double length) {
  return torque * length / StiffnessOf(stack, radius).torsion;
}

double NettingAngle(const Vector3& wallLoad) {
  return std::atan2(std::sqrt(wallLoad(1)), std::sqrt(wallLoad(0))) / kDegree;
}

NettingWalls WallsFor(const Vector3& wallLoad, double stress, double degrees) {
  const double tangent = std::tan(degrees * kDegree);
  return {wallLoad(0) * (1 + tangent * tangent) / stress,
          (wallLoad(1) - wallLoad(0) * tangent * tangent) / stress};
}

double NettingPressure(const std::vector<StackedPly>& fibres, double stress, double radius, bool closed) {
  double axial = 0, hoop = 0;
  for (const StackedPly& layer : fibres) {
    const double c = std::cos(layer.angle * kDegree), s = std::sin(layer.angle * kDegree);
    axial += stress * layer.thickness * c * c;
    hoop += stress * layer.thickness * s * s;
  }
  return closed ? std::min(hoop / radius, 2 * axial / radius) : hoop / radius;
}

double VesselWall(double radius, double length, double thickness) {
  const double outer = radius + thickness;
  return kPi * (outer * outer - radius * radius) * length +
         4.0 / 3 * kPi * (std::pow(outer, 3) - std::pow(radius, 3));
}

}  // namespace torvane::laminate
