#include "calc/polar_walk.h"

#include <cmath>

#include "calc/four_axis.h"
#include "calc/patterns.h"
#include "design/units.h"

namespace torvane {

namespace {

constexpr double kTurn = 2 * kPi;

double FractionOfTurn(double degrees) { return degrees / 360 - std::floor(degrees / 360); }

struct Point {
  double x, y;
};
Point At(double radius, double radians) { return {radius * std::cos(radians), radius * std::sin(radians)}; }

PolarFigure Circle(double radius) { return {PolarKind::Circle, PolarColour::Outline, radius}; }

PolarFigure Arc(PolarColour colour, double radius, double from, double to) {
  return {PolarKind::Arc, colour, radius, from, to};
}

PolarFigure Segment(PolarKind kind, PolarColour colour, Point from, Point to) {
  return {kind, colour, 0, 0, 0, from.x, from.y, to.x, to.y};
}

}  // namespace

std::optional<PolarPattern> PolarPatternOf(const DesignState& s, const PatternFields& pattern) {
  const Number angle = s.Read(pattern.angle);
  const Number groups = Int(s.Read(pattern.groups));
  const Number circuits = Int(s.Read(pattern.circuits));
  const Number wrapAngle = s.Read(pattern.wrapAngle);
  const Number diameter = number(s.txtDia(0));
  const Number circumference = diameter * kPi;
  const Number rotation = TraverseLength(s) * Tan(angle * kShortPi / 180) / circumference * 360;
  const Number bandStep = BandWidth(s, 1) / Cos(angle * kPi / 180) / circumference;
  if (!(groups * circuits * wrapAngle * rotation * bandStep).good()) return std::nullopt;
  if (!holds(groups >= 1) || !holds(circuits >= 1) || !holds(groups * circuits <= kMostPolarPasses))
    return std::nullopt;
  return PolarPattern{(diameter / 2).value(),
                      static_cast<int>(groups.value()),
                      static_cast<int>(circuits.value()),
                      wrapAngle.value(),
                      rotation.value(),
                      bandStep.value()};
}

std::vector<PolarFigure> PolarBase(const DesignState& s) {
  const Number radius = number(s.txtDia(0)) / 2;
  const Number opening = number(s.txtPODia(0)) / 2;
  std::vector<PolarFigure> figures;
  if (radius.good()) figures.push_back(Circle(radius.value()));
  if (opening.good()) figures.push_back(Circle(opening.value()));
  if (!radius.good()) return figures;
  const double in = radius.value();
  const double out = 1.2 * in;
  const Point ends[][2] = {
      {{-in, 0}, {-out, 0}}, {{in, 0}, {out, 0}}, {{0, in}, {0, out}}, {{0, -in}, {0, -out}}};
  for (const auto& [from, to] : ends)
    figures.push_back(Segment(PolarKind::Tick, PolarColour::Tick, from, to));
  return figures;
}

std::vector<PolarFigure> PolarArcs(const PolarPattern& p, Number splitAngle) {
  const double start =
      p.wrapAngle > 180 ? (360 - p.wrapAngle + 180) / 360 * 2 * kPi : (180 - p.wrapAngle) / 360 * 2 * kPi;
  std::vector<PolarFigure> arcs;
  const Number end = splitAngle / 360 * 2 * kPi;
  if (end.good()) arcs.push_back(Arc(PolarColour::Split, 1.08 * p.radius, start, end.value()));
  arcs.push_back(Arc(PolarColour::Wrap, 1.12 * p.radius, start, kPi));
  return arcs;
}

PolarFigure PolarFirstBand(const PolarPattern& p) {
  return Arc(PolarColour::Closing, 1.02 * p.radius, 0, p.bandStep * 2 * kPi);
}

PolarFigure PolarWalk::Mark(bool closing, double start) const {
  const double bands = static_cast<double>(pattern_.groups) * pattern_.circuits;
  const bool byBand = marks_ == PolarMarks::ByBand;
  double from = start;
  double to = byBand ? start + pattern_.bandStep * 2 * kPi : start + 2 * kPi / bands;
  if (closing) {
    from = byBand ? circuit_ * pattern_.bandStep * 2 * kPi : circuit_ * 2 * kPi / bands;
    to = byBand ? (circuit_ + 1) * pattern_.bandStep * 2 * kPi : (circuit_ + 1) * 2 * kPi / bands;
  }
  if (to > kTurn) to -= kTurn;
  return Arc(closing ? PolarColour::Closing : PolarColour::Band, 1.02 * pattern_.radius, from, to);
}

std::optional<PolarWalk::Step> PolarWalk::Next() {
  if (circuit_ > pattern_.circuits) return std::nullopt;
  ++pass_;
  Step step;
  step.circuit = circuit_;
  step.pass = pass_;
  step.closesCircuit = pass_ == pattern_.groups;
  mandrel_ += pattern_.traverseRotation;
  mandrel_ += pattern_.wrapAngle;
  step.farAngle = FractionOfTurn(mandrel_) * 360;
  mandrel_ += pattern_.traverseRotation;
  const Point arrival = At(pattern_.radius, mandrel_ * kPi / 180);
  mandrel_ += pattern_.wrapAngle;
  step.nearAngle = FractionOfTurn(mandrel_) * 360;
  if (step.closesCircuit) step.nearAngle += pattern_.bandStep * 360;

  const double start = marks_ == PolarMarks::ByBand ? 2 * kPi * std::fmod(std::nearbyint(mandrel_), 360) / 360
                                                    : FractionOfTurn(mandrel_) * 2 * kPi;
  if (!step.closesCircuit || circuit_ != pattern_.circuits) {
    const PolarFigure mark = Mark(step.closesCircuit, start);
    step.figures = {mark,
                    Segment(PolarKind::Chord, PolarColour::Band, arrival, At(pattern_.radius, mark.from))};
  }
  if (step.closesCircuit) {
    mandrel_ = circuit_ * pattern_.bandStep * 360;
    ++circuit_;
    pass_ = 0;
  }
  return step;
}

std::string PolarTraceHead(const DesignState& s) {
  return "G1 J10 K10 O90 T10|G28 R4 F2 E0.50|G4 P10000|M602|G1 F2 Z" + s.txtZ4(1).text() +
         " J1.0 K0.25 O10 T10|M0|";
}

std::string PolarTracePass(const DesignState& s, const PolarWalk::Step& step, int row) {
  const Number innerLeft = number(s.txtZ4(1));
  const std::string& farEnd = s.txtZ4(holds(innerLeft == number(s.txtZ4(0))) ? 3 : 2).text();
  const std::string turn = "M4 S" + s.lblRPM(row).text() + "|G1 F" + s.lblcSpeed(row).text() + " Z";
  const auto dwell = [&s](double angle) {
    return "G1 S12 L602 C" + FormatNumberText(s.signs, angle, "###.00"_mask) + "|";
  };
  return turn + farEnd + "|" + dwell(step.farAngle) + turn + s.txtZ4(1).text() + "|" + dwell(step.nearAngle);
}

}  // namespace torvane
