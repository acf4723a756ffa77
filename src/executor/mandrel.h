// The shape that is wound, and how wide a band lies on it.
#pragma once

#include <algorithm>

#include "executor/winding.h"

namespace torvane::executor {

constexpr double kPi = 3.14159265358979323846;
constexpr double kRadians = kPi / 180;

// Straight between the two ends; the right end has the smaller Z.
struct Mandrel {
  double zRight = 0, zLeft = 0;
  double rightRadius = 0, leftRadius = 0;

  double RadiusAt(double z) const {
    if (zLeft <= zRight) return (rightRadius + leftRadius) / 2;
    const double share = std::clamp((z - zRight) / (zLeft - zRight), 0.0, 1.0);
    return rightRadius + (leftRadius - rightRadius) * share;
  }
};

// Tangent of the angle between the band and the mandrel's axis, from the motion itself.
inline double Tangent(const Stroke& stroke, double radius) {
  return std::abs(stroke.DegreesPerLength()) * kRadians * radius;
}

}  // namespace torvane::executor
