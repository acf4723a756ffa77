#include "laminate/mechanics/ply.h"

namespace torvane::laminate {

namespace {

struct Turn {
  double c, s;
};

// At right angles without the noise of a rounded pi, which would couple what is not coupled.
Turn TurnOf(double degrees) {
  const double turn = std::remainder(degrees, 360);
  if (turn == 0) return {1, 0};
  if (std::abs(turn) == 180) return {-1, 0};
  if (std::abs(turn) == 90) return {0, turn > 0 ? 1.0 : -1.0};
  return {std::cos(turn * kDegree), std::sin(turn * kDegree)};
}

}  // namespace

bool IsSolid(const Ply& ply) {
  const double nu21 = Known(ply.nu21) ? ply.nu21 : ply.nu12 * ply.E2 / ply.E1;
  return ply.E1 > 0 && ply.E2 > 0 && ply.G12 > 0 && std::isfinite(ply.E1 + ply.E2 + ply.G12) &&
         ply.nu12 * nu21 < 1 && ply.nu12 * ply.nu12 * ply.E2 < ply.E1;
}

Matrix3 Stiffness(const Ply& ply) {
  const double nu21 = Known(ply.nu21) ? ply.nu21 : ply.nu12 * ply.E2 / ply.E1;
  const double held = 1 - ply.nu12 * nu21;
  const double q12 = ply.nu12 * ply.E2 / held;
  Matrix3 q;
  q << ply.E1 / held, q12, 0, q12, ply.E2 / held, 0, 0, 0, ply.G12;
  return q;
}

Matrix3 StressTurn(double degrees) {
  const auto [c, s] = TurnOf(degrees);
  Matrix3 turn;
  turn << c * c, s * s, 2 * s * c, s * s, c * c, -2 * s * c, -s * c, s * c, c * c - s * s;
  return turn;
}

Matrix3 StrainTurn(double degrees) {
  const auto [c, s] = TurnOf(degrees);
  Matrix3 turn;
  turn << c * c, s * s, s * c, s * s, c * c, -s * c, -2 * s * c, 2 * s * c, c * c - s * s;
  return turn;
}

Matrix3 TurnedStiffness(const Matrix3& q, double degrees) {
  return StressTurn(-degrees) * q * StrainTurn(degrees);
}

Vector3 TurnedStrain(double along, double across, double degrees) {
  return StrainTurn(-degrees) * Vector3(along, across, 0);
}

}  // namespace torvane::laminate
