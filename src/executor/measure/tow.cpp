#include "executor/measure/tow.h"

namespace torvane::executor {

namespace {

constexpr std::size_t kMostTold = 100;
// Shorter than that it is no way.
constexpr double kNoLength = 1e-9;

}  // namespace

// The radius changes evenly along Z, so that a piece is sqrt(dz^2 + dr^2 + r^2 da^2) and the sum over r is
// an integral of sqrt(a^2 + k^2 r^2).
double LengthOf(const Stroke& stroke, const Mandrel& mandrel) {
  const double way = std::abs(stroke.z1 - stroke.z0);
  const double r0 = mandrel.RadiusAt(stroke.z0), r1 = mandrel.RadiusAt(stroke.z1);
  const double turn = std::abs(stroke.m1 - stroke.m0) * kRadians;
  if (way < kNoLength) return turn * (r0 + r1) / 2;
  const double slant = std::hypot(1, (r1 - r0) / way), k = turn / way;
  if (std::abs(r1 - r0) < kNoLength || k < kNoLength) return way * std::hypot(slant, k * (r0 + r1) / 2);
  const auto sum = [&](double r) {
    return (r * std::hypot(slant, k * r) + slant * slant / k * std::asinh(k * r / slant)) / 2;
  };
  return way * (sum(r1) - sum(r0)) / (r1 - r0);
}

double LengthOf(const EndTurn& turn, const Mandrel& mandrel) {
  return std::hypot(turn.along, mandrel.RadiusAt(turn.z) * turn.degrees * kRadians);
}

void Spools::Take(const Layer& layer, const TowPiece& piece) {
  if (!(piece.length > 0) || !std::isfinite(piece.length)) return;
  if (used_ == 0) left_ = length_;
  used_ += piece.length;
  if (!(length_ > 0)) return;
  if (piece.length <= left_) {
    left_ -= piece.length;
    return;
  }
  // A splice is where a spool runs out; one that runs out with the winding needs none behind it.
  const double beyond = piece.length - left_;
  const double more = std::ceil(beyond / length_) - 1;
  double at = left_;
  for (double i = 0; i <= more && told_.size() < kMostTold; ++i, at += length_)
    told_.push_back({layer.number, layer.passes[static_cast<std::size_t>(piece.pass)].number,
                     piece.z0 + (piece.z1 - piece.z0) * (at / piece.length), piece.end});
  splices_ = std::min(splices_ + more + 1, 1e15);
  left_ = length_ - (beyond - more * length_);
}

}  // namespace torvane::executor
