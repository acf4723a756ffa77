// What holds of every laminate, whatever its constants.
#include <gtest/gtest.h>

#include <random>

#include "laminate/mechanics/buckling.h"
#include "laminate/mechanics/failure.h"
#include "laminate/mechanics/mixture.h"
#include "laminate/mechanics/tube.h"

namespace torvane::laminate {
namespace {

class Mechanics : public testing::Test {
 protected:
  double Between(double low, double high) { return std::uniform_real_distribution(low, high)(random_); }
  Ply AnyPly() {
    const double e1 = Between(5e10, 3e11), e2 = Between(4e9, 2e10);
    return {
        e1, e2, Between(2e9, 9e9), Between(0.2, 0.4), kUnknown, Between(-1e-6, 8e-6), Between(1e-5, 5e-5)};
  }
  std::vector<StackedPly> AnyPlies(int count) {
    std::vector<StackedPly> plies;
    for (int i = 0; i < count; ++i) plies.push_back({AnyPly(), Between(-90, 90), Between(1e-4, 1e-3)});
    return plies;
  }
  // As a share of the greatest member.
  template <class Matrix>
  static void ExpectAlike(const Matrix& a, const Matrix& b, double share = 1e-12) {
    EXPECT_LE((a - b).cwiseAbs().maxCoeff(), share * b.cwiseAbs().maxCoeff());
  }

