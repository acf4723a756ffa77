#include "laminate/cases/inputs.h"

#include <cmath>
#include <utility>

namespace torvane::laminate {

namespace {

using Json = nlohmann::json;

[[noreturn]] void Refuse(const std::string& reason) { throw BadCase{reason}; }

double Finite(const Json& value, const std::string& name) {
  if (!value.is_number()) Refuse(name + " is not a number");
  const double number = value.get<double>();
  if (!std::isfinite(number)) Refuse(name + " is not a finite number");
  return number;
}

// A name from outside, cut to what a sentence can hold.
std::string Shown(const std::string& name) { return name.size() > 40 ? name.substr(0, 40) + "..." : name; }

}  // namespace

Inputs::Inputs(const Json& object, std::string name) : object_(object), name_(std::move(name)) {
  if (!object_.is_object()) Refuse(name_ + " is not an object");
}

bool Inputs::Has(const std::string& key) const {
  asked_.insert(key);
  return object_.contains(key) && !object_[key].is_null();
}

const Json& Inputs::At(const std::string& key) const {
  if (!Has(key)) Refuse(name_ + " lacks " + key);
  return object_[key];
}

double Inputs::Number(const std::string& key) const {
  return Has(key) ? Finite(object_[key], NameOf(key)) : kUnknown;
}

double Inputs::Positive(const std::string& key) const {
  const double number = Number(key);
  if (number <= 0) Refuse(NameOf(key) + " must be above 0");
  return number;
}

double Inputs::Share(const std::string& key) const {
  const double number = Number(key);
  if (number <= 0 || number >= 1) Refuse(NameOf(key) + " must lie between 0 and 1");
  return number;
}

double Inputs::NotNegative(const std::string& key) const {
  const double number = Number(key);
  if (number < 0) Refuse(NameOf(key) + " must not be below 0");
  return number;
}

double Inputs::Needed(const std::string& key) const {
  At(key);
  return Number(key);
}

double Inputs::NeededPositive(const std::string& key) const {
  At(key);
  return Positive(key);
}

double Inputs::NeededShare(const std::string& key) const {
  At(key);
  return Share(key);
}

std::string Inputs::NeededWord(const std::string& key) const {
  const Json& value = At(key);
  if (!value.is_string()) Refuse(NameOf(key) + " is not a text");
  return value.get<std::string>();
}

std::vector<double> Inputs::NumbersOf(const std::string& key) const {
  const Json& value = At(key);
  if (!value.is_array()) Refuse(NameOf(key) + " is not a list");
  std::vector<double> numbers;
  for (const Json& one : value) numbers.push_back(Finite(one, "a member of " + NameOf(key)));
  return numbers;
}

std::vector<double> Inputs::Numbers(const std::string& key, std::size_t count) const {
  std::vector<double> numbers = NumbersOf(key);
  if (numbers.size() != count) Refuse(NameOf(key) + " must have " + std::to_string(count) + " members");
  return numbers;
}

void Inputs::RefuseOthers() const {
  for (const auto& [key, value] : object_.items())
    if (!asked_.contains(key)) Refuse(name_ + " has \"" + Shown(key) + "\", which nothing here uses");
}

Ply PlyOf(const Inputs& inputs) {
  Ply ply;
  ply.E1 = inputs.NeededPositive("E1");
  ply.E2 = inputs.NeededPositive("E2");
  ply.G12 = inputs.NeededPositive("G12");
  ply.nu12 = inputs.Needed("nu12");
  ply.nu21 = inputs.Number("nu21");
  ply.alpha1 = inputs.Number("alpha1");
  ply.alpha2 = inputs.Number("alpha2");
  ply.beta1 = inputs.Number("beta1");
  ply.beta2 = inputs.Number("beta2");
  inputs.RefuseOthers();
  if (!IsSolid(ply)) Refuse(inputs.name() + ": no solid has these moduli and this nu12");
  return ply;
}

Strength StrengthOf(const Inputs& inputs) {
  Strength strength;
  strength.Xt = inputs.NeededPositive("Xt");
  strength.Xc = inputs.NeededPositive("Xc");
  strength.Yt = inputs.NeededPositive("Yt");
  strength.Yc = inputs.NeededPositive("Yc");
  strength.S = inputs.NeededPositive("S");
  if (inputs.Has("f12_star")) strength.f12 = inputs.Number("f12_star");
  inputs.RefuseOthers();
  if (std::abs(strength.f12) >= 1) Refuse(inputs.NameOf("f12_star") + " must lie between -1 and 1");
  return strength;
}

Criterion CriterionOf(const std::string& word) {
  if (word == "tsai_wu") return Criterion::TsaiWu;
  if (word == "tsai_hill") return Criterion::TsaiHill;
  if (word == "max_stress") return Criterion::MaxStress;
  Refuse("inputs.criterion is \"" + Shown(word) + "\"; there are tsai_wu, tsai_hill and max_stress");
}

Constituents ConstituentsOf(const Inputs& inputs) {
  static const std::map<std::string, Mixing> kModels = {
      {"chamis", Mixing::Chamis},
      {"halpin_tsai", Mixing::HalpinTsai},
      {"halpin_tsai_rigid_shear", Mixing::HalpinTsaiRigidShear},
      {"reuss", Mixing::Reuss}};
  Constituents made;
  const std::string model = inputs.NeededWord("model");
  const auto known = kModels.find(model);
  if (known == kModels.end())
    Refuse(inputs.NameOf("model") + " is \"" + Shown(model) +
           "\"; there are chamis, halpin_tsai, halpin_tsai_rigid_shear and reuss");
  made.mixing = known->second;
  made.shares.fibre = inputs.NeededShare("vf");
  made.shares.resin = inputs.Has("vm") ? inputs.Share("vm") : 1 - made.shares.fibre;
  if (made.shares.fibre + made.shares.resin > 1 + 1e-9)
    Refuse(inputs.NameOf("vf") + " and vm are more than 1 together");
  made.fibre = {inputs.NeededPositive("Ef1"), inputs.Positive("Ef2"),   inputs.Positive("Gf12"),
                inputs.Needed("nuf12"),       inputs.Number("alphaf1"), inputs.Number("alphaf2"),
                inputs.Positive("rhof"),      inputs.Positive("Sf")};
  made.resin = {inputs.NeededPositive("Em"), inputs.Needed("num"), inputs.Positive("Gm"),
                inputs.Number("alpham"), inputs.Positive("rhom")};
  made.xi = inputs.Positive("xi");
  made.arealWeight = inputs.Positive("fibre_areal_weight");
  inputs.RefuseOthers();
  for (const double nu : {made.fibre.nu12, made.resin.nu})
    if (nu <= -1 || nu >= 1) Refuse(inputs.name() + ": a Poisson's ratio must lie between -1 and 1");
  return made;
}

namespace {

std::map<std::string, Ply> MaterialsOf(const Inputs& inputs, double& usualThickness) {
  std::map<std::string, Ply> materials;
  if (inputs.Has("materials")) {
    const Inputs all(inputs.At("materials"), "inputs.materials");
    for (const auto& [name, value] : all.object().items())
      materials[name] = PlyOf(Inputs(value, all.NameOf(Shown(name))));
  }
  if (inputs.Has("constituents")) {
    const Constituents made = ConstituentsOf(Inputs(inputs.At("constituents"), "inputs.constituents"));
    const Ply ply = Mix(made.mixing, made.fibre, made.resin, made.shares, made.xi).ply;
    if (!Known(ply.E2) || !Known(ply.G12))
      Refuse("inputs.constituents does not give the fibre's Ef2 and Gf12, without which there is no ply");
    if (!IsSolid(ply)) Refuse("inputs.constituents: no solid has the constants that come of them");
    materials["ply"] = ply;
    // g/m2 over g/cm3 are thousandths of a millimetre.
    usualThickness = made.arealWeight / (1000 * made.fibre.density * made.shares.fibre);
  }
  if (materials.empty()) Refuse("inputs lacks materials, or constituents");
  return materials;
}

}  // namespace

Stack StackOf(const Inputs& inputs) {
  double usualThickness = kUnknown;
  const std::map<std::string, Ply> materials = MaterialsOf(inputs, usualThickness);
  const Json& list = inputs.At("plies");
  if (!list.is_array() || list.empty()) Refuse("inputs.plies is not a list of plies");
  if (list.size() > kMostPlies)
    Refuse("inputs.plies has " + std::to_string(list.size()) + " plies; more than " +
           std::to_string(kMostPlies) + " are not worked out");
  std::vector<StackedPly> plies;
  for (const Json& one : list) {
    const std::string name = "ply " + std::to_string(plies.size() + 1);
    if (!one.is_array() || one.size() != 3 || !one[0].is_string())
      Refuse(name + " is not [material, angle, thickness]");
    const auto material = materials.find(one[0].get<std::string>());
    if (material == materials.end()) Refuse(name + " is of a material that inputs.materials does not have");
    const double angle = Finite(one[1], "the angle of " + name);
    const double thickness = one[2].is_null() ? usualThickness : Finite(one[2], "the thickness of " + name);
    if (!Known(thickness)) Refuse(name + " has no thickness, and no weight of fibre tells it");
    if (thickness <= 0) Refuse("the thickness of " + name + " must be above 0");
    plies.push_back({material->second, angle, thickness});
  }
  Stack stack(std::move(plies));
  if (!stack.Regular()) Refuse("the constants are too far apart: the stiffness has no inverse");
  return stack;
}

Climate ClimateOf(const Inputs& inputs) {
  Climate climate;
  if (inputs.Has("dT")) climate.dT = inputs.Number("dT");
  if (inputs.Has("dM")) climate.dM = inputs.Number("dM");
  return climate;
}

Resultants LoadOf(const Inputs& inputs) {
  Resultants load = Resultants::Zero();
  if (!inputs.Has("load")) return load;
  const std::vector<double> numbers = inputs.Numbers("load", 6);
  for (int i = 0; i < 6; ++i) load(i) = numbers[static_cast<std::size_t>(i)];
  return load;
}

}  // namespace torvane::laminate
