#include "window/part/part_painter.h"

#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace torvane {

namespace {

constexpr double kBesideMandrel = 15;  // from a mandrel's end to the line of its diameter
constexpr double kLegendLeft = 116,
                 kSwitch = 346;        // what the right end and the switch take of the first line
constexpr double kRadiusForText = 28;  // what a diameter's text on the mandrel needs above the axis

}  // namespace

SketchFrame TwoAxisFrame(Arrangement arrangement, const QSize& size) {
  // Kept free at both sides for the ends' fields.
  const double sides = arrangement == Arrangement::Open ? 124 : arrangement == Arrangement::Folded ? 210 : 90;
  SketchFrame frame;
  frame.area = QRectF({0, 0}, size);
  frame.postWidth = arrangement == Arrangement::Open ? 20 : 14;
  frame.postLeft = sides + frame.postWidth;
  frame.postRight = size.width() - sides - frame.postWidth - 2;
  const int middle = size.height() / 2;
  switch (arrangement) {
    case Arrangement::Open:
      frame.axisY = middle - 6;
      frame.rulerY = size.height() - 29;
      frame.mostDiameter = std::min(frame.axisY - 42, frame.rulerY - frame.axisY - 27) * 2;
      break;
    case Arrangement::Folded:
      frame.axisY = middle - 6;
      frame.rulerY = size.height() - 12;
      frame.mostDiameter = (frame.axisY - 14) * 2;
      break;
    case Arrangement::Large:
      frame.axisY = middle - 14;
      frame.rulerY = size.height() - 28;
      frame.mostDiameter = (frame.axisY - 26) * 2;
      break;
  }
  return frame;
}

PartPainter::PartPainter(const Theme& theme, const PartScene& scene, const QSize& size,
                         Arrangement arrangement, std::optional<double> heldScale, const CoverPicture* cover)
    : t_(theme),
      scene_(scene),
      arrangement_(arrangement),
      size_(size),
      f_(TwoAxisFrame(arrangement, size)),
      sketch_(theme, f_, arrangement, scene.homeRight, scene.zGrowsLeft()),
      cover_(cover) {
  double far = kExampleFar, length = kExampleFar - kExampleHome;
  double leftDiameter = kExampleDiameter, rightDiameter = kExampleDiameter;
  if (scene.complete()) {
    far = std::max(*scene.leftStop, *scene.rightStop);
    length = *scene.length;
    leftDiameter = *scene.leftDiameter;
    rightDiameter = *scene.rightDiameter;
  }
  sketch_.Scale(std::max(far, length), std::max(leftDiameter, rightDiameter));
  if (heldScale) sketch_.Keep(*heldScale);
  leftRadius_ = leftDiameter * sketch_.scale() / 2;
  rightRadius_ = rightDiameter * sketch_.scale() / 2;
  // The mandrel begins at the far stop and is as long as the part.
  const double a = XOf(far), b = XOf(std::max(0.0, far - length));
  mandrelLeft_ = std::min(a, b);
  mandrelRight_ = std::max(a, b);
}

double PartPainter::RadiusAt(double x) const {
  const double share = (x - mandrelLeft_) / std::max(mandrelRight_ - mandrelLeft_, 1.0);
  return leftRadius_ + (rightRadius_ - leftRadius_) * share;
}

double PartPainter::LinesTop() const {
  return f_.axisY - Radius() - (arrangement_ == Arrangement::Folded ? 6 : 10);
}

