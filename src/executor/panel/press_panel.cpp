#include "executor/panel/press_panel.h"

#include <QKeyEvent>
#include <QPainter>

#include "executor/session/words.h"
#include "look/paint.h"

namespace torvane::dryrun {

using executor::RunState;

PressPanel::PressPanel(Stand stand, QWidget* parent) : QAbstractButton(parent), stand_(stand) {
  setObjectName(QStringLiteral("pressButton"));
  setFixedHeight(96);
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
  connect(this, &QAbstractButton::clicked, this, [this] { stand_.session.PressButton(); });
  connect(&stand.session, &Session::Opened, this, &PressPanel::Refresh);
  connect(&stand.session, &Session::Played, this, &PressPanel::Refresh);
  Refresh();
}

void PressPanel::Refresh() {
  const bool waiting = stand_.player().State() == RunState::Waiting;
  setEnabled(waiting);
  setText(waiting ? QStringLiteral("Press the button") : QStringLiteral("Machine button"));
  setAccessibleName(text());
  setToolTip(waiting
                 ? QStringLiteral("Does what the button on the machine does: the program goes on (Space)")
                 : QStringLiteral("The button on the machine; the program says when it is to be pressed"));
  setAccessibleDescription(Detail());
  update();
}

QString PressPanel::Detail() const {
  const executor::Player& player = stand_.player();
  const executor::ButtonWait* wait = player.NextWait();
  if (player.program() == nullptr) return {};
  if (wait == nullptr) return QStringLiteral("Not needed any more: the program runs through to its end.");
  QString why = Words(wait->why);
  if (player.State() == RunState::Waiting) return why;
  return QStringLiteral("Not needed yet. Next at line %1").arg(wait->line) +
         (why.isEmpty() ? QString(u'.') : QStringLiteral(": ") + why);
}

void PressPanel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    click();
  else
    QAbstractButton::keyPressEvent(event);
}

void PressPanel::paintEvent(QPaintEvent*) {
  const Theme& t = stand_.theme;
  const bool waiting = isEnabled();
  const QColor dark = t.dark() ? t[Token::OnAccent] : t[Token::Text];
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const QColor filled = isDown()       ? t[Token::BandOut].darker(112)
                        : underMouse() ? t[Token::BandOut].lighter(106)
                                       : t[Token::BandOut];
  p.setPen(waiting ? QPen(Qt::NoPen) : QPen(t[Token::FieldEdge]));
  p.setBrush(waiting ? filled : t[Token::Panel]);
  p.drawRoundedRect(Inset(rect(), 0.5), 6, 6);
  if (hasFocus()) PaintFocus(p, waiting ? dark : t[Token::Focus], Inset(rect(), 4));
  const QColor ink = waiting ? dark : t[Token::Second];
  const double glyph = width() < 340 ? 32 : 44;
  const double left = width() < 340 ? 16 : 25;
  PaintIcon(p, Icon::Press, QRectF(left, (height() - glyph) / 2, glyph, glyph), ink);
  const int x = static_cast<int>(left + glyph + (width() < 340 ? 14 : 22));
  p.setPen(ink);
  const QString detail = Detail();
  const QFont small = t.Font(width() < 340 ? 12 : 13);
  p.setFont(small);
  const QRect room(x, 0, width() - x - 14, height());
  const QRect words = p.fontMetrics().boundingRect(room, Qt::TextWordWrap, detail);
  const int lines = detail.isEmpty() ? 0 : std::min(3, (words.height() + 4) / p.fontMetrics().lineSpacing());
  const int line = p.fontMetrics().lineSpacing();
  const int top = (height() - 28 - lines * line) / 2;
  p.drawText(QRect(x, top + 28, room.width(), lines * line + 2), Qt::AlignTop | Qt::TextWordWrap, detail);
  p.setFont(t.Font(20, Weight::Medium));
  p.drawText(QRect(x, top - 2, room.width(), 28), Qt::AlignVCenter, text());
}

}  // namespace torvane::dryrun
