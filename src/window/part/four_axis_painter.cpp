#include "window/part/four_axis_painter.h"

#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace torvane {

namespace {

constexpr double kRing = 7.5;

}  // namespace

SketchFrame FourAxisFrame(Arrangement arrangement, const QRectF& area) {
  SketchFrame frame;
  frame.area = area;
  const bool open = arrangement == Arrangement::Open;
  // Kept free at both sides for the ends' fields.
  const double sides = open ? 128 : arrangement == Arrangement::Folded ? 204 : 90;
  frame.postWidth = open ? 16 : 14;
  frame.postLeft = area.left() + sides + frame.postWidth;
  frame.postRight = area.right() - sides - frame.postWidth;
  switch (arrangement) {
    case Arrangement::Open:
      // Between the offsets above and the places in Z below.
      frame.axisY = area.top() + (area.height() - 15) / 2;
      frame.rulerY = area.bottom() - 81;
      frame.mostDiameter = std::min(frame.axisY - area.top() - 84, frame.rulerY - frame.axisY - 22) * 2;
      break;
    case Arrangement::Folded:
      frame.axisY = area.center().y() - 3;
      frame.rulerY = area.bottom() - 12;
      frame.mostDiameter = (frame.axisY - area.top() - 14) * 2;
      break;
    case Arrangement::Large:
      frame.axisY = area.center().y() - 10;
      frame.rulerY = area.bottom() - 28;
      frame.mostDiameter = (frame.axisY - area.top() - 34) * 2;
      break;
  }
  return frame;
}

void PaintRing(QPainter& p, const Theme& t, const QPointF& centre, int number) {
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(QPen(t[Token::Accent], 1.4));
  p.setBrush(t[Token::Drawing]);
  p.drawEllipse(centre, kRing, kRing);
  p.setFont(t.Font(11, Weight::Medium));
  p.drawText(QRectF(centre.x() - 8, centre.y() - 8, 16, 16), Qt::AlignCenter, QString::number(number));
}

FourAxisPainter::FourAxisPainter(const Theme& theme, const FourAxisScene& scene, const QRectF& area,
                                 Arrangement arrangement, std::optional<double> heldScale)
    : t_(theme),
      scene_(scene),
      arrangement_(arrangement),
      f_(FourAxisFrame(arrangement, area)),
      sketch_(theme, f_, arrangement, scene.homeRight, scene.zGrowsLeft()) {
  double far = kExampleFar, home = kExampleHome;
  double leftDiameter = kExampleDiameter, rightDiameter = kExampleDiameter;
  if (scene.complete()) {
    far = std::max(*scene.z[0], *scene.z[3]);
    home = std::min(*scene.z[0], *scene.z[3]);
    leftDiameter = *scene.diameter[0];
    rightDiameter = *scene.diameter[1];
  }
  const double reach = std::max({far, scene.offset[1].value_or(0), scene.offset[5].value_or(0)});
  sketch_.Scale(reach, std::max(leftDiameter, rightDiameter));
  if (heldScale) sketch_.Keep(*heldScale);
  left_ = std::min(XOf(far), XOf(home));
  right_ = std::max(XOf(far), XOf(home));
  leftRadius_ = leftDiameter * sketch_.scale() / 2;
  rightRadius_ = rightDiameter * sketch_.scale() / 2;
  if (scene.ends != PartEnds::Hemispherical) return;
  // From the outer place to the inner one; without an inner one as long as its radius.
  const auto cap = [&](std::size_t outer, std::size_t inner, double radius) {
    const bool told = scene.complete() && scene.z[inner];
    const double length = told ? std::abs(XOf(*scene.z[outer]) - XOf(*scene.z[inner])) : radius;
    return std::min(length, (right_ - left_) / 2);
  };
  leftCap_ = cap(0, 1, leftRadius_);
  rightCap_ = cap(3, 2, rightRadius_);
}

double FourAxisPainter::RadiusAt(double x) const {
  const double from = left_ + leftCap_, to = right_ - rightCap_;
  const double share = std::clamp((x - from) / std::max(to - from, 1.0), 0.0, 1.0);
  return leftRadius_ + (rightRadius_ - leftRadius_) * share;
}