void PartPainter::Paint(QPainter& p) const {
  sketch_.PaintGround(p);
  sketch_.PaintPosts(p, mandrelLeft_, mandrelRight_);
  QPainterPath outline(QPointF(mandrelLeft_, f_.axisY - leftRadius_));
  outline.lineTo(mandrelRight_, f_.axisY - rightRadius_);
  outline.lineTo(mandrelRight_, f_.axisY + rightRadius_);
  outline.lineTo(mandrelLeft_, f_.axisY + leftRadius_);
  outline.closeSubpath();
  sketch_.PaintMandrel(p, outline, Radius(), scene_.complete());
  if (scene_.complete()) {
    if (cover_ != nullptr)
      PaintCover(p);
    else if (scene_.angle)
      PaintBand(p);
    if (arrangement_ == Arrangement::Open) sketch_.PaintAxis(p, mandrelLeft_, mandrelRight_);
  }
  sketch_.PaintRuler(p);
  PaintOffset(p);
  const double top = LinesTop();
  if (scene_.leftStop) sketch_.PaintFoot(p, *scene_.leftStop, top, Token::Accent);
  if (scene_.rightStop)
    sketch_.PaintFoot(p, *scene_.rightStop, top, scene_.stopTooLow ? Token::TooLow : Token::Accent);
  switch (arrangement_) {
    case Arrangement::Open:
      sketch_.PaintChips(p, {70, 5}, {size_.width() - 78.0, 5});
      cover_ == nullptr ? PaintLegend(p) : PaintCoverLegend(p);
      PaintDimensions(p);
      break;
    case Arrangement::Folded:
      sketch_.PaintChips(p, {12, size_.height() - 22.0}, {size_.width() - 12.0, size_.height() - 22.0});
      break;
    case Arrangement::Large:
      sketch_.PaintLargeEnds(p, scene_.leftStopText, scene_.rightStopText);
      break;
  }
}

// Where the drawing lays a band at an angle of the mandrel, see LayHelix.
std::optional<SurfacePlace> PartPainter::PlaceAt(const QPointF& at) const {
  if (!scene_.complete() || at.x() < mandrelLeft_ || at.x() > mandrelRight_) return std::nullopt;
  const double share = (f_.axisY - at.y()) / std::max(RadiusAt(at.x()), 1.0);
  if (std::abs(share) > 1) return std::nullopt;
  const double z = (sketch_.zGrowsLeft() ? XOf(0) - at.x() : at.x() - XOf(0)) / sketch_.scale();
  return SurfacePlace{z, std::asin(share) * 180 / std::numbers::pi};
}

std::optional<QPointF> PartPainter::PointOf(const SurfacePlace& place) const {
  const double turn = place.degrees * std::numbers::pi / 180;
  if (std::cos(turn) < 0) return std::nullopt;
  const double x = XOf(place.z);
  return QPointF(x, f_.axisY - RadiusAt(x) * std::sin(turn));
}

void PartPainter::PaintCover(QPainter& p) const {
  if (!cover_->Known()) return;
  const QRectF box(mandrelLeft_, f_.axisY - Radius(), mandrelRight_ - mandrelLeft_, 2 * Radius());
  const double ratio = p.device()->devicePixelRatioF();
  const QSize pixels(std::max(1, static_cast<int>(box.width() * ratio)),
                     std::max(1, static_cast<int>(box.height() * ratio)));
  p.drawImage(box, cover_->Draw(pixels, [&](int x, int y) {
    return PlaceAt(box.topLeft() + QPointF((x + 0.5) / ratio, (y + 0.5) / ratio));
  }));
}

void PartPainter::PaintCoverLegend(QPainter& p) const {
  p.setFont(t_.Font(12, Weight::Medium));
  p.setPen(t_[Token::Text]);
  double x = kLegendLeft;
  const auto word = [&](const QString& text, double behind) {
    p.drawText(QPointF(x, 15), text);
    x += p.fontMetrics().horizontalAdvance(text) + behind;
  };
  word(cover_->Title(), 12);
  if (!cover_->Known()) {
    p.setFont(t_.Font(12));
    p.setPen(t_[Token::Second]);
    return word(QStringLiteral("not proven"), 0);
  }
  p.setFont(t_.Font(12));
  for (const CoverPicture::Key& key : cover_->Keys()) {
    if (x + 30 + p.fontMetrics().horizontalAdvance(key.text) > size_.width() - kSwitch) return;
    p.setPen(Qt::NoPen);
    p.setBrush(key.colour);
    p.drawRoundedRect(QRectF(x, 5, 15, 11), 2, 2);
    x += 20;
    p.setPen(t_[Token::Second]);
    word(key.text, 10);
  }
}

