#include "laminate/part/lay_up.h"

#include <algorithm>
#include <cmath>

namespace torvane::laminate {

namespace {

using executor::LayerFigures;

// Fibres that lie as close as they can fill nine tenths.
constexpr double kLeastFibre = 0.1, kMostFibre = 0.9;
constexpr int kTaperedSections = 5;

std::string Percent(double share) { return std::to_string(std::lround(100 * share)) + " %"; }

std::string Name(const LayerFigures& layer) { return "layer " + std::to_string(layer.number); }

// Something that can be laid: what the wall needs to know is known.
std::string LackOf(const LayerFigures& layer) {
  if (!layer.angle.known) return "its angle is not known";
  if (!(layer.band > 0)) return "the width of its band is not told";
  if (!(layer.mandrel.leftRadius > 0)) return "its diameter is not told";
  if (layer.passesRun < 1) return "it has no whole pass";
  return "";
}

class Layer {
 public:
  Layer(const LayerFigures& figures, double metres) : figures_(figures), metres_(metres) {}

  const LayerFigures& figures() const { return figures_; }
  double Low() const { return figures_.mandrel.zRight * metres_; }
  double High() const { return figures_.mandrel.zLeft * metres_; }
  double Band() const { return figures_.band * metres_; }
  double Tow() const { return figures_.filament * metres_; }
  double ToldThickness() const { return figures_.thickness * metres_; }
  double RadiusAt(double z) const { return figures_.mandrel.RadiusAt(z / metres_) * metres_; }
  bool Tapered() const { return figures_.mandrel.leftRadius != figures_.mandrel.rightRadius; }

  // At that place on that radius; a band of `thickness` crosses the circle as often as there are ways out and
  // back, and takes its width over the cosine of its angle of it each time.
  LaidLayer At(double radius, double thickness) const {
    LaidLayer laid;
    laid.number = figures_.number;
    laid.hoop = figures_.hoop;
    laid.asked = figures_.askedAngle;
    laid.bands = figures_.pattern.bands;
    laid.covered = figures_.coveredShare;
    laid.stands = figures_.stands;
    laid.radius = radius;
    const double tangent = executor::Tangent(figures_.angle.typical, radius / metres_);
    laid.angle = std::atan(tangent) / kDegree;
    const double crossings = 2.0 * figures_.passesRun;
    laid.thickness = crossings * Band() * thickness * std::sqrt(1 + tangent * tangent) / (2 * kPi * radius);
    return laid;
  }

