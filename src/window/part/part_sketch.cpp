#include "window/part/part_sketch.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace torvane {

namespace {

constexpr double kReachInView = 1.125;  // the ruler goes on behind the far end
constexpr double kGrid = 20;

double Span(double pixels, double units) { return pixels / std::max(units, 1e-9); }

}  // namespace

std::optional<double> DrawnValue(const Field& field) {
  const Number value = number(field);
  if (!field.shown() || !holds(value > 0)) return std::nullopt;
  return value.value();
}

void PartSketch::Scale(double reach, double diameter) {
  scale_ = std::min(Span(f_.postRight - f_.postLeft, reach * kReachInView), Span(f_.mostDiameter, diameter));
}

void PartSketch::PaintGround(QPainter& p) const {
  p.fillRect(f_.area, t_[Token::Drawing]);
  p.setRenderHint(QPainter::Antialiasing, false);
  const double right = f_.area.right() - 1, bottom = f_.area.bottom() - 1;
  for (int i = 1; i * kGrid < std::max(f_.area.width(), f_.area.height()); ++i) {
    p.setPen(t_[i % 5 == 0 ? Token::DrawingGridBold : Token::DrawingGrid]);
    const double x = f_.area.left() + i * kGrid, y = f_.area.top() + i * kGrid;
    if (x <= right) p.drawLine(QPointF(x, f_.area.top()), QPointF(x, bottom));
    if (y <= bottom) p.drawLine(QPointF(f_.area.left(), y), QPointF(right, y));
  }
  p.setRenderHint(QPainter::Antialiasing);
}

void PartSketch::PaintPosts(QPainter& p, double mandrelLeft, double mandrelRight) const {
  const double left = f_.postLeft, right = f_.postRight, axis = f_.axisY;
  p.setPen(QPen(t_[Token::DrawnEdge], 1));
  p.setBrush(t_[Token::Steel]);
  p.drawRect(QRectF(left, axis - 5, std::max(0.0, mandrelLeft - left), 10));
  p.drawRect(QRectF(mandrelRight, axis - 5, std::max(0.0, right - mandrelRight), 10));
  // The chuck in front of each post; the drive's is the larger one.
  const bool driveLeft = !homeRight_;
  p.drawRect(QRectF(left, axis - (driveLeft ? 17 : 12), 6, driveLeft ? 34 : 24));
  p.drawRect(QRectF(right - 6, axis - (driveLeft ? 12 : 17), 6, driveLeft ? 24 : 34));
  const double top = axis - (arrangement_ == Arrangement::Folded ? 16 : 30);
  p.drawRect(QRectF(left - f_.postWidth, top, f_.postWidth, f_.rulerY - top));
  p.drawRect(QRectF(right, top, f_.postWidth, f_.rulerY - top));
}

void PartSketch::PaintMandrel(QPainter& p, const QPainterPath& outline, double radius, bool complete) const {
  if (!complete) {
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(t_[Token::DrawnEdge], 1.5, Qt::DashLine));
    p.drawPath(outline);
    return;
  }
  QLinearGradient light(0, f_.axisY - radius, 0, f_.axisY + radius);
  light.setColorAt(0, t_[Token::MandrelLow]);
  light.setColorAt(0.35, t_[Token::MandrelHigh]);
  light.setColorAt(0.6, t_[Token::MandrelMid]);
  light.setColorAt(1, t_[Token::MandrelLow]);
  p.setBrush(light);
  p.setPen(QPen(t_[Token::DrawnEdge], 1));
  p.drawPath(outline);
}

void PartSketch::PaintAxis(QPainter& p, double from, double to) const {
  p.setPen(QPen(t_[Token::DrawnEdge], 1, Qt::DashDotLine));
  p.drawLine(QPointF(from - 8, f_.axisY), QPointF(to + 8, f_.axisY));
}

