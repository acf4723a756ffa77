#include "look/paint.h"

#include "look/icons.h"

namespace torvane {

void PaintPanel(QPainter& painter, const Theme& theme, const QRectF& box) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(theme[Token::Hairline]);
  painter.setBrush(theme[Token::Panel]);
  painter.drawRoundedRect(Inset(box, 0.5), 6, 6);
}

void PaintFocus(QPainter& painter, const QColor& ink, const QRectF& ring, double radius) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(ink, 2));
  painter.drawRoundedRect(ring, radius, radius);
}

void PaintCheckBox(QPainter& painter, const Theme& theme, const QRectF& box, bool checked, bool enabled,
                   bool focused) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  if (!enabled) painter.setOpacity(0.5);
  painter.setPen(QPen(checked ? theme[Token::Accent] : theme[Token::FieldEdge], 1));
  painter.setBrush(checked ? theme[Token::Accent] : theme[Token::Input]);
  painter.drawRoundedRect(Inset(box, 0.5), 4, 4);
  if (checked) PaintIcon(painter, Icon::Check, Inset(box, 2), theme[Token::OnAccent]);
  if (focused) PaintFocus(painter, theme[Token::Focus], Inset(box, -2), 5);
  painter.restore();
}

void PaintProgramMark(QPainter& p, const QRectF& box) {
  p.save();
  p.setRenderHint(QPainter::Antialiasing);
  p.translate(box.topLeft());
  p.scale(box.width() / 64, box.height() / 64);
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(0x0A, 0x45, 0x52));
  p.drawRoundedRect(QRectF(0, 0, 64, 64), 10, 10);
  p.setPen(QPen(QColor(0x8F, 0xDC, 0xEA), 2.4));
  p.drawLine(QPointF(3, 32), QPointF(61, 32));
  const QRectF mandrel(10, 15, 44, 34);
  p.setBrush(QColor(0x12, 0x60, 0x70));
  p.drawRoundedRect(mandrel, 4, 4);
  p.setClipRect(Inset(mandrel, 2));
  p.setPen(QPen(QColor(0xF2, 0xA9, 0x3A), 5.5, Qt::SolidLine, Qt::FlatCap));
  for (int i = 0; i < 5; ++i) p.drawLine(QPointF(2.0 + i * 11, 51), QPointF(18.0 + i * 11, 13));
  p.restore();
}

}  // namespace torvane
