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

// What each pixel of the side view shows does not change while the mandrel turns.
void MandrelView::FitSights() {
  sights_.assign(static_cast<std::size_t>(side_.width()) * static_cast<std::size_t>(side_.height()), Sight());
  if (!Known()) return;
  const Oblique geometry = SideGeometry(devicePixelRatioF());
  const double middle = side_.height() / 2.0;
  auto sight = sights_.begin();
  for (int y = 0; y < side_.height(); ++y) {
    const double up = middle - y - 0.5;
    for (int x = 0; x < side_.width(); ++x, ++sight) {
      const auto at = geometry.SeenAt(x + 0.5, up);
      if (!at) continue;
      const double radius = std::max(geometry.RadiusAt(*at), std::abs(up));
      const double shade = (up / radius + 1) / 2 * kShades;
      sight->column = static_cast<std::int16_t>(std::clamp(*at, 0.0, side_.width() - 1.0));
      sight->shade = static_cast<std::uint16_t>(std::clamp(shade, 0.0, kShades - 1.0));
    }
  }
}

// The surface laid round the mandrel, with the light on it.
void MandrelView::RenderSide(const Columns& columns) {
  const QImage& surface = surface_.Image();
  if (columns.Empty() || !Known() || surface.isNull()) return;
  const int rows = surface.height();
  // A row of the picture is the mean of some of the surface, spread over the angle that it shows.
  std::vector<std::array<const QRgb*, kTaps>> samples(kShades);
  for (std::size_t i = 0; i < kShades; ++i) {
    // The contact point stands at the top of the picture while the mandrel is seen turning.
    const double angle = shades_[i].degrees + Turned() - 90;
    const double facing = std::max(0.2, std::cos(shades_[i].degrees * executor::kRadians));
    const double step = 2 / executor::kRadians / side_.height() / facing / kTaps;
    for (int tap = 0; tap < kTaps; ++tap)
      samples[i][static_cast<std::size_t>(tap)] = reinterpret_cast<const QRgb*>(
          surface.constScanLine(Row(angle + (tap - (kTaps - 1) / 2.0) * step, rows)));
  }
  // A column of the surface is spread over those that its depth shifts it to.
  const Oblique geometry = SideGeometry(devicePixelRatioF());
  const double reach = std::max(geometry.leftRadius, geometry.rightRadius);
  const int first = std::max(0, static_cast<int>(geometry.Across(columns.first, reach)) - 1);
  const int end = std::min(side_.width(), static_cast<int>(geometry.Across(columns.end, 0)) + 2);
  for (int y = 0; y < side_.height(); ++y) {
    auto* const to = reinterpret_cast<QRgb*>(side_.scanLine(y));
    const Sight* const sights = sights_.data() + static_cast<std::ptrdiff_t>(y) * side_.width();
    for (int x = first; x < end; ++x) {
      const Sight& sight = sights[x];
      if (sight.column < 0) {
        to[x] = 0;
        continue;
      }
      unsigned alpha = 0, red = 0, green = 0, blue = 0;
      for (const QRgb* row : samples[sight.shade]) {
        const QRgb tap = row[sight.column];
        alpha += tap >> 24;
        red += tap >> 16 & 0xFFU;
        green += tap >> 8 & 0xFFU;
        blue += tap & 0xFFU;
      }
      const Shade& shade = shades_[sight.shade];
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