void PartPainter::PaintLegend(QPainter& p) const {
  if (scene_.legend.isEmpty()) return;
  p.setFont(t_.Font(12, Weight::Medium));
  const QFontMetrics bold = p.fontMetrics();
  const QFontMetrics plain(t_.Font(12));
  const double title = bold.horizontalAdvance(scene_.legend);
  const QString out = QStringLiteral("out"), back = QStringLiteral("back");
  const bool lines = scene_.angle && *scene_.angle < 90;
  const double keys =
      lines ? 20 + 26 + plain.horizontalAdvance(out) + 10 + 26 + plain.horizontalAdvance(back) : 0;
  // Left of the switch; what has no room leaves from the end.
  const double room = size_.width() - kSwitch - kLegendLeft;
  const QString bandText =
      title + keys + 14 + plain.horizontalAdvance(scene_.bandText) <= room ? scene_.bandText : QString();
  const double all = title + keys + 14 + plain.horizontalAdvance(bandText);
  double x = std::clamp((size_.width() - all) / 2, kLegendLeft, kLegendLeft + std::max(0.0, room - all));
  p.setPen(t_[Token::Text]);
  p.drawText(QPointF(x, 15), scene_.legend);
  x += title + 20;
  if (lines) {
    x = sketch_.PaintKey(p, {x, 15}, Token::BandOut, out);
    x = sketch_.PaintKey(p, {x, 15}, Token::BandBack, back);
  }
  p.setFont(t_.Font(12));
  p.setPen(t_[Token::Second]);
  p.drawText(QPointF(x + 4, 15), bandText);
}

void PartPainter::PaintBand(QPainter& p) const {
  const double from = std::max(mandrelLeft_, std::min(XOf(*scene_.leftStop), XOf(*scene_.rightStop)));
  const double to = std::min(mandrelRight_, std::max(XOf(*scene_.leftStop), XOf(*scene_.rightStop)));
  if (to - from < 2) return;
  const auto radiusAt = [this](double x) { return RadiusAt(x); };
  const double width = scene_.band.value_or(0) * sketch_.scale();
  p.save();
  QPainterPath clip(QPointF(from, f_.axisY - RadiusAt(from)));
  clip.lineTo(to, f_.axisY - RadiusAt(to));
  clip.lineTo(to, f_.axisY + RadiusAt(to));
  clip.lineTo(from, f_.axisY + RadiusAt(from));
  clip.closeSubpath();
  p.setClipPath(clip);
  if (*scene_.angle >= kDrawnAsHoop) {
    sketch_.PaintHoops(p, mandrelLeft_, mandrelRight_, width, radiusAt);
  } else {
    // From home to the far end, and back with the same sense of turning.
    const double angle = *scene_.angle * std::numbers::pi / 180;
    const bool homeRight = sketch_.zGrowsLeft();
    const double home = homeRight ? mandrelRight_ : mandrelLeft_;
    const double far = homeRight ? mandrelLeft_ : mandrelRight_;
    double turn = std::numbers::pi / 4;
    std::vector<BandPoint> out, back;
    LayHelix(out, home, far, angle, f_.axisY, radiusAt, turn);
    LayHelix(back, far, home, angle, f_.axisY, radiusAt, turn);
    for (const bool front : {false, true}) {
      sketch_.PaintBand(p, out, width, Token::BandOut, front);
      sketch_.PaintBand(p, back, width, Token::BandBack, front);
    }
  }
  p.restore();
}

