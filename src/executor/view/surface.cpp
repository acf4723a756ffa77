#include "executor/view/surface.h"

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
// From so many turns on within one column a pixel is covered as much as any other.
constexpr double kEvenTurns = 8;
// What finished layers keep of their colours.
constexpr int kFinished = 42;  // percent
// Grounds that are kept for going back take so much room at most.
constexpr qsizetype kMostBytes = 96'000'000;

QColor Mixed(const QColor& a, const QColor& b, double share) {
  const auto mix = [share](int x, int y) { return static_cast<int>(std::lround(x + (y - x) * share)); };
  return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

// Half of what a band reaches round the mandrel at that Z, in degrees.
double HalfReach(const Stroke& stroke, const LayerPlace& place, double z) {
  const double radius = place.mandrel.RadiusAt(z);
  return executor::BandDegrees(place.band, executor::Tangent(stroke, radius), radius) / 2;
}

// Of a pixel that begins at `row`, what lies below an edge that runs straight through its column.
double ShareBelow(const Edge& edge, double row) {
  const double low = std::min(edge.from, edge.to) - row, high = std::max(edge.from, edge.to) - row;
  if (high - low < 1e-6) return std::clamp(low, 0.0, 1.0);
  // The integral of what lies below a level edge, over the heights that the edge passes.
  const auto below = [](double height) {
    return height <= 0 ? 0 : height < 1 ? height * height / 2 : height - 0.5;
  };
  return (below(high) - below(low)) / (high - low);
}

QRgb Over(QRgb ground, QRgb colour, double share) {
  const auto part = static_cast<int>(std::lround(std::min(share, 1.0) * 255));
  const auto mix = [part](int above, int below) { return (above * part + below * (255 - part) + 127) / 255; };
  return qRgba(mix(qRed(colour), qRed(ground)), mix(qGreen(colour), qGreen(ground)),
               mix(qBlue(colour), qBlue(ground)), mix(255, qAlpha(ground)));
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
  shares_.assign(static_cast<std::size_t>(pixels.height()), 0);
  scale_ = scale;
  Clear();
}

void Surface::Clear() {
  if (!image_.isNull()) image_.fill(Qt::transparent);
  grounds_.assign(1, {0, image_});
  layer_ = 0;
  laid_ = Laid();
  upToDate_ = false;
}

void Surface::TakeBack(std::size_t layer) {
  while (grounds_.size() > 1 && grounds_.back().layer > layer) grounds_.pop_back();
  image_ = grounds_.back().image;
  layer_ = grounds_.back().layer;
  laid_ = Laid();
}

void Surface::BeginLayer() {
  Fade();
  ++layer_;
  laid_ = Laid();
  // The first one is where everything begins; of the others each second one is given up when they are many.
  if (static_cast<qsizetype>(grounds_.size()) * image_.sizeInBytes() > kMostBytes && grounds_.size() > 2) {
    std::vector<Ground> kept;
    for (std::size_t i = 0; i < grounds_.size(); i += 2) kept.push_back(std::move(grounds_[i]));
    grounds_ = std::move(kept);
  }
  grounds_.push_back({layer_, image_});
}

QColor Surface::Finished(const Theme& theme, const QColor& band) {
  return Mixed(theme[Token::MandrelMid], band, kFinished / 100.0);
}

void Surface::Fade() {
  if (layer_ == 0 || grounds_.empty()) return;
  const QImage ground = grounds_.back().layer == layer_ ? grounds_.back().image : QImage();
  const QColor bare = theme_[Token::MandrelMid];
  const auto mix = [](int colour, int below, int alpha) {
    return (colour * kFinished + below * alpha / 255 * (100 - kFinished)) / 100;
  };
  for (int y = 0; y < image_.height(); ++y) {
    auto* pixels = reinterpret_cast<QRgb*>(image_.scanLine(y));
    const auto* before = ground.isNull() ? nullptr : reinterpret_cast<const QRgb*>(ground.constScanLine(y));
    for (int x = 0; x < image_.width(); ++x) {
      const QRgb pixel = pixels[x];
      const int alpha = qAlpha(pixel);
      if (alpha == 0 || (before != nullptr && before[x] == pixel)) continue;
      pixels[x] = qRgba(mix(qRed(pixel), bare.red(), alpha), mix(qGreen(pixel), bare.green(), alpha),
                        mix(qBlue(pixel), bare.blue(), alpha), alpha);
    }
  }
}

// Up to whole columns alone: a column is filled in one go, or its edges would show.
Laid Surface::WholeColumns(const Layer& layer, Laid now) const {
  if (!now.partly) return now;
  const Stroke& stroke = layer.strokes[now.strokes];
  const double x = scale_.XAt(now.z);
  now.z = scale_.ZAt(stroke.z1 < stroke.z0 ? std::floor(x) : std::ceil(x));
  const bool behind = stroke.z1 < stroke.z0 ? now.z >= stroke.z0 : now.z <= stroke.z0;
  if (behind) now.partly = false;
  return now;
}

Columns Surface::Follow(const executor::Player& player, int milliseconds) {
  Columns changed;
  if (image_.isNull()) return changed;
  QElapsedTimer spent;
  spent.start();
  if (player.RunNumber() != run_) {
    Clear();
    run_ = player.RunNumber();
    changed.Add(0, image_.width());
  }
  const std::size_t layer = player.LayerIndex();
  Laid now;
  if (layer > 0) now = WholeColumns(*player.LayerShown(), player.LaidSoFar());
  const bool sameLayer = layer == layer_ && layer > 0;
  const bool takenUp = sameLayer && (now.strokes < laid_.strokes ||
                                     (now.strokes == laid_.strokes && laid_.partly && !now.partly) ||
                                     (now.strokes == laid_.strokes && laid_.partly && now.partly &&
                                      std::abs(now.z - player.LayerShown()->strokes[now.strokes].z0) <
                                          std::abs(laid_.z - player.LayerShown()->strokes[now.strokes].z0)));
  if (layer < layer_ || takenUp) {
    TakeBack(layer);
    changed.Add(0, image_.width());
  }
  upToDate_ = true;
  while (upToDate_) {
    const auto& wound = player.course().wound;
    const Laid to =
        layer_ == layer ? now : Laid{layer_ == 0 ? 0 : wound[layer_ - 1].strokes.size(), false, 0};
    if (layer_ > 0) upToDate_ = LayUpTo(player, to, spent, milliseconds, changed);
    if (!upToDate_ || layer_ == layer) break;
    BeginLayer();
    changed.Add(0, image_.width());
    upToDate_ = spent.elapsed() < milliseconds;
  }
  return changed;
}

bool Surface::LayUpTo(const executor::Player& player, Laid now, const QElapsedTimer& spent, int milliseconds,
                      Columns& changed) {
  const Layer& layer = player.course().wound[layer_ - 1];
  const LayerPlace& place = player.course().layers[layer_ - 1];
  if (!(place.band > 0) || !(place.mandrel.leftRadius > 0) || !(place.mandrel.rightRadius > 0)) return true;
  // A stroke at a time, so that the time can be kept.
  while (laid_.strokes <= now.strokes) {
    const Laid next = laid_.strokes == now.strokes ? now : Laid{laid_.strokes + 1, false, 0};
    const bool begins = !laid_.partly && (next.partly || next.strokes > laid_.strokes);
    if (layer.wraps && player.course().domes && begins && laid_.strokes > 0)
      LayWrap(layer.strokes[laid_.strokes - 1], layer.strokes[laid_.strokes], place, changed);
    executor::ForEachPiece(layer, laid_, next, [&](const Stroke& stroke, double z0, double z1) {
      Lay(stroke, z0, z1, place, changed);
    });
    laid_ = next;
    if (next.strokes == now.strokes && next.partly == now.partly && next.z == now.z) return true;
    if (spent.elapsed() >= milliseconds) return false;
  }
  return true;
}

void Surface::Lay(const Stroke& stroke, double z0, double z1, const LayerPlace& place, Columns& changed) {
  const QColor band = theme_[stroke.out ? Token::BandOut : Token::BandBack];
  Fill(band, stroke, z0, z1, place, -1, 1);
  const double thickness = HalfReach(stroke, place, (z0 + z1) / 2) * 2 / 360 * image_.height();
  // Seen in the unrolled picture, which is lower than this image.
  if (thickness / 5 > kThinBand / 2)
    Fill(Mixed(band, theme_[Token::Drawing], 0.5), stroke, z0, z1, place,
         1 - std::min(kEdge, 2 * kEdgeRows / thickness), 1);
  changed.Add(std::max(0, static_cast<int>(std::floor(scale_.XAt(std::max(z0, z1)))) - 1),
              std::min(image_.width(), static_cast<int>(std::ceil(scale_.XAt(std::min(z0, z1)))) + 1));
}

void Surface::Fill(const QColor& colour, const Stroke& stroke, double z0, double z1, const LayerPlace& place,
                   double low, double high) {
  const double half0 = HalfReach(stroke, place, z0), half1 = HalfReach(stroke, place, z1);
  const double a0 = stroke.AngleAt(z0), a1 = stroke.AngleAt(z1);
  const double turns = std::floor(std::min(a0, a1) / 360) * 360;
  const double perDegree = image_.height() / 360.0;
  const Edge lower{(a0 + low * half0 - turns) * perDegree, (a1 + low * half1 - turns) * perDegree};
  const Edge upper{(a0 + high * half0 - turns) * perDegree, (a1 + high * half1 - turns) * perDegree};
  const double x0 = scale_.XAt(z0), x1 = scale_.XAt(z1);
  const double left = std::max(0.0, std::min(x0, x1));
  const double right = std::min<double>(image_.width(), std::max(x0, x1));
  for (double x = left; x < right; x = std::floor(x) + 1) {
    const double end = std::min(std::floor(x) + 1, right);
    const auto within = [&](const Edge& edge) {
      const double slope = (edge.to - edge.from) / (x1 - x0);
      return Edge{edge.from + slope * (x - x0), edge.from + slope * (end - x0)};
    };
    FillColumn(static_cast<int>(x), end - x, within(lower), within(upper), colour.rgb());
  }
}

// A hoop comes through a column many times: what its turns take of a pixel adds up before it is painted, or
// their edges would show. Very many of them take the same of every pixel.
void Surface::FillColumn(int x, double width, const Edge& lower, const Edge& upper, QRgb colour) {
  const int rows = image_.height();
  const double foot = std::min(lower.from, lower.to), head = std::max(upper.from, upper.to);
  const bool even = !(head - foot < kEvenTurns * rows);
  const int first = even ? 0 : static_cast<int>(std::floor(foot));
  const int end = even ? rows : static_cast<int>(std::ceil(head));
  const int begin = (first % rows + rows) % rows;
  const auto next = [rows](int row) { return row + 1 == rows ? 0 : row + 1; };
  const double thickness = (upper.from + upper.to - lower.from - lower.to) / 2;
  const double wholeFrom = std::max(lower.from, lower.to), wholeTo = std::min(upper.from, upper.to) - 1;
  for (int row = first, at = begin; row < end; ++row, at = next(at)) {
    double share = 1;
    if (even)
      share = thickness < rows ? thickness / rows : 1;
    else if (row < wholeFrom || row > wholeTo)
      share = ShareBelow(upper, row) - ShareBelow(lower, row);
    shares_[static_cast<std::size_t>(at)] += width * share;
  }
  const int touched = std::min(end - first, rows);
  for (int i = 0, at = begin; i < touched; ++i, at = next(at)) {
    double& share = shares_[static_cast<std::size_t>(at)];
    QRgb& pixel = reinterpret_cast<QRgb*>(image_.scanLine(rows - 1 - at))[x];
    pixel = Over(pixel, colour, share);
    share = 0;
  }
}

void Surface::LayWrap(const Stroke& before, const Stroke& behind, const LayerPlace& place, Columns& changed) {
  const double turn = behind.m0 - before.m1;
  if (std::abs(before.z1 - behind.z0) > place.band || turn < 90 || turn > 400) return;
  QPainter painter(&image_);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
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
