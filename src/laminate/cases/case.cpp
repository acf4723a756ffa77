#include "laminate/cases/case.h"

#include <array>
#include <charconv>
#include <cmath>

#include "laminate/cases/inputs.h"
#include "laminate/mechanics/buckling.h"
#include "laminate/mechanics/tube.h"

namespace torvane::laminate {

namespace {

using Json = nlohmann::json;

[[noreturn]] void Refuse(const std::string& reason) { throw BadCase{reason}; }

class Answer {
 public:
  // Unknown figures are left out.
  void Add(const std::string& name, double figure) {
    if (!Known(figure)) return;
    if (!std::isfinite(figure))
      Refuse("the inputs are too large or too far apart: " + name + " has no number");
    // Of a thousand plies there are too many names for this object to look through at each.
    if (names_.insert(name).second)
      json_.get_ref<nlohmann::ordered_json::object_t&>().push_back({name, figure});
  }
  // Of three members, each under its own name.
  void Add(const std::array<const char*, 3>& names, const Vector3& figures, const std::string& before = "") {
    for (int i = 0; i < 3; ++i) Add(before + names[static_cast<std::size_t>(i)], figures(i));
  }
  // The upper half of a symmetric matrix: Q11, Q12, Q16, Q22, Q26, Q66.
  void AddMatrix(const std::string& name, const Matrix3& matrix) {
    for (int row = 0; row < 3; ++row)
      for (int column = row; column < 3; ++column)
        Add(name + kIndex[row] + kIndex[column], matrix(row, column));
  }
  nlohmann::ordered_json Take() {
    if (json_.empty()) Refuse("the inputs give no figure");
    return std::move(json_);
  }

