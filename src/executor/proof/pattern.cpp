#include "executor/proof/pattern.h"

#include <cmath>
#include <functional>
#include <iterator>
#include <limits>

#include "executor/measure/laid_angle.h"

namespace torvane::executor {

namespace {

// Turns and dwell angles are written with two decimals, the band's width in inches with three.
constexpr double kTurnRounding = 0.005;
constexpr double kAngleRounding = 0.005;
constexpr double kBandRounding = 0.0005;

// A band this share of its width beside its place shows.
constexpr double kAside = 0.4;

double Wrapped(double degrees) {
  double way = std::fmod(degrees, 360);
  if (way < 0) way += 360;
  return way;
}

// From -180 to 180.
double Aside(double degrees) {
  const double way = Wrapped(degrees);
  return way > 180 ? way - 360 : way;
}

double BandWithinATurn(double band, double tangent, double radius) {
  return std::min(360.0, BandDegrees(band, tangent, radius));
}

// Millions of values take longer to sort than a window may keep its operator waiting.
template <class Values, class Less = std::less<>>
void Sort(Values& values, const std::stop_token& stop, const Less& less = {}) {
  constexpr std::ptrdiff_t kAtOnce = 1 << 16;
  const auto all = std::ssize(values);
  const auto at = [&](std::ptrdiff_t index) { return values.begin() + std::min(index, all); };
  for (std::ptrdiff_t i = 0; i < all && !stop.stop_requested(); i += kAtOnce)
    std::sort(at(i), at(i + kAtOnce), less);
  for (std::ptrdiff_t step = kAtOnce; step < all; step *= 2)
    for (std::ptrdiff_t i = 0; i + step < all && !stop.stop_requested(); i += 2 * step)
      std::inplace_merge(at(i), at(i + step), at(i + 2 * step), less);
}

struct Crossing {
  double angle, width, steepWidth;
};

struct Gaps {
  double smallest = std::numeric_limits<double>::infinity();
  double largest = -std::numeric_limits<double>::infinity();
  double rounded = largest;
  int bands = 0;

  void Take(const Gaps& other) {
    smallest = std::min(smallest, other.smallest);
    largest = std::max(largest, other.largest);
    rounded = std::max(rounded, other.rounded);
    bands = std::max(bands, other.bands);
  }
};

class Finder {
 public:
  Finder(const Layer& layer, const Mandrel& mandrel, double unitsPerInch, const std::stop_token& stop)
      : layer_(layer),
        mandrel_(mandrel),
        stop_(stop),
        bandRounding_(kBandRounding * unitsPerInch),
        typical_(Typical(layer)),
        outward_(layer.passes[0].farZ > layer.passes[0].endZ) {}

  const Stroke& typical() const { return typical_; }

  // What runs the wrong way for its turn in the pass is a way to the layer's start, and none of its bands.
  bool Runs(const Stroke& stroke, bool out) const {
    return stroke.out == out && (stroke.z1 > stroke.z0) == (out == outward_);
  }

  std::vector<Crossing> CrossingsAt(double z, bool out) const {
    std::vector<Crossing> crossings;
    const double radius = mandrel_.RadiusAt(z);
    for (const Stroke& stroke : layer_.strokes) {
      if (stop_.stop_requested()) break;
      if (!Runs(stroke, out) || !stroke.Reaches(z)) continue;
      const double tangent = Tangent(stroke, radius);
      crossings.push_back(
          {Wrapped(stroke.AngleAt(z)), BandWithinATurn(layer_.band, tangent, radius),
           BandWithinATurn(layer_.band + bandRounding_, RoundedTangent(stroke, tangent).high, radius)});
    }
    return crossings;
  }

