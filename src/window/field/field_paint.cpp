#include "window/field/field_paint.h"

#include "look/paint.h"
#include "look/text.h"

namespace torvane {

namespace {

struct Colours {
  QColor ground, edge, text;
};

Colours ColoursOf(const Theme& t, const InputLook& look) {
  switch (look.mark) {
    case Mark::NeedsInput:
      return {t[Token::NeedsGround], t[Token::NeedsEdge], t[Token::NeedsText]};
    case Mark::TooHigh:
      if (t.blinkWhite()) return {Qt::white, t[Token::TooHigh], Qt::black};
      return {t[Token::TooHigh], t[Token::TooHigh], Qt::white};
    case Mark::StopTooLow:
      return {t[Token::TooLow], t[Token::TooLow], Qt::white};
    case Mark::NoNumber:
      return {t[Token::Input], t[Token::Fault], t[Token::Fault]};
    case Mark::Plain:
      break;
  }
  if (!look.enabled) return {t[Token::Panel], t[Token::Hairline], t[Token::Off]};
  return {t[Token::Input], t[Token::FieldEdge], t[Token::Text]};
}

}  // namespace

QColor InputTextColour(const Theme& theme, const InputLook& look) { return ColoursOf(theme, look).text; }

void PaintInput(QPainter& painter, const Theme& theme, const QRectF& box, const InputLook& look) {
  const Colours colours = ColoursOf(theme, look);
  const bool marked = look.mark != Mark::Plain;
  const double radius = look.cell ? 0 : 4;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  if (!look.cell || marked || look.focused) {
    const double edge = marked || look.focused ? 2 : 1;
    painter.setPen(QPen(look.focused ? theme[Token::Focus] : colours.edge, edge));
    painter.setBrush(colours.ground);
    painter.drawRoundedRect(Inset(box, edge / 2), radius, radius);
    // The glyph's edge of a marked field stays inside the focus ring.
    if (marked && look.focused) {
      painter.setPen(QPen(colours.edge, 1));
      painter.drawRoundedRect(Inset(box, 2.5), radius / 2, radius / 2);
    }
  }
  if (marked) {
    const bool narrow = box.width() < 60 && box.width() > 30;
    const double size = (narrow ? 12 : 16);
    const QColor ink =
        look.mark == Mark::TooHigh && theme.blinkWhite() ? theme[Token::TooHigh] : colours.text;
    PaintIcon(painter, GlyphOf(look.mark),
              {box.left() + (narrow ? 3 : 5), box.center().y() - size / 2, size, size}, ink);
  }
  painter.restore();
}

QString FigureOf(const Field& field) { return field.empty() ? QString(QChar(0x2013)) : Shown(field.text()); }

Icon GlyphOf(Mark mark) {
  switch (mark) {
    case Mark::NeedsInput:
      return Icon::Pencil;
    case Mark::TooHigh:
      return Icon::TooHigh;
    case Mark::StopTooLow:
      return Icon::TooLow;
    case Mark::NoNumber:
      return Icon::Warning;
    case Mark::Plain:
      break;
  }
  return Icon::None;
}

}  // namespace torvane