 private:
  static constexpr char kIndex[] = {'1', '2', '6'};
  std::set<std::string> names_;
  nlohmann::ordered_json json_ = nlohmann::ordered_json::object();
};

constexpr std::array<const char*, 3> kOwnStress = {"s1", "s2", "t12"}, kOwnStrain = {"e1", "e2", "g12"};
constexpr std::array<const char*, 3> kStress = {"sx", "sy", "txy"}, kStrain = {"ex", "ey", "gxy"};

Vector3 VectorOf(const Inputs& inputs, const std::string& key) {
  const std::vector<double> numbers = inputs.Numbers(key, 3);
  return {numbers[0], numbers[1], numbers[2]};
}

void NeedExpansion(const Ply& ply, const Climate& climate) {
  if (climate.dT != 0 && !(Known(ply.alpha1) && Known(ply.alpha2)))
    Refuse("dT is given, and a ply has no alpha1 and alpha2");
  if (climate.dM != 0 && !(Known(ply.beta1) && Known(ply.beta2)))
    Refuse("dM is given, and a ply has no beta1 and beta2");
}

void AnswerPly(const Inputs& inputs, Answer& answer) {
  const Ply ply = PlyOf(Inputs(inputs.At("ply"), "inputs.ply"));
  const double theta = inputs.Has("theta") ? inputs.Number("theta") : 0;
  const Climate climate = ClimateOf(inputs);
  NeedExpansion(ply, climate);
  const Matrix3 q = Stiffness(ply), turned = TurnedStiffness(q, theta), soft = turned.inverse();
  answer.AddMatrix("Q", q);
  answer.AddMatrix("Qb", turned);
  answer.AddMatrix("S", q.inverse());
  answer.AddMatrix("Sb", soft);
  answer.Add("Ex", 1 / soft(0, 0));
  answer.Add("Ey", 1 / soft(1, 1));
  answer.Add("Gxy", 1 / soft(2, 2));
  answer.Add("nuxy", -soft(0, 1) / soft(0, 0));
  const Vector3 alpha = TurnedStrain(ply.alpha1, ply.alpha2, theta);
  answer.Add({"alphax", "alphay", "alphaxy"}, alpha);
  Vector3 free = Vector3::Zero();
  if (climate.dT != 0) free += alpha * climate.dT;
  if (climate.dM != 0) free += TurnedStrain(ply.beta1, ply.beta2, theta) * climate.dM;
  if (inputs.Has("stress")) {
    if (inputs.Has("strain")) Refuse("inputs has both stress and strain: one follows from the other");
    answer.Add(kStrain, soft * VectorOf(inputs, "stress") + free);
  }
  if (inputs.Has("strain")) answer.Add(kStress, turned * (VectorOf(inputs, "strain") - free));
}

void AddPlies(const Stack& stack, const Deformation& deformation, const Climate& climate, Answer& answer) {
  for (std::size_t i = 0; i < stack.plies().size(); ++i) {
    const double bottom = stack.Bottom(i), top = stack.Top(i);
    const StackedPly& ply = stack.plies()[i];
    for (const auto& [place, z] : {std::pair("bot", bottom), {"mid", (bottom + top) / 2}, {"top", top}}) {
      const std::string before = "ply" + std::to_string(i + 1) + '.' + place + '.';
      const Vector3 strain = Stack::StrainAt(deformation, z);
      const PlyStress own = StressIn(ply, ply.angle, strain, climate);
      answer.Add(kOwnStress, own.stress, before);
      answer.Add(kOwnStrain, own.strain, before);
      answer.Add(kStress, StressTurn(-ply.angle) * own.stress, before);
      answer.Add(kStrain, strain, before);
    }
  }
}

void AddInverse(const Matrix6& inverse, Answer& answer) {
  for (int row = 0; row < 6; ++row)
    for (int column = row; column < 6; ++column)
      answer.Add("abd" + std::to_string(row + 1) + std::to_string(column + 1), inverse(row, column));
}

void AnswerLaminate(const Inputs& inputs, Answer& answer) {
  const Stack stack = StackOf(inputs);
  const Climate climate = ClimateOf(inputs);
  for (const StackedPly& ply : stack.plies()) NeedExpansion(ply.ply, climate);
  const Resultants load = LoadOf(inputs);
  answer.Add("h", stack.Thickness());
  answer.AddMatrix("A", stack.A());
  answer.AddMatrix("B", stack.B());
  answer.AddMatrix("D", stack.D());
  AddInverse(stack.Inverse(), answer);
  const SheetConstants sheet = FreeConstants(stack);
  for (const auto& [name, figure] : {std::pair("Ex", sheet.Ex),
                                     {"Ey", sheet.Ey},
                                     {"Gxy", sheet.Gxy},
                                     {"nuxy", sheet.nuxy},
                                     {"nuyx", sheet.nuyx},
                                     {"Efx", BendingModulusX(stack)},
                                     {"Efy", BendingModulusY(stack)}})
    answer.Add(name, figure);
  const Resultants thermal = stack.ThermalLoad(1), moist = stack.MoistureLoad(1);
  const Resultants total = load + stack.ThermalLoad(climate.dT) + stack.MoistureLoad(climate.dM);
  const Deformation expansion = stack.Inverse() * thermal;
  answer.Add({"alphax", "alphay", "alphaxy"}, expansion.head<3>());
  // For each degree, and for each part of moisture.
  answer.Add({"NT1", "NT2", "NT6"}, thermal.head<3>());
  answer.Add({"MT1", "MT2", "MT6"}, thermal.tail<3>());
  answer.Add({"NM1", "NM2", "NM6"}, moist.head<3>());
  answer.Add({"MM1", "MM2", "MM6"}, moist.tail<3>());
  answer.Add({"N1tot", "N2tot", "N6tot"}, total.head<3>());
  answer.Add({"M1tot", "M2tot", "M6tot"}, total.tail<3>());
  const Deformation deformation = stack.Under(load, climate);
  answer.Add(kStrain, deformation.head<3>());
  answer.Add({"kx", "ky", "kxy"}, deformation.tail<3>());
  AddPlies(stack, deformation, climate, answer);
}

void AnswerConstituents(const Inputs& inputs, Answer& answer) {
  const Constituents made = ConstituentsOf(inputs);
  const Mixed mixed = Mix(made.mixing, made.fibre, made.resin, made.shares, made.xi);
  for (const auto& [name, figure] : {std::pair("E1", mixed.ply.E1),
                                     {"E2", mixed.ply.E2},
                                     {"G12", mixed.ply.G12},
                                     {"nu12", mixed.ply.nu12},
                                     {"alpha1", mixed.ply.alpha1},
                                     {"alpha2", mixed.ply.alpha2},
                                     {"rho", mixed.density},
                                     {"X", mixed.Xt}})
    answer.Add(name, figure);
}

void AnswerShares(const Inputs& inputs, Answer& answer) {
  const double voids = inputs.Has("voids") ? inputs.NotNegative("voids") : 0;
  if (voids >= 1) Refuse("inputs.voids must lie below 1");
  const Shares shares = SharesOfWeight(inputs.NeededShare("fibre_weight_fraction"),
                                       inputs.NeededPositive("rhof"), inputs.NeededPositive("rhom"), voids);
  answer.Add("vf", shares.fibre);
  answer.Add("vm", shares.resin);
}

// A single ply under a stress in x, y, xy.
void AnswerStressedPly(const Inputs& inputs, Criterion criterion, const Strength& strength, Answer& answer) {
  const double theta = inputs.Has("theta") ? inputs.Number("theta") : 0;
  const Vector3 stress = StressTurn(theta) * VectorOf(inputs, "stress");
  const Judgement found = Judge(criterion, strength, stress);
  if (std::isinf(found.factor)) Refuse("the stress is one under which this ply never fails");
  answer.Add(kOwnStress, stress);
  answer.Add("index", found.index);
  answer.Add("R", found.factor);
  answer.Add("fails", found.factor <= 1 ? 1 : 0);
}

void AnswerFailure(const Inputs& inputs, Answer& answer) {
  const Criterion criterion = CriterionOf(inputs.NeededWord("criterion"));
  const Strength strength = StrengthOf(Inputs(inputs.At("strength"), "inputs.strength"));
  if (inputs.Has("stress")) return AnswerStressedPly(inputs, criterion, strength, answer);
  const Stack stack = StackOf(inputs);
  inputs.At("load");
  const Resultants load = LoadOf(inputs);
  const Deformation deformation = stack.Under(load);
  double least = std::numeric_limits<double>::infinity();
  for (std::size_t i = 0; i < stack.plies().size(); ++i) {
    const Judgement found = JudgePly(criterion, strength, stack, i, deformation);
    const std::string number = std::to_string(i + 1);
    answer.Add("index" + number, found.index);
    if (!std::isinf(found.factor)) answer.Add("R" + number, found.factor);
    least = std::min(least, found.factor);
  }
  answer.Add("fails", least <= 1 ? 1 : 0);
  if (std::isinf(least)) return;
  answer.Add("R", least);
  answer.Add("stress", least * load.head<3>().cwiseAbs().maxCoeff() / stack.Thickness());
}

TubeLoad TubeLoadOf(const Inputs& inputs) {
  TubeLoad load;
  for (const auto& [key, figure] : {std::pair("pressure", &load.pressure),
                                    {"force", &load.force},
                                    {"torque", &load.torque},
                                    {"moment", &load.moment}})
    if (inputs.Has(key)) *figure = inputs.Number(key);
  if (!inputs.Has("ends")) return load;
  const std::string ends = inputs.NeededWord("ends");
  if (ends != "open" && ends != "closed") Refuse("inputs.ends is neither open nor closed");
  load.closed = ends == "closed";
  return load;
}

void AddTubeWall(const Inputs& inputs, double radius, const TubeLoad& load, Answer& answer) {
  const Stack stack = StackOf(inputs);
  const TubeStiffness stiffness = StiffnessOf(stack, radius);
  answer.Add("EA", stiffness.axial);
  answer.Add("EI", stiffness.bending);
  answer.Add("GJ", stiffness.torsion);
  const Deformation deformation = HeldUnder(stack, WallLoad(load, radius));
  answer.Add(kStrain, deformation.head<3>());
  if (!inputs.Has("length")) return;
  const double length = inputs.Positive("length");
  const double twist = Twist(stack, radius, load.torque, length);
  answer.Add("twist", twist);
  answer.Add("twist_deg", twist / kDegree);
  const double thickness = EffectiveThickness(stack);
  answer.Add("N_local", WallBuckling(stack, radius, length) * KnockDown(radius / thickness));
  answer.Add("F_global", ColumnBuckling(stiffness.bending, length));
}

void AnswerTube(const Inputs& inputs, Answer& answer) {
  const double radius = inputs.NeededPositive("radius");
  const TubeLoad load = TubeLoadOf(inputs);
  const Vector3 wall = WallLoad(load, radius);
  answer.Add({"N1", "N2", "N6"}, wall);
  if (wall(0) >= 0 && wall(1) >= 0 && wall(0) + wall(1) > 0) answer.Add("netting_angle", NettingAngle(wall));
  if (inputs.Has("plies")) AddTubeWall(inputs, radius, load, answer);
  inputs.NotNegative("length");
}

void AnswerNetting(const Inputs& inputs, Answer& answer) {
  const double radius = inputs.NeededPositive("radius"),
               safety = inputs.Has("safety") ? inputs.Positive("safety") : 1;
  const TubeLoad load{.pressure = inputs.NeededPositive("pressure")};
  const Vector3 wall = WallLoad(load, radius);
  const double angle = inputs.Needed("angle"), most = NettingAngle(wall);
  if (angle < 0 || angle > most + 1e-9)
    Refuse("inputs.angle must lie from 0 to 54.7356 degrees: beyond it no hoop layer is left to add");
  const double vf = inputs.NeededShare("vf");
  const NettingWalls walls = WallsFor(wall, inputs.NeededPositive("fibre_stress") / safety, angle);
  const double t = (walls.helical + walls.hoop) / vf;
  answer.Add("t", t);
  answer.Add("t_helical", walls.helical / vf);
  answer.Add("t_hoop", walls.hoop / vf);
  const double length = inputs.NotNegative("length"), density = inputs.Positive("density");
  answer.Add("mass", density * VesselWall(radius, length, t));
}

void AnswerKnockDown(const Inputs& inputs, Answer& answer) {
  const std::vector<double> ratios = inputs.NumbersOf("R_over_t");
  if (ratios.size() > kMostPlies) Refuse("inputs.R_over_t has too many members");
  for (const double ratio : ratios) {
    if (ratio <= 0) Refuse("a member of inputs.R_over_t is not above 0");
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), ratio);
    answer.Add("gamma@" + std::string(digits.data(), end.ptr), KnockDown(ratio));
  }
}

}  // namespace

