#include "laminate/report/report.h"

#include <array>
#include <charconv>
#include <cmath>
#include <map>

namespace torvane::laminate {

namespace {

using Json = nlohmann::ordered_json;

constexpr double kInch = 0.0254, kPound = 4.4482216152605;

// Four digits, as many as an estimate bears.
std::string Figure(double value) {
  constexpr double kRounded = 1e4, kMost = 1e7;
  const double size = std::abs(value);
  if (size >= kRounded && size < kMost) {
    const double step = std::pow(10, std::floor(std::log10(size)) - 3);
    value = std::round(value / step) * step;
  }
  const bool plain = size == 0 || (size >= 1e-3 && size < kMost);
  const int decimals = size >= 1000 ? 0 : size >= 100 ? 1 : size >= 10 ? 2 : size >= 1 ? 3 : 4;
  std::array<char, 64> text{};
  const auto end =
      plain ? std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals)
            : std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific, 3);
  return {text.data(), end.ptr};
}

std::string With(double si, const ShownUnit& unit) {
  if (!Known(si)) return "not known";
  return std::isinf(si) ? "never" : Figure(si / unit.si) + ' ' + unit.name;
}

std::string Padded(const std::string& text, std::size_t width) {
  return text.size() >= width ? text : std::string(width - text.size(), ' ') + text;
}

std::string Line(const std::string& text) { return "  " + text + '\n'; }

std::string Degrees(double angle) { return Figure(angle) + " deg"; }

void AddLayers(const LayUp& layUp, const ShownUnits& units, std::string& text) {
  text += Line(" Layer      Asked       Laid  Bands  Covered   Thickness");
  for (const LaidLayer& layer : layUp.Middle().layers) {
    std::string row = Padded(std::to_string(layer.number), 6);
    row += Padded(layer.hoop ? "hoop" : layer.asked > 0 ? Degrees(layer.asked) : "-", 11);
    row += Padded(Degrees(layer.angle), 11) + Padded(std::to_string(layer.bands), 7);
    row += Padded(Figure(100 * layer.covered) + " %", 9) + Padded(With(layer.thickness, units.length), 12);
    text += Line(row + (layer.stands == executor::Level::Fault ? "  fault" : ""));
  }
}

void AddSections(const LayUp& layUp, const ShownUnits& units, std::string& text) {
  const Section& middle = layUp.Middle();
  text += Line("Wall " + With(middle.wall, units.length) + " on a mandrel of " +
               With(2 * middle.mandrelRadius, units.length) + ", outside " +
               With(2 * (middle.mandrelRadius + middle.wall), units.length));
  if (layUp.sections.size() == 1) return;
  for (const Section& section : layUp.sections) {
    std::string row = "at Z " + With(section.z, units.length) + ": mandrel " +
                      With(2 * section.mandrelRadius, units.length) + ", wall " +
                      With(section.wall, units.length) + ", angles";
    for (const LaidLayer& layer : section.layers) row += ' ' + Figure(layer.angle);
    text += Line("  " + row);
  }
}

void AddAmounts(const Amounts& amounts, std::string& text) {
  const auto grams = [](double kilograms) { return Figure(1000 * kilograms) + " g"; };
  text += Line("Fibre " + grams(amounts.fibre) + ", resin " + grams(amounts.resin) + " on the part");
  std::string mix = "Mix " + grams(amounts.toMix) + " of resin with its waste";
  if (Known(amounts.hardener))
    mix += ": " + grams(amounts.toMix - amounts.hardener) + " of resin, " + grams(amounts.hardener) +
           " of hardener";
  text += Line(mix);
  if (Known(amounts.spools)) text += Line("Spools of tow: " + Figure(amounts.spools));
  if (Known(amounts.price)) text += Line("Tow and resin cost " + Figure(amounts.price));
}

void AddStiffness(const Estimate& e, const ShownUnits& units, std::string& text) {
  text += Line("Wall as one sheet: Ex " + With(e.wall.Ex, units.modulus) + ", Ey " +
               With(e.wall.Ey, units.modulus) + ", Gxy " + With(e.wall.Gxy, units.modulus) + ", nuxy " +
               Figure(e.wall.nuxy));
  text += Line("Axial stiffness EA " + With(e.tube.axial, units.force) + ", bending EI " +
               With(e.tube.bending, units.bending) + ", torsion GJ " + With(e.tube.torsion, units.bending));
  if (Known(e.expansionAxial))
    text += Line("Expansion " + Figure(1e6 * e.expansionAxial) + " along, " + Figure(1e6 * e.expansionHoop) +
                 " around, 1e-6/K");
  if (Known(e.nettingClosed))
    text += Line("Netting, the fibres alone: " + With(e.nettingClosed, units.pressure) +
                 " with closed ends, " + With(e.nettingOpen, units.pressure) + " with open ends");
  if (Known(e.wallBuckling))
    text += Line("In compression the wall buckles at " + With(e.wallBuckling, units.force) +
                 " (knocked down to " + Figure(100 * e.knockDown) + " %), as a column the tube at " +
                 With(e.columnBuckling, units.force));
}