QPainterPath FourAxisPainter::Outline() const {
  const double axis = f_.axisY;
  QPainterPath outline(QPointF(left_ + leftCap_, axis - leftRadius_));
  outline.lineTo(right_ - rightCap_, axis - rightRadius_);
  if (rightCap_ > 0)
    outline.arcTo(QRectF(right_ - 2 * rightCap_, axis - rightRadius_, 2 * rightCap_, 2 * rightRadius_), 90,
                  -180);
  else
    outline.lineTo(right_, axis + rightRadius_);
  outline.lineTo(left_ + leftCap_, axis + leftRadius_);
  if (leftCap_ > 0)
    outline.arcTo(QRectF(left_, axis - leftRadius_, 2 * leftCap_, 2 * leftRadius_), 270, -180);
  outline.closeSubpath();
  return outline;
}

void FourAxisPainter::Paint(QPainter& p) const {
  sketch_.PaintGround(p);
  sketch_.PaintPosts(p, left_, right_);
  sketch_.PaintMandrel(p, Outline(), Radius(), scene_.complete());
  if (scene_.complete()) {
    PaintBand(p);
    if (arrangement_ == Arrangement::Open) sketch_.PaintAxis(p, left_, right_);
    PaintOpenings(p);
  }
  sketch_.PaintRuler(p);
  PaintPlaces(p);
  if (scene_.complete() && arrangement_ != Arrangement::Large) PaintHeadPath(p);
  switch (arrangement_) {
    case Arrangement::Open: {
      const double y = f_.axisY - 61;
      sketch_.PaintChips(p, {f_.area.left() + 68, y}, {f_.area.right() - 76, y});
      PaintLegend(p);
      if (!scene_.length.isEmpty() && scene_.complete())
        sketch_.PaintDimension(p, std::min(f_.rulerY - 10, f_.axisY + Radius() + 12), left_, right_,
                               scene_.length, Token::Figures);
      break;
    }
    case Arrangement::Folded:
      sketch_.PaintChips(p, {f_.area.left() + 8, f_.area.bottom() - 22},
                         {f_.area.right() - 12, f_.area.bottom() - 22});
      break;
    case Arrangement::Large:
      sketch_.PaintLargeEnds(p, scene_.leftText, scene_.rightText);
      break;
  }
}

void FourAxisPainter::PaintBand(QPainter& p) const {
  if (!scene_.angle) return;
  const auto radiusAt = [this](double x) { return RadiusAt(x); };
  const double width = scene_.band.value_or(0) * sketch_.scale();
  const double from = left_ + leftCap_, to = right_ - rightCap_;
  p.save();
  p.setClipPath(Outline());
  if (*scene_.angle >= kDrawnAsHoop) {
    sketch_.PaintHoops(p, from, to, width, radiusAt);
    p.restore();
    return;
  }
  const double angle = *scene_.angle * std::numbers::pi / 180;
  const bool homeRight = sketch_.zGrowsLeft();
  const double home = homeRight ? to : from, far = homeRight ? from : to;
  const bool hemispherical = scene_.ends == PartEnds::Hemispherical;
  double turn = std::numbers::pi / 5;
  // Home to far, round the far end, and back with the same sense of turning; then round the home end.
  std::vector<BandPoint> out, back;
  const auto end = [&](std::vector<BandPoint>& points, bool atLeft) {
    const double cap = atLeft ? -leftCap_ : rightCap_;
    if (hemispherical)
      LayDome(points, atLeft ? from : to, cap, atLeft ? leftRadius_ : rightRadius_, angle, f_.axisY, turn);
    else if (scene_.ends == PartEnds::Flat)
      turn += scene_.endWrap * std::numbers::pi / 180;
  };
  LayHelix(out, home, far, angle, f_.axisY, radiusAt, turn);
  end(out, homeRight);
  LayHelix(back, far, home, angle, f_.axisY, radiusAt, turn);
  end(back, !homeRight);
  for (const bool front : {false, true}) {
    sketch_.PaintBand(p, out, width, Token::BandOut, front);
    sketch_.PaintBand(p, back, width, Token::BandBack, front);
  }
  p.restore();
}

