#include "laminate/mechanics/mixture.h"

#include <algorithm>

namespace torvane::laminate {

namespace {

double SolidShear(double e, double nu) { return e / (2 * (1 + nu)); }

// A fibre that is as stiff across as along is taken for alike in every direction.
double ShearOf(const Fibre& fibre) {
  if (Known(fibre.G12)) return fibre.G12;
  return fibre.E1 == fibre.E2 ? SolidShear(fibre.E1, fibre.nu12) : kUnknown;
}

// Halpin and Tsai: p / pm = (1 + xi eta vf) / (1 - eta vf), eta = (pf / pm - 1) / (pf / pm + xi).
double HalpinTsai(double fibre, double resin, double vf, double xi) {
  const double ratio = fibre / resin;
  const double eta = (ratio - 1) / (ratio + xi);
  return resin * (1 + xi * eta * vf) / (1 - eta * vf);
}

// Fibres that lie close stiffen each other: Hewitt and de Malherbe's term for shear, and its like across the
// fibre.
double Crowding(double vf) { return vf > 0.65 ? 40 * std::pow(vf, 10) : 0; }

// Chamis: a property across the fibre, by the layers of a square array.
double Across(double fibre, double resin, double vf) {
  return resin / (1 - std::sqrt(vf) * (1 - resin / fibre));
}

}  // namespace

Shares SharesOfWeight(double fibreWeight, double fibreDensity, double resinDensity, double voids) {
  const double fibre = (1 - voids) / (1 + fibreDensity / resinDensity * (1 / fibreWeight - 1));
  return {fibre, 1 - fibre - voids};
}

Mixed Mix(Mixing mixing, const Fibre& fibre, const Resin& resin, const Shares& shares, double xi) {
  const double vf = shares.fibre, vm = shares.resin;
  const double gm = Known(resin.G) ? resin.G : SolidShear(resin.E, resin.nu), gf = ShearOf(fibre);
  Mixed mixed;
  Ply& ply = mixed.ply;
  // The rule of mixtures along the fibre. What hangs on the resin's space takes 1 - vf, voids and all.
  ply.E1 = vf * fibre.E1 + vm * resin.E;
  ply.nu12 = vf * fibre.nu12 + (1 - vf) * resin.nu;
  ply.alpha1 = (vf * fibre.alpha1 * fibre.E1 + vm * resin.alpha * resin.E) / ply.E1;
  mixed.density = vf * fibre.density + vm * resin.density;
  mixed.Xt = fibre.X * (vf + vm * resin.E / fibre.E1);
  switch (mixing) {
    case Mixing::Chamis:
      ply.E2 = Across(fibre.E2, resin.E, vf);
      ply.G12 = Across(gf, gm, vf);
      ply.alpha2 = fibre.alpha2 * std::sqrt(vf) +
                   (1 - std::sqrt(vf)) * (1 + vf * resin.nu * fibre.E1 / ply.E1) * resin.alpha;
      break;
    case Mixing::HalpinTsai:
      ply.E2 = HalpinTsai(fibre.E2, resin.E, vf, Known(xi) ? xi : 2 + Crowding(vf));
      ply.G12 = HalpinTsai(gf, gm, vf, 1 + Crowding(vf));
      break;
    case Mixing::HalpinTsaiRigidShear:
      ply.E2 = HalpinTsai(fibre.E2, resin.E, vf, Known(xi) ? xi : 2);
      ply.G12 = gm * (1 + vf) / (1 - vf);
      // Without the fibre's own expansion.
      ply.alpha2 = resin.alpha * (1 - vf);
      break;
    case Mixing::Reuss:
      ply.E2 = 1 / (vf / fibre.E2 + vm / resin.E);
      ply.G12 = 1 / (vf / gf + vm / gm);
      break;
  }
  // Schapery 1968, where the model has no rule of its own.
  if (mixing == Mixing::HalpinTsai || mixing == Mixing::Reuss)
    ply.alpha2 =
        (1 + fibre.nu12) * fibre.alpha2 * vf + (1 + resin.nu) * resin.alpha * vm - ply.alpha1 * ply.nu12;
  return mixed;
}

Strength StrengthOf(const Fibre& fibre, const Resin& resin, const Shares& shares) {
  const double vf = shares.fibre, vm = shares.resin,
               gm = Known(resin.G) ? resin.G : SolidShear(resin.E, resin.nu);
  const double crowded = std::sqrt(vf) - vf, voids = std::max(0.0, 1 - vf - vm);
  // Voids are holes in the resin between the fibres.
  const double whole = 1 - std::sqrt(4 * voids / (kPi * (1 - vf)));
  const double across = (1 - crowded * (1 - resin.E / fibre.E2)) * whole;
  Strength strength;
  strength.Xt = fibre.X * (vf + vm * resin.E / fibre.E1);
  strength.Yt = across * resin.X;
  strength.Yc = across * resin.Xc;
  strength.S = (1 - crowded * (1 - gm / ShearOf(fibre))) * whole * resin.S;
  // Along the fibre in compression the weakest of three: the fibres are crushed, they buckle in the resin, or
  // they part from it.
  const double crushed = fibre.Xc * (vf + vm * resin.E / fibre.E1);
  const double buckled = gm / (1 - vf * (1 - gm / ShearOf(fibre)));
  const double parted = 10 * strength.S + 2.5 * resin.X;
  strength.Xc =
      Known(crushed) && Known(buckled) && Known(parted) ? std::min({crushed, buckled, parted}) : kUnknown;
  return strength;
}

}  // namespace torvane::laminate