void PartPainter::PaintOffset(QPainter& p) const {
  if (!scene_.offset || arrangement_ == Arrangement::Folded) return;
  const double x = XOf(*scene_.offset), zero = XOf(0);
  const QRectF box(std::min(x, zero), f_.rulerY - 22, std::abs(zero - x), 22);
  const QColor ink = t_[scene_.stopTooLow ? Token::TooLow : Token::Off];
  p.save();
  p.setClipRect(box);
  p.setPen(QPen(ink, 1));
  for (double at = box.left() - 22; at < box.right(); at += 6)
    p.drawLine(QPointF(at, box.bottom()), QPointF(at + 22, box.top()));
  p.restore();
  p.setPen(QPen(ink, 1));
  p.drawLine(QPointF(x, box.top() - 2), QPointF(x, f_.rulerY));
  if (arrangement_ != Arrangement::Open) return;
  p.setFont(t_.Font(11));
  const double width = p.fontMetrics().horizontalAdvance(scene_.offsetText);
  // Only where the ruler's own figures leave room.
  if (std::abs(zero - x) > width + 4)
    p.drawText(QRectF(x - width / 2 - 2, f_.rulerY + 7, width + 4, 14), Qt::AlignCenter, scene_.offsetText);
}

void PartPainter::PaintDimensions(QPainter& p) const {
  const double top = f_.axisY - Radius(), bottom = f_.axisY + Radius();
  if (!scene_.total.isEmpty() && scene_.complete())
    sketch_.PaintDimension(p, std::max(30.0, top - 16), mandrelLeft_, mandrelRight_, scene_.total,
                           Token::Figures);
  const bool stops = scene_.leftStop && scene_.rightStop;
  sketch_.PaintDimension(p, std::min(f_.rulerY - 14, bottom + 13),
                         stops ? XOf(*scene_.leftStop) : mandrelLeft_,
                         stops ? XOf(*scene_.rightStop) : mandrelRight_, scene_.winding,
                         scene_.complete() ? Token::Figures : Token::Off);
  if (!scene_.complete()) return;
  PaintDiameter(p, mandrelLeft_ - kBesideMandrel, leftRadius_, scene_.leftDiameterText, true);
  PaintDiameter(p, mandrelRight_ + kBesideMandrel, rightRadius_, scene_.rightDiameterText, false);
}

void PartPainter::PaintDiameter(QPainter& p, double x, double radius, const QString& text, bool left) const {
  p.setPen(QPen(t_[Token::Dimension], 1));
  p.drawLine(QPointF(x, f_.axisY - radius), QPointF(x, f_.axisY + radius));
  for (const double sign : {-1.0, 1.0}) {
    const double y = f_.axisY + sign * radius;
    p.drawLine(QPointF(x - 4, y), QPointF(x + 4, y));
    p.setBrush(t_[Token::Dimension]);
    p.drawPolygon(QPolygonF({{x, y}, {x - 2, y - sign * 6}, {x + 2, y - sign * 6}}));
  }
  if (text.isEmpty()) return;
  p.setFont(t_.Font(12, Weight::Medium));
  const double width = p.fontMetrics().horizontalAdvance(text) + 8;
  // Beside its line where the post leaves room, else on the mandrel, or above a mandrel too thin for it.
  const bool beside = left ? x - 6 - width > f_.postLeft + 6 : x + 6 + width < f_.postRight - 6;
  const bool within = !beside && radius >= kRadiusForText;
  const double outwards = beside ? 6 : within ? -kBesideMandrel - 4 - width : -14;
  const QRectF box(left ? x - outwards - width : x + outwards,
                   f_.axisY - (beside || within ? 28 : radius + 21), width, 18);
  if (beside || within) {
    p.setPen(Qt::NoPen);
    p.setBrush(t_[Token::Drawing]);
    p.drawRoundedRect(box, 3, 3);
  }
  p.setPen(t_[Token::Figures]);
  p.drawText(box, Qt::AlignCenter, text);
}

}  // namespace torvane
