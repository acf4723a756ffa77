// The mandrel's view as it is painted round its two pictures.
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "executor/program/number.h"
#include "executor/view/mandrel_view.h"

namespace torvane::dryrun {

using executor::RunState;

namespace {

// A step of 1, 2, 4 or 5 that leaves the marks at least that far apart.
double RulerStep(double length, double pixels, double apart) {
  double step = std::pow(10, std::floor(std::log10(length * apart / pixels)));
  for (const double by : {1.0, 2.0, 4.0, 5.0, 10.0})
    if (step * by * pixels / length >= apart) return step * by;
  return step * 10;
}

// How wide a circle across the axis is seen.
double FaceShare() { return std::sin(Oblique::kDegrees * executor::kRadians); }

}  // namespace

void MandrelView::PaintHead(QPainter& p) const {
  const Theme& t = stand_.theme;
  const QString title = QStringLiteral("Mandrel");
  p.setFont(t.Font(14, Weight::Medium));
  p.setPen(t[Token::Text]);
  p.drawText(QRectF(14, 0, 120, 30), Qt::AlignVCenter, title);
  const double x = 14 + p.fontMetrics().horizontalAdvance(title) + 16;
  const QString summary = Summary();
  p.setFont(t.Font(12, Weight::Medium));
  p.setPen(t[Token::Figures]);
  p.drawText(QRectF(0, 0, width() - 14, 30), Qt::AlignVCenter | Qt::AlignRight, summary);
  if (!Known()) return;
  PaintLegend(p, x, width() - 26 - p.fontMetrics().horizontalAdvance(summary));
}

// What has no room goes: first how to turn the mandrel, then from the end.
void MandrelView::PaintLegend(QPainter& p, double x, double room) const {
  const Theme& t = stand_.theme;
  struct Entry {
    QString text;
    std::vector<QColor> swatches;
  };
  const auto pale = [&t](Token band) { return Surface::Finished(t, t[band]); };
  std::vector<Entry> entries = {
      {QStringLiteral("out"), {t[Token::BandOut]}},
      {QStringLiteral("back"), {t[Token::BandBack]}},
      {QStringLiteral("finished layers"), {pale(Token::BandOut), pale(Token::BandBack)}}};
  p.setFont(t.Font(12));
  const auto widthOf = [&p](const Entry& entry) {
    return p.fontMetrics().horizontalAdvance(entry.text) + (entry.swatches.empty() ? 18.0 : 42.0);
  };
  const Entry how{
      byHand_ == 0 ? QStringLiteral("drag to turn") : QStringLiteral("double click: machine's angle"), {}};
  double all = widthOf(how);
  for (const Entry& entry : entries) all += widthOf(entry);
  if (x + all <= room) entries.insert(entries.begin(), how);
  for (const Entry& entry : entries) {
    if (x + widthOf(entry) - 16 > room) return;
    const double swatch = entry.swatches.empty() ? 0 : 20.0 / static_cast<double>(entry.swatches.size());
    for (std::size_t i = 0; i < entry.swatches.size(); ++i)
      p.fillRect(QRectF(x + static_cast<double>(i) * swatch, 12, swatch, 6), entry.swatches[i]);
    p.setPen(t[Token::Second]);
    p.drawText(QRectF(x + (entry.swatches.empty() ? 0 : 26), 0, widthOf(entry), 30), Qt::AlignVCenter,
               entry.text);
    x += widthOf(entry);
  }
}

void MandrelView::PaintUnrolled(QPainter& p) const {
  const Theme& t = stand_.theme;
  const QRectF& box = room_.unrolled;
  p.setFont(t.Font(13, Weight::Medium));
  p.setPen(t[Token::Text]);
  const QString title = QStringLiteral("Unrolled");
  p.drawText(QRectF(14, box.top() - 24, 120, 20), Qt::AlignVCenter, title);
  const double behind = 14 + p.fontMetrics().horizontalAdvance(title) + 14;
  p.setFont(t.Font(12));
  p.setPen(t[Token::Second]);
  p.drawText(QRectF(behind, box.top() - 24, width() - behind, 20), Qt::AlignVCenter,
             QStringLiteral("mandrel angle against Z"));
  p.fillRect(box, t[Token::Drawing]);
  const auto xAt = [this](double z) { return room_.scale.XAt(z); };
  p.setRenderHint(QPainter::Antialiasing, false);
  if (Known())
    p.fillRect(QRectF(QPointF(xAt(part_.zLeft), box.top()), QPointF(xAt(part_.zRight), box.bottom())),
               t[Token::MandrelMid]);
  p.drawImage(box.topLeft(), unrolled_);
  p.setFont(t.Font(11));
  for (int degrees = 0; degrees <= 360; degrees += 90) {
    const double y = std::round(box.bottom() - box.height() * degrees / 360);
    if (degrees % 360 != 0) {
      p.setPen(QPen(t[Token::Off], 1, Qt::DashLine));
      p.setOpacity(0.55);
      p.drawLine(QPointF(box.left(), y), QPointF(box.right(), y));
      p.setOpacity(1);
    }
    p.setPen(t[Token::Second]);
    if (box.height() >= 60 || degrees % 180 == 0)
      p.drawText(QRectF(0, y - 8, box.left() - 6, 16), Qt::AlignRight | Qt::AlignVCenter,
                 QString::number(degrees) + QChar(0xB0));
  }
  p.setPen(t[Token::FieldEdge]);
  p.setBrush(Qt::NoBrush);
  p.drawRect(box);
  if (Known()) {
    p.setPen(QPen(t[Token::Accent], 1.5, Qt::DashLine));
    for (const double z : {part_.zLeft, part_.zRight})
      p.drawLine(QPointF(xAt(z), box.top()), QPointF(xAt(z), box.bottom()));
  }
  p.setRenderHint(QPainter::Antialiasing);
  const executor::Player& player = stand_.player();
  const double x = xAt(player.At().carriage);
  if (player.State() == RunState::Empty || x < box.left() || x > box.right()) return;
  p.setPen(QPen(t[Token::Text], 1.4));
  p.drawLine(QPointF(x, box.top()), QPointF(x, box.bottom()));
  const double turn = player.At().mandrel / 360;
  p.setPen(QPen(t[Token::Text], 2));
  p.setBrush(t[Token::Panel]);
  p.drawEllipse(QPointF(x, box.bottom() - box.height() * (turn - std::floor(turn))), 5, 5);
}

void MandrelView::PaintRuler(QPainter& p) const {
  const Theme& t = stand_.theme;
  const QRectF& box = room_.unrolled;
  if (stand_.player().State() == RunState::Empty) return;
  const ZScale& scale = room_.scale;
  const double step = RulerStep(scale.zLeft - scale.zRight, box.width(), 80);
  p.setFont(t.Font(11));
  for (double z = std::ceil(scale.zRight / step) * step; z <= scale.zLeft; z += step) {
    const double x = std::round(scale.XAt(z));
    p.setPen(t[Token::FieldEdge]);
    p.drawLine(QPointF(x, box.bottom()), QPointF(x, box.bottom() + 4));
    if (x > box.right() - 24) continue;
    p.setPen(t[Token::Second]);
    p.drawText(QRectF(x - 40, box.bottom() + 4, 80, 16), Qt::AlignCenter, stand_.Figure(z, step < 1 ? 1 : 0));
  }
  p.setPen(t[Token::Second]);
  p.drawText(QRectF(box.right() - 40, box.bottom() + 4, 40, 16), Qt::AlignRight | Qt::AlignVCenter,
             stand_.player().course().millimetres ? QStringLiteral("Z mm") : QStringLiteral("Z in"));
}

void MandrelView::PaintSide(QPainter& p) const {
  const Theme& t = stand_.theme;
  const QRectF& box = room_.side;
  const double middle = box.center().y();
  if (stand_.player().State() == RunState::Empty) return;
  // The shaft: behind the mandrel's left end, and out of the middle of its face.
  const double thick = std::min(8.0, box.height() / 8);
  const auto shaft = [&](double from, double to) {
    p.setPen(QPen(t[Token::DrawnEdge], 1));
    p.setBrush(t[Token::Steel]);
    p.drawRect(QRectF(std::round(from) + 0.5, std::round(middle - thick / 2) + 0.5, to - from - 1, thick));
  };
  shaft(6, width() - 6);
  if (Known()) {
    PaintBody(p);
    const Oblique geometry = SideGeometry(1);
    const double face = box.left() + geometry.Across(geometry.right + geometry.dome, 0);
    shaft(face, width() - 6);
    if (geometry.dome <= 0) {
      p.setPen(QPen(t[Token::DrawnEdge], 1));
      p.setBrush(t[Token::Steel]);
      p.drawEllipse(QPointF(face, middle), thick / 2 * FaceShare(), thick / 2 + 2);
    }
  }
  PaintFilament(p);
}

// The picture of the surface in its outline, with the right end's face.
void MandrelView::PaintBody(QPainter& p) const {
  const Theme& t = stand_.theme;
  const QRectF& box = room_.side;
  const double middle = box.center().y();
  const Oblique geometry = SideGeometry(1);
  p.drawImage(box.topLeft(), side_);
  const double left = box.left() + geometry.Across(geometry.left, 0);
  const double right = box.left() + geometry.Across(geometry.right, 0);
  const auto end = [&](double x, double radius) {
    // A ball's outline reaches out as far as both its dome and its lean tell.
    const double share = FaceShare();
    const double lean = radius * share;
    const double wide = std::sqrt(lean * lean + geometry.dome * geometry.dome * (1 - share * share));
    return QRectF(x - wide, middle - radius, 2 * wide, 2 * radius);
  };
  const QRectF leftEnd = end(left, geometry.leftRadius), rightEnd = end(right, geometry.rightRadius);
  p.setPen(QPen(t[Token::DrawnEdge], 1.2));
  if (geometry.dome <= 0) {
    p.setBrush(t[Token::MandrelMid]);
    p.drawEllipse(rightEnd);
  }
  QPainterPath outline;
  outline.arcMoveTo(leftEnd, 90);
  outline.arcTo(leftEnd, 90, 180);
  outline.arcTo(rightEnd, 270, 180);
  outline.closeSubpath();
  p.setBrush(Qt::NoBrush);
  p.drawPath(outline);
}

// The rail, the carriage on it, and the filament from the head to the mandrel.
void MandrelView::PaintFilament(QPainter& p) const {
  const Theme& t = stand_.theme;
  const QRectF& box = room_.side;
  const executor::Player& player = stand_.player();
  p.setPen(QPen(t[Token::DrawnEdge], 1.6));
  p.drawLine(QPointF(100, room_.rail), QPointF(box.right(), room_.rail));
  const double x = std::clamp(room_.scale.XAt(player.At().carriage), 100.0, box.right() - 4);
  const Oblique geometry = SideGeometry(1);
  const double at = room_.scale.XAt(player.At().carriage) - box.left();
  const double radius = Known() ? geometry.RadiusAt(at) : 0;
  if (radius > 0) {
    const double angle = ContactAngle() * executor::kRadians;
    // A contact point behind the mandrel is hidden: the filament is seen as far as the upper rim.
    const bool seen = std::cos(angle) >= -1e-9;
    const double up = seen ? std::sin(angle) : 1, towards = seen ? std::cos(angle) : 0;
    p.setPen(QPen(t[Token::Text], 1.6));
    p.drawLine(QPointF(x, room_.rail + 6),
               QPointF(box.left() + geometry.Across(at, towards * radius), box.center().y() - up * radius));
  }
  PaintCarriage(p, x);
}

void MandrelView::PaintCarriage(QPainter& p, double x) const {
  const Theme& t = stand_.theme;
  QColor carriage = t[Token::BandOut];
  p.setPen(QPen(carriage, 1.5));
  carriage.setAlphaF(0.28F);
  p.setBrush(t[Token::Panel]);
  const QRectF body(x - 17, room_.rail - 7.5, 34, 15);
  p.drawRoundedRect(body, 3, 3);
  p.setBrush(carriage);
  p.drawRoundedRect(body, 3, 3);
}

}  // namespace torvane::dryrun
