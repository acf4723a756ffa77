#include "laminate/part/estimate.h"

#include <algorithm>

#include "laminate/mechanics/buckling.h"

namespace torvane::laminate {

namespace {

// A tube is thin whose wall is at most this part of its radius.
constexpr double kThin = 10;
constexpr double kNever = std::numeric_limits<double>::infinity();

TubeLoad UnitLoad(LoadCase loadCase) {
  switch (loadCase) {
    case LoadCase::ClosedPressure:
      return {.pressure = 1};
    case LoadCase::OpenPressure:
      return {.pressure = 1, .closed = false};
    case LoadCase::Tension:
      return {.force = 1};
    case LoadCase::Compression:
      return {.force = -1};
    case LoadCase::Torque:
      return {.torque = 1};
    case LoadCase::Bending:
      break;
  }
  return {.moment = 1};
}

// A section and its stack.
struct Wall {
  const Section& section;
  Stack stack;
};

Stack StackOf(const Section& section, const Ply& ply) {
  std::vector<StackedPly> plies;
  for (const LaidLayer& layer : section.layers) plies.push_back({ply, layer.angle, layer.thickness, true});
  return Stack(std::move(plies));
}

std::string Join(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text;
}

template <class Figures>
std::vector<std::string> UnknownOf(const Figures& figures) {
  std::vector<std::string> names;
  for (const auto& [name, figure] : figures)
    if (!Known(figure)) names.emplace_back(name);
  return names;
}

class Estimator {
 public:
  Estimator(const Stock& stock, Estimate& estimate) : stock_(stock), estimate_(estimate) {}

  void Work(const TubeLoad& load) {
    TakePly();
    if (!estimate_.stiff) return;
    for (const Section& section : estimate_.layUp.sections) {
      walls_.push_back({section, StackOf(section, estimate_.ply)});
      if (walls_.back().stack.Regular()) continue;
      estimate_.missing.emplace_back("the wall's stiffness cannot be worked out from these constants");
      estimate_.stiff = estimate_.strong = false;
      return;
    }
    TakeStiffness();
    TakeNetting();
    if (estimate_.strong) TakeStrength(load);
  }

 private:
  void TakePly();
  void NameWhatMixingLacks();
  void TakeStiffness();
  void TakeNetting();
  void TakeStrength(const TubeLoad& load);
  // The factors of one wall's layers under a load, the worse of the two sides of a bent tube.
  std::vector<LayerMargin> Margins(const Wall& wall, const TubeLoad& load) const;

  const Wall& Middle() const { return walls_[walls_.size() / 2]; }

