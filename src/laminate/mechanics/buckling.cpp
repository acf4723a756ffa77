#include "laminate/mechanics/buckling.h"

#include <algorithm>

namespace torvane::laminate {

namespace {

// A half wave is some sqrt(R t) long, and around there are no more waves than some sqrt(R / t). Of a longer
// or thinner tube than these the least lies among them too, as many half waves give nearly the same load.
constexpr int kMostAlong = 200, kMostAround = 100;

}  // namespace

double KnockDown(double radiusOverThickness) {
  return 1 - 0.901 * (1 - std::exp(-std::sqrt(radiusOverThickness) / 16));
}

double EffectiveThickness(const Stack& stack) {
  const Matrix3 a = stack.A(), d = stack.D();
  return std::pow(144 * d(0, 0) * d(1, 1) / (a(0, 0) * a(1, 1)), 0.25);
}

double WallBuckling(const Stack& stack, double radius, double length) {
  const Matrix3 a = stack.A(), b = stack.B(), d = stack.D() - b * a.inverse() * b;
  const double half = kPi * std::sqrt(radius * EffectiveThickness(stack)) / length;
  const int along = static_cast<int>(std::clamp(2 * kPi / half, 1.0, double{kMostAlong}));
  const int around = static_cast<int>(
      std::clamp(2 * std::sqrt(radius / EffectiveThickness(stack)), 4.0, double{kMostAround}));
  double least = std::numeric_limits<double>::infinity();
  for (int m = 1; m <= along; ++m) {
    const double x = m * kPi / length, xx = x * x;
    for (int n = 0; n <= around; ++n) {
      const double y = n / radius, yy = y * y;
      // Stretching along and around, and bending, under one wave form.
      const double c11 = a(0, 0) * xx + a(2, 2) * yy, c22 = a(1, 1) * yy + a(2, 2) * xx;
      const double c33 = d(0, 0) * xx * xx + 2 * (d(0, 1) + 2 * d(2, 2)) * xx * yy + d(1, 1) * yy * yy +
                         a(1, 1) / (radius * radius);
      const double c12 = (a(0, 1) + a(2, 2)) * x * y, c13 = a(0, 1) * x / radius, c23 = a(1, 1) * y / radius;
      const double flat = c11 * c22 - c12 * c12;
      const double bent = c33 - (c13 * (c13 * c22 - c12 * c23) + c23 * (c23 * c11 - c12 * c13)) / flat;
      least = std::min(least, bent / xx);
    }
  }
  return least;
}

double ColumnBuckling(double bendingStiffness, double length) {
  return kPi * kPi * bendingStiffness / (length * length);
}

}  // namespace torvane::laminate
