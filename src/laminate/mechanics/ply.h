// One ply: its constants, and its stiffness at an angle. Axis 1 runs along the fibre, 2 across it; x is the
// tube's axis, from which angles are counted, y the hoop. Stresses and strains stand in the order 1, 2, 12 or
// x, y, xy; the last strain is the engineering shear strain. Any units that fit each other will do.
#pragma once

#include <Eigen/LU>
#include <cmath>
#include <limits>

namespace torvane::laminate {

using Vector3 = Eigen::Vector3d;
using Matrix3 = Eigen::Matrix3d;

// A figure that nobody has given. What is worked out from it is unknown as well.
inline constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
inline bool Known(double figure) { return !std::isnan(figure); }

inline constexpr double kPi = 3.14159265358979323846;
inline constexpr double kDegree = kPi / 180;

struct Ply {
  double E1 = kUnknown, E2 = kUnknown, G12 = kUnknown, nu12 = kUnknown;
  double nu21 = kUnknown;                       // where a source rounds it; else nu12 E2 / E1
  double alpha1 = kUnknown, alpha2 = kUnknown;  // expansion for each degree
  double beta1 = kUnknown, beta2 = kUnknown;    // and for each part of moisture
};

// All positive, those of compression as well. `f12` places Tsai and Wu's F12 at f12 sqrt(F11 F22).
struct Strength {
  double Xt = kUnknown, Xc = kUnknown, Yt = kUnknown, Yc = kUnknown, S = kUnknown;
  double f12 = -0.5;
};

// The moduli are positive and the Poisson's ratio one that a solid can have: E1 > nu12^2 E2.
bool IsSolid(const Ply& ply);

// Q, plane stress: Q11 = E1 / (1 - nu12 nu21), Q12 = nu12 E2 / (1 - nu12 nu21), Q66 = G12
// (Jones, Mechanics of Composite Materials, ch. 2).
Matrix3 Stiffness(const Ply& ply);

// Turn stresses and engineering strains from x, y, xy into 1, 2, 12 (the same, 2.6).
Matrix3 StressTurn(double degrees);
Matrix3 StrainTurn(double degrees);

// Q in x, y, xy: the turned stress of the stress that the turned strain causes.
Matrix3 TurnedStiffness(const Matrix3& q, double degrees);
// The way back: a strain along and across the fibre, seen in x, y, xy.
Vector3 TurnedStrain(double along, double across, double degrees);

}  // namespace torvane::laminate
