// A field between its two small buttons. They are no stops of the focus: Ctrl+Up and Ctrl+Down press them.
#pragma once

#include <QBoxLayout>
#include <QShortcut>

#include "look/paint.h"
#include "window/button.h"
#include "window/field_widgets.h"
#include "window/help.h"

namespace torvane {

class Stepper : public QWidget {
 public:
  Stepper(Desk desk, Field& field, int width, Icon less, Icon more, const std::function<void(int)>& step)
      : desk_(desk), edit_(new FieldEdit(desk, field, Place::Cell, this)) {
    setFixedSize(width, desk.theme.Px(30));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(1, 1, 1, 1);
    row->setSpacing(0);
    edit_->setAlignment(Qt::AlignCenter);
    edit_->setFixedHeight(28);
    const auto button = [&](Icon icon, int direction, const QString& name) {
      auto* made = new Button(desk, ButtonLook::Flat, icon, {}, this);
      made->setFixedSize(Side(), 28);
      made->setFocusPolicy(Qt::NoFocus);
      made->setAccessibleName(HelpOf(field).name + QStringLiteral(", ") + name);
      made->setToolTip(HelpOf(field).name + QStringLiteral(", ") + name +
                       (direction == 1 ? QStringLiteral(" (Ctrl+Up)") : QStringLiteral(" (Ctrl+Down)")));
      connect(made, &QAbstractButton::clicked, this, [step, direction] { step(direction); });
      return made;
    };
    const auto word = [](Icon icon) {
      switch (icon) {
        case Icon::Left:
          return QStringLiteral("to the left");
        case Icon::Right:
          return QStringLiteral("to the right");
        case Icon::Down:
        case Icon::Minus:
          return QStringLiteral("less");
        default:
          return QStringLiteral("more");
      }
    };
    less_ = button(less, 0, word(less));
    more_ = button(more, 1, word(more));
    row->addWidget(less_);
    row->addWidget(edit_, 1);
    row->addWidget(more_);
    for (const auto& [key, direction] : {std::pair{Qt::Key_Up, 1}, std::pair{Qt::Key_Down, 0}}) {
      auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | key), edit_);
      shortcut->setContext(Qt::WidgetShortcut);
      connect(shortcut, &QShortcut::activated, this, [step, way = direction] { step(way); });
    }
  }
  FieldEdit* edit() const { return edit_; }

 protected:
  void resizeEvent(QResizeEvent*) override {
    for (QWidget* button : {less_, more_}) button->setFixedWidth(Side());
  }
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(desk_.theme[Token::FieldEdge], 1));
    painter.setBrush(desk_.theme[Token::Input]);
    painter.drawRoundedRect(Inset(rect(), 0.5), 4, 4);
    painter.drawLine(Side() + 1, 1, Side() + 1, height() - 1);
    painter.drawLine(width() - Side() - 1, 1, width() - Side() - 1, height() - 1);
  }

 private:
  int Side() const { return width() >= 118 ? 33 : 23; }

  Desk desk_;
  FieldEdit* edit_;
  QWidget* less_ = nullptr;
  QWidget* more_ = nullptr;
};

}  // namespace torvane
