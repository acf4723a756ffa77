#include "window/rail/build_button.h"

#include "look/icons.h"
#include "look/paint.h"
#include "look/text.h"
#include "window/desk/live_watch.h"

namespace torvane {

namespace {

BuildAdvice AdviceNow(const Desk& desk) {
  return BuildAdviceOf(desk.station, desk.live == nullptr ? nullptr : desk.live->result());
}

}  // namespace

BuildButton::BuildButton(Desk desk, QWidget* parent) : QAbstractButton(parent), desk_(desk) {
  setObjectName(QStringLiteral("imgBUILD"));
  setText(Shown(desk.station.s.lblBuild.caption()));
  setAccessibleName(text());
  setFixedHeight(62);
  setFocusPolicy(Qt::TabFocus);
  connect(this, &QAbstractButton::clicked, this, [this] { desk_.binder.Run("imgBUILD"); });
  desk.binder.BindAll(this, [this] {
    const QString sentence = Shown(AdviceNow(desk_).sentence);
    setAccessibleDescription(sentence);
    setToolTip(PlainTip(
        QStringLiteral("%1 (%2)").arg(sentence, Shown(desk_.station.WordsOf("mnuBeginWinding").keys))));
    update();
  });
}

void BuildButton::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const BuildAdvice outlook = AdviceNow(desk_);
  const QString sentence = Shown(outlook.sentence);
  QColor ink = t[Token::OnAccent];
  if (outlook.ready) {
    p.setPen(Qt::NoPen);
    p.setBrush(isDown() ? t[Token::Accent].darker(115) : t[Token::Accent]);
    p.drawRoundedRect(rect(), 6, 6);
  } else {
    ink = t[Token::Accent];
    p.setPen(QPen(t[Token::Accent], 1));
    p.setBrush(t[Token::Panel]);
    p.drawRoundedRect(Inset(rect(), 0.5), 6, 6);
  }
  if (hasFocus()) PaintFocus(p, t[outlook.ready ? Token::OnAccent : Token::Focus], Inset(rect(), 3));
  p.setPen(ink);
  if (height() < 50 || height() > 100) {
    // In the bar of a small window, or to be seen from the machine: icon and word in the middle.
    const bool far = height() > 100;
    const double icon = far ? 44 : 20, gap = far ? 20 : 10;
    p.setFont(t.Font(far ? 38 : 16, Weight::Medium));
    const double words = p.fontMetrics().horizontalAdvance(text());
    const double x = (width() - icon - gap - words) / 2;
    const double second = far && !outlook.clear ? 14 : 0;
    PaintIcon(p, Icon::Play, {x, (height() - icon) / 2 - second, icon, icon}, ink);
    p.drawText(QRectF(x + icon + gap, -second, words + 4, height()), Qt::AlignVCenter | Qt::AlignLeft,
               text());
    if (second > 0) {
      p.setFont(t.Font(17));
      p.drawText(QRectF(12, height() - 44, width() - 24, 24), Qt::AlignCenter,
                 p.fontMetrics().elidedText(sentence, Qt::ElideRight, width() - 24));
    }
    return;
  }
  PaintIcon(p, Icon::Play, {20, 18, 26, 26}, ink);
  p.setFont(t.Font(20, Weight::Medium));
  p.drawText(QRect(59, 8, width() - 70, 28), Qt::AlignVCenter | Qt::AlignLeft, text());
  p.setFont(t.Font(12));
  if (!outlook.ready) p.setPen(t[Token::Second]);
  const QRect second(59, 34, width() - 68, 18);
  p.drawText(second, Qt::AlignVCenter | Qt::AlignLeft,
             p.fontMetrics().elidedText(sentence, Qt::ElideRight, second.width()));
}

}  // namespace torvane