  std::mt19937 random_{1};
};

TEST_F(Mechanics, APlyIsTheSameHalfATurnOn) {
  for (int i = 0; i < 50; ++i) {
    const Matrix3 q = Stiffness(AnyPly());
    const double angle = Between(-90, 90);
    ExpectAlike(TurnedStiffness(q, angle + 180), TurnedStiffness(q, angle));
    ExpectAlike<Matrix3>(StressTurn(-angle) * StressTurn(angle), Matrix3::Identity());
    ExpectAlike<Matrix3>(StrainTurn(-angle) * StrainTurn(angle), Matrix3::Identity());
    EXPECT_EQ(TurnedStiffness(q, 90)(0, 0), q(1, 1)) << "without a rounded pi";
    EXPECT_EQ(TurnedStiffness(q, -90)(0, 2), 0);
  }
}

TEST_F(Mechanics, StretchDoesNotAskForTheOrderOfPlies) {
  std::vector<StackedPly> plies = AnyPlies(9);
  const Stack before(plies);
  std::shuffle(plies.begin(), plies.end(), random_);
  const Stack after(plies);
  ExpectAlike(after.A(), before.A());
  EXPECT_GT((after.D() - before.D()).norm(), 1e-3 * before.D().norm()) << "bending does";
}

TEST_F(Mechanics, ASymmetricStackDoesNotCurlWhenPulledOrHeated) {
  std::vector<StackedPly> plies = AnyPlies(5);
  for (int i = 4; i >= 0; --i) plies.push_back(plies[static_cast<std::size_t>(i)]);
  const Stack stack(plies);
  EXPECT_LT(stack.B().norm(), 1e-12 * stack.A().norm() * stack.Thickness());
  Resultants load = Resultants::Zero();
  load(0) = 1e5;
  const Deformation deformation = stack.Under(load, {.dT = -100});
  EXPECT_LT(deformation.tail<3>().norm() * stack.Thickness(), 1e-10 * deformation.head<3>().norm());
}

TEST_F(Mechanics, TheInverseUndoesTheStiffness) {
  for (int i = 0; i < 20; ++i) {
    const Stack stack(AnyPlies(1 + i));
    ASSERT_TRUE(stack.Regular());
    Resultants load;
    load << 1e5, -2e5, 3e4, 10, -5, 2;
    ExpectAlike<Vector6>(stack.Abd() * stack.Under(load), load, 1e-9);
  }
}

TEST_F(Mechanics, AnIsotropicStackIsASheetAtAnyAngle) {
  const double e = 7e10, nu = 0.3, g = e / (2 * (1 + nu));
  const Ply metal{e, e, g, nu, kUnknown, 2e-5, 2e-5};
  const Stack stack({{metal, 17, 1e-3}, {metal, -63, 2e-3}, {metal, 90, 1e-3}});
  const SheetConstants free = FreeConstants(stack), held = HeldConstants(stack);
  EXPECT_NEAR(free.Ex, e, 1e-6 * e);
  EXPECT_NEAR(held.Ey, e, 1e-6 * e);
  EXPECT_NEAR(free.Gxy, g, 1e-6 * g);
  EXPECT_NEAR(free.nuxy, nu, 1e-9);
  EXPECT_NEAR(BendingModulusX(stack), e, 1e-6 * e);
  EXPECT_NEAR(EffectiveThickness(stack), 4e-3, 1e-9);
  const double radius = 0.5, classical = e * 4e-3 * 4e-3 / (radius * std::sqrt(3 * (1 - nu * nu)));
  EXPECT_NEAR(WallBuckling(stack, radius, 1), classical, 0.03 * classical);
  EXPECT_GE(WallBuckling(stack, radius, 1), 0.97 * classical);
  const TubeStiffness tube = StiffnessOf(stack, radius);
  EXPECT_NEAR(tube.bending, e * kPi * std::pow(radius, 3) * 4e-3, 1e-6 * tube.bending);
  EXPECT_NEAR(tube.torsion, g * 2 * kPi * std::pow(radius, 3) * 4e-3, 1e-6 * tube.torsion);
}

// The halves of a layer that is wound out and back lie at both angles.
TEST_F(Mechanics, ALayerBothWaysIsTwoPliesWithoutTheirCurl) {
  const Ply ply = AnyPly();
  const Stack woven({{ply, 35, 1e-3, true}}), apart({{ply, 35, 5e-4}, {ply, -35, 5e-4}});
  ExpectAlike(woven.A(), apart.A());
  ExpectAlike<Vector6>(woven.ThermalLoad(20).head<3>().replicate<2, 1>(),
                       apart.ThermalLoad(20).head<3>().replicate<2, 1>());
  EXPECT_EQ(woven.B().norm(), 0);
  EXPECT_GT(apart.B().norm(), 0);
  // Torque pulls at the one half and presses the other.
  const Strength strength{2000e6, 1000e6, 40e6, 200e6, 70e6};
  const Deformation turned = HeldUnder(woven, {0, 0, 1e5});
  const Deformation back = HeldUnder(woven, {0, 0, -1e5});
  const Judgement one = JudgePly(Criterion::TsaiWu, strength, woven, 0, turned);
  EXPECT_NEAR(one.factor, JudgePly(Criterion::TsaiWu, strength, woven, 0, back).factor, 1e-9 * one.factor);
  EXPECT_GT(
      Judge(Criterion::TsaiWu, strength, StressIn(woven.plies()[0], 35, turned.head<3>()).stress).factor,
      one.factor * 1.01);
}

TEST_F(Mechanics, AStressTimesItsFactorFails) {
  const Strength strength{1500, 1200, 40, 246, 68};
  for (int i = 0; i < 200; ++i) {
    const Vector3 stress(Between(-900, 900), Between(-100, 60), Between(-80, 80));
    for (const Criterion criterion : {Criterion::TsaiWu, Criterion::TsaiHill, Criterion::MaxStress}) {
      const double factor = Judge(criterion, strength, stress).factor;
      EXPECT_NEAR(Judge(criterion, strength, factor * stress).index, 1, 1e-9);
    }
  }
  for (const Criterion criterion : {Criterion::TsaiWu, Criterion::TsaiHill, Criterion::MaxStress}) {
    EXPECT_NEAR(Judge(criterion, strength, {-1200, 0, 0}).factor, 1, 1e-9);
    EXPECT_NEAR(Judge(criterion, strength, {0, -246, 0}).factor, 1, 1e-9);
    EXPECT_NEAR(Judge(criterion, strength, {0, 0, -68}).factor, 1, 1e-9);
  }
}

TEST_F(Mechanics, TheMixtureLiesBetweenItsPartsAndAboveReuss) {
  const Fibre fibre{230e9, 15e9, 20e9, 0.25, -5e-7, 1e-5, 1.8};
  const Resin resin{3.5e9, 0.35, kUnknown, 6e-5, 1.2};
  for (const double vf : {0.2, 0.5, 0.64, 0.66, 0.75}) {
    const Ply least = Mix(Mixing::Reuss, fibre, resin, {vf, 1 - vf}).ply;
    for (const Mixing mixing : {Mixing::Chamis, Mixing::HalpinTsai}) {
      const Ply ply = Mix(mixing, fibre, resin, {vf, 1 - vf}).ply;
      EXPECT_GT(ply.E2, least.E2);
      EXPECT_GT(ply.G12, least.G12);
      EXPECT_LT(ply.E2, fibre.E2);
      EXPECT_LT(ply.G12, fibre.G12);
    }
  }
  // A mixture of one with itself is itself.
  const Fibre glass{70e9, 70e9, kUnknown, 0.2, 5e-6, 5e-6, 2.5};
  const Resin same{70e9, 0.2, kUnknown, 5e-6, 2.5};
  for (const Mixing mixing : {Mixing::Chamis, Mixing::HalpinTsai, Mixing::Reuss}) {
    const Ply ply = Mix(mixing, glass, same, {0.6, 0.4}).ply;
    EXPECT_NEAR(ply.E2, 70e9, 1);
    EXPECT_NEAR(ply.G12, 70e9 / 2.4, 1);
    EXPECT_TRUE(mixing == Mixing::Chamis || std::abs(ply.alpha2 - 5e-6) < 1e-15);
  }
}

TEST_F(Mechanics, ATubeBearsWhatItsFibresBear) {
  const double stress = 2e9, radius = 0.05, pressure = 1e7;
  for (const bool closed : {true, false}) {
    const Vector3 wall = WallLoad({.pressure = pressure, .closed = closed}, radius);
    EXPECT_DOUBLE_EQ(wall(0), closed ? 2.5e5 : 0);
    EXPECT_DOUBLE_EQ(wall(1), 5e5);
  }
  const Vector3 wall = WallLoad({.pressure = pressure}, radius);
  const NettingWalls walls = WallsFor(wall, stress, 30);
  EXPECT_NEAR(NettingPressure({{{}, 30, walls.helical, true}, {{}, 90, walls.hoop}}, stress, radius, true),
              pressure, 1e-6 * pressure);
  EXPECT_NEAR(WallsFor(wall, stress, NettingAngle(wall)).hoop, 0, 1e-12);
  EXPECT_NEAR(WallLoad({.moment = 100}, radius)(0) * kPi * radius * radius, 100, 1e-9);
  EXPECT_LT(WallLoad({.moment = 100}, radius, -1)(0), 0);
}

TEST_F(Mechanics, ALongTubeBendsAsideBeforeItsWallBuckles) {
  const Stack stack({{AnyPly(), 20, 1e-3, true}, {AnyPly(), 88, 5e-4}});
  const double radius = 0.02;
  const double wall =
      2 * kPi * radius * WallBuckling(stack, radius, 3) * KnockDown(radius / EffectiveThickness(stack));
  EXPECT_LT(ColumnBuckling(StiffnessOf(stack, radius).bending, 3), wall);
  EXPECT_NEAR(WallBuckling(stack, radius, 3), WallBuckling(stack, radius, 1.5),
              0.05 * WallBuckling(stack, radius, 1.5));
}

}  // namespace
}  // namespace torvane::laminate
