#include "look/style.h"

#include <QApplication>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionButton>

#include "look/paint.h"

namespace torvane {

namespace {

QIcon ProgramIcon() {
  QPixmap mark(256, 256);
  mark.fill(Qt::transparent);
  QPainter painter(&mark);
  PaintProgramMark(painter, mark.rect());
  return mark;
}

// What Enter means, while it can be pressed.
bool IsFilled(const QStyleOptionButton& button) {
  return (button.features & QStyleOptionButton::DefaultButton) != 0 &&
         (button.state & QStyle::State_Enabled) != 0;
}

}  // namespace

void Dress(const Theme& theme) {
  QApplication::setWindowIcon(ProgramIcon());
  QApplication::setStyle(new Style(theme));
  QApplication::setPalette(theme.Palette());
  QApplication::setFont(theme.Font(13));
}

Style::Style(const Theme& theme) : QProxyStyle(QStringLiteral("Fusion")), theme_(theme) {}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
  if (element == CE_MenuBarEmptyArea) {
    painter->fillRect(option->rect, theme_[Token::Bars]);
    return;
  }
  if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
      element == CE_MenuBarItem && item != nullptr) {
    const bool chosen = (item->state & (State_Selected | State_Sunken)) != 0;
    painter->fillRect(item->rect, theme_[chosen ? Token::Selected : Token::Bars]);
    painter->setPen(theme_[Token::Text]);
    painter->drawText(item->rect, Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine, item->text);
    return;
  }
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (element == CE_PushButtonLabel && button != nullptr) {
    QStyleOptionButton label = *button;
    label.palette.setColor(QPalette::ButtonText, theme_[IsFilled(*button) ? Token::OnAccent : Token::Text]);
    if ((option->state & State_Enabled) == 0)
      label.palette.setColor(QPalette::ButtonText, theme_[Token::Off]);
    QProxyStyle::drawControl(element, &label, painter, widget);
    return;
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  const bool enabled = (option->state & State_Enabled) != 0;
  const bool focused = (option->state & State_HasFocus) != 0;
  switch (element) {
    case PE_FrameFocusRect:
      return;
    case PE_IndicatorCheckBox:
      PaintCheckBox(*painter, theme_, option->rect, (option->state & State_On) != 0, enabled, focused);
      return;
    case PE_PanelButtonCommand: {
      const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
      const bool filled = button != nullptr && IsFilled(*button);
      painter->save();
      painter->setRenderHint(QPainter::Antialiasing);
      QColor ground = theme_[filled ? Token::Accent : Token::Panel];
      if (!filled && theme_.dark()) ground = theme_[Token::TableHead];
      if ((option->state & State_Sunken) != 0) ground = filled ? ground.darker(115) : theme_[Token::Selected];
      painter->setBrush(ground);
      painter->setPen(QPen(theme_[filled ? Token::Accent : enabled ? Token::FieldEdge : Token::Hairline], 1));
      painter->drawRoundedRect(Inset(option->rect, 0.5), 4, 4);
      if (focused) {
        painter->setBrush(Qt::NoBrush);
        painter->setPen(QPen(theme_[filled ? Token::OnAccent : Token::Focus], filled ? 1 : 2));
        painter->drawRoundedRect(Inset(option->rect, filled ? 3.5 : 1), 3, 3);
      }
      painter->restore();
      return;
    }
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  if (metric == PM_IndicatorWidth || metric == PM_IndicatorHeight) return 20;
  if (metric == PM_CheckBoxLabelSpacing) return 10;
  if (metric == PM_ScrollBarExtent) return 12;
  return QProxyStyle::pixelMetric(metric, option, widget);
}

}  // namespace torvane
