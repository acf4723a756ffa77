#include "window/field/link.h"

#include <QPainter>

#include "look/paint.h"

namespace torvane {

Link::Link(Desk desk, Icon icon, const QString& words, const char* control, QWidget* parent)
    : QAbstractButton(parent), desk_(desk), icon_(icon) {
  setObjectName(QString::fromLatin1(control));
  setText(words);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  resize(sizeHint());
  connect(this, &QAbstractButton::clicked, this, [this, control] { desk_.Run(control); });
}

QSize Link::sizeHint() const {
  const QFontMetrics metrics(desk_.theme.Font(13, Weight::Medium));
  return {WordsFrom() + metrics.horizontalAdvance(text()) + 5, 26};
}

void Link::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter p(this);
  QFont font = t.Font(13, Weight::Medium);
  font.setUnderline(true);
  p.setFont(font);
  p.setPen(t[Token::Accent]);
  p.drawText(rect().adjusted(WordsFrom(), 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, text());
  if (icon_ != Icon::None) PaintIcon(p, icon_, {4, (height() - 16) / 2.0, 16, 16}, t[Token::Accent]);
  if (hasFocus()) PaintFocus(p, t[Token::Focus], Inset(rect(), 1));
}

}  // namespace torvane