nlohmann::ordered_json AnswerOf(const Json& problem) {
  static const std::map<std::string, void (*)(const Inputs&, Answer&)> kKinds = {
      {"ply", AnswerPly},
      {"laminate", AnswerLaminate},
      {"constituents", AnswerConstituents},
      {"volume_fraction", AnswerShares},
      {"failure", AnswerFailure},
      {"tube", AnswerTube},
      {"netting", AnswerNetting},
      {"knockdown", AnswerKnockDown}};
  const Inputs whole(problem, "the case");
  const auto kind = kKinds.find(whole.NeededWord("kind"));
  if (kind == kKinds.end()) {
    std::string names;
    for (const auto& [name, answer] : kKinds) names += (names.empty() ? "" : ", ") + name;
    Refuse("the case's kind is none of " + names);
  }
  const Inputs inputs(whole.At("inputs"), "inputs");
  Answer answer;
  kind->second(inputs, answer);
  inputs.RefuseOthers();
  return answer.Take();
}

nlohmann::ordered_json AnswerOfText(const std::string& text) {
  Json problem;
  try {
    problem = Json::parse(text);
  } catch (const Json::exception& error) {
    // Behind the library's own name for it, and without all of a text that was left open.
    constexpr std::size_t kShown = 200;
    const std::string what = error.what();
    const auto begin = what.find("] ");
    Refuse("this is no JSON: " + what.substr(begin == std::string::npos ? 0 : begin + 2, kShown));
  }
  return AnswerOf(problem);
}

}  // namespace torvane::laminate