 private:
  const LayerFigures& figures_;
  double metres_;
};

std::vector<Layer> LayersOf(const executor::Proof& proof, LayUp& layUp) {
  const double metres = proof.millimetres ? 0.001 : 0.0254;
  std::vector<Layer> layers;
  for (const LayerFigures& figures : proof.layers) {
    if (const std::string lack = LackOf(figures); !lack.empty()) {
      layUp.missing.push_back(Name(figures) + " is left out: " + lack);
      continue;
    }
    if (figures.stands == executor::Level::Fault)
      layUp.remarks.push_back("the proof faults " + Name(figures) + ": it is taken as it is laid");
    layers.emplace_back(figures, metres);
  }
  return layers;
}

// The section of the band's fibres; unknown where the tow's linear density or the fibre's density is.
double FibreArea(const Stock& stock, const Choice& choice) {
  if (stock.tow == nullptr) return kUnknown;
  return stock.tow->linearDensity / stock.tow->density * (Known(choice.tows) ? choice.tows : 1);
}

double FibreDensity(const Stock& stock, const executor::Limits& limits) {
  return stock.tow != nullptr && Known(stock.tow->density) ? stock.tow->density : 1000 * limits.fibreDensity;
}

double ResinDensity(const Stock& stock, const executor::Limits& limits) {
  return stock.resin != nullptr && Known(stock.resin->density) ? stock.resin->density
                                                               : 1000 * limits.resinDensity;
}

BandAsLaid BandOf(const Layer& layer, double fibreArea, const Stock& stock, const Choice& choice,
                  const executor::Limits& limits, LayUp& layUp) {
  BandAsLaid band;
  band.width = layer.Band();
  const double told = layer.ToldThickness();
  band.fibreShare = 1 - limits.resinShare / 100;
  if (Known(choice.resinShare)) {
    band.fibreShare = 1 - choice.resinShare;
    band.from = ShareFrom::Operator;
  } else if (stock.ply != nullptr && Known(stock.ply->fibreShare)) {
    band.fibreShare = stock.ply->fibreShare;
    band.from = ShareFrom::Ply;
  } else if (Known(fibreArea) && told > 0) {
    const double share = fibreArea / (band.width * told);
    if (share >= kLeastFibre && share <= kMostFibre) {
      band.fibreShare = share;
      band.from = ShareFrom::Band;
    } else {
      layUp.remarks.push_back("a band of this width and thickness would hold " + Percent(share) +
                              " of fibre: its thickness, the tow's linear density or the number of tows is "
                              "wrong, and the station's resin share is taken");
    }
  }
  if (!(band.fibreShare > 0) || !(band.fibreShare <= kMostFibre)) {
    layUp.missing.push_back("a fibre share of " + Percent(band.fibreShare) +
                            " cannot be: the resin share is wrong");
    return band;
  }
  if (Known(fibreArea))
    band.thickness = fibreArea / (band.width * band.fibreShare);
  else if (told > 0)
    band.thickness = told;
  else
    layUp.missing.emplace_back("neither the band's thickness nor the tow's linear density is known: no wall");
  return band;
}

// Where all layers lie; where there is no such place, where any does.
std::pair<double, double> RangeOf(const std::vector<Layer>& layers) {
  double low = layers.front().Low(), high = layers.front().High(), lowest = low, highest = high;
  for (const Layer& layer : layers) {
    low = std::max(low, layer.Low());
    high = std::min(high, layer.High());
    lowest = std::min(lowest, layer.Low());
    highest = std::max(highest, layer.High());
  }
  return low < high ? std::pair(low, high) : std::pair(lowest, highest);
}

Section SectionAt(const std::vector<Layer>& layers, double z, double bandThickness, double bandWidth,
                  bool growth) {
  Section section;
  section.z = z;
  for (const Layer& layer : layers) {
    if (z < layer.Low() || z > layer.High()) continue;
    const double bare = layer.RadiusAt(z);
    if (section.layers.empty()) section.mandrelRadius = bare;
    // As much tow in a wider band lies thinner.
    const LaidLayer laid =
        layer.At(bare + (growth ? section.wall : 0), bandThickness * bandWidth / layer.Band());
    section.wall += laid.thickness;
    section.layers.push_back(laid);
  }
  return section;
}

void AddAmounts(const std::vector<Layer>& layers, const Stock& stock, const Choice& choice,
                const executor::Limits& limits, LayUp& layUp) {
  Amounts& amounts = layUp.amounts;
  const BandAsLaid& band = layUp.band;
  const double tows = Known(choice.tows) ? choice.tows : 1;
  double length = 0;
  for (const Layer& layer : layers) length += layer.Tow();
  const double volume = length * band.width * band.thickness;
  amounts.fibre = volume * band.fibreShare * FibreDensity(stock, limits);
  amounts.resin = volume * (1 - band.fibreShare) * ResinDensity(stock, limits);
  amounts.toMix = amounts.resin / (1 - choice.waste);
  amounts.tow = length * tows;
  if (stock.resin != nullptr) amounts.hardener = amounts.toMix * (1 - 1 / (1 + stock.resin->hardener));
  if (stock.tow == nullptr) return;
  if (stock.resin != nullptr)
    amounts.price = amounts.fibre * stock.tow->price + amounts.toMix * stock.resin->price;
  if (Known(stock.tow->spool)) amounts.spools = tows * std::ceil(length / stock.tow->spool);
}

}  // namespace

std::string_view NameOf(ShareFrom from) {
  switch (from) {
    case ShareFrom::Operator:
      return "the resin share given";
    case ShareFrom::Ply:
      return "the ply's own";
    case ShareFrom::Band:
      return "the band's thickness";
    case ShareFrom::Station:
      break;
  }
  return "the station's resin share";
}

Stock StockOf(const Materials& materials, const Choice& choice, std::vector<std::string>& missing) {
  Stock stock;
  const auto find = [&](MaterialKind kind, const std::string& name, const char* what) {
    if (name.empty()) return static_cast<const Material*>(nullptr);
    const Material* found = materials.Find(kind, name);
    if (found == nullptr)
      missing.push_back(std::string("no ") + what + " of the materials is called \"" + name + '"');
    return found;
  };
  stock.ply = find(MaterialKind::Ply, choice.ply, "ply");
  stock.tow = find(MaterialKind::Tow, choice.tow, "tow");
  stock.resin = find(MaterialKind::Resin, choice.resin, "resin");
  if (!choice.ply.empty()) return stock;
  if (choice.tow.empty()) missing.emplace_back("the design names no tow");
  if (choice.resin.empty()) missing.emplace_back("the design names no resin");
  return stock;
}

LayUp LayUpOf(const executor::Proof& proof, const Stock& stock, const Choice& choice,
              const executor::Limits& limits) {
  LayUp layUp;
  const std::vector<Layer> layers = LayersOf(proof, layUp);
  if (layers.empty()) {
    layUp.missing.emplace_back("the program lays no layer: there is no wall");
    return layUp;
  }
  layUp.band = BandOf(layers.front(), FibreArea(stock, choice), stock, choice, limits, layUp);
  if (!Known(layUp.band.thickness)) return layUp;
  const auto [low, high] = RangeOf(layers);
  layUp.length = high - low;
  const bool tapered = std::any_of(layers.begin(), layers.end(), [](const Layer& l) { return l.Tapered(); });
  const int count = tapered ? kTaperedSections : 1;
  for (int i = 0; i < count; ++i) {
    const double z = count == 1 ? (low + high) / 2 : low + (high - low) * i / (count - 1);
    layUp.sections.push_back(SectionAt(layers, z, layUp.band.thickness, layUp.band.width, choice.growth));
  }
  if (std::any_of(layUp.sections.begin(), layUp.sections.end(),
                  [&](const Section& section) { return section.layers.size() < layers.size(); }))
    layUp.remarks.emplace_back("the layers are not equally long: the figures are of where those listed lie");
  std::erase_if(layUp.sections, [](const Section& section) { return section.layers.empty(); });
  if (layUp.sections.empty())
    layUp.missing.emplace_back("no layer lies in the part's middle: there is no wall");
  AddAmounts(layers, stock, choice, limits, layUp);
  return layUp;
}

}  // namespace torvane::laminate
