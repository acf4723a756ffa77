#include "window/polar_picture.h"

#include <algorithm>
#include <numbers>

namespace torvane {

namespace {

QColor ColourOf(const Theme& t, PolarColour colour) {
  switch (colour) {
    case PolarColour::Tick:
      return QColor(0xC0, 0xC0, 0xC0);
    case PolarColour::Split:
      return t.dark() ? QColor(0x4F, 0xC0, 0x7D) : QColor(0x2F, 0x9E, 0x5B);
    case PolarColour::Wrap:
      return t[Token::BandBack];
    case PolarColour::Closing:
      return t[Token::Fault];
    case PolarColour::Outline:
    case PolarColour::Band:
      return t[Token::Text];
  }
  return t[Token::Text];
}

}  // namespace

void PaintPolar(QPainter& p, const Theme& t, const std::vector<PolarFigure>& figures, const QRectF& box) {
  double reach = 0;
  for (const PolarFigure& f : figures)
    reach = std::max({reach, f.radius, std::abs(f.x1), std::abs(f.x2), std::abs(f.y1), std::abs(f.y2)});
  if (reach <= 0) return;
  const double scale = std::min(box.width(), box.height()) / 2 / reach;
  const QPointF centre = box.center();
  const auto at = [&](double x, double y) { return centre + QPointF(x * scale, -y * scale); };
  p.save();
  p.setRenderHint(QPainter::Antialiasing);
  p.setBrush(Qt::NoBrush);
  const auto chords = std::count_if(figures.begin(), figures.end(),
                                    [](const PolarFigure& f) { return f.kind == PolarKind::Chord; });
  std::ptrdiff_t chord = 0;
  for (const PolarFigure& f : figures) {
    const QColor colour = ColourOf(t, f.colour);
    const double radius = f.radius * scale;
    const QRectF circle(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    switch (f.kind) {
      case PolarKind::Circle:
        p.setPen(QPen(colour, 1.5));
        p.drawEllipse(circle);
        break;
      case PolarKind::Arc: {
        const double degree = 180 / std::numbers::pi * 16;
        p.setPen(QPen(colour, 3, Qt::SolidLine, Qt::FlatCap));
        p.drawArc(circle, static_cast<int>(f.from * degree), static_cast<int>((f.to - f.from) * degree));
        break;
      }
      case PolarKind::Tick:
        p.setPen(QPen(colour, 1));
        p.drawLine(at(f.x1, f.y1), at(f.x2, f.y2));
        break;
      case PolarKind::Chord: {
        ++chord;
        QColor band = f.colour == PolarColour::Closing ? colour : t[Token::BandOut];
        if (chord < chords)
          band.setAlphaF(
              static_cast<float>(0.35 + 0.45 * static_cast<double>(chord) / static_cast<double>(chords)));
        p.setPen(QPen(band, chord == chords ? 2.2 : 1));
        p.drawLine(at(f.x1, f.y1), at(f.x2, f.y2));
        break;
      }
    }
  }
  p.restore();
}

}  // namespace torvane
