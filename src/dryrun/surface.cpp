#include "dryrun/surface.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

namespace torvane::dryrun {

using executor::Laid;
using executor::Layer;
using executor::LayerPlace;
using executor::Stroke;

namespace {

// The edge of a band is lighter, so that neighbours stand apart; where a band is thinner than this many
// pixels it would be all edge.
constexpr double kThinBand = 2.5;
constexpr double kEdge = 0.24;  // of half the width, at most
constexpr double kEdgeRows = 5;

QColor Mixed(const QColor& a, const QColor& b, double share) {
  const auto mix = [share](int x, int y) { return static_cast<int>(std::lround(x + (y - x) * share)); };
  return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

// Half of what a band reaches round the mandrel at that Z, in degrees.
double HalfReach(const Stroke& stroke, const LayerPlace& place, double z) {
  const double radius = place.mandrel.RadiusAt(z);
  const double tangent = executor::Tangent(stroke, radius);
  return place.band * std::sqrt(1 + tangent * tangent) / radius / executor::kRadians / 2;
}

}  // namespace

void Columns::Add(int from, int to) {
  if (from >= to) return;
  if (Empty()) {
    first = from;
    end = to;
  } else {
    first = std::min(first, from);
    end = std::max(end, to);
  }
}

void Surface::Reshape(const QSize& pixels, const ZScale& scale) {
  image_ = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
  scale_ = scale;
  Clear();
}

void Surface::Clear() {
  if (!image_.isNull()) image_.fill(Qt::transparent);
  laid_ = Laid();
  upToDate_ = false;
}

Columns Surface::Follow(const executor::Player& player, int milliseconds) {
  Columns changed;
  if (image_.isNull()) return changed;
  if (player.RunNumber() != run_ || player.LayerIndex() != layer_) {
    Clear();
    run_ = player.RunNumber();
    layer_ = player.LayerIndex();
    changed.Add(0, image_.width());
  }
  upToDate_ = true;
  const Layer* layer = player.LayerShown();
  const LayerPlace* place = player.PlaceShown();
  if (layer == nullptr || place == nullptr || !(place->band > 0) || !(place->mandrel.leftRadius > 0) ||
      !(place->mandrel.rightRadius > 0))
    return changed;
  // Up to whole columns alone: a column is filled in one go, or its edges would show.
  Laid now = player.LaidSoFar();
  if (now.partly) {
    const Stroke& stroke = layer->strokes[now.strokes];
    const double x = scale_.XAt(now.z);
    now.z = scale_.ZAt(stroke.z1 < stroke.z0 ? std::floor(x) : std::ceil(x));
    const bool behind = stroke.z1 < stroke.z0 ? now.z >= stroke.z0 : now.z <= stroke.z0;
    if (behind) now.partly = false;
  }
  QElapsedTimer spent;
  spent.start();
  QPainter painter(&image_);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  // A stroke at a time, so that the time can be kept.
  while (upToDate_ && laid_.strokes <= now.strokes) {
    const Laid next = laid_.strokes == now.strokes ? now : Laid{laid_.strokes + 1, false, 0};
    const bool begins = !laid_.partly && (next.partly || next.strokes > laid_.strokes);
    if (layer->wraps && player.course().domes && begins && laid_.strokes > 0)
      LayWrap(painter, layer->strokes[laid_.strokes - 1], layer->strokes[laid_.strokes], *place, changed);
    executor::ForEachPiece(*layer, laid_, next, [&](const Stroke& stroke, double z0, double z1) {
      Lay(painter, stroke, z0, z1, *place, changed);
    });
    laid_ = next;
    if (next.strokes == now.strokes && next.partly == now.partly && next.z == now.z) break;
    if (spent.elapsed() >= milliseconds) upToDate_ = false;
  }
  return changed;
}

void Surface::Lay(QPainter& painter, const Stroke& stroke, double z0, double z1, const LayerPlace& place,
                  Columns& changed) const {
  const QColor band = theme_[stroke.out ? Token::BandOut : Token::BandBack];
  painter.setBrush(band);
  Fill(painter, stroke, z0, z1, place, -1, 1);
  const double thickness = HalfReach(stroke, place, (z0 + z1) / 2) * 2 / 360 * image_.height();
  // Seen in the unrolled picture, which is lower than this image.
  if (thickness / 5 > kThinBand / 2) {
    painter.setBrush(Mixed(band, theme_[Token::Drawing], 0.5));
    Fill(painter, stroke, z0, z1, place, 1 - std::min(kEdge, 2 * kEdgeRows / thickness), 1);
  }
  changed.Add(std::max(0, static_cast<int>(std::floor(scale_.XAt(std::max(z0, z1)))) - 1),
              std::min(image_.width(), static_cast<int>(std::ceil(scale_.XAt(std::min(z0, z1)))) + 1));
}

// Each turn is cut out by itself: a hoop goes round a hundred times.
void Surface::Fill(QPainter& painter, const Stroke& stroke, double z0, double z1, const LayerPlace& place,
                   double low, double high) const {
  const double half0 = HalfReach(stroke, place, z0), half1 = HalfReach(stroke, place, z1);
  const double a0 = stroke.AngleAt(z0), a1 = stroke.AngleAt(z1);
  const double low0 = a0 + low * half0, high0 = a0 + high * half0;
  const double low1 = a1 + low * half1, high1 = a1 + high * half1;
  const double rows = image_.height();
  const int firstTurn = static_cast<int>(std::floor(std::min(low0, low1) / 360));
  const int lastTurn = static_cast<int>(std::floor(std::max(high0, high1) / 360));
  // The shares of the way at which a rising edge comes to an angle.
  const auto shareAt = [](double from, double to, double angle, double flat) {
    return to == from ? flat : std::clamp((angle - from) / (to - from), 0.0, 1.0);
  };
  for (int turn = firstTurn; turn <= lastTurn; ++turn) {
    const double bottom = turn * 360.0, top = bottom + 360;
    double from = 0, to = 1;
    if (a1 >= a0) {
      from = shareAt(high0, high1, bottom, 0);
      to = shareAt(low0, low1, top, 1);
    } else {
      from = shareAt(low0, low1, top, 0);
      to = shareAt(high0, high1, bottom, 1);
    }
    if (from >= to) continue;
    const auto point = [&](double share, double edge0, double edge1) {
      const double angle = edge0 + (edge1 - edge0) * share;
      return QPointF(scale_.XAt(z0 + (z1 - z0) * share), rows * (1 - (angle - bottom) / 360));
    };
    const QPointF corners[] = {point(from, low0, low1), point(to, low0, low1), point(to, high0, high1),
                               point(from, high0, high1)};
    painter.drawConvexPolygon(corners, 4);
  }
}

void Surface::LayWrap(QPainter& painter, const Stroke& before, const Stroke& behind, const LayerPlace& place,
                      Columns& changed) const {
  const double turn = behind.m0 - before.m1;
  if (std::abs(before.z1 - behind.z0) > place.band || turn < 90 || turn > 400) return;
  FillWrap(painter, before, behind, place, -1, 1);
  FillWrap(painter, before, behind, place, 1 - kEdge, 1);
  const double radius = place.mandrel.RadiusAt(before.z1);
  const double end = before.z1 + (before.z1 > before.z0 ? radius : -radius);
  changed.Add(std::max(0, static_cast<int>(scale_.XAt(std::max(end, before.z1))) - 1),
              std::min(image_.width(), static_cast<int>(scale_.XAt(std::min(end, before.z1))) + 2));
}

// On a sphere the band runs along a great circle, and its edges along circles beside it. The circle leaves
// the cylinder at the winding angle and is back after half a turn; what the mandrel turns more, for the shift
// to the next circuit, is spread over it.
void Surface::FillWrap(QPainter& painter, const Stroke& before, const Stroke& behind, const LayerPlace& place,
                       double low, double high) const {
  constexpr int kSteps = 40;
  constexpr double kOver = 1.3;  // pieces overlap, or their edges would show
  const double radius = place.mandrel.RadiusAt(before.z1);
  const double angle = std::atan(executor::Tangent(before, radius));
  const double outwards = before.z1 > before.z0 ? radius : -radius;
  const double turn = (behind.m0 - before.m1) / 180;
  const double rows = image_.height();
  // At a share of the way, beside the band's middle by a share of half its width: Z and angle.
  const auto point = [&](double step, double beside) {
    const double way = executor::kPi * step / kSteps, off = beside * place.band / 2 / radius;
    const double out = std::cos(off) * std::sin(way) * std::cos(angle) + std::sin(off) * std::sin(angle);
    const double up = std::cos(off) * std::cos(way);
    const double round = std::cos(off) * std::sin(way) * std::sin(angle) - std::sin(off) * std::cos(angle);
    double degrees = std::atan2(round, up) / executor::kRadians;
    if (degrees < -90) degrees += 360;
    return QPointF(scale_.XAt(before.z1 + outwards * std::max(0.0, out)), before.m1 + degrees * turn);
  };
  for (int step = 0; step < kSteps; ++step) {
    const QColor band = theme_[(step < kSteps / 2 ? before : behind).out ? Token::BandOut : Token::BandBack];
    painter.setBrush(low > 0 ? Mixed(band, theme_[Token::Drawing], 0.5) : band);
    const std::array<QPointF, 4> corners = {point(step, low), point(step + kOver, low),
                                            point(step + kOver, high), point(step, high)};
    const auto [least, most] = std::minmax_element(
        corners.begin(), corners.end(), [](const QPointF& a, const QPointF& b) { return a.y() < b.y(); });
    for (double turns = std::floor(least->y() / 360); turns <= std::floor(most->y() / 360); ++turns) {
      std::array<QPointF, 4> shown = corners;
      for (QPointF& corner : shown) corner.setY(rows * (1 - (corner.y() - turns * 360) / 360));
      painter.drawPolygon(shown.data(), 4);
    }
  }
}

}  // namespace torvane::dryrun
