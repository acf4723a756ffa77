#include "calc/speed_search.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "design/units.h"

namespace torvane {

namespace {

constexpr double kStep = 0.025;
constexpr double kLimitStep = 5;
constexpr double kCeilingInches = 20.0;
constexpr double kCeilingMillimetres = 500.0;

// A stretch of a value that is changed by the same step again and again in doubles. Within one power of two
// every rounded change is the same, so the stretch is an exact progression: start + k * change. It ends
// where the next change would be another one.
struct Stretch {
  double start = 0;
  double step = 0;    // what is added
  double change = 0;  // what that comes to
  double count = 0;   // how many changes it is sure of; 0 if the value no longer moves

  // The first may leave the power of two, so it is taken as it comes.
  double At(double k) const { return k == 1 ? start + step : start + k * change; }
};

Stretch StretchFrom(double start, double step) {
  const double next = start + step;
  const double change = next - start;
  if (change == 0 || (next + step) - next != change) return {start, step, change, change == 0 ? 0.0 : 1.0};
  int exponent = 0;
  std::frexp(start, &exponent);
  const double low = std::ldexp(0.5, exponent);
  const double room = step > 0 ? 2 * low - start : start - low;
  const double count = std::floor(room / std::fabs(change)) - 2;
  return {start, step, change, std::max(count, 1.0)};
}

// The smallest k from 1 to `count` for which `reached(k)`, which stays true once it is; `count` if none.
template <class Reached>
double FirstReached(double count, Reached reached) {
  double low = 0;
  double high = count;
  while (high - low > 1) {
    const double middle = std::floor((low + high) / 2);
    (reached(middle) ? high : low) = middle;
  }
  return high;
}

// The first of value, value + step, value + 2 steps ..., each added in doubles, for which `reached`
// holds; nothing if the value stops moving before.
template <class Reached>
std::optional<double> Stepped(double value, double step, Reached reached) {
  while (!reached(value)) {
    const Stretch stretch = StretchFrom(value, step);
    if (stretch.count == 0) return std::nullopt;
    const double k = FirstReached(stretch.count, [&](double i) { return reached(stretch.At(i)); });
    value = stretch.At(k);
  }
  return value;
}

// The mandrel speed that a carriage speed asks for; 0 where it cannot be worked out.
struct MandrelSpeed {
  Number tangent;
  Number circumference;

  double At(double carriageSpeed) const {
    const Number surfaceSpeed = tangent * carriageSpeed;
    return (60 * surfaceSpeed / circumference).valueOr0();
  }
};

struct Speeds {
  double rpm = 0;
  double carriage = 0;
};

// What a search step by step comes to, found faster. The sequence of carriage speeds is the same in every
// round and only the limit grows, so the limit that the slowest speed of the sequence meets is found first,
// then the first speed of the sequence under it.
std::optional<Speeds> Search(const MandrelSpeed& mandrel, double classSpeed, double limit, double ceiling) {
  const double first = classSpeed;
  const double second = first - kStep;
  const double top = mandrel.At(first);
  if (!(top > limit)) return Speeds{top, first};

  const bool moves = second >= kStep && second <= ceiling;
  double slowest = first;
  if (moves) {
    const auto below = Stepped(second, -kStep, [](double speed) { return speed - kStep < kStep; });
    if (!below) return std::nullopt;
    slowest = *below;
  }
  const double least = std::min(top, mandrel.At(slowest));
  const auto raised = Stepped(limit, kLimitStep, [least](double l) { return !(least > l); });
  if (!raised) return std::nullopt;
  if (!(top > *raised)) return Speeds{top, first};
  const auto speed =
      Stepped(second, -kStep, [&](double carriage) { return !(mandrel.At(carriage) > *raised); });
  if (!speed) return std::nullopt;
  return Speeds{mandrel.At(*speed), *speed};
}

}  // namespace

void CalculateSpeedsForAngle(const DesignState& s, Number& mandrelRPM, Number& carriageSpeed,
                             double windingAngle, int speedClass) {
  const auto index = static_cast<std::size_t>(speedClass) - 1;
  const double limit = s.iMaxMandrelRPM[index];
  if (windingAngle == 90) {
    mandrelRPM = limit;
    const Number speed = BandWidth(s, s.Panel()) * limit / 60;
    if (speed.good()) carriageSpeed = speed;
    return;
  }
  Kept classSpeed;
  classSpeed = InUnits(s, s.iMaxCarriageSpeeds[index], false);
  const Number circumference = s.gShow4Axis ? number(s.txtDia(0)) * kPi
                                            : (number(s.Diameter_Right) + number(s.Diameter_Left)) * kPi / 2;
  const MandrelSpeed mandrel{Tan(windingAngle * kPi / 180), circumference};
  const auto speeds =
      Search(mandrel, classSpeed.value(), limit, s.InInches() ? kCeilingInches : kCeilingMillimetres);
  if (!speeds) return;
  mandrelRPM = speeds->rpm;
  carriageSpeed = speeds->carriage;
}

}  // namespace torvane
