#include "window/frame/splash.h"

#include <QPainter>
#include <QScreen>

#include "look/paint.h"
#include "look/text.h"

namespace torvane {

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
