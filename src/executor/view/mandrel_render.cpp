// The pictures of the mandrel's view, made of its surface pixel by pixel.
#include <algorithm>
#include <array>
#include <cmath>

#include "executor/program/number.h"
#include "executor/view/mandrel_view.h"

namespace torvane::dryrun {

namespace {

constexpr std::size_t kShades = 1024;
constexpr int kTaps = 4;

int Row(double degrees, int rows) {
  const double share = degrees / 360 - std::floor(degrees / 360);
  return std::clamp(static_cast<int>((1 - share) * rows), 0, rows - 1);
}

}  // namespace

// From the lower rim to the upper one.
std::vector<MandrelView::Shade> MandrelView::Shades(const Theme& theme) {
  std::vector<MandrelView::Shade> shades(kShades);
  const QColor low = theme[Token::MandrelLow], high = theme[Token::MandrelHigh];
  for (std::size_t i = 0; i < kShades; ++i) {
    const double up = (static_cast<double>(i) + 0.5) / kShades * 2 - 1;
    const double facing = std::sqrt(1 - up * up);
    // The light comes from in front and a little above.
    const double lit = std::clamp(0.94 * facing + 0.30 * up, 0.0, 1.0);
    const auto mix = [lit](int a, int b) { return static_cast<unsigned>(a + (b - a) * lit); };
    shades[i] = {static_cast<unsigned>(256 * (0.62 + 0.38 * lit)), mix(low.red(), high.red()),
                 mix(low.green(), high.green()), mix(low.blue(), high.blue()),
                 std::asin(up) * 180 / executor::kPi};
  }
  return shades;
}

// Every row is the mean of the surface's rows that it stands for.
void MandrelView::RenderUnrolled(const Columns& columns) {
  const QImage& surface = surface_.Image();
  if (columns.Empty()) return;
  const int times = surface.height() / unrolled_.height();
  const int first = columns.first, count = std::min(columns.end, unrolled_.width()) - first;
  const qsizetype skipped = qsizetype{4} * first;
  std::vector<std::uint32_t> sums(static_cast<std::size_t>(std::max(0, count)) * 4);
  for (int y = 0; y < unrolled_.height(); ++y) {
    std::fill(sums.begin(), sums.end(), 0U);
    for (int i = 0; i < times; ++i) {
      const uchar* from = surface.constScanLine(y * times + i) + skipped;
      for (std::size_t k = 0; k < sums.size(); ++k) sums[k] += from[k];
    }
    uchar* to = unrolled_.scanLine(y) + skipped;
    const auto factor = static_cast<std::uint32_t>(65536 / times);
    for (std::size_t k = 0; k < sums.size(); ++k)
      to[k] = static_cast<uchar>((sums[k] * factor + 32768) >> 16);
  }
}

// The surface laid round the mandrel, with the light on it.
void MandrelView::RenderSide(const Columns& columns) {
  const QImage& surface = surface_.Image();
  const int first = columns.first, end = std::min(columns.end, side_.width());
  if (first >= end || !Known() || surface.isNull()) return;
  const int rows = surface.height();
  // A row of the picture is the mean of some of the surface, spread over the angle that it shows.
  std::vector<std::array<const QRgb*, kTaps>> samples(kShades);
  for (std::size_t i = 0; i < kShades; ++i) {
    // The contact point stands at the top of the picture while the mandrel is seen turning.
    const double angle = shades_[i].degrees + turned_ - 90;
    const double facing = std::max(0.2, std::cos(shades_[i].degrees * executor::kRadians));
    const double step = 2 / executor::kRadians / side_.height() / facing / kTaps;
    for (int tap = 0; tap < kTaps; ++tap)
      samples[i][static_cast<std::size_t>(tap)] = reinterpret_cast<const QRgb*>(
          surface.constScanLine(Row(angle + (tap - (kTaps - 1) / 2.0) * step, rows)));
  }
  const double widest = std::max(part_.leftRadius, part_.rightRadius);
  const double middle = side_.height() / 2.0;
  ZScale scale = room_.scale;
  scale.left = 0;
  scale.right = side_.width();
  // From the picture's middle to the rim there are half the shades.
  std::vector<float> shadesPerPixel;
  for (int x = first; x < end; ++x) {
    const double radius = RadiusAt(scale.ZAt(x + 0.5)) / widest * middle;
    shadesPerPixel.push_back(static_cast<float>(radius > 0 ? kShades / 2.0 / radius : 1e9));
  }
  for (int y = 0; y < side_.height(); ++y) {
    auto* const to = reinterpret_cast<QRgb*>(side_.scanLine(y));
    const auto up = static_cast<float>(middle - y - 0.5);
    for (int x = first; x < end; ++x) {
      const float at = up * shadesPerPixel[static_cast<std::size_t>(x - first)] + kShades / 2.0F;
      if (!(at >= 0 && at < kShades)) {
        to[x] = 0;
        continue;
      }
      const auto i = static_cast<std::size_t>(at);
      unsigned alpha = 0, red = 0, green = 0, blue = 0;
      for (const QRgb* row : samples[i]) {
        const QRgb tap = row[x];
        alpha += tap >> 24;
        red += tap >> 16 & 0xFFU;
        green += tap >> 8 & 0xFFU;
        blue += tap & 0xFFU;
      }
      const Shade& shade = shades_[i];
      const unsigned bare = 256 - alpha / kTaps - (alpha > 127U * kTaps ? 1U : 0U);
      const auto channel = [&](unsigned bands, unsigned ground) {
        return std::min(255U, (bands * shade.light / kTaps + ground * bare) >> 8);
      };
      to[x] = 0xFF000000U | channel(red, shade.red) << 16 | channel(green, shade.green) << 8 |
              channel(blue, shade.blue);
    }
  }
}

}  // namespace torvane::dryrun