void FourAxisPainter::PaintOpenings(QPainter& p) const {
  p.setPen(QPen(t_[Token::Dimension], 3, Qt::SolidLine, Qt::FlatCap));
  for (const std::size_t end : {0U, 1U}) {
    if (!scene_.opening[end]) continue;
    const double opening = std::min(*scene_.opening[end] * sketch_.scale() / 2, Radius());
    const double x = end == 0 ? left_ : right_;
    p.drawLine(QPointF(x, f_.axisY - opening), QPointF(x, f_.axisY + opening));
  }
}

void FourAxisPainter::PaintPlaces(QPainter& p) const {
  const double top = LinesTop();
  for (const std::size_t i : {0U, 1U, 2U, 3U})
    if (scene_.z[i]) sketch_.PaintFoot(p, *scene_.z[i], top, Token::Accent, i == 1 || i == 2);
}

void FourAxisPainter::PaintHeadPath(QPainter& p) const {
  const auto& at = scene_.offset;
  const double ceiling = f_.area.top() + (arrangement_ == Arrangement::Open ? 74 : 6);
  const double floor = f_.rulerY - 28;
  const double run = std::max(YOf(Radius() / sketch_.scale() + at[3].value_or(0)), ceiling);
  const auto xOf = [&](std::size_t offset, double otherwise) {
    return at[offset] ? std::clamp(XOf(*at[offset]), f_.postLeft, f_.postRight) : otherwise;
  };
  const bool wraps = scene_.ends != PartEnds::NoWrap;
  const QPointF left(wraps ? xOf(2, left_) : left_, run), right(wraps ? xOf(4, right_) : right_, run);
  const auto wrap = [&](std::size_t z, std::size_t y, double end) {
    return QPointF(xOf(z, end), std::clamp(YOf(at[y].value_or(0)), run, floor));
  };
  const QPointF leftWrap = wrap(1, 0, left_), rightWrap = wrap(5, 6, right_);
  QPainterPath path;
  if (wraps) {
    // From the traverse's end the head goes down to the wrap on a quarter of an ellipse.
    path.moveTo(leftWrap);
    path.quadTo(QPointF(leftWrap.x(), left.y()), left);
  } else {
    path.moveTo(left);
  }
  path.lineTo(right);
  if (wraps) path.quadTo(QPointF(rightWrap.x(), right.y()), rightWrap);
  p.setBrush(Qt::NoBrush);
  p.setPen(QPen(t_[Token::Accent], 1.4, Qt::DashLine));
  p.drawPath(path);
  if (arrangement_ != Arrangement::Open) return;
  const QPointF below(0, 2 * kRing + 4);
  if (wraps) {
    PaintRing(p, t_, leftWrap, 1);
    PaintRing(p, t_, leftWrap + below, 0);
    PaintRing(p, t_, left, 2);
    PaintRing(p, t_, right, 4);
    PaintRing(p, t_, rightWrap, 5);
    PaintRing(p, t_, rightWrap + below, 6);
  }
  const QPointF middle = (left + right) / 2;
  p.setPen(QPen(t_[Token::Accent], 1.4));
  p.drawLine(middle, QPointF(middle.x(), f_.axisY - RadiusAt(middle.x())));
  PaintRing(p, t_, middle, 3);
}

void FourAxisPainter::PaintLegend(QPainter& p) const {
  if (!scene_.angle || !scene_.complete()) return;
  // Beside the length, where the places in Z leave room.
  if (f_.area.width() < 800) return;
  const double x = f_.area.center().x() - 106, y = f_.area.bottom() - 36;
  if (*scene_.angle >= kDrawnAsHoop) {
    sketch_.PaintKey(p, {x, y + 19}, Token::BandOut, QStringLiteral("hoop"));
  } else {
    sketch_.PaintKey(p, {x, y + 11}, Token::BandOut, QStringLiteral("out"));
    sketch_.PaintKey(p, {x, y + 28}, Token::BandBack, QStringLiteral("back"));
  }
  p.drawText(QRectF(x + 170, y - 3, 60, 18), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("band"));
  p.drawText(QRectF(x + 170, y + 13, 60, 18), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("to scale"));
}

}  // namespace torvane
