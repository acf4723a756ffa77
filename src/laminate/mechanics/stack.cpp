#include "laminate/mechanics/stack.h"

#include <utility>

namespace torvane::laminate {

namespace {

// Halves at both angles: what couples stretch and shear cancels.
Matrix3 Woven(Matrix3 q) {
  q(0, 2) = q(1, 2) = q(2, 0) = q(2, 1) = 0;
  return q;
}

SheetConstants ConstantsOf(double a11, double a12, double a22, double a66, double h) {
  return {1 / (h * a11), 1 / (h * a22), 1 / (h * a66), -a12 / a11, -a12 / a22};
}

}  // namespace

Stack::Stack(std::vector<StackedPly> plies) : plies_(std::move(plies)) {
  for (const StackedPly& ply : plies_) thickness_ += ply.thickness;
  edges_.push_back(-thickness_ / 2);
  double below = 0;
  for (const StackedPly& ply : plies_) edges_.push_back((below += ply.thickness) - thickness_ / 2);
  for (std::size_t i = 0; i < plies_.size(); ++i) {
    const StackedPly& ply = plies_[i];
    const Matrix3 turned = TurnedStiffness(Stiffness(ply.ply), ply.angle);
    const Matrix3 q = ply.bothWays ? Woven(turned) : turned;
    const double middle = (Bottom(i) + Top(i)) / 2, t = ply.thickness;
    abd_.topLeftCorner<3, 3>() += q * t;
    abd_.topRightCorner<3, 3>() += q * t * middle;
    abd_.bottomRightCorner<3, 3>() += q * t * (middle * middle + t * t / 12);
  }
  abd_.bottomLeftCorner<3, 3>() = abd_.topRightCorner<3, 3>();
  // Stretch and bending are of other sizes: with lengths counted in thicknesses they are alike.
  Vector6 scale;
  scale << 1, 1, 1, 1 / thickness_, 1 / thickness_, 1 / thickness_;
  const Matrix6 alike = scale.asDiagonal() * abd_ * scale.asDiagonal();
  if (plies_.empty() || !alike.allFinite()) return;
  const Eigen::FullPivLU<Matrix6> solver(alike);
  if (!solver.isInvertible()) return;
  inverse_ = scale.asDiagonal() * Matrix6(solver.inverse()) * scale.asDiagonal();
  regular_ = inverse_.allFinite();
}

template <class Expansion>
Resultants Stack::Swelling(double amount, const Expansion& expansion) const {
  Resultants load = Resultants::Zero();
  if (amount == 0) return load;
  for (std::size_t i = 0; i < plies_.size(); ++i) {
    const StackedPly& ply = plies_[i];
    Vector3 stress = TurnedStiffness(Stiffness(ply.ply), ply.angle) * (expansion(ply) * amount);
    if (ply.bothWays) stress(2) = 0;
    load.head<3>() += stress * ply.thickness;
    load.tail<3>() += stress * (ply.thickness * (Bottom(i) + Top(i)) / 2);
  }
  return load;
}

Resultants Stack::ThermalLoad(double dT) const {
  return Swelling(dT, [](const StackedPly& p) { return TurnedStrain(p.ply.alpha1, p.ply.alpha2, p.angle); });
}

Resultants Stack::MoistureLoad(double dM) const {
  return Swelling(dM, [](const StackedPly& p) { return TurnedStrain(p.ply.beta1, p.ply.beta2, p.angle); });
}

Deformation Stack::Under(const Resultants& load, const Climate& climate) const {
  return inverse_ * (load + ThermalLoad(climate.dT) + MoistureLoad(climate.dM));
}

Vector3 Stack::StrainAt(const Deformation& deformation, double z) {
  return deformation.head<3>() + z * deformation.tail<3>();
}

SheetConstants FreeConstants(const Stack& stack) {
  const Matrix6& a = stack.Inverse();
  return ConstantsOf(a(0, 0), a(0, 1), a(1, 1), a(2, 2), stack.Thickness());
}

SheetConstants HeldConstants(const Stack& stack) {
  const Matrix3 a = stack.A().inverse();
  return ConstantsOf(a(0, 0), a(0, 1), a(1, 1), a(2, 2), stack.Thickness());
}

double BendingModulusX(const Stack& stack) {
  return 12 / (std::pow(stack.Thickness(), 3) * stack.Inverse()(3, 3));
}
double BendingModulusY(const Stack& stack) {
  return 12 / (std::pow(stack.Thickness(), 3) * stack.Inverse()(4, 4));
}

PlyStress StressIn(const StackedPly& ply, double angle, const Vector3& strain, const Climate& climate) {
  const Vector3 own = StrainTurn(angle) * strain;
  Vector3 free = Vector3::Zero();
  if (climate.dT != 0) free += Vector3(ply.ply.alpha1, ply.ply.alpha2, 0) * climate.dT;
  if (climate.dM != 0) free += Vector3(ply.ply.beta1, ply.ply.beta2, 0) * climate.dM;
  return {own, Stiffness(ply.ply) * (own - free)};
}

}  // namespace torvane::laminate
