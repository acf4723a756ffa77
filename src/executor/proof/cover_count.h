// How much of a layer is covered so far, while it is wound.
#pragma once

#include <cstdint>
#include <vector>

#include "executor/machine/mandrel.h"

namespace torvane::executor {

// How far the bands of a layer are laid: so many strokes as a whole, and of the next one up to `z`.
struct Laid {
  std::size_t strokes = 0;
  bool partly = false;
  double z = 0;
};

// Hands out what has been laid between two moments: `lay(stroke, z0, z1)` for each piece.
template <class Lay>
void ForEachPiece(const Layer& layer, const Laid& from, const Laid& to, const Lay& lay) {
  for (std::size_t i = from.strokes; i < layer.strokes.size() && i <= to.strokes; ++i) {
    const Stroke& stroke = layer.strokes[i];
    if (i == to.strokes && !to.partly) return;
    const double z0 = i == from.strokes && from.partly ? from.z : stroke.z0;
    const double z1 = i == to.strokes ? to.z : stroke.z1;
    if (z0 != z1) lay(stroke, z0, z1);
  }
}

// A raster of angle and Z between the stops less half a band at each, in which bands are counted as they are
// laid. Coarser than the proof's: it is for the eye.
class CoverCount {
 public:
  static constexpr int kRows = 256, kPlaces = 1024;

  // Nothing is counted where band or diameter is unknown.
  void Begin(const Mandrel& mandrel, double band);
  void Lay(const Stroke& stroke, double z0, double z1);

  bool Known() const { return !once_.empty(); }
  // Shares of the surface, 0 to 1, under one band at least and under two at least.
  double Once() const { return Share(onceInAll_); }
  double Twice() const { return Share(twiceInAll_); }

 private:
  double Share(long long places) const {
    return Known() ? static_cast<double>(places) / (double(kRows) * kPlaces) : 0;
  }
  // How many places the band reaches round there.
  double PlacesAt(const Stroke& stroke, double z) const;
  void Cover(int row, double from, double places);
  void CoverWord(int row, std::size_t word, std::uint64_t places);

  Mandrel mandrel_;
  double band_ = 0, zLow_ = 0, rowHeight_ = 1;
  std::vector<std::uint64_t> once_, twice_;  // a bit for each place, row by row
  std::vector<int> open_;                    // of each row, the places that are not under two bands
  long long onceInAll_ = 0, twiceInAll_ = 0;
};

}  // namespace torvane::executor
