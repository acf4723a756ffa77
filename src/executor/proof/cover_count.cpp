#include "executor/proof/cover_count.h"

#include <cmath>

namespace torvane::executor {

void CoverCount::Begin(const Mandrel& mandrel, double band) {
  *this = CoverCount();
  const double margin = mandrel.TurnMargin(band);
  zLow_ = mandrel.zRight + margin;
  const double length = mandrel.zLeft - margin - zLow_;
  if (!(band > 0) || !(mandrel.leftRadius > 0) || !(mandrel.rightRadius > 0) || !(length > 0)) return;
  mandrel_ = mandrel;
  band_ = band;
  rowHeight_ = length / kRows;
  places_.assign(static_cast<std::size_t>(kRows) * kPlaces, 0);
  open_.assign(kRows, kPlaces);
}

// A row counts as crossed when its middle is; pieces that follow each other cross it once.
void CoverCount::Lay(const Stroke& stroke, double z0, double z1) {
  if (!Known()) return;
  const double low = std::min(z0, z1), high = std::max(z0, z1);
  const auto rowFrom = [&](double z) {
    return static_cast<int>(std::clamp(std::ceil((z - zLow_) / rowHeight_ - 0.5), 0.0, double(kRows)));
  };
  for (int row = rowFrom(low), end = rowFrom(high); row < end; ++row) {
    if (open_[static_cast<std::size_t>(row)] == 0) continue;
    const double z = zLow_ + (row + 0.5) * rowHeight_;
    const double radius = mandrel_.RadiusAt(z);
    const double tangent = Tangent(stroke, radius);
    const double degrees = BandDegrees(band_, tangent, radius);
    const double places = std::min(1.0, degrees / 360) * kPlaces;
    double from = std::fmod(stroke.AngleAt(z), 360) / 360 * kPlaces - places / 2;
    if (from < 0) from += kPlaces;
    Cover(row, from, places);
  }
}

void CoverCount::Cover(int row, double from, double places) {
  std::uint8_t* const at = places_.data() + static_cast<std::ptrdiff_t>(row) * kPlaces;
  const int first = static_cast<int>(std::ceil(from - 0.5));
  const int end = static_cast<int>(std::ceil(from + places - 0.5));
  for (int i = first; i < end; ++i) {
    std::uint8_t& place = at[(i + 2 * kPlaces) % kPlaces];
    if (place == 2) continue;
    (place == 0 ? once_ : twice_) += 1;
    if (++place == 2) --open_[static_cast<std::size_t>(row)];
  }
}

}  // namespace torvane::executor
