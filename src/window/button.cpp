#include "window/button.h"
#include "look/paint.h"

#include <QKeyEvent>

namespace torvane {

Button::Button(Desk desk, ButtonLook look, Icon icon, const QString& caption, QWidget* parent)
    : QAbstractButton(parent), desk_(desk), look_(look), icon_(icon), filled_(look == ButtonLook::Filled) {
  setText(caption);
  setFocusPolicy(Qt::TabFocus);
  setFixedHeight(desk.theme.Px(34));
  setAttribute(Qt::WA_Hover);
}

void Button::Runs(const char* control, int index) {
  setObjectName(index < 0 ? QString::fromLatin1(control)
                          : QStringLiteral("%1(%2)").arg(QString::fromLatin1(control)).arg(index));
  connect(this, &QAbstractButton::clicked, this,
          [this, control, index] { desk_.binder.Run(control, Event::Click, std::max(index, 0)); });
}

void Button::SetFilled(bool filled) {
  if (filled == filled_) return;
  filled_ = filled;
  update();
}

void Button::SetTextSize(int size) {
  textSize_ = size;
  updateGeometry();
}

QSize Button::sizeHint() const {
  const QFontMetrics metrics(desk_.theme.Font(textSize_, Weight::Medium));
  int width = icon_ == Icon::None ? 0 : desk_.theme.Px(20);
  if (!text().isEmpty())
    width += metrics.size(Qt::TextShowMnemonic, text()).width() + (width > 0 ? desk_.theme.Px(8) : 0);
  return {width + desk_.theme.Px(look_ == ButtonLook::Flat ? 16 : 24), desk_.theme.Px(34)};
}

void Button::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF box = Inset(rect(), 0.5);
  QColor ink = isEnabled() ? t[Token::Text] : t[Token::Off];
  const bool segment = look_ == ButtonLook::Segment;
  if (filled_) {
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
    painter.drawRoundedRect(edged ? box : Inset(rect(), 1), t.Px(4), t.Px(4));
    if (segment && isEnabled()) ink = t[Token::Second];
  }
  if (hasFocus()) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(t[filled_ ? Token::OnAccent : Token::Focus], 2));
    painter.drawRoundedRect(Inset(rect(), filled_ ? 3 : 1), t.Px(4), t.Px(4));
  }
  painter.setFont(t.Font(textSize_, Weight::Medium));
  const double icon = icon_ == Icon::None ? 0 : t.Px(20);
  const double words =
      text().isEmpty() ? 0 : painter.fontMetrics().size(Qt::TextShowMnemonic, text()).width();
  const double gap = icon > 0 && words > 0 ? t.Px(8) : 0;
  double x = (width() - icon - gap - words) / 2;
  PaintIcon(painter, icon_, {x, (height() - icon) / 2, icon, icon}, ink);
  x += icon + gap;
  painter.setPen(ink);
  painter.drawText(QRectF(x, 0, words + 2, height()), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic,
                   text());
}

void Button::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  update();
}

void Button::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  update();
}

void Button::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    click();
  else
    QAbstractButton::keyPressEvent(event);
}

}  // namespace torvane
