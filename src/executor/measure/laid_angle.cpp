#include "executor/measure/laid_angle.h"

#include <limits>

namespace torvane::executor {

namespace {

// Speeds are written with two decimals, those of a mandrel that keeps turning with one.
constexpr double kFeedRounding = 0.005;
constexpr double kTurnRpmRounding = 0.005;
constexpr double kKeptRpmRounding = 0.05;

double Degrees(double tangent) { return std::atan(tangent) / kRadians; }

}  // namespace

Range RoundedTangent(const Stroke& stroke, double tangent) {
  if (stroke.rpm <= 0 || stroke.feed <= 0) return {tangent, tangent};
  const double rpm = stroke.ownTurn ? kTurnRpmRounding : kKeptRpmRounding;
  const double flat =
      std::max(0.0, stroke.rpm - rpm) / stroke.rpm * stroke.feed / (stroke.feed + kFeedRounding);
  const double slowest = stroke.feed - kFeedRounding;
  const double steep = slowest > 0 ? (stroke.rpm + rpm) / stroke.rpm * stroke.feed / slowest
                                   : std::numeric_limits<double>::infinity();
  return {tangent * flat, tangent * steep};
}

double StationRadius(const Layer& layer, const Mandrel& mandrel) {
  return layer.fourAxes ? mandrel.leftRadius : (mandrel.leftRadius + mandrel.rightRadius) / 2;
}

LaidAngle MeasureAngle(const Layer& layer, const Mandrel& mandrel, const std::stop_token& stop) {
  LaidAngle angle;
  const double radius = StationRadius(layer, mandrel);
  std::vector<const Stroke*> strokes;
  for (const Stroke& stroke : layer.strokes) {
    if (stop.stop_requested()) return angle;
    if (!stroke.tail && stroke.m1 != stroke.m0) strokes.push_back(&stroke);
  }
  if (strokes.empty() || !(radius > 0)) return angle;
  const auto flatter = [](const Stroke* a, const Stroke* b) {
    return std::abs(a->DegreesPerLength()) < std::abs(b->DegreesPerLength());
  };
  const auto middle = strokes.begin() + static_cast<std::ptrdiff_t>((strokes.size() - 1) / 2);
  std::nth_element(strokes.begin(), middle, strokes.end(), flatter);
  const auto [flattest, steepest] = std::minmax_element(strokes.begin(), strokes.end(), flatter);
  const Stroke& typical = **middle;
  const auto at = [&](const Stroke& stroke, double r) { return Degrees(Tangent(stroke, r)); };
  angle.known = true;
  angle.typical = typical;
  angle.median = at(typical, radius);
  angle.traverses = {at(**flattest, radius), at(**steepest, radius)};
  angle.alongPart = {at(typical, std::min(mandrel.leftRadius, mandrel.rightRadius)),
                     at(typical, std::max(mandrel.leftRadius, mandrel.rightRadius))};
  const Range tangent = RoundedTangent(typical, Tangent(typical, radius));
  angle.rounded = {Degrees(tangent.low), Degrees(tangent.high)};
  const auto turn = [&](double t) { return 2 * kPi * radius / t; };
  angle.advance = turn(Tangent(typical, radius));
  angle.roundedAdvance = {turn(tangent.high), turn(tangent.low)};
  return angle;
}

}  // namespace torvane::executor