void PartSketch::PaintRuler(QPainter& p) const {
  const double span = (f_.postRight - f_.postLeft) / scale_;
  double step = std::pow(10, std::floor(std::log10(span / 4)));
  for (const double nice : {1.0, 2.0, 4.0, 5.0})
    if (span / (step * nice) <= 9) {
      step *= nice;
      break;
    }
  p.setPen(QPen(t_[Token::Dimension], 1));
  p.drawLine(QPointF(f_.postLeft, f_.rulerY), QPointF(f_.postRight, f_.rulerY));
  if (arrangement_ == Arrangement::Folded) return;
  p.setFont(t_.Font(11));
  for (int i = 0; i * step / 4 <= span - 10 / scale_; ++i) {
    const double x = XOf(i * step / 4);
    const bool major = i % 4 == 0;
    p.setPen(QPen(t_[Token::Dimension], 1));
    p.drawLine(QPointF(x, f_.rulerY), QPointF(x, f_.rulerY + (major ? 6 : 4)));
    p.setPen(t_[Token::Second]);
    if (major)
      p.drawText(QRectF(x - 30, f_.rulerY + 7, 60, 14), Qt::AlignCenter, QString::number(i * step / 4));
  }
}

void PartSketch::PaintFoot(QPainter& p, double z, double top, Token token, bool dashed) const {
  const double x = XOf(z);
  if (x < f_.postLeft - f_.postWidth || x > f_.postRight + f_.postWidth) return;
  p.setPen(QPen(t_[token], dashed ? 1.4 : 2, dashed ? Qt::DashLine : Qt::SolidLine));
  p.drawLine(QPointF(x, top), QPointF(x, f_.rulerY));
  p.setPen(Qt::NoPen);
  p.setBrush(t_[token]);
  p.drawPolygon(QPolygonF({{x, f_.rulerY - 1}, {x - 6, f_.rulerY + 9}, {x + 6, f_.rulerY + 9}}));
}

void PartSketch::PaintChips(QPainter& p, const QPointF& left, const QPointF& right) const {
  p.setFont(t_.Font(11, Weight::Medium));
  for (const bool atLeft : {true, false}) {
    const QString text = atLeft == homeRight_ ? QStringLiteral("FAR") : QStringLiteral("HOME");
    const double width = p.fontMetrics().horizontalAdvance(text) + 10;
    const QRectF box(atLeft ? left.x() : right.x() - width, atLeft ? left.y() : right.y(), width, 16);
    p.setPen(Qt::NoPen);
    p.setBrush(t_[Token::Accent]);
    p.drawRoundedRect(box, 3, 3);
    p.setPen(t_[Token::OnAccent]);
    p.drawText(box, Qt::AlignCenter, text);
  }
}

void PartSketch::PaintLargeEnds(QPainter& p, const QString& left, const QString& right) const {
  p.setFont(t_.Font(17, Weight::Medium));
  const QFontMetrics metrics = p.fontMetrics();
  for (const bool atLeft : {true, false}) {
    const QString word = atLeft == homeRight_ ? QStringLiteral("FAR ") : QStringLiteral("HOME ");
    const QString& figure = atLeft ? left : right;
    const double width = metrics.horizontalAdvance(word + figure);
    double x = atLeft ? f_.area.left() + 14 : f_.area.right() - 14 - width;
    p.setPen(t_[Token::Text]);
    p.drawText(QPointF(x, f_.area.top() + 24), word);
    x += metrics.horizontalAdvance(word);
    p.setPen(t_[Token::Figures]);
    p.drawText(QPointF(x, f_.area.top() + 24), figure);
  }
}

