#include "executor/proof/cover.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <tuple>

namespace torvane::executor {

namespace {

// Rows times traverses.
constexpr double kMostCrossings = 4e8;
// After so many of them it is asked whether a row is covered already.
constexpr std::size_t kTracksAtOnce = 2048;

// An angle as a share of a turn: a turn is 2 to the 64th, so that sums wrap round by themselves.
using Phase = std::uint64_t;

Phase PhaseOf(double degrees) {
  double share = std::fmod(degrees, 360) / 360;
  if (share < 0) share += 1;
  return share >= 1 ? 0 : static_cast<Phase>(std::ldexp(share, 64));
}

// The places round the mandrel at one Z; their number is a power of two.
class Ring {
 public:
  explicit Ring(int bits) : shift_(64 - bits), words_((std::size_t{1} << bits) / 64) {}

  std::size_t Places() const { return words_.size() * 64; }
  void Clear() { std::fill(words_.begin(), words_.end(), 0); }

  // Covers the places whose middles lie within.
  void Cover(Phase from, Phase width) {
    const Phase half = Phase{1} << (shift_ - 1);
    if (width > ~(2 * half)) {
      Fill(0, Places());
      return;
    }
    const std::size_t a = (from + half - 1) >> shift_, b = (from + width + half - 1) >> shift_;
    if (a <= b) {
      Fill(a, b);
    } else {
      Fill(a, Places());
      Fill(0, b);
    }
  }

  std::size_t Covered() const {
    std::size_t sum = 0;
    for (const std::uint64_t word : words_) sum += static_cast<std::size_t>(std::popcount(word));
    return sum;
  }

 private:
  void Fill(std::size_t from, std::size_t to) {
    if (from >= to) return;
    const std::size_t a = from / 64, b = (to - 1) / 64;
    const std::uint64_t first = ~std::uint64_t{0} << (from % 64);
    const std::uint64_t last = ~std::uint64_t{0} >> (63 - (to - 1) % 64);
    if (a == b) {
      words_[a] |= first & last;
      return;
    }
    words_[a] |= first;
    for (std::size_t i = a + 1; i < b; ++i) words_[i] = ~std::uint64_t{0};
    words_[b] |= last;
  }

  int shift_;
  std::vector<std::uint64_t> words_;
};

// A traverse over the rows that it crosses.
struct Track {
  std::size_t firstRow = 0, behindRow = 0;
  Phase at = 0, step = 0;
  double perRadius = 0;  // its tangent for a radius of 1
  double radius = -1;    // that `width` is for
  Phase width = 0;

  Phase At(std::size_t row) const { return at + step * (row - firstRow); }
  void WidenFor(double r, double band) {
    if (r == radius) return;
    radius = r;
    const double tangent = perRadius * r;
    const double degrees = BandDegrees(band, tangent, r);
    width = degrees < 360 ? PhaseOf(degrees) : ~Phase{0};
  }
  // Where its band begins and ends.
  Phase Near(std::size_t row) const { return At(row) - width / 2; }
  Phase Far(std::size_t row) const { return Near(row) + width; }
};

// Tracks whose bands overlap on every row, as one band from the first one's near edge to the last one's far
// edge. What it covers is what each of them would.
class Sheet {
 public:
  explicit Sheet(const Track& track) : first_(track), last_(track) {}

  bool Crosses(std::size_t row) const { return row >= first_.firstRow && row < first_.behindRow; }
  void WidenFor(double radius, double band) {
    first_.WidenFor(radius, band);
    last_.WidenFor(radius, band);
  }
  void Cover(Ring& ring, std::size_t row) const {
    const Phase near = first_.Near(row);
    ring.Cover(near, last_.Far(row) - near);
  }

  // Takes a track in, if it overlaps this sheet and neither edge goes from the one to the other on the way.
  // The ways between edges change in proportion to the row, so that the first row and the last one tell.
  bool Take(const Track& track) {
    if (track.firstRow != first_.firstRow || track.behindRow != first_.behindRow || track.width >= kQuarter ||
        Turns(track, first_) || Turns(track, last_))
      return false;
    int further = 0;
    for (const std::size_t row : {track.firstRow, track.behindRow - 1}) {
      const Phase far = last_.Far(row);
      if (track.Near(row) - first_.Near(row) >= kQuarter || far - track.Near(row) >= 2 * kQuarter)
        return false;
      further += track.Far(row) - far < 2 * kQuarter ? 1 : -1;
    }
    if (further > 0) last_ = track;
    return further != 0;
  }

 private:
  static constexpr Phase kQuarter = Phase{1} << 62;