const ShownUnit& UnitOf(LoadCase loadCase, const ShownUnits& units) {
  switch (loadCase) {
    case LoadCase::ClosedPressure:
    case LoadCase::OpenPressure:
      return units.pressure;
    case LoadCase::Tension:
    case LoadCase::Compression:
      return units.force;
    default:
      return units.torque;
  }
}

std::string FailureText(const FirstFailure& failure, const ShownUnit& unit) {
  return With(failure.load, unit) + " in layer " + std::to_string(failure.layer);
}

std::string FactorText(double factor) { return std::isinf(factor) ? "never" : Figure(factor); }

void AddStrength(const Estimate& e, const ShownUnits& units, std::string& text) {
  text += Line("The first ply fails, by Tsai-Wu and by maximum stress:");
  for (std::size_t i = 0; i < kLoadCases; ++i) {
    const FailureLoad& failure = e.failures[i];
    const ShownUnit& unit = UnitOf(static_cast<LoadCase>(i), units);
    text += Line("  " + std::string(failure.name) + ": " + FailureText(failure.tsaiWu, unit) + "; " +
                 FailureText(failure.maxStress, unit));
  }
  if (e.margins.empty()) return;
  text += Line("Factors on the load that is given:");
  for (const LayerMargin& margin : e.margins)
    text += Line("  layer " + std::to_string(margin.layer) + ": " + FactorText(margin.tsaiWu) + "; " +
                 FactorText(margin.maxStress));
}

Json FigureJson(double value) { return std::isfinite(value) ? Json(value) : Json(nullptr); }

Json SectionJson(const Section& section) {
  Json json = {{"z", section.z}, {"mandrelRadius", section.mandrelRadius}, {"wall", section.wall}};
  json["layers"] = Json::array();
  for (const LaidLayer& layer : section.layers) {
    json["layers"].push_back({{"layer", layer.number},
                              {"hoop", layer.hoop},
                              {"angle", layer.angle},
                              {"bands", layer.bands},
                              {"covered", layer.covered},
                              {"radius", layer.radius},
                              {"thickness", layer.thickness},
                              {"stands", executor::NameOf(layer.stands)}});
    if (layer.asked > 0) json["layers"].back()["asked"] = layer.asked;
  }
  return json;
}

Json AmountsJson(const Amounts& amounts) {
  Json json = {
      {"tow", amounts.tow}, {"fibre", amounts.fibre}, {"resin", amounts.resin}, {"toMix", amounts.toMix}};
  for (const auto& [name, figure] :
       {std::pair("hardener", amounts.hardener), {"price", amounts.price}, {"spools", amounts.spools}})
    if (Known(figure)) json[name] = figure;
  return json;
}

Json PlyJson(const Estimate& e) {
  Json json = Json::object();
  for (const auto& [name, figure] : {std::pair("E1", e.ply.E1),
                                     {"E2", e.ply.E2},
                                     {"G12", e.ply.G12},
                                     {"nu12", e.ply.nu12},
                                     {"alpha1", e.ply.alpha1},
                                     {"alpha2", e.ply.alpha2},
                                     {"Xt", e.strength.Xt},
                                     {"Xc", e.strength.Xc},
                                     {"Yt", e.strength.Yt},
                                     {"Yc", e.strength.Yc},
                                     {"S", e.strength.S}})
    if (Known(figure)) json[name] = figure;
  return json;
}

Json FailuresJson(const Estimate& e) {
  Json json = Json::array();
  const auto failure = [](const FirstFailure& f) {
    return Json{{"load", FigureJson(f.load)}, {"layer", f.layer}};
  };
  for (const FailureLoad& f : e.failures)
    json.push_back({{"load", f.name}, {"tsaiWu", failure(f.tsaiWu)}, {"maxStress", failure(f.maxStress)}});
  return json;
}

Json StiffnessJson(const Estimate& e) {
  return {{"Ex", e.wall.Ex},
          {"Ey", e.wall.Ey},
          {"Gxy", e.wall.Gxy},
          {"nuxy", e.wall.nuxy},
          {"nuyx", e.wall.nuyx},
          {"EA", e.tube.axial},
          {"EI", e.tube.bending},
          {"GJ", e.tube.torsion},
          {"alphaAxial", FigureJson(e.expansionAxial)},
          {"alphaHoop", FigureJson(e.expansionHoop)}};
}

}  // namespace

