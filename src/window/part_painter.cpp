#include "window/part_painter.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace torvane {

namespace {

constexpr double kFields = 124;  // kept free at both sides for the ends' fields
constexpr double kPost = 20;
// Without figures an example is drawn, so that the place of everything is plain.
constexpr double kExampleFar = 28, kExampleHome = 4, kExampleDiameter = 4;

double Span(double pixels, double unitsAtLeast) { return pixels / std::max(unitsAtLeast, 1e-9); }

}  // namespace

PartPainter::PartPainter(const Theme& theme, const PartScene& scene, const QSize& size)
    : t_(theme), scene_(scene), size_(size), growsLeft_(scene.zGrowsLeft()) {
  postLeft_ = kFields + kPost;
  postRight_ = size.width() - kFields - kPost - 2;
  axisY_ = AxisY(size.height());
  rulerY_ = size.height() - 29;
  zeroX_ = growsLeft_ ? postRight_ : postLeft_;
  double far = kExampleFar, home = kExampleHome, diameter = kExampleDiameter;
  double leftDiameter = diameter, rightDiameter = diameter;
  if (scene.complete()) {
    far = std::max(*scene.leftStop, *scene.rightStop);
    home = std::min(*scene.leftStop, *scene.rightStop);
    far = std::max(far, far - (far - home) + *scene.length);
    leftDiameter = *scene.leftDiameter;
    rightDiameter = *scene.rightDiameter;
    diameter = std::max(leftDiameter, rightDiameter);
  }
  const double room = std::min(axisY_ - 42, rulerY_ - axisY_ - 27) * 2;
  scale_ = std::min(Span(postRight_ - postLeft_, far * 1.125), Span(room, diameter));
  leftRadius_ = leftDiameter * scale_ / 2;
  rightRadius_ = rightDiameter * scale_ / 2;
  // The mandrel begins at the far stop and is as long as the part.
  const double farStop = scene.complete() ? std::max(*scene.leftStop, *scene.rightStop) : far;
  const double length = scene.complete() ? *scene.length : far - home;
  const double a = XOf(farStop), b = XOf(std::max(0.0, farStop - length));
  mandrelLeft_ = std::min(a, b);
  mandrelRight_ = std::max(a, b);
}

double PartPainter::RadiusAt(double x) const {
  const double share = (x - mandrelLeft_) / std::max(mandrelRight_ - mandrelLeft_, 1.0);
  return leftRadius_ + (rightRadius_ - leftRadius_) * share;
}

void PartPainter::Paint(QPainter& p) const {
  PaintGrid(p);
  p.setRenderHint(QPainter::Antialiasing);
  PaintChips(p);
  PaintLegend(p);
  PaintPosts(p);
  PaintMandrel(p);
  if (scene_.complete() && scene_.angle) PaintBand(p);
  if (scene_.complete()) {
    p.setPen(QPen(t_[Token::DrawnEdge], 1, Qt::DashDotLine));
    p.drawLine(QPointF(mandrelLeft_ - 8, axisY_), QPointF(mandrelRight_ + 8, axisY_));
  }
  PaintRuler(p);
  if (scene_.leftStop) PaintStop(p, *scene_.leftStop, Token::Accent);
  if (scene_.rightStop) PaintStop(p, *scene_.rightStop, scene_.stopTooLow ? Token::TooLow : Token::Accent);
  const double top = axisY_ - std::max(leftRadius_, rightRadius_);
  const double bottom = axisY_ + std::max(leftRadius_, rightRadius_);
  if (!scene_.total.isEmpty() && scene_.complete())
    PaintDimension(p, std::max(30.0, top - 16), mandrelLeft_, mandrelRight_, scene_.total, Token::Figures);
  const double windLeft = scene_.leftStop && scene_.rightStop ? XOf(*scene_.leftStop) : mandrelLeft_;
  const double windRight = scene_.leftStop && scene_.rightStop ? XOf(*scene_.rightStop) : mandrelRight_;
  PaintDimension(p, std::min(rulerY_ - 14, bottom + 13), windLeft, windRight, scene_.winding,
                 scene_.complete() ? Token::Figures : Token::Off);
  if (scene_.complete()) {
    PaintDiameter(p, mandrelLeft_ - 15, leftRadius_, scene_.leftDiameterText, true);
    PaintDiameter(p, mandrelRight_ + 15, rightRadius_, scene_.rightDiameterText, false);
  }
}

