#include "window/rail/polar_picture.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace torvane {

namespace {

constexpr double kNewestChord = 2.2;

QColor ColourOf(const Theme& t, PolarColour colour) {
  switch (colour) {
    case PolarColour::Tick:
      return QColor(0xC0, 0xC0, 0xC0);
    case PolarColour::Split:
      return t[Token::Split];
    case PolarColour::Wrap:
      return t[Token::BandBack];
    case PolarColour::Closing:
      return t[Token::TooHigh];
    case PolarColour::Outline:
      return t[Token::DrawnEdge];
    case PolarColour::Band:
      return t[Token::Text];
  }
  return t[Token::Text];
}

}  // namespace

PolarFrame::PolarFrame(const std::vector<PolarFigure>& figures, const QRectF& box)
    : centre_(std::floor(box.center().x()) + 0.5, std::floor(box.center().y()) + 0.5) {
  for (const PolarFigure& f : figures)
    reach_ = std::max({reach_, f.radius, std::abs(f.x1), std::abs(f.x2), std::abs(f.y1), std::abs(f.y2)});
  if (reach_ > 0) scale_ = std::min(box.width(), box.height()) / 2 / reach_;
}

void PaintPolar(QPainter& p, const Theme& t, const std::vector<PolarFigure>& figures, const QRectF& box) {
  const PolarFrame frame(figures, box);
  if (frame.empty()) return;
  p.save();
  p.setRenderHint(QPainter::Antialiasing);
  const auto circle = [&](const PolarFigure& f) {
    const double radius = f.radius * frame.scale();
    return QRectF(frame.At(0, 0) - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
  };
  const auto chords = std::count_if(figures.begin(), figures.end(),
                                    [](const PolarFigure& f) { return f.kind == PolarKind::Chord; });
  std::ptrdiff_t chord = 0;
  const PolarFigure* opening = nullptr;
  p.setBrush(t[Token::Drawing]);
  for (const PolarFigure& f : figures) {
    const QColor colour = ColourOf(t, f.colour);
    switch (f.kind) {
      case PolarKind::Circle:
        p.setPen(QPen(colour, 1.5));
        p.drawEllipse(circle(f));
        opening = &f;
        break;
      case PolarKind::Arc: {
        // Counter-clockwise, also where it passes through 0.
        const double span = f.to < f.from ? f.to - f.from + 2 * std::numbers::pi : f.to - f.from;
        const double sixteenths = 180 / std::numbers::pi * 16;
        p.setPen(QPen(colour, 5, Qt::SolidLine, Qt::FlatCap));
        p.drawArc(circle(f), static_cast<int>(std::lround(f.from * sixteenths)),
                  static_cast<int>(std::lround(span * sixteenths)));
        break;
      }
      case PolarKind::Tick:
        p.setPen(QPen(colour, 1));
        p.drawLine(frame.At(f.x1, f.y1), frame.At(f.x2, f.y2));
        break;
      case PolarKind::Chord: {
        ++chord;
        QColor band = t[Token::BandOut];
        if (chord < chords)
          band.setAlphaF(
              static_cast<float>(0.35 + 0.45 * static_cast<double>(chord) / static_cast<double>(chords)));
        p.setPen(QPen(band, chord == chords ? kNewestChord : 1));
        p.drawLine(frame.At(f.x1, f.y1), frame.At(f.x2, f.y2));
        break;
      }
    }
  }
  // The band passes round the opening, never over it.
  if (chord > 0 && opening != nullptr && opening != figures.data()) {
    p.setBrush(t[Token::ReadOut]);
    p.setPen(QPen(ColourOf(t, opening->colour), 1.5));
    p.drawEllipse(circle(*opening));
  }
  p.restore();
}

}  // namespace torvane
