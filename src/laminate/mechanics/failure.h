// When a ply fails.
#pragma once

#include "laminate/mechanics/stack.h"

namespace torvane::laminate {

enum class Criterion { TsaiWu, TsaiHill, MaxStress };

struct Judgement {
  double index = 0;   // 1 at failure
  double factor = 0;  // on the stress to failure; infinite where there is no stress
};

// Stress in the ply's own axes.
// Tsai and Wu 1971: F1 s1 + F2 s2 + F11 s1^2 + F22 s2^2 + F66 t^2 + 2 F12 s1 s2 = 1, solved for the factor,
// as its parts do not grow alike. Tsai and Hill: (s1/X)^2 - s1 s2/X^2 + (s2/Y)^2 + (t/S)^2 = 1, X and Y by
// the sign of s1 and s2. Maximum stress: each against its own strength.
Judgement Judge(Criterion criterion, const Strength& strength, const Vector3& stress);

// The worst of the ply's inner, middle and outer surface, and of both its ways.
Judgement JudgePly(Criterion criterion, const Strength& strength, const Stack& stack, std::size_t ply,
                   const Deformation& deformation);

}  // namespace torvane::laminate
