// The shape that is wound, and how wide a band lies on it.
#pragma once

#include <algorithm>
#include <cmath>

#include "executor/machine/winding.h"

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
  // At each stop the outermost half band is where the band turns round; a part of two bands or less has no
  // more than that.
  double TurnMargin(double band) const { return zLeft - zRight > 2 * band ? band / 2 : 0; }
};

// What a layer is wound on. Its first pass runs between the stops; the comments give the right diameter,
// which no statement has, and the left one where the displays lack it. A radius is 0 where its diameter is
// not told.
inline Mandrel MandrelOf(const Layer& layer, const HeadComments& comments) {
  const Pass& first = layer.passes.front();
  const double left = layer.leftDiameter > 0 ? layer.leftDiameter : comments.leftDiameter;
  const double right = comments.rightDiameter > 0 ? comments.rightDiameter : left;
  return {std::min(first.farZ, first.endZ), std::max(first.farZ, first.endZ), right / 2, left / 2};
}

// Tangent of the angle between the band and the mandrel's axis, from the motion itself.
inline double Tangent(const Stroke& stroke, double radius) {
  return std::abs(stroke.DegreesPerLength()) * kRadians * radius;
}

// How far round the mandrel a band reaches, degrees: its width over the cosine of its angle, as an arc. More
// than a turn where it overlaps itself.
inline double BandDegrees(double band, double tangent, double radius) {
  return band * std::sqrt(1 + tangent * tangent) / radius / kRadians;
}

// How far along Z a band reaches: its width over the sine of its angle, which must not be 0.
inline double AxialBand(double band, double tangent) { return band * std::sqrt(1 + 1 / (tangent * tangent)); }

}  // namespace torvane::executor
