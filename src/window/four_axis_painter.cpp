#include "window/four_axis_painter.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "look/text.h"

namespace torvane {

namespace {

constexpr double kFields = 144;
constexpr double kPost = 16;

double Value(const Field& field) {
  const Number value = number(field);
  return holds(value > 0) ? value.value() : 0;
}

}  // namespace

FourAxisPainter::FourAxisPainter(const Theme& theme, const DesignState& state, const QRect& area)
    : t_(theme), s_(state), area_(area), homeRight_(!state.gIsLHDrive) {
  postLeft_ = area.left() + kFields;
  postRight_ = area.right() - kFields;
  axisY_ = 121;
  rulerY_ = 176;
  double far = 28, home = 4, leftDiameter = 4, rightDiameter = 4;
  complete_ = ZOf(0) && ZOf(3) && Value(s_.txtDia(0)) > 0 && Value(s_.txtDia(1)) > 0;
  if (complete_) {
    far = std::max(*ZOf(0), *ZOf(3));
    home = std::min(*ZOf(0), *ZOf(3));
    leftDiameter = Value(s_.txtDia(0));
    rightDiameter = Value(s_.txtDia(1));
  }
  const double reach = std::max({far, Value(s_.txtAdjust(1)), Value(s_.txtAdjust(5))});
  scale_ = std::min((postRight_ - postLeft_) / (reach * 1.08), 74 / std::max(leftDiameter, rightDiameter));
  zeroX_ = homeRight_ ? postRight_ : postLeft_;
  left_ = std::min(XOf(far), XOf(home));
  right_ = std::max(XOf(far), XOf(home));
  leftRadius_ = leftDiameter * scale_ / 2;
  rightRadius_ = rightDiameter * scale_ / 2;
}

std::optional<double> FourAxisPainter::ZOf(int i) const {
  const Number z = number(s_.txtZ4(i));
  if (!holds(z > 0)) return std::nullopt;
  return z.value();
}

void FourAxisPainter::Paint(QPainter& p) const {
  PaintGround(p);
  p.setRenderHint(QPainter::Antialiasing);
  PaintPosts(p);
  PaintMandrel(p);
  PaintRuler(p);
  if (complete_) PaintHeadPath(p);
}

void FourAxisPainter::PaintGround(QPainter& p) const {
  p.fillRect(area_, t_[Token::Drawing]);
  p.setClipRect(area_);
  for (int i = 0; i * 20 < area_.width(); ++i) {
    p.setPen(t_[i % 5 == 0 ? Token::DrawingGridBold : Token::DrawingGrid]);
    p.drawLine(area_.left() + i * 20, area_.top(), area_.left() + i * 20, area_.bottom());
    p.drawLine(area_.left(), i * 20, area_.right(), i * 20);
  }
  p.setClipping(false);
  for (const bool left : {true, false}) {
    p.setFont(t_.Font(13, Weight::Medium));
    const QString end = left ? QStringLiteral("Left end") : QStringLiteral("Right end");
    const QString chip = (left == homeRight_) ? QStringLiteral("FAR") : QStringLiteral("HOME");
    const int words = p.fontMetrics().horizontalAdvance(end);
    const int x = left ? area_.left() + 14 : area_.right() - 10 - words;
    p.setPen(t_[Token::Text]);
    p.drawText(QRect(x, 58, words + 4, 20), Qt::AlignVCenter, end);
    p.setFont(t_.Font(11, Weight::Medium));
    const int width = p.fontMetrics().horizontalAdvance(chip) + 10;
    const QRect box(left ? x + words + 8 : x - width - 8, 60, width, 16);
    p.setPen(Qt::NoPen);
    p.setBrush(t_[Token::Accent]);
    p.drawRoundedRect(box, 3, 3);
    p.setPen(t_[Token::OnAccent]);
    p.drawText(box, Qt::AlignCenter, chip);
  }
}

void FourAxisPainter::PaintPosts(QPainter& p) const {
  p.setPen(QPen(t_[Token::DrawnEdge], 1));
  p.setBrush(t_[Token::Steel]);
  p.drawRect(QRectF(postLeft_, axisY_ - 4, left_ - postLeft_, 8));
  p.drawRect(QRectF(right_, axisY_ - 4, postRight_ - right_, 8));
  p.drawRect(QRectF(postLeft_ - kPost, axisY_ - 26, kPost, rulerY_ - axisY_ + 26));
  p.drawRect(QRectF(postRight_, axisY_ - 26, kPost, rulerY_ - axisY_ + 26));
}

void FourAxisPainter::PaintMandrel(QPainter& p) const {
  QPainterPath outline;
  const bool hemispheres = s_.optType(1).checked();
  const double leftCap = hemispheres ? std::min(leftRadius_, (right_ - left_) / 2) : 0;
  const double rightCap = hemispheres ? std::min(rightRadius_, (right_ - left_) / 2) : 0;
  outline.moveTo(left_ + leftCap, axisY_ - leftRadius_);
  outline.lineTo(right_ - rightCap, axisY_ - rightRadius_);
  if (hemispheres)
    outline.arcTo(QRectF(right_ - 2 * rightCap, axisY_ - rightRadius_, 2 * rightCap, 2 * rightRadius_), 90,
                  -180);
  else
    outline.lineTo(right_, axisY_ + rightRadius_);
  outline.lineTo(left_ + leftCap, axisY_ + leftRadius_);
  if (hemispheres)
    outline.arcTo(QRectF(left_, axisY_ - leftRadius_, 2 * leftCap, 2 * leftRadius_), 270, -180);
  outline.closeSubpath();
  if (!complete_) {
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(t_[Token::DrawnEdge], 1.5, Qt::DashLine));
    p.drawPath(outline);
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
  p.drawPath(outline);
  p.setPen(QPen(t_[Token::DrawnEdge], 1, Qt::DashDotLine));
  p.drawLine(QPointF(left_ - 6, axisY_), QPointF(right_ + 6, axisY_));
  // The polar openings.
  p.setPen(QPen(t_[Token::Dimension], 2));
  for (const int end : {0, 1}) {
    const double opening = Value(s_.txtPODia(end)) * scale_ / 2;
    const double x = end == 0 ? left_ : right_;
    if (opening > 0) p.drawLine(QPointF(x, axisY_ - opening), QPointF(x, axisY_ + opening));
  }
}

void FourAxisPainter::PaintHeadPath(QPainter& p) const {
  const double run = std::max(leftRadius_, rightRadius_) / scale_ + Value(s_.txtAdjust(3));
  const QPointF at[] = {{XOf(Value(s_.txtAdjust(1))), YOf(Value(s_.txtAdjust(0)))},
                        {XOf(Value(s_.txtAdjust(2))), YOf(run)},
                        {XOf(Value(s_.txtAdjust(4))), YOf(run)},
                        {XOf(Value(s_.txtAdjust(5))), YOf(Value(s_.txtAdjust(6)))}};
  p.setPen(QPen(t_[Token::Accent], 1.4, Qt::DashLine));
  p.setBrush(Qt::NoBrush);
  p.drawPolyline(at, 4);
  const auto held = [this](QPointF point) {
    return QPointF(std::clamp(point.x(), postLeft_, postRight_), std::clamp(point.y(), 64.0, axisY_ + 40));
  };
  PaintRing(p, held(at[0]), 1);
  PaintRing(p, held(at[0] + QPointF(0, 19)), 0);
  PaintRing(p, held(at[1]), 2);
  PaintRing(p, held((at[1] + at[2]) / 2), 3);
  PaintRing(p, held(at[2]), 4);
  PaintRing(p, held(at[3]), 5);
  PaintRing(p, held(at[3] + QPointF(0, 19)), 6);
}

void FourAxisPainter::PaintRing(QPainter& p, const QPointF& centre, int number) const {
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(QPen(t_[Token::Accent], 1.4));
  p.setBrush(t_[Token::Drawing]);
  p.drawEllipse(centre, 7.5, 7.5);
  p.setFont(t_.Font(11, Weight::Medium));
  p.drawText(QRectF(centre.x() - 8, centre.y() - 8, 16, 16), Qt::AlignCenter, QString::number(number));
}

void FourAxisPainter::PaintRuler(QPainter& p) const {
  const double span = (postRight_ - postLeft_) / scale_;
  double step = std::pow(10, std::floor(std::log10(span / 4)));
  for (const double nice : {1.0, 2.0, 4.0, 5.0})
    if (span / (step * nice) <= 9) {
      step *= nice;
      break;
    }
  p.setPen(QPen(t_[Token::Dimension], 1));
  p.drawLine(QPointF(postLeft_, rulerY_), QPointF(postRight_, rulerY_));
  p.setFont(t_.Font(11));
  for (int i = 0; i * step / 4 <= span - 10 / scale_; ++i) {
    const double x = XOf(i * step / 4);
    p.setPen(QPen(t_[Token::Dimension], 1));
    p.drawLine(QPointF(x, rulerY_), QPointF(x, rulerY_ + (i % 4 == 0 ? 6 : 4)));
    p.setPen(t_[Token::Second]);
    if (i % 4 == 0)
      p.drawText(QRectF(x - 30, rulerY_ + 7, 60, 14), Qt::AlignCenter, QString::number(i * step / 4));
  }
  for (int i = 0; i <= 3; ++i) {
    const auto z = ZOf(i);
    if (!z) continue;
    const double x = XOf(*z);
    if (x < postLeft_ || x > postRight_) continue;
    const bool inner = i == 1 || i == 2;
    p.setPen(QPen(t_[Token::Accent], inner ? 1 : 2, inner ? Qt::DashLine : Qt::SolidLine));
    p.drawLine(QPointF(x, axisY_ - std::max(leftRadius_, rightRadius_) - 4), QPointF(x, rulerY_));
    p.setPen(Qt::NoPen);
    p.setBrush(t_[Token::Accent]);
    p.drawPolygon(QPolygonF({{x, rulerY_}, {x - 5, rulerY_ + 8}, {x + 5, rulerY_ + 8}}));
  }
  // The length between the ends, which follows from them.
  p.setPen(t_[s_.lblLengthTotal.empty() ? Token::Off : Token::Figures]);
  p.setFont(t_.Font(14, Weight::Medium));
  const QString length = s_.lblLengthTotal.empty() ? QString(QChar(0x2013)) : Shown(s_.lblLengthTotal.text());
  const QRectF box(area_.center().x() - 60, 222, 120, 30);
  p.fillRect(box, t_[Token::ReadOut]);
  p.drawText(box, Qt::AlignCenter, length + QStringLiteral(" ") + Shown(s_.gUnits.text()));
  p.setPen(t_[Token::Second]);
  p.setFont(t_.Font(12));
  p.drawText(QRectF(box.left(), 203, 120, 18), Qt::AlignCenter, QStringLiteral("Length"));
}

}  // namespace torvane