const ShownUnits& UnitsOf(bool millimetres) {
  static const ShownUnits kSi = {{"mm", 1e-3}, {"GPa", 1e9}, {"MPa", 1e6}, {"N", 1}, {"N m", 1}, {"N m2", 1}};
  static const ShownUnits kInches = {
      {"in", kInch},   {"Msi", 1e6 * kPound / (kInch * kInch)}, {"psi", kPound / (kInch * kInch)},
      {"lbf", kPound}, {"lbf ft", kPound * 12 * kInch},         {"lbf in2", kPound * kInch * kInch}};
  return millimetres ? kSi : kInches;
}

Result<double> LoadOf(const std::string& option, const std::string& text, const ShownUnit& usual) {
  static const std::map<std::string, std::map<std::string, double>> kUnits = {
      {"--pressure",
       {{"Pa", 1}, {"kPa", 1e3}, {"MPa", 1e6}, {"bar", 1e5}, {"psi", kPound / (kInch * kInch)}}},
      {"--force", {{"N", 1}, {"kN", 1e3}, {"lbf", kPound}}},
      {"--torque", {{"Nm", 1}, {"N m", 1}, {"lbf ft", kPound * 12 * kInch}, {"lbf in", kPound * kInch}}},
      {"--moment", {{"Nm", 1}, {"N m", 1}, {"lbf ft", kPound * 12 * kInch}, {"lbf in", kPound * kInch}}}};
  if (text.empty()) return 0.0;
  double number = 0;
  const auto [stopped, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || !std::isfinite(number) || std::abs(number) > 1e15)
    return Refusal{option + " is a number and its unit, not \"" + text + "\""};
  std::string unit(stopped, text.data() + text.size());
  unit.erase(0, unit.find_first_not_of(' ') == std::string::npos ? unit.size() : unit.find_first_not_of(' '));
  if (unit.empty()) return number * usual.si;
  const auto& known = kUnits.at(option);
  const auto found = known.find(unit);
  if (found != known.end()) return number * found->second;
  std::string names;
  for (const auto& [name, si] : known) names += (names.empty() ? "" : ", ") + name;
  return Refusal{option + " knows no unit \"" + unit + "\"; there are " + names};
}

std::string Report(const Estimate& e, const Named& named, bool millimetres) {
  const ShownUnits& units = UnitsOf(millimetres);
  std::string text;
  if (!named.ply.empty())
    text += Line("Ply \"" + named.ply + '"');
  else if (!named.tow.empty() || !named.resin.empty())
    text += Line("Tow \"" + named.tow + "\", resin \"" + named.resin + '"');
  if (!e.layUp.sections.empty()) {
    text += Line("Fibre share " + Figure(100 * e.layUp.band.fibreShare) + " % of the volume, by " +
                 std::string(NameOf(e.layUp.band.from)) + "; a band lies " +
                 With(e.layUp.band.thickness, units.length) + " thick");
    AddLayers(e.layUp, units, text);
    AddSections(e.layUp, units, text);
    AddAmounts(e.layUp.amounts, text);
  }
  if (e.stiff) AddStiffness(e, units, text);
  if (e.strong) AddStrength(e, units, text);
  for (const std::string& missing : e.missing) text += Line("Missing: " + missing);
  for (const std::string& remark : e.remarks) text += Line("Note: " + remark);
  return text + Line("An estimate for thin tubes; its failure loads are unverified by tests of real tubes.");
}

Json JsonOf(const Estimate& e, const Named& named) {
  Json json = {{"units", "m, Pa, N, kg, degrees"},
               {"tow", named.tow},
               {"resin", named.resin},
               {"ply", named.ply},
               {"unverified", "failure loads are unverified by tests of real tubes"}};
  if (!e.layUp.sections.empty()) {
    json.update({{"fibreShare", e.layUp.band.fibreShare},
                 {"fibreShareFrom", NameOf(e.layUp.band.from)},
                 {"bandThickness", e.layUp.band.thickness},
                 {"length", e.layUp.length},
                 {"amounts", AmountsJson(e.layUp.amounts)},
                 {"middle", SectionJson(e.layUp.Middle())}});
    json["sections"] = Json::array();
    for (const Section& section : e.layUp.sections) json["sections"].push_back(SectionJson(section));
  }
  json["plyConstants"] = PlyJson(e);
  if (e.stiff) {
    json["stiffness"] = StiffnessJson(e);
    json["netting"] = {{"closed", FigureJson(e.nettingClosed)}, {"open", FigureJson(e.nettingOpen)}};
    json["buckling"] = {{"knockDown", FigureJson(e.knockDown)},
                        {"wall", FigureJson(e.wallBuckling)},
                        {"column", FigureJson(e.columnBuckling)}};
  }
  if (e.strong) json["firstPlyFailure"] = FailuresJson(e);
  for (const LayerMargin& m : e.margins)
    json["margins"].push_back(
        {{"layer", m.layer}, {"tsaiWu", FigureJson(m.tsaiWu)}, {"maxStress", FigureJson(m.maxStress)}});
  json["missing"] = e.missing;
  json["remarks"] = e.remarks;
  return json;
}

}  // namespace torvane::laminate
