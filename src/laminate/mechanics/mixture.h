// A ply's constants from its fibre and its resin.
#pragma once

#include "laminate/mechanics/ply.h"

namespace torvane::laminate {

struct Fibre {
  double E1 = kUnknown, E2 = kUnknown, G12 = kUnknown, nu12 = kUnknown;
  double alpha1 = kUnknown, alpha2 = kUnknown, density = kUnknown;
  double X = kUnknown, Xc = kUnknown;  // strength in tension and compression along it
};

// Alike in every direction; without its shear modulus that of such a solid, E / (2 (1 + nu)).
struct Resin {
  double E = kUnknown, nu = kUnknown, G = kUnknown;
  double alpha = kUnknown, density = kUnknown;
  double X = kUnknown, Xc = kUnknown, S = kUnknown;
};

enum class Mixing {
  // Chamis, simplified micromechanics equations, 1983: a square array of fibres.
  Chamis,
  // Halpin and Tsai, with Halpin and Kardos' measures of the fibres' shape (Polym. Eng. Sci. 16, 1976).
  HalpinTsai,
  // The same across the fibre, and in shear over a fibre that does not give.
  HalpinTsaiRigidShear,
  // Fibre and resin one behind the other (Reuss): the lowest that can be.
  Reuss,
};

// Shares of the volume; what is left is voids.
struct Shares {
  double fibre = kUnknown, resin = kUnknown;
};

// From the fibre's share of the weight (Chamis 1983, eq. for volume ratios).
Shares SharesOfWeight(double fibreWeight, double fibreDensity, double resinDensity, double voids);

struct Mixed {
  Ply ply;
  double density = kUnknown;
  // Of the fibre's and the resin's strengths by Chamis' simplified equations.
  double Xt = kUnknown;
};

// `xi` is Halpin and Tsai's measure across the fibre: 2 for round ones, higher where they lie close.
Mixed Mix(Mixing mixing, const Fibre& fibre, const Resin& resin, const Shares& shares, double xi = kUnknown);

// What of a ply's strength follows from fibre and resin (Chamis 1984, simplified equations for strength): an
// estimate to compare with, never a measured value. Unknown where a strength of theirs is.
Strength StrengthOf(const Fibre& fibre, const Resin& resin, const Shares& shares);

}  // namespace torvane::laminate
