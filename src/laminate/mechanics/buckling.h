// A tube in compression along its axis: when its wall buckles, and when it bends aside as a whole.
#pragma once

#include "laminate/mechanics/stack.h"

namespace torvane::laminate {

// What is left of the calculated stress in a real shell, by its radius over its thickness: 1 - 0.901 (1 -
// exp(-sqrt(R/t) / 16)), the lower bound of tests of isotropic cylinders (NASA SP-8007, 1968). Laminated
// shells lie outside what it was made for; it is used for want of a better.
double KnockDown(double radiusOverThickness);

// The thickness of a solid sheet that bends and stretches as the stack does: (144 D11 D22 / (A11 A22))^(1/4).
double EffectiveThickness(const Stack& stack);

// The wall's buckling load for each length around, of a cylinder held round at both ends: the least over all
// half waves along and waves around of the linear Donnell equations for an orthotropic cylinder (NASA
// SP-8007, 1968). What an unsymmetric stack couples goes into its bending stiffness, D - B A^-1 B (Ashton).
// Not knocked down.
double WallBuckling(const Stack& stack, double radius, double length);

// Euler's load of a column that turns freely at both ends: pi^2 EI / L^2.
double ColumnBuckling(double bendingStiffness, double length);

}  // namespace torvane::laminate
