#include "executor/proof/cover_count.h"

#include <bit>
#include <cmath>

namespace torvane::executor {

namespace {

constexpr int kBits = 64;
constexpr std::size_t kWords = CoverCount::kPlaces / kBits;

}  // namespace

void CoverCount::Begin(const Mandrel& mandrel, double band) {
  *this = CoverCount();
  const double margin = mandrel.TurnMargin(band);
  zLow_ = mandrel.zRight + margin;
  const double length = mandrel.zLeft - margin - zLow_;
  if (!(band > 0) || !(mandrel.leftRadius > 0) || !(mandrel.rightRadius > 0) || !(length > 0)) return;
  mandrel_ = mandrel;
  band_ = band;
  rowHeight_ = length / kRows;
  once_.assign(kRows * kWords, 0);
  twice_ = once_;
  open_.assign(kRows, kPlaces);
}

// A row counts as crossed when its middle is; pieces that follow each other cross it once.
void CoverCount::Lay(const Stroke& stroke, double z0, double z1) {
  if (!Known()) return;
  const double low = std::min(z0, z1), high = std::max(z0, z1);
  const auto rowFrom = [&](double z) {
    return static_cast<int>(std::clamp(std::ceil((z - zLow_) / rowHeight_ - 0.5), 0.0, double(kRows)));
  };
  const double slope = stroke.DegreesPerLength();
  const bool straight = mandrel_.leftRadius == mandrel_.rightRadius;
  double places = straight ? PlacesAt(stroke, zLow_) : 0;
  for (int row = rowFrom(low), end = rowFrom(high); row < end; ++row) {
    if (open_[static_cast<std::size_t>(row)] == 0) continue;
    const double z = zLow_ + (row + 0.5) * rowHeight_;
    if (!straight) places = PlacesAt(stroke, z);
    const double turns = (stroke.m0 + (z - stroke.z0) * slope) * (1.0 / 360);
    double from = (turns - std::floor(turns)) * kPlaces - places / 2;
    if (from < 0) from += kPlaces;
    Cover(row, from, places);
  }
}

double CoverCount::PlacesAt(const Stroke& stroke, double z) const {
  const double radius = mandrel_.RadiusAt(z);
  return std::min(1.0, BandDegrees(band_, Tangent(stroke, radius), radius) / 360) * kPlaces;
}

// Word by word: a band that lies over the whole row takes no longer than some narrow ones.
void CoverCount::Cover(int row, double from, double places) {
  const int first = static_cast<int>(std::ceil(from - 0.5));
  const int end = static_cast<int>(std::ceil(from + places - 0.5));
  for (int at = first; at < end;) {
    const int place = (at + 2 * kPlaces) % kPlaces, bit = place % kBits;
    const int count = std::min(end - at, kBits - bit);
    const std::uint64_t bits = count == kBits ? ~std::uint64_t{0} : (std::uint64_t{1} << count) - 1;
    CoverWord(row, static_cast<std::size_t>(place / kBits), bits << bit);
    at += count;
  }
}

void CoverCount::CoverWord(int row, std::size_t word, std::uint64_t places) {
  const std::size_t at = static_cast<std::size_t>(row) * kWords + word;
  const int second = std::popcount(places & once_[at] & ~twice_[at]);
  onceInAll_ += std::popcount(places & ~once_[at]);
  twiceInAll_ += second;
  open_[static_cast<std::size_t>(row)] -= second;
  twice_[at] |= places & once_[at];
  once_[at] |= places;
}

}  // namespace torvane::executor
