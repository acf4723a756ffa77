// A stack of plies by classical lamination theory.
#pragma once

#include <vector>

#include "laminate/mechanics/ply.h"

namespace torvane::laminate {

using Vector6 = Eigen::Matrix<double, 6, 1>;
using Matrix6 = Eigen::Matrix<double, 6, 6>;

struct StackedPly {
  Ply ply;
  double angle = 0, thickness = 0;  // degrees; positive
  // Wound out and back: one half of it lies at the angle, the other at its negative, woven through each
  // other.
  bool bothWays = false;
};

// Nx, Ny, Nxy, Mx, My, Mxy for each length.
using Resultants = Vector6;
// The strains of the middle surface and the curvatures.
using Deformation = Vector6;

// What it does to be heated and wetted.
struct Climate {
  double dT = 0, dM = 0;
};

class Stack {
 public:
  // From the smaller z to the greater; of a tube the innermost first.
  explicit Stack(std::vector<StackedPly> plies);

  const std::vector<StackedPly>& plies() const { return plies_; }
  double Thickness() const { return thickness_; }
  // Of ply `i`, its smaller and its greater z; the middle of the stack is at 0.
  double Bottom(std::size_t i) const { return edges_[i]; }
  double Top(std::size_t i) const { return edges_[i + 1]; }

  // The constants could be worked out and hold each other: the inverse stands.
  bool Regular() const { return regular_; }
  // N = A e + B k, M = B e + D k (Jones, ch. 4).
  const Matrix6& Abd() const { return abd_; }
  const Matrix6& Inverse() const { return inverse_; }
  Matrix3 A() const { return abd_.topLeftCorner<3, 3>(); }
  Matrix3 B() const { return abd_.topRightCorner<3, 3>(); }
  Matrix3 D() const { return abd_.bottomRightCorner<3, 3>(); }

  // What would hold it in its form while it is heated or wetted; unknown where an expansion is.
  Resultants ThermalLoad(double dT) const;
  Resultants MoistureLoad(double dM) const;
  // Free to stretch and to bend.
  Deformation Under(const Resultants& load, const Climate& climate = {}) const;

  // Strain in x, y, xy at that z.
  static Vector3 StrainAt(const Deformation& deformation, double z);

 private:
  template <class Expansion>
  Resultants Swelling(double amount, const Expansion& expansion) const;

  std::vector<StackedPly> plies_;
  std::vector<double> edges_;
  double thickness_ = 0;
  Matrix6 abd_ = Matrix6::Zero(), inverse_ = Matrix6::Zero();
  bool regular_ = false;
};

// What a solid sheet of that thickness would have.
struct SheetConstants {
  double Ex, Ey, Gxy, nuxy, nuyx;
};
// Free to bend: of an unsymmetric stack less stiff than one whose bending is held.
SheetConstants FreeConstants(const Stack& stack);
// Bending held, as the wall of a closed tube is, which cannot curl.
SheetConstants HeldConstants(const Stack& stack);
// Of a sheet that is bent: 12 / (h^3 abd44), 12 / (h^3 abd55).
double BendingModulusX(const Stack& stack);
double BendingModulusY(const Stack& stack);

// What a ply feels in its own axes.
struct PlyStress {
  Vector3 strain, stress;
};
// `angle` is the ply's, or its negative for the other half of a ply wound both ways.
PlyStress StressIn(const StackedPly& ply, double angle, const Vector3& strain, const Climate& climate = {});

}  // namespace torvane::laminate
