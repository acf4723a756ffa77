#include "window/field/stepper.h"

#include <QBoxLayout>
#include <QShortcut>

#include "design/catalogue.h"
#include "look/paint.h"

namespace torvane {

namespace {

QString WordOf(Icon icon) {
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
}

}  // namespace

Stepper::Stepper(Desk desk, Field& field, int width, Icon less, Icon more,
                 const std::function<void(bool more)>& step)
    : desk_(desk),
      edit_(new FieldEdit(desk, field, Place::Cell, this)),
      less_(new Button(desk, ButtonLook::Flat, less, {}, this)),
      more_(new Button(desk, ButtonLook::Flat, more, {}, this)),
      lessWord_(WordOf(less)),
      moreWord_(WordOf(more)) {
  setFixedSize(width, 30);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(1, 1, 1, 1);
  row->setSpacing(0);
  row->addWidget(less_);
  row->addWidget(edit_, 1);
  row->addWidget(more_);
  edit_->setAlignment(Qt::AlignCenter);
  edit_->setFixedHeight(28);
  for (const bool up : {false, true}) {
    Button* button = up ? more_ : less_;
    button->setFixedSize(Side(), 28);
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QAbstractButton::clicked, this, [step, up] { step(up); });
    auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | (up ? Qt::Key_Up : Qt::Key_Down)), edit_);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, [step, up] { step(up); });
    Call(up, HelpOf(field).name);
  }
}

Stepper::Stepper(Desk desk, Field& field, int width, const JogPair& pair)
    : Stepper(desk, field, width, pair.alongPart ? Icon::Left : Icon::Down,
              pair.alongPart ? Icon::Right : Icon::Up, [desk, &pair](bool more) {
                const int forward = MemberForward(pair, desk.station.s);
                desk.binder.Run(pair.control, pair.event, more ? forward : 1 - forward);
              }) {
  desk.binder.BindAll(this, [this, &pair] { FollowDrive(pair); });
}

void Stepper::FollowDrive(const JogPair& pair) {
  const int forward = MemberForward(pair, desk_.station.s);
  if (forward == forward_) return;
  forward_ = forward;
  for (const bool more : {false, true}) {
    const std::string name = std::string(pair.control) + (more == (forward == 1) ? "(1)" : "(0)");
    Button* button = more ? more_ : less_;
    button->setObjectName(QString::fromStdString(name));
    const Field& member = *FindField(desk_.station.s, name);
    Explain(*button, member);
    Call(more, HelpOf(member).name);
  }
}

void Stepper::Call(bool more, const QString& pair) {
  Button* button = more ? more_ : less_;
  button->setAccessibleName(pair + QStringLiteral(", ") + (more ? moreWord_ : lessWord_));
  button->setToolTip(button->accessibleName() +
                     (more ? QStringLiteral(" (Ctrl+Up)") : QStringLiteral(" (Ctrl+Down)")));
}

void Stepper::resizeEvent(QResizeEvent*) {
  for (QWidget* button : {less_, more_}) button->setFixedWidth(Side());
}

void Stepper::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(desk_.theme[Token::FieldEdge], 1));
  painter.setBrush(desk_.theme[Token::Input]);
  painter.drawRoundedRect(Inset(rect(), 0.5), 4, 4);
  painter.drawLine(Side() + 1, 1, Side() + 1, height() - 1);
  painter.drawLine(width() - Side() - 1, 1, width() - Side() - 1, height() - 1);
}

}  // namespace torvane
