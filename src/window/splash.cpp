#include "window/splash.h"

#include <QPainter>
#include <QPainterPath>
#include <QScreen>

#include "window/field_paint.h"
#include "window/text.h"

namespace torvane {

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

Splash::Splash(Desk desk) : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), desk_(desk) {
  setObjectName(QStringLiteral("frmSplash"));
  setFixedSize(480, 280);
  move(screen()->availableGeometry().center() - rect().center());
  desk.binder.Bind(desk.station.s.frmSplash, this,
                   [this] { setVisible(desk_.station.s.frmSplash.shown() && !desk_.station.ended); });
}

void Splash::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter p(this);
  p.fillRect(rect(), t[Token::Panel]);
  p.setPen(t[Token::FieldEdge]);
  p.drawRect(rect().adjusted(0, 0, -1, -1));
  PaintProgramMark(p, {48, 84, 96, 96});
  p.setPen(t[Token::Text]);
  p.setFont(t.Font(32, Weight::Medium));
  p.drawText(QRect(168, 84, 300, 48), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Torvane Designer"));
  p.setPen(t[Token::Second]);
  p.setFont(t.Font(15));
  p.drawText(QRect(168, 132, 300, 30), Qt::AlignLeft | Qt::AlignVCenter,
             QStringLiteral("Version ") + Shown(desk_.station.s.gVersionNumber.text()));
  p.fillRect(0, height() - 3, width(), 3, t[Token::Accent]);
}

void Splash::mouseReleaseEvent(QMouseEvent*) { desk_.binder.Run("frmSplash"); }

}  // namespace torvane