  // One turns against the other by a quarter of a turn or more.
  static bool Turns(const Track& a, const Track& b) {
    const Phase way = a.step - b.step;
    return std::min(way, Phase{0} - way) >= kQuarter / (a.behindRow - a.firstRow);
  }

  Track first_, last_;
};

std::size_t Within(double count, double low, double high) {
  return static_cast<std::size_t>(std::isnan(count) ? low : std::clamp(std::ceil(count), low, high));
}

struct Raster {
  double zLow, rowHeight;
  std::size_t rows;

  double MiddleOf(std::size_t row) const { return zLow + (static_cast<double>(row) + 0.5) * rowHeight; }
  // The first row whose middle is not below.
  std::size_t RowFrom(double z) const {
    return Within((z - zLow) / rowHeight - 0.5, 0, static_cast<double>(rows));
  }

  Track Lay(const Stroke& stroke) const {
    Track track;
    track.firstRow = RowFrom(std::min(stroke.z0, stroke.z1));
    track.behindRow = RowFrom(std::max(stroke.z0, stroke.z1));
    track.at = PhaseOf(stroke.AngleAt(MiddleOf(track.firstRow)));
    track.step = PhaseOf(stroke.DegreesPerLength() * rowHeight);
    track.perRadius = Tangent(stroke, 1);
    return track;
  }
};

// Where the radius is the same all along, a band is as wide on every row, and those that lie side by side go
// together. A taper's have a row each time.
std::vector<Sheet> SheetsOf(std::vector<Track>& tracks, const Mandrel& mandrel, double band) {
  std::erase_if(tracks, [](const Track& track) { return track.firstRow >= track.behindRow; });
  const bool even = mandrel.leftRadius == mandrel.rightRadius;
  if (even) {
    for (Track& track : tracks) track.WidenFor(mandrel.leftRadius, band);
    const auto place = [](const Track& track) {
      return std::tuple(track.firstRow, track.behindRow, track.step >> 63U, track.Near(track.firstRow));
    };
    std::sort(tracks.begin(), tracks.end(),
              [&place](const Track& a, const Track& b) { return place(a) < place(b); });
  }
  std::vector<Sheet> sheets;
  for (const Track& track : tracks)
    if (!even || sheets.empty() || !sheets.back().Take(track)) sheets.emplace_back(track);
  return sheets;
}

}  // namespace

double CoveredShare(const Layer& layer, const Mandrel& mandrel, double zLow, double zHigh, int rowsAtMost,
                    const std::stop_token& stop) {
  // The narrowest reach of a band sets the raster.
  double reach = 360, axial = zHigh - zLow;
  const double widest = std::max(mandrel.leftRadius, mandrel.rightRadius);
  for (const Stroke& stroke : layer.strokes) {
    if (stop.stop_requested()) return 0;
    const double tangent = Tangent(stroke, widest);
    reach = std::min(reach, BandDegrees(layer.band, tangent, widest));
    if (tangent > 0) axial = std::min(axial, AxialBand(layer.band, tangent));
  }
  const double affordable = kMostCrossings / static_cast<double>(layer.strokes.size());
  const double most = std::clamp<double>(affordable, kFewestRows, rowsAtMost);
  const std::size_t rows = Within((zHigh - zLow) / (axial / 10), kFewestRows, most);
  const Raster raster{zLow, (zHigh - zLow) / static_cast<double>(rows), rows};
  Ring ring(static_cast<int>(std::bit_width(Within(10 * 360 / reach, 1023, 16383))));
  std::vector<Track> tracks;
  for (const Stroke& stroke : layer.strokes) {
    if (stop.stop_requested()) return 0;
    tracks.push_back(raster.Lay(stroke));
  }

  std::vector<Sheet> sheets = SheetsOf(tracks, mandrel, layer.band);

  std::size_t covered = 0;
  for (std::size_t row = 0; row < rows; ++row) {
    const double radius = mandrel.RadiusAt(raster.MiddleOf(row));
    ring.Clear();
    for (std::size_t i = 0; i < sheets.size(); ++i) {
      if (i % kTracksAtOnce == kTracksAtOnce - 1) {
        if (stop.stop_requested()) return 0;
        if (ring.Covered() == ring.Places()) break;
      }
      if (!sheets[i].Crosses(row)) continue;
      sheets[i].WidenFor(radius, layer.band);
      sheets[i].Cover(ring, row);
    }
    if (stop.stop_requested()) return 0;
    covered += ring.Covered();
  }
  return static_cast<double>(covered) / static_cast<double>(rows * ring.Places());
}

}  // namespace torvane::executor