void PartSketch::PaintDimension(QPainter& p, double y, double from, double to, const QString& text,
                                Token token) const {
  const double left = std::min(from, to), right = std::max(from, to);
  const QColor ink = t_[token == Token::Off ? Token::Off : Token::Dimension];
  p.setPen(QPen(ink, 1));
  p.drawLine(QPointF(left, y), QPointF(right, y));
  p.setBrush(ink);
  for (const double sign : {1.0, -1.0}) {
    const double x = sign > 0 ? left : right;
    p.drawPolygon(QPolygonF({{x, y}, {x + sign * 6, y - 2}, {x + sign * 6, y + 2}}));
  }
  p.setFont(t_.Font(12, Weight::Medium));
  const double width = p.fontMetrics().horizontalAdvance(text) + 16;
  const QRectF box((left + right - width) / 2, y - 9, width, 18);
  p.setPen(Qt::NoPen);
  p.setBrush(t_[Token::Drawing]);
  p.drawRoundedRect(box, 3, 3);
  p.setPen(t_[token]);
  p.drawText(box, Qt::AlignCenter, text);
}

double PartSketch::PaintKey(QPainter& p, const QPointF& at, Token token, const QString& word) const {
  p.setPen(QPen(t_[token], 4, Qt::SolidLine, Qt::FlatCap));
  p.drawLine(at - QPointF(0, 4), at + QPointF(20, -4));
  p.setFont(t_.Font(12));
  p.setPen(t_[Token::Second]);
  p.drawText(at + QPointF(26, 0), word);
  return at.x() + 36 + p.fontMetrics().horizontalAdvance(word);
}

void PartSketch::PaintBand(QPainter& p, const std::vector<BandPoint>& points, double width, Token token,
                           bool front) const {
  QPainterPath path;
  bool drawing = false;
  for (const BandPoint& point : points) {
    const bool visible = point.front == front;
    if (visible) drawing ? path.lineTo(point.at) : path.moveTo(point.at);
    drawing = visible;
  }
  QColor colour = t_[token];
  if (!front) colour.setAlphaF(0.15F);
  QPen pen(colour, std::max(1.5, width));
  pen.setCapStyle(Qt::FlatCap);
  pen.setJoinStyle(Qt::RoundJoin);
  p.strokePath(path, pen);
}

void PartSketch::PaintHoops(QPainter& p, double from, double to, double width,
                            const std::function<double(double)>& radiusAt) const {
  // Bands side by side; where they would run into each other only every few are drawn.
  const double step = std::max(width, 4.0);
  p.setPen(QPen(t_[Token::BandOut], std::max(1.0, std::min(width, step) - 1.5), Qt::SolidLine, Qt::FlatCap));
  for (double x = from + step / 2; x < to; x += step)
    p.drawLine(QPointF(x, f_.axisY - radiusAt(x)), QPointF(x, f_.axisY + radiusAt(x)));
}

void LayHelix(std::vector<BandPoint>& points, double from, double to, double angle, double axisY,
              const std::function<double(double)>& radiusAt, double& turn) {
  constexpr double kStep = 2;
  const int steps = std::max(1, static_cast<int>(std::ceil(std::abs(to - from) / kStep)));
  const double step = (to - from) / steps;
  for (int i = 0; i <= steps; ++i) {
    const double x = from + i * step, radius = radiusAt(x);
    points.push_back({{x, axisY - radius * std::sin(turn)}, std::cos(turn) >= 0});
    if (i < steps) turn += std::abs(step) * std::tan(angle) / std::max(radius, 1.0);
  }
}

void LayDome(std::vector<BandPoint>& points, double base, double cap, double radius, double angle,
             double axisY, double& turn) {
  // A great circle: it leaves the rim at the band's angle and comes down on the opposite side.
  constexpr int kSteps = 48;
  for (int i = 1; i <= kSteps; ++i) {
    const double t = std::numbers::pi * i / kSteps;
    const double along = std::sin(t) * std::cos(angle);
    const double outward = std::cos(t), round = std::sin(t) * std::sin(angle);
    const double up = outward * std::sin(turn) + round * std::cos(turn);
    const double near = outward * std::cos(turn) - round * std::sin(turn);
    points.push_back({{base + along * cap, axisY - up * radius}, near >= 0});
  }
  turn += std::numbers::pi;
}

}  // namespace torvane
