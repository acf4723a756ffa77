// The number of one statement: a double, or the failure of the statement that needs it.
#pragma once

#include <cmath>

#include "text/mask.h"

namespace torvane {

// Two values of pi stand in the formulas and are not interchangeable: machines have been tuned to the
// figures that each of them gives.
inline constexpr double kPi = 3.1415927;
inline constexpr double kShortPi = 3.14159;

struct Masked;
struct Plain;

// The value of an expression. A text that is no number, a division by zero, an overflow, the root of a
// negative give a failure, and a failure passes through every operator: the statement has no effect.
class Number {
 public:
  constexpr Number(double value) : value_(value), good_(IsFinite(value)) {}  // NOLINT: literals in formulas
  static constexpr Number Failure() { return Number(); }

  constexpr bool good() const { return good_; }
  // Only of a good number.
  constexpr double value() const { return value_; }
  // For a step that goes on with 0 where its number fails.
  constexpr double valueOr0() const { return good_ ? value_ : 0; }

  // On its way to text, which is the only road there: under a mask, or as plain number text. `routine` is the
  // one that asks, for a trace of what is skipped.
  constexpr Masked as(Mask mask, const char* routine = __builtin_FUNCTION()) const;
  constexpr Plain plain(const char* routine = __builtin_FUNCTION()) const;

 private:
  constexpr Number() = default;
  static constexpr bool IsFinite(double v) { return v - v == 0; }
  double value_ = 0;
  bool good_ = false;
};

namespace detail {
constexpr Number Both(Number a, Number b, double result) {
  return a.good() && b.good() ? Number(result) : Number::Failure();
}
}  // namespace detail

constexpr Number operator-(Number a) { return a.good() ? Number(-a.value()) : a; }
constexpr Number operator+(Number a, Number b) { return detail::Both(a, b, a.value() + b.value()); }
constexpr Number operator-(Number a, Number b) { return detail::Both(a, b, a.value() - b.value()); }
constexpr Number operator*(Number a, Number b) { return detail::Both(a, b, a.value() * b.value()); }
constexpr Number operator/(Number a, Number b) {
  return b.value() == 0 ? Number::Failure() : detail::Both(a, b, a.value() / b.value());
}

struct Masked {
  Number value = Number::Failure();
  Mask mask{};
  const char* routine = "";
};

struct Plain {
  Number value = Number::Failure();
  const char* routine = "";
};

constexpr Masked Number::as(Mask mask, const char* routine) const { return {*this, mask, routine}; }
constexpr Plain Number::plain(const char* routine) const { return {*this, routine}; }

// A comparison that cannot be made holds for neither side of an "is" and "is not".
enum class Comparison { No, Yes, Impossible };

constexpr bool holds(Comparison c) { return c == Comparison::Yes; }

namespace detail {
constexpr Comparison Compared(Number a, Number b, bool result) {
  if (!a.good() || !b.good()) return Comparison::Impossible;
  return result ? Comparison::Yes : Comparison::No;
}
}  // namespace detail

constexpr Comparison operator<(Number a, Number b) { return detail::Compared(a, b, a.value() < b.value()); }
constexpr Comparison operator>(Number a, Number b) { return detail::Compared(a, b, a.value() > b.value()); }
constexpr Comparison operator<=(Number a, Number b) { return detail::Compared(a, b, a.value() <= b.value()); }
constexpr Comparison operator>=(Number a, Number b) { return detail::Compared(a, b, a.value() >= b.value()); }
constexpr Comparison operator==(Number a, Number b) { return detail::Compared(a, b, a.value() == b.value()); }
constexpr Comparison operator!=(Number a, Number b) { return detail::Compared(a, b, a.value() != b.value()); }

// A routine's own number that outlives a statement: a failed right side leaves it as it was.
class Kept {
 public:
  constexpr Kept() = default;
  explicit constexpr Kept(double start) : value_(start) {}
  constexpr Kept& operator=(Number n) {
    if (n.good()) value_ = n.value();
    return *this;
  }
  constexpr operator Number() const { return value_; }  // NOLINT: it stands for its number
  constexpr double value() const { return value_; }
  constexpr bool operator==(const Kept& other) const { return value_ == other.value_; }

 private:
  double value_ = 0;
};

namespace detail {
template <class Function>
Number Applied(Function function, Number x) {
  return x.good() ? Number(function(x.value())) : x;
}
}  // namespace detail

// The next whole number downward.
inline Number Int(Number x) {
  return detail::Applied([](double v) { return std::floor(v); }, x);
}
// The nearest whole number, a tie going to the even one.
inline Number Whole(Number x) {
  return detail::Applied([](double v) { return std::nearbyint(v); }, x);
}
inline Number Abs(Number x) {
  return detail::Applied([](double v) { return std::fabs(v); }, x);
}
// Of an angle in radians.
inline Number Sin(Number x) {
  return detail::Applied([](double v) { return std::sin(v); }, x);
}
inline Number Cos(Number x) {
  return detail::Applied([](double v) { return std::cos(v); }, x);
}
inline Number Tan(Number x) {
  return detail::Applied([](double v) { return std::tan(v); }, x);
}
// Arc tangent, radians between -pi/2 and pi/2.
inline Number Atn(Number x) {
  return detail::Applied([](double v) { return std::atan(v); }, x);
}
// `exponent` 0.5 is the root, which fails of a negative.
inline Number Pow(Number x, double exponent) {
  return detail::Applied([exponent](double v) { return std::pow(v, exponent); }, x);
}

}  // namespace torvane