  Gaps GapsAt(double z, bool out) const {
    std::vector<Crossing> crossings = CrossingsAt(z, out);
    Sort(crossings, stop_, [](const Crossing& a, const Crossing& b) { return a.angle < b.angle; });
    Gaps gaps;
    gaps.bands = static_cast<int>(crossings.size());
    const bool adds =
        std::any_of(layer_.strokes.begin(), layer_.strokes.end(), [](const Stroke& s) { return s.ownTurn; });
    const double drift = adds ? Drift(mandrel_.RadiusAt(z)) : 2 * kTurnRounding;
    const double across = AcrossFactor(z);
    for (std::size_t i = 0; i < crossings.size() && !stop_.stop_requested(); ++i) {
      const Crossing& a = crossings[i];
      const bool last = i + 1 == crossings.size();
      const Crossing& b = crossings[last ? 0 : i + 1];
      const double way = b.angle - a.angle + (last ? 360 : 0);
      const double gap = (way - (a.width + b.width) / 2) * across;
      gaps.smallest = std::min(gaps.smallest, gap);
      gaps.largest = std::max(gaps.largest, gap);
      gaps.rounded = std::max(gaps.rounded, (way - drift - (a.steepWidth + b.steepWidth) / 2) * across);
    }
    if (crossings.empty()) gaps.largest = gaps.rounded = 360 * AcrossFactor(z);
    return gaps;
  }

  // Turns that follow each other add up what was rounded off them, and it shows at one seam. Where the head
  // wraps the ends, the turn of a traverse comes from a winding angle that was rounded before.
  double Drift(double radius) const {
    if (!typical_.ownTurn) return 2 * kTurnRounding;  // dwells against a register do not add up
    double drift = kTurnRounding * layer_.ownTurns;
    if (!layer_.wraps) return drift;
    for (const Stroke& stroke : layer_.strokes) {
      if (stop_.stop_requested()) break;
      const double tangent = Tangent(stroke, radius);
      if (tangent > 0)
        drift += std::abs(stroke.m1 - stroke.m0) * (1 / tangent + tangent) * kAngleRounding * kRadians;
    }
    return drift;
  }

  // Degrees round the mandrel to lengths across the band.
  double AcrossFactor(double z) const {
    const double radius = mandrel_.RadiusAt(z);
    const double tangent = Tangent(typical_, radius);
    return kRadians * radius / std::sqrt(1 + tangent * tangent);
  }

  // In the order of winding. What does not reach so far is carried on to there; a tail belongs to the
  // traverse before it.
  std::vector<double> ProgressAt(double z, bool out, std::vector<const Stroke*>& strokes) const {
    std::vector<double> angles;
    strokes.clear();
    for (std::size_t i = 0; i < layer_.strokes.size() && !stop_.stop_requested(); ++i) {
      const Stroke& stroke = layer_.strokes[i];
      if (stroke.tail || !Runs(stroke, out)) continue;
      const bool inTail =
          i + 1 < layer_.strokes.size() && layer_.strokes[i + 1].tail && layer_.strokes[i + 1].Reaches(z);
      angles.push_back((inTail ? layer_.strokes[i + 1] : stroke).AngleAt(z));
      strokes.push_back(&stroke);
    }
    return angles;
  }

 private:
  // A traverse that runs like most of them.
  static const Stroke& Typical(const Layer& layer) {
    std::size_t i = layer.strokes.size() / 2;
    while (layer.strokes[i].tail) --i;
    return layer.strokes[i];
  }