void PartPainter::PaintGrid(QPainter& p) const {
  p.fillRect(QRect({0, 0}, size_), t_[Token::Drawing]);
  constexpr int kStep = 20;
  for (int i = 1; i * kStep < std::max(size_.width(), size_.height()); ++i) {
    p.setPen(t_[i % 5 == 0 ? Token::DrawingGridBold : Token::DrawingGrid]);
    p.drawLine(i * kStep, 0, i * kStep, size_.height());
    p.drawLine(0, i * kStep, size_.width(), i * kStep);
  }
}

void PartPainter::PaintChips(QPainter& p) const {
  p.setFont(t_.Font(11, Weight::Medium));
  for (const bool left : {true, false}) {
    const QString text = (left == scene_.homeRight) ? QStringLiteral("FAR") : QStringLiteral("HOME");
    const double width = p.fontMetrics().horizontalAdvance(text) + 10;
    const QRectF box(left ? 70 : size_.width() - 78 - width, 5, width, 16);
    p.setPen(Qt::NoPen);
    p.setBrush(t_[Token::Accent]);
    p.drawRoundedRect(box, 3, 3);
    p.setPen(t_[Token::OnAccent]);
    p.drawText(box, Qt::AlignCenter, text);
  }
}

void PartPainter::PaintLegend(QPainter& p) const {
  if (scene_.legend.isEmpty()) return;
  p.setFont(t_.Font(12, Weight::Medium));
  const QFontMetrics bold = p.fontMetrics();
  const QFontMetrics plain(t_.Font(12));
  const double title = bold.horizontalAdvance(scene_.legend);
  const QString out = QStringLiteral("out"), back = QStringLiteral("back");
  const double outWidth = plain.horizontalAdvance(out), backWidth = plain.horizontalAdvance(back);
  const bool lines = scene_.angle && *scene_.angle < 90;
  const double keys = lines ? 20 + 28 + outWidth + 10 + 28 + backWidth : 0;
  const double tail = plain.horizontalAdvance(scene_.bandText);
  double x = std::max(124.0, (size_.width() - title - keys - 14 - tail) / 2);
  p.setPen(t_[Token::Text]);
  p.drawText(QPointF(x, 15), scene_.legend);
  x += title + 20;
  p.setFont(t_.Font(12));
  const auto key = [&](Token token, const QString& word, double wordWidth) {
    p.setPen(QPen(t_[token], 4, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(QPointF(x, 11), QPointF(x + 22, 11));
    p.setPen(t_[Token::Second]);
    p.drawText(QPointF(x + 28, 15), word);
    x += 28 + wordWidth + 10;
  };
  if (lines) {
    key(Token::BandOut, out, outWidth);
    key(Token::BandBack, back, backWidth);
  }
  p.setPen(t_[Token::Second]);
  p.drawText(QPointF(x + 4, 15), scene_.bandText);
}

void PartPainter::PaintPosts(QPainter& p) const {
  p.setPen(QPen(t_[Token::DrawnEdge], 1));
  p.setBrush(t_[Token::Steel]);
  // The shaft, the chuck in front of each post, the posts.
  p.drawRect(QRectF(postLeft_ + 6, axisY_ - 5, mandrelLeft_ - postLeft_ - 6, 10));
  p.drawRect(QRectF(mandrelRight_, axisY_ - 5, postRight_ - 6 - mandrelRight_, 10));
  const bool driveLeft = !scene_.homeRight;
  p.drawRect(QRectF(postLeft_, axisY_ - (driveLeft ? 17 : 12), 6, driveLeft ? 34 : 24));
  p.drawRect(QRectF(postRight_ - 6, axisY_ - (driveLeft ? 12 : 17), 6, driveLeft ? 24 : 34));
  const double top = axisY_ - 30;
  p.drawRect(QRectF(postLeft_ - kPost, top, kPost, rulerY_ - top));
  p.drawRect(QRectF(postRight_, top, kPost, rulerY_ - top));
}

void PartPainter::PaintMandrel(QPainter& p) const {
  const QPolygonF outline({{mandrelLeft_, axisY_ - leftRadius_},
                           {mandrelRight_, axisY_ - rightRadius_},
                           {mandrelRight_, axisY_ + rightRadius_},
                           {mandrelLeft_, axisY_ + leftRadius_}});
  if (!scene_.complete()) {
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(t_[Token::DrawnEdge], 1.5, Qt::DashLine));
    p.drawPolygon(outline);
    return;
  }
  const double radius = std::max(leftRadius_, rightRadius_);
  QLinearGradient light(0, axisY_ - radius, 0, axisY_ + radius);
  light.setColorAt(0, t_[Token::MandrelLow]);
  light.setColorAt(0.35, t_[Token::MandrelHigh]);
  light.setColorAt(0.6, t_[Token::MandrelMid]);
  light.setColorAt(1, t_[Token::MandrelLow]);
  p.setBrush(light);
  p.setPen(QPen(t_[Token::DrawnEdge], 1));
  p.drawPolygon(outline);
}

void PartPainter::PaintBand(QPainter& p) const {
  if (!scene_.leftStop || !scene_.rightStop) return;
  const double from = std::max(mandrelLeft_, std::min(XOf(*scene_.leftStop), XOf(*scene_.rightStop)));
  const double to = std::min(mandrelRight_, std::max(XOf(*scene_.leftStop), XOf(*scene_.rightStop)));
  if (to - from < 2) return;
  p.save();
  QPainterPath clip;
  clip.addPolygon(QPolygonF({{from, axisY_ - RadiusAt(from)},
                             {to, axisY_ - RadiusAt(to)},
                             {to, axisY_ + RadiusAt(to)},
                             {from, axisY_ + RadiusAt(from)},
                             {from, axisY_ - RadiusAt(from)}}));
  p.setClipPath(clip);
  if (*scene_.angle >= 89.5)
    PaintHoops(p);
  else
    for (const bool front : {false, true})
      for (const bool out : {true, false}) PaintHelix(p, out, front);
  p.restore();
}

void PartPainter::PaintHoops(QPainter& p) const {
  // Bands side by side; where they would run into each other only every few are drawn.
  const double band = scene_.band.value_or(0.25) * scale_;
  const double step = std::max(band, 4.0);
  p.setPen(QPen(t_[Token::BandOut], std::max(1.0, std::min(band, step) - 1.5)));
  for (double x = mandrelLeft_ + step / 2; x < mandrelRight_; x += step)
    p.drawLine(QPointF(x, axisY_ - RadiusAt(x)), QPointF(x, axisY_ + RadiusAt(x)));
}

void PartPainter::PaintHelix(QPainter& p, bool out, bool front) const {
  const double angle = *scene_.angle * std::numbers::pi / 180;
  const double left = mandrelLeft_, right = mandrelRight_;
  // From home to the far end, and back with the same sense of turning.
  const bool homeAtRight = growsLeft_;
  QPainterPath path;
  double turn = std::numbers::pi * 0.25;
  const double step = 1;
  bool drawing = false;
  const int steps = static_cast<int>((right - left) / step);
  const auto along = [&](int i, bool outward) {
    const bool fromRight = homeAtRight == outward;
    return fromRight ? right - i * step : left + i * step;
  };
  if (!out)
    for (int i = 0; i < steps; ++i) turn += step * std::tan(angle) / std::max(RadiusAt(along(i, true)), 1.0);
  for (int i = 0; i <= steps; ++i) {
    const double x = along(i, out);
    const double radius = RadiusAt(x);
    const bool visible = (std::cos(turn) >= 0) == front;
    const QPointF at(x, axisY_ - radius * std::sin(turn));
    if (visible) {
      drawing ? path.lineTo(at) : path.moveTo(at);
    }
    drawing = visible;
    turn += step * std::tan(angle) / std::max(radius, 1.0);
  }
  QColor colour = t_[out ? Token::BandOut : Token::BandBack];
  if (!front) colour.setAlphaF(0.15F);
  QPen pen(colour, std::max(1.5, scene_.band.value_or(0) * scale_));
  pen.setCapStyle(Qt::FlatCap);
  pen.setJoinStyle(Qt::RoundJoin);
  p.strokePath(path, pen);
}

void PartPainter::PaintRuler(QPainter& p) const {
  const double span = (postRight_ - postLeft_) / scale_;
  double step = std::pow(10, std::floor(std::log10(span / 4)));
  for (const double nice : {1.0, 2.0, 4.0, 5.0})
    if (span / (step * nice) <= 9) {
      step *= nice;
      break;
    }
  const double farX = growsLeft_ ? postLeft_ + 10 : postRight_ - 10;
  p.setPen(QPen(t_[Token::Dimension], 1));
  p.drawLine(QPointF(farX, rulerY_), QPointF(zeroX_, rulerY_));
  p.setFont(t_.Font(11));
  for (int i = 0; i * step / 4 <= span - 10 / scale_; ++i) {
    const double x = XOf(i * step / 4);
    const bool major = i % 4 == 0;
    p.setPen(QPen(t_[Token::Dimension], 1));
    p.drawLine(QPointF(x, rulerY_), QPointF(x, rulerY_ + (major ? 6 : 4)));
    p.setPen(t_[Token::Second]);
    if (major)
      p.drawText(QRectF(x - 30, rulerY_ + 7, 60, 14), Qt::AlignCenter, QString::number(i * step / 4));
  }
  if (!scene_.offset) return;
  // Where the carriage cannot go: hatched, from the post to its offset.
  const double x = XOf(*scene_.offset);
  const QRectF box(std::min(x, zeroX_), rulerY_ - 22, std::abs(zeroX_ - x), 22);
  const QColor ink = scene_.stopTooLow ? t_[Token::TooLow] : t_[Token::Off];
  p.save();
  p.setClipRect(box);
  p.setPen(QPen(ink, 1));
  for (double at = box.left() - 22; at < box.right(); at += 6)
    p.drawLine(QPointF(at, box.bottom()), QPointF(at + 22, box.top()));
  p.restore();
  p.setPen(QPen(ink, 1));
  p.drawLine(QPointF(x, box.top() - 2), QPointF(x, rulerY_));
}

void PartPainter::PaintStop(QPainter& p, double z, Token token) const {
  const double x = XOf(z);
  if (x < postLeft_ - kPost || x > postRight_ + kPost) return;
  const double top = axisY_ - std::max(leftRadius_, rightRadius_) - 10;
  p.setPen(QPen(t_[token], 2));
  p.drawLine(QPointF(x, top), QPointF(x, rulerY_));
  p.setPen(Qt::NoPen);
  p.setBrush(t_[token]);
  p.drawPolygon(QPolygonF({{x, rulerY_ - 1}, {x - 6, rulerY_ + 9}, {x + 6, rulerY_ + 9}}));
}

void PartPainter::PaintDimension(QPainter& p, double y, double from, double to, const QString& text,
                                 Token token) const {
  const double left = std::min(from, to), right = std::max(from, to);
  p.setPen(QPen(t_[token == Token::Off ? Token::Off : Token::Dimension], 1));
  p.drawLine(QPointF(left, y), QPointF(right, y));
  p.setBrush(t_[token == Token::Off ? Token::Off : Token::Dimension]);
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

void PartPainter::PaintDiameter(QPainter& p, double x, double radius, const QString& text, bool left) const {
  p.setPen(QPen(t_[Token::Dimension], 1));
  p.drawLine(QPointF(x, axisY_ - radius), QPointF(x, axisY_ + radius));
  for (const double sign : {-1.0, 1.0}) {
    const double y = axisY_ + sign * radius;
    p.drawLine(QPointF(x - 4, y), QPointF(x + 4, y));
    p.setBrush(t_[Token::Dimension]);
    p.drawPolygon(QPolygonF({{x, y}, {x - 2, y - sign * 6}, {x + 2, y - sign * 6}}));
  }
  if (text.isEmpty()) return;
  p.setFont(t_.Font(12, Weight::Medium));
  const double width = p.fontMetrics().horizontalAdvance(text) + 8;
  // Outside the mandrel where the post leaves room.
  const bool outside = left ? x - 6 - width > postLeft_ + 6 : x + 6 + width < postRight_ - 6;
  const QRectF box(left == outside ? x - 6 - width : x + 6, axisY_ - 28, width, 18);
  p.setPen(Qt::NoPen);
  p.setBrush(t_[Token::Drawing]);
  p.drawRoundedRect(box, 3, 3);
  p.setPen(t_[Token::Figures]);
  p.drawText(box, Qt::AlignCenter, text);
}

}  // namespace torvane
