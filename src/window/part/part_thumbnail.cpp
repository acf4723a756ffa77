#include "window/part/part_thumbnail.h"

#include <QPainterPath>
#include <algorithm>
#include <numbers>

#include "window/part/part_sketch.h"

namespace torvane {

namespace {

// What is drawn of a mandrel, in pixels.
struct Mandrel {
  double left, right, leftRadius, rightRadius, leftCap, rightCap;

  double RadiusAt(double x) const {
    const double from = left + leftCap, to = right - rightCap;
    const double share = std::clamp((x - from) / std::max(to - from, 1.0), 0.0, 1.0);
    return leftRadius + (rightRadius - leftRadius) * share;
  }
  QPainterPath Outline(double axis) const {
    QPainterPath outline(QPointF(left + leftCap, axis - leftRadius));
    outline.lineTo(right - rightCap, axis - rightRadius);
    if (rightCap > 0)
      outline.arcTo(QRectF(right - 2 * rightCap, axis - rightRadius, 2 * rightCap, 2 * rightRadius), 90,
                    -180);
    else
      outline.lineTo(right, axis + rightRadius);
    outline.lineTo(left + leftCap, axis + leftRadius);
    if (leftCap > 0) outline.arcTo(QRectF(left, axis - leftRadius, 2 * leftCap, 2 * leftRadius), 270, -180);
    outline.closeSubpath();
    return outline;
  }
};

void PaintLayer(QPainter& p, const PartSketch& sketch, const Mandrel& mandrel, const DesignCard& card,
                double axis) {
  const auto radiusAt = [&mandrel](double x) { return mandrel.RadiusAt(x); };
  const double from = mandrel.left + mandrel.leftCap, to = mandrel.right - mandrel.rightCap;
  const double width = card.band * sketch.scale();
  if (!card.angle) {
    if (card.hoops) sketch.PaintHoops(p, from, to, width, radiusAt);
    return;
  }
  const double angle = *card.angle * std::numbers::pi / 180;
  double turn = std::numbers::pi / 4;
  std::vector<BandPoint> out, back;
  const auto end = [&](std::vector<BandPoint>& points, bool atLeft) {
    const double cap = atLeft ? -mandrel.leftCap : mandrel.rightCap;
    if (cap != 0)
      LayDome(points, atLeft ? from : to, cap, mandrel.RadiusAt(atLeft ? from : to), angle, axis, turn);
    else if (card.family == Family::FourAxes)
      turn += std::numbers::pi;
  };
  LayHelix(out, to, from, angle, axis, radiusAt, turn);
  end(out, true);
  LayHelix(back, from, to, angle, axis, radiusAt, turn);
  end(back, false);
  for (const bool front : {false, true}) {
    sketch.PaintBand(p, out, width, Token::BandOut, front);
    sketch.PaintBand(p, back, width, Token::BandBack, front);
  }
}

}  // namespace

void PaintThumbnail(QPainter& p, const Theme& theme, const DesignCard& card, const QRectF& box) {
  const bool complete = card.length > 0 && card.leftDiameter > 0 && card.rightDiameter > 0;
  const double length = complete ? card.length : kExampleFar - kExampleHome;
  const double left = complete ? card.leftDiameter : kExampleDiameter;
  const double right = complete ? card.rightDiameter : kExampleDiameter;
  const double shaft = box.width() / 16;
  SketchFrame frame;
  frame.area = box;
  frame.postLeft = box.left();
  frame.postRight = box.right();
  frame.axisY = box.center().y();
  frame.rulerY = box.bottom();
  PartSketch sketch(theme, frame, Arrangement::Folded, true, true);
  sketch.Keep(std::min((box.width() - 2 * shaft) / length, (box.height() - 2) / std::max(left, right)));
  const double scale = sketch.scale(), half = length * scale / 2, middle = box.center().x();
  const Mandrel mandrel{middle - half,
                        middle + half,
                        left * scale / 2,
                        right * scale / 2,
                        std::min(card.leftCap * scale, half),
                        std::min(card.rightCap * scale, half)};
  p.save();
  p.setRenderHint(QPainter::Antialiasing);
  const double thick = std::clamp(std::max(left, right) * scale / 8, 1.5, 3.0);
  p.setPen(Qt::NoPen);
  p.setBrush(theme[Token::Steel]);
  p.drawRect(QRectF(box.left(), frame.axisY - thick, mandrel.left - box.left(), 2 * thick));
  p.drawRect(QRectF(mandrel.right, frame.axisY - thick, box.right() - mandrel.right, 2 * thick));
  const QPainterPath outline = mandrel.Outline(frame.axisY);
  sketch.PaintMandrel(p, outline, std::max(mandrel.leftRadius, mandrel.rightRadius), complete);
  if (complete) {
    p.setClipPath(outline, Qt::IntersectClip);
    PaintLayer(p, sketch, mandrel, card, frame.axisY);
  }
  p.restore();
}

}  // namespace torvane
