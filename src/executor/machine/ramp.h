// Axes that take their time to reach a speed. An acceleration of 0 is none: the speed is there at once.
#pragma once

#include <algorithm>
#include <cmath>

namespace torvane::executor {

// Seconds for a way from rest to rest. There must be a speed.
inline double RestToRest(double way, double speed, double acceleration) {
  way = std::abs(way);
  speed = std::abs(speed);
  if (!(acceleration > 0)) return way / speed;
  return way * acceleration >= speed * speed ? way / speed + speed / acceleration
                                             : 2 * std::sqrt(way / acceleration);
}

// The way from rest in so many seconds.
inline double WayFromRest(double seconds, double speed, double acceleration) {
  if (!(acceleration > 0)) return speed * seconds;
  const double ramp = speed / acceleration;
  return seconds < ramp ? acceleration * seconds * seconds / 2 : speed * (seconds - ramp / 2);
}

// A mandrel that turns on, on its way from one speed to another. Degrees and seconds.
class Spin {
 public:
  explicit Spin(double acceleration) : acceleration_(acceleration) {}

  double Target() const { return target_; }
  void SpeedUpTo(double speed) {
    target_ = speed;
    if (!(acceleration_ > 0)) now_ = speed;
  }
  double Way(double seconds) const {
    const double ramp = RampSeconds();
    if (seconds >= ramp) return RampWay() + target_ * (seconds - ramp);
    return now_ * seconds + Gain() * seconds * seconds / 2;
  }
  // Until it has turned so far; it must come to turn.
  double Seconds(double degrees) const {
    const double way = RampWay();
    if (degrees >= way) return RampSeconds() + (degrees - way) / target_;
    return (std::sqrt(std::max(0.0, now_ * now_ + 2 * Gain() * degrees)) - now_) / Gain();
  }
  void Pass(double seconds) { now_ = seconds >= RampSeconds() ? target_ : now_ + Gain() * seconds; }
  // Until it runs at its target.
  double RampSeconds() const { return now_ == target_ ? 0 : std::abs(target_ - now_) / acceleration_; }

 private:
  double RampWay() const { return (now_ + target_) / 2 * RampSeconds(); }
  double Gain() const { return target_ < now_ ? -acceleration_ : acceleration_; }

  double acceleration_;
  double target_ = 0, now_ = 0;
};

}  // namespace torvane::executor
