#include "look/button.h"

#include <QKeyEvent>

#include "look/paint.h"

namespace torvane {

PlainButton::PlainButton(const Theme& theme, ButtonLook look, Icon icon, const QString& caption,
                         QWidget* parent)
    : QAbstractButton(parent), theme_(theme), look_(look), icon_(icon), filled_(look == ButtonLook::Filled) {
  setText(caption);
  setFocusPolicy(Qt::TabFocus);
  setFixedHeight(34);
  setAttribute(Qt::WA_Hover);
}

void PlainButton::SetFilled(bool filled) {
  if (filled == filled_) return;
  filled_ = filled;
  update();
}

void PlainButton::SetIcon(Icon icon) {
  if (icon == icon_) return;
  icon_ = icon;
  update();
}

void PlainButton::SetLook(ButtonLook look) {
  look_ = look;
  update();
}

void PlainButton::SetTextSize(int size) {
  textSize_ = size;
  updateGeometry();
}

QSize PlainButton::sizeHint() const {
  const QFontMetrics metrics(theme_.Font(textSize_, Weight::Medium));
  int width = icon_ == Icon::None ? 0 : 20;
  if (!text().isEmpty()) width += metrics.size(Qt::TextShowMnemonic, text()).width() + (width > 0 ? 8 : 0);
  return {width + (look_ == ButtonLook::Flat ? 16 : 24), 34};
}

void PlainButton::paintEvent(QPaintEvent*) {
  const Theme& t = theme_;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF box = Inset(rect(), 0.5);
  QColor ink = isEnabled() ? t[Token::Text] : t[Token::Off];
  const bool segment = look_ == ButtonLook::Segment;
  if (filled_ && isEnabled()) {
    ink = t[Token::OnAccent];
    painter.setPen(Qt::NoPen);
    painter.setBrush(isDown() ? t[Token::Accent].darker(115)
                              : (underMouse() ? t[Token::Accent].lighter(108) : t[Token::Accent]));
    painter.drawRoundedRect(segment ? Inset(rect(), 1) : QRectF(rect()), segment ? 3 : 4, segment ? 3 : 4);
  } else {
    const bool hover = isEnabled() && underMouse();
    const bool edged = look_ == ButtonLook::Outline;
    painter.setPen(edged ? QPen(isEnabled() ? t[Token::FieldEdge] : t[Token::Hairline], 1) : QPen(Qt::NoPen));
    if (edged || hover || isDown())
      painter.setBrush(isDown() || hover ? t[Token::Selected]
                                         : (t.dark() ? t[Token::TableHead] : t[Token::Panel]));
    painter.drawRoundedRect(edged ? box : Inset(rect(), 1), 4, 4);
    if (segment && isEnabled()) ink = t[Token::Second];
  }
  if (hasFocus())
    PaintFocus(painter, t[filled_ ? Token::OnAccent : Token::Focus], Inset(rect(), filled_ ? 3 : 1));
  painter.setFont(t.Font(textSize_, Weight::Medium));
  const double icon = icon_ == Icon::None ? 0 : 20;
  const double words =
      text().isEmpty() ? 0 : painter.fontMetrics().size(Qt::TextShowMnemonic, text()).width();
  const double gap = icon > 0 && words > 0 ? 8 : 0;
  double x = (width() - icon - gap - words) / 2;
  PaintIcon(painter, icon_, {iconBehind_ ? x + words + gap : x, (height() - icon) / 2, icon, icon}, ink);
  if (!iconBehind_) x += icon + gap;
  painter.setPen(ink);
  painter.drawText(QRectF(x, 0, words + 2, height()), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic,
                   text());
}

void PlainButton::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  update();
}

void PlainButton::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  update();
}

void PlainButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    click();
  else
    QAbstractButton::keyPressEvent(event);
}

}  // namespace torvane