  const Layer& layer_;
  const Mandrel& mandrel_;
  const std::stop_token& stop_;
  double bandRounding_;
  const Stroke& typical_;
  bool outward_;
};

double UsualStep(const std::vector<double>& angles) {
  std::vector<double> steps;
  for (std::size_t i = 1; i < angles.size(); ++i) steps.push_back(Wrapped(angles[i] - angles[i - 1]));
  const auto middle = steps.begin() + static_cast<std::ptrdiff_t>((steps.size() - 1) / 2);
  std::nth_element(steps.begin(), middle, steps.end());
  return *middle;
}

// A band is beside its place where its step and the next one miss the usual step by as much, one this way and
// one that; at the layer's two ends there is one step alone. A step that misses again and again is the shift
// between the groups of a pattern.
void FindAside(const std::vector<double>& angles, const std::vector<const Stroke*>& strokes, bool out,
               double bandDegrees, std::vector<BandAside>& aside, const std::stop_token& stop) {
  const std::size_t n = angles.size();
  if (n < 4) return;
  const double usual = UsualStep(angles);
  std::vector<double> off(n - 1);
  for (std::size_t i = 0; i + 1 < n; ++i) off[i] = Aside(angles[i + 1] - angles[i] - usual);
  const double most = kAside * bandDegrees, alike = bandDegrees / 5;
  std::vector<double> sorted = off;
  Sort(sorted, stop);
  const auto repeats = [&](double value) {
    const auto first = std::upper_bound(sorted.begin(), sorted.end(), value - alike);
    return sorted.end() - first > 1 && first[1] < value + alike;
  };
  const auto add = [&](std::size_t i, double degrees) {
    aside.push_back({strokes[i]->line, strokes[i]->pass, degrees, out && strokes[i]->pass == 0});
  };
  const auto usualOff = [&](double value) { return std::abs(value) <= most || repeats(value); };
  if (!usualOff(off[0]) && usualOff(off[1])) add(0, -off[0]);
  for (std::size_t i = 1; i + 1 < n && !stop.stop_requested(); ++i)
    if (!usualOff(off[i - 1]) && !usualOff(off[i]) && std::abs(off[i - 1] + off[i]) < alike)
      add(i, off[i - 1]);
  if (!usualOff(off[n - 2]) && usualOff(off[n - 3])) add(n - 1, off[n - 2]);
}

// Steps within a turn that are alike; they may lie on both sides of 0.
struct Alike {
  std::size_t count = 0;
  double from = 0;  // the smallest of them

