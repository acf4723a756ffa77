#include "laminate/mechanics/failure.h"

#include <algorithm>

namespace torvane::laminate {

namespace {

constexpr double kNever = std::numeric_limits<double>::infinity();

Judgement TsaiWu(const Strength& s, const Vector3& stress) {
  const double f11 = 1 / (s.Xt * s.Xc), f22 = 1 / (s.Yt * s.Yc);
  const double f12 = s.f12 * std::sqrt(f11 * f22);
  const double s1 = stress(0), s2 = stress(1), t = stress(2);
  const double square = f11 * s1 * s1 + f22 * s2 * s2 + t * t / (s.S * s.S) + 2 * f12 * s1 * s2;
  const double plain = (1 / s.Xt - 1 / s.Xc) * s1 + (1 / s.Yt - 1 / s.Yc) * s2;
  // The root of square R^2 + plain R = 1 without a difference of large figures.
  const double root = std::sqrt(plain * plain + 4 * square);
  return {square + plain, plain + root > 0 ? 2 / (plain + root) : kNever};
}

Judgement TsaiHill(const Strength& s, const Vector3& stress) {
  const double x = stress(0) < 0 ? s.Xc : s.Xt, y = stress(1) < 0 ? s.Yc : s.Yt;
  const double index = stress(0) * (stress(0) - stress(1)) / (x * x) + std::pow(stress(1) / y, 2) +
                       std::pow(stress(2) / s.S, 2);
  return {index, index > 0 ? 1 / std::sqrt(index) : kNever};
}

Judgement MaxStress(const Strength& s, const Vector3& stress) {
  const double index = std::max({stress(0) / (stress(0) < 0 ? -s.Xc : s.Xt),
                                 stress(1) / (stress(1) < 0 ? -s.Yc : s.Yt), std::abs(stress(2)) / s.S});
  return {index, index > 0 ? 1 / index : kNever};
}

}  // namespace

Judgement Judge(Criterion criterion, const Strength& strength, const Vector3& stress) {
  switch (criterion) {
    case Criterion::TsaiWu:
      return TsaiWu(strength, stress);
    case Criterion::TsaiHill:
      return TsaiHill(strength, stress);
    case Criterion::MaxStress:
      break;
  }
  return MaxStress(strength, stress);
}

Judgement JudgePly(Criterion criterion, const Strength& strength, const Stack& stack, std::size_t ply,
                   const Deformation& deformation) {
  const StackedPly& it = stack.plies()[ply];
  const double bottom = stack.Bottom(ply), top = stack.Top(ply);
  Judgement worst{-kNever, kNever};
  for (const double z : {bottom, (bottom + top) / 2, top})
    for (const double way : {1.0, -1.0}) {
      if (way < 0 && !it.bothWays) continue;
      const Vector3 strain = Stack::StrainAt(deformation, z);
      const Judgement found = Judge(criterion, strength, StressIn(it, way * it.angle, strain).stress);
      worst = {std::max(worst.index, found.index), std::min(worst.factor, found.factor)};
    }
  return worst;
}

}  // namespace torvane::laminate
