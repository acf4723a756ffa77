#include "executor/view/oblique.h"

#include <algorithm>
#include <cmath>

namespace torvane::dryrun {

namespace {

const double kCos = std::cos(Oblique::kDegrees * 3.14159265358979323846 / 180);
const double kSin = std::sin(Oblique::kDegrees * 3.14159265358979323846 / 180);
constexpr int kSteps = 4;

}  // namespace

double Oblique::RadiusAt(double at) const {
  const double share = right > left ? std::clamp((at - left) / (right - left), 0.0, 1.0) : 0;
  const double radius = leftRadius + (rightRadius - leftRadius) * share;
  const double beyond = std::max({0.0, left - at, at - right});
  if (beyond == 0) return radius;
  return beyond < dome ? radius * std::sqrt(1 - beyond / dome * (beyond / dome)) : 0;
}

double Oblique::Across(double at, double towards) const {
  const double middle = (left + right) / 2;
  return middle + (at - middle) * kCos - towards * kSin;
}

std::optional<double> Oblique::SeenAt(double x, double height) const {
  const double middle = (left + right) / 2;
  const double across = x - middle;
  // On a body that tapers the radius depends on the place that is sought: a few steps come close enough.
  double at = x;
  for (int step = 0; step < kSteps; ++step) {
    const double radius = RadiusAt(std::clamp(at, left, right));
    const double towards = std::sqrt(std::max(0.0, radius * radius - height * height));
    at = middle + (across + towards * kSin) / kCos;
  }
  if (std::abs(height) <= RadiusAt(std::clamp(at, left, right)) && at >= left && at <= right) return at;
  if (dome <= 0) return std::nullopt;
  // Where the line of sight meets the ball of an end.
  for (const bool rightEnd : {false, true}) {
    const double end = (rightEnd ? right : left) - middle;
    const double radius = rightEnd ? rightRadius : leftRadius;
    const double u = across * kCos - end, a2 = dome * dome, r2 = radius * radius;
    const double a = kSin * kSin / a2 + kCos * kCos / r2;
    const double b = 2 * (u * kSin / a2 - across * kSin * kCos / r2);
    const double c = u * u / a2 + (across * across * kSin * kSin + height * height) / r2 - 1;
    const double root = b * b - 4 * a * c;
    if (root < 0) continue;
    const double seen = across * kCos + (-b + std::sqrt(root)) / (2 * a) * kSin;
    if (rightEnd ? seen > end : seen < end) return middle + seen;
  }
  return std::nullopt;
}

}  // namespace torvane::dryrun