  const Stock& stock_;
  Estimate& estimate_;
  std::vector<Wall> walls_;
};

void Estimator::NameWhatMixingLacks() {
  const Ply& tow = stock_.tow->ply;
  const Ply& resin = stock_.resin->ply;
  const bool alike = tow.E1 == tow.E2;
  const std::vector<std::string> lacks = UnknownOf(std::vector<std::pair<const char*, double>>{
      {"E1", tow.E1}, {"E2", tow.E2}, {"G12", alike ? 1 : tow.G12}, {"nu12", tow.nu12}});
  if (!lacks.empty())
    estimate_.missing.push_back("the tow \"" + stock_.tow->name + "\" has no " + Join(lacks) +
                                ": no stiffness");
  const std::vector<std::string> resinLacks =
      UnknownOf(std::vector<std::pair<const char*, double>>{{"E1", resin.E1}, {"nu12", resin.nu12}});
  if (!resinLacks.empty())
    estimate_.missing.push_back("the resin \"" + stock_.resin->name + "\" has no " + Join(resinLacks) +
                                ": no stiffness");
}

void Estimator::TakePly() {
  const BandAsLaid& band = estimate_.layUp.band;
  if (stock_.ply != nullptr) {
    estimate_.ply = stock_.ply->ply;
    estimate_.strength = stock_.ply->strength;
  } else if (stock_.tow != nullptr && stock_.resin != nullptr) {
    const Shares shares{band.fibreShare, 1 - band.fibreShare};
    const Fibre fibre = stock_.tow->AsFibre();
    const Resin resin = stock_.resin->AsResin();
    estimate_.ply = Mix(Mixing::HalpinTsai, fibre, resin, shares).ply;
    estimate_.strength = StrengthOf(fibre, resin, shares);
    NameWhatMixingLacks();
  } else {
    return;
  }
  const Ply& ply = estimate_.ply;
  const std::vector<std::string> lacks = UnknownOf(std::vector<std::pair<const char*, double>>{
      {"E1", ply.E1}, {"E2", ply.E2}, {"G12", ply.G12}, {"nu12", ply.nu12}});
  if (stock_.ply != nullptr && !lacks.empty())
    estimate_.missing.push_back("the ply \"" + stock_.ply->name + "\" has no " + Join(lacks) +
                                ": no stiffness");
  if (!lacks.empty()) return;
  estimate_.stiff = IsSolid(ply);
  if (!estimate_.stiff) {
    estimate_.missing.emplace_back("no solid has the constants of this ply: no stiffness");
    return;
  }
  const Strength& s = estimate_.strength;
  const std::vector<std::string> weak =
      UnknownOf(std::vector<std::pair<const char*, double>>{{"tension along", s.Xt},
                                                            {"compression along", s.Xc},
                                                            {"tension across", s.Yt},
                                                            {"compression across", s.Yc},
                                                            {"shear", s.S}});
  estimate_.strong = weak.empty();
  if (!weak.empty())
    estimate_.missing.push_back("the strengths of the ply are not known (" + Join(weak) +
                                "): no failure loads");
}

void Estimator::TakeStiffness() {
  const Wall& wall = Middle();
  const double radius = wall.section.MiddleRadius();
  estimate_.wall = HeldConstants(wall.stack);
  estimate_.tube = StiffnessOf(wall.stack, radius);
  const Vector3 expansion = wall.stack.A().inverse() * wall.stack.ThermalLoad(1).head<3>();
  estimate_.expansionAxial = expansion(0);
  estimate_.expansionHoop = expansion(1);
  if (!(estimate_.layUp.length > 0)) return;
  // The thinnest or widest place gives way first.
  estimate_.wallBuckling = kNever;
  for (const Wall& each : walls_) {
    const double middle = each.section.MiddleRadius();
    const double knockDown = KnockDown(middle / EffectiveThickness(each.stack));
    const double force =
        2 * kPi * middle * knockDown * WallBuckling(each.stack, middle, estimate_.layUp.length);
    if (force >= estimate_.wallBuckling) continue;
    estimate_.wallBuckling = force;
    estimate_.knockDown = knockDown;
  }
  estimate_.columnBuckling = kNever;
  for (const Wall& each : walls_)
    estimate_.columnBuckling = std::min(
        estimate_.columnBuckling,
        ColumnBuckling(StiffnessOf(each.stack, each.section.MiddleRadius()).bending, estimate_.layUp.length));
}

void Estimator::TakeNetting() {
  // The fibres of tows bear their own strength; of a ply that was measured as a whole, the whole wall bears
  // the ply's.
  const bool whole = stock_.ply != nullptr;
  const double stress = whole ? stock_.ply->strength.Xt : stock_.tow->strength.Xt;
  if (!Known(stress)) return;
  const double share = whole ? 1 : estimate_.layUp.band.fibreShare;
  estimate_.nettingClosed = estimate_.nettingOpen = kNever;
  for (const Wall& wall : walls_) {
    std::vector<StackedPly> fibres = wall.stack.plies();
    for (StackedPly& fibre : fibres) fibre.thickness *= share;
    const double radius = wall.section.MiddleRadius();
    estimate_.nettingClosed =
        std::min(estimate_.nettingClosed, NettingPressure(fibres, stress, radius, true));
    estimate_.nettingOpen = std::min(estimate_.nettingOpen, NettingPressure(fibres, stress, radius, false));
  }
}

std::vector<LayerMargin> Estimator::Margins(const Wall& wall, const TubeLoad& load) const {
  std::vector<LayerMargin> margins;
  for (const LaidLayer& layer : wall.section.layers) margins.push_back({layer.number, kNever, kNever});
  for (const double side : {1.0, -1.0}) {
    if (side < 0 && load.moment == 0) continue;
    const Deformation deformation = HeldUnder(wall.stack, WallLoad(load, wall.section.MiddleRadius(), side));
    for (std::size_t i = 0; i < margins.size(); ++i) {
      const auto factor = [&](Criterion criterion) {
        return JudgePly(criterion, estimate_.strength, wall.stack, i, deformation).factor;
      };
      margins[i].tsaiWu = std::min(margins[i].tsaiWu, factor(Criterion::TsaiWu));
      margins[i].maxStress = std::min(margins[i].maxStress, factor(Criterion::MaxStress));
    }
  }
  return margins;
}

void Estimator::TakeStrength(const TubeLoad& load) {
  const auto take = [](FirstFailure& first, double factor, int layer) {
    if (Known(first.load) && factor >= first.load) return;
    first = {factor, layer};
  };
  for (std::size_t i = 0; i < kLoadCases; ++i) {
    FailureLoad& failure = estimate_.failures[i];
    const auto loadCase = static_cast<LoadCase>(i);
    failure.name = NameOf(loadCase);
    for (const Wall& wall : walls_)
      for (const LayerMargin& margin : Margins(wall, UnitLoad(loadCase))) {
        take(failure.tsaiWu, margin.tsaiWu, margin.layer);
        take(failure.maxStress, margin.maxStress, margin.layer);
      }
  }
  if (load.pressure == 0 && load.force == 0 && load.torque == 0 && load.moment == 0) return;
  for (const Wall& wall : walls_)
    for (const LayerMargin& margin : Margins(wall, load)) {
      const auto same = std::find_if(estimate_.margins.begin(), estimate_.margins.end(),
                                     [&](const LayerMargin& m) { return m.layer == margin.layer; });
      if (same == estimate_.margins.end()) {
        estimate_.margins.push_back(margin);
        continue;
      }
      same->tsaiWu = std::min(same->tsaiWu, margin.tsaiWu);
      same->maxStress = std::min(same->maxStress, margin.maxStress);
    }
}

}  // namespace

std::string_view NameOf(LoadCase loadCase) {
  switch (loadCase) {
    case LoadCase::ClosedPressure:
      return "pressure, closed ends";
    case LoadCase::OpenPressure:
      return "pressure, open ends";
    case LoadCase::Tension:
      return "axial tension";
    case LoadCase::Compression:
      return "axial compression";
    case LoadCase::Torque:
      return "torque";
    case LoadCase::Bending:
      break;
  }
  return "bending";
}

Estimate EstimateOf(const executor::Proof& proof, const Stock& stock, const Choice& choice,
                    const executor::Limits& limits, const TubeLoad& load) {
  Estimate estimate;
  estimate.layUp = LayUpOf(proof, stock, choice, limits);
  estimate.missing = estimate.layUp.missing;
  estimate.remarks = estimate.layUp.remarks;
  const std::vector<Section>& sections = estimate.layUp.sections;
  if (std::any_of(sections.begin(), sections.end(),
                  [](const Section& section) { return section.wall > section.MiddleRadius() / kThin; }))
    estimate.remarks.emplace_back(
        "the wall is more than a tenth of its radius: for so thick a tube these are rough");
  if (!sections.empty()) Estimator(stock, estimate).Work(load);
  return estimate;
}

}  // namespace torvane::laminate