  bool Has(double step, double width) const { return count > 0 && Wrapped(step - from) <= width; }
};

// The most of them that lie within `width`, less than a turn.
Alike MostAlike(const std::vector<double>& sorted, double width) {
  Alike most;
  const std::size_t n = sorted.size();
  for (std::size_t first = 0, end = 0; first < n; ++first) {
    end = std::max(end, first);
    while (end < first + n && sorted[end % n] + (end < n ? 0 : 360) - sorted[first] <= width) ++end;
    if (end - first > most.count) most = {end - first, sorted[first]};
  }
  return most;
}

// Takes what a direction has to say of the steps, if fewer of them are alike than in the other.
void CountAlike(const std::vector<double>& angles, const std::vector<const Stroke*>& strokes,
                double bandDegrees, Pattern& pattern, const std::stop_token& stop) {
  constexpr std::size_t kFewestSteps = 6;
  std::vector<double> steps;
  for (std::size_t i = 1; i < angles.size(); ++i)
    if (strokes[i - 1]->pass > 0) steps.push_back(Wrapped(angles[i] - angles[i - 1]));
  if (steps.size() < kFewestSteps) return;
  const double width = std::min(180.0, 2 * std::max(bandDegrees / 5, 2 * kAngleRounding + 1e-6));
  std::vector<double> sorted = steps;
  Sort(sorted, stop);
  const Alike within = MostAlike(sorted, width);
  std::erase_if(sorted, [&](double step) { return within.Has(step, width); });
  const Alike between = MostAlike(sorted, width);
  const auto all = static_cast<int>(steps.size());
  const auto alike = all - static_cast<int>(sorted.size()) + static_cast<int>(between.count);
  if (pattern.steps > 0 &&
      static_cast<long long>(alike) * pattern.steps >= static_cast<long long>(pattern.alikeSteps) * all)
    return;
  pattern.steps = all;
  pattern.alikeSteps = alike;
  for (std::size_t i = steps.size(); i-- > 0;)
    if (!within.Has(steps[i], width) && !between.Has(steps[i], width))
      pattern.oddLine = strokes[strokes.size() - steps.size() + i]->line;
}

// How far `next` lies from a band that is laid. Within the bands that is the nearer neighbour; where the laid
// ones end beside it, the way that is left to go.
double MissOf(double next, const std::vector<double>& angles, double same, const std::stop_token& stop) {
  std::vector<double> places;
  places.reserve(angles.size());
  for (const double angle : angles) places.push_back(Wrapped(angle - next));
  Sort(places, stop);
  std::vector<double> steps;
  for (std::size_t i = 1; i < places.size(); ++i)
    if (places[i] - places[i - 1] > same) steps.push_back(places[i] - places[i - 1]);
  const double ahead = places.front(), behind = 360 - places.back();
  if (steps.empty()) return std::min(ahead, behind);
  const auto middle = steps.begin() + static_cast<std::ptrdiff_t>(steps.size() / 2);
  std::nth_element(steps.begin(), middle, steps.end());
  if (ahead + behind <= 1.5 * *middle) return std::min(ahead, behind);
  return std::abs(behind - *middle) < std::abs(ahead - *middle) ? ahead : behind;
}

}  // namespace

Pattern FindPattern(const Layer& layer, const Mandrel& mandrel, double zLow, double zHigh,
                    double unitsPerInch, const std::stop_token& stop) {
  const Finder finder(layer, mandrel, unitsPerInch, stop);
  const double middle = (zLow + zHigh) / 2;
  const double radius = mandrel.RadiusAt(middle);
  const double tangent = Tangent(finder.typical(), radius);
  Pattern pattern;
  pattern.windingAngle = std::atan(tangent) / kRadians;
  pattern.bandDegrees = BandWithinATurn(layer.band, tangent, radius);
  const double thick = std::max(mandrel.leftRadius, mandrel.rightRadius);
  pattern.leastBand = BandWithinATurn(layer.band, Tangent(finder.typical(), thick), thick);
  pattern.axialBand = tangent > 0 ? AxialBand(layer.band, tangent) : std::numeric_limits<double>::infinity();

  // At each Z the direction whose bands lie closer counts.
  Gaps closest, outGaps, backGaps;
  for (const double share : {0.02, 0.5, 0.98}) {
    if (stop.stop_requested()) return pattern;
    const double z = zLow + (zHigh - zLow) * share;
    const Gaps out = finder.GapsAt(z, true), back = finder.GapsAt(z, false);
    outGaps.Take(out);
    backGaps.Take(back);
    closest.Take(back.largest < out.largest ? back : out);
  }
  pattern.bands = std::max(outGaps.bands, backGaps.bands);
  pattern.smallestGap = closest.smallest;
  pattern.largestGap = closest.largest;
  pattern.roundedGap = closest.rounded;

  std::vector<const Stroke*> strokes;
  const double same = pattern.bandDegrees / 10;
  const std::vector<double> out = finder.ProgressAt(middle, true, strokes);
  // A carriage shift lays its second way out on top of the first: its ways back tell. So do those of a
  // shifted mandrel where the ways out have gaps of their own: on a taper, or behind a first traverse from
  // elsewhere. Where the head wraps the ends, the end of the last pass alone tells.
  const bool backCloser = backGaps.largest < outGaps.largest - layer.band / 10;
  const bool byBack = layer.carriageShift || out.size() < 2 || (!layer.wraps && backCloser);
  CountAlike(out, strokes, pattern.bandDegrees, pattern, stop);
  if (stop.stop_requested()) return pattern;
  if (!layer.carriageShift) FindAside(out, strokes, true, pattern.leastBand, pattern.aside, stop);
  if (!byBack) {
    const double next = layer.endMandrel + (middle - layer.endZ) * strokes.back()->DegreesPerLength();
    pattern.miss = MissOf(next, out, same, stop);
  }
  const std::vector<double> back = finder.ProgressAt(middle, false, strokes);
  CountAlike(back, strokes, pattern.bandDegrees, pattern, stop);
  if (stop.stop_requested()) return pattern;
  FindAside(back, strokes, false, pattern.leastBand, pattern.aside, stop);
  if (byBack && back.size() > 1)
    pattern.miss = MissOf(back.back() + back.back() - back[back.size() - 2], back, same, stop);
  pattern.drift = finder.Drift(radius);
  return pattern;
}

}  // namespace torvane::executor
