#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <utility>

#include "design/catalogue.h"
#include "handoff/executor.h"
#include "look/text.h"
#include "window/field/field_widgets.h"
#include "window/field/help.h"
#include "workbench/build/marks.h"
#include "workbench/station/number_hint.h"

namespace torvane {

FieldEdit::FieldEdit(Desk desk, Field& field, Place place, QWidget* parent)
    : QLineEdit(parent), desk_(desk), field_(field), place_(place) {
  setObjectName(QString::fromStdString(NameOf(field)));
  Explain(desk, *this, field);
  moves_ = DrivesMachine(field);
  setAttribute(Qt::WA_Hover, moves_);
  setFrame(false);
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  setFont(place == Place::Grid ? desk.theme.FigureFont(14, Weight::Medium)
                               : desk.theme.Font(14, Weight::Medium));
  setContextMenuPolicy(Qt::NoContextMenu);
  const int side = (place == Place::Panel ? 6 : 8);
  setTextMargins(side, 0, side, 0);
  if (place == Place::Panel) setFixedHeight(30);
  connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
    idle_ = false;
    if (desk_.binder.Type(field_, AsTyped(text))) return;
    QToolTip::showText(mapToGlobal(rect().bottomLeft()),
                       QStringLiteral("This character cannot stand in a design file. It was not taken."),
                       this);
    Show();
  });
  desk.binder.Bind(field, this, [this] { Show(); });
}

void FieldEdit::Show() {
  const QString text = Shown(field_.text());
  if (this->text() != text) setText(text);
  setEnabled(field_.enabled());
  if (place_ == Place::Panel) ShowAs(*this, field_.shown());
  QPalette palette = desk_.theme.Palette();
  palette.setColor(QPalette::Base, Qt::transparent);
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
    palette.setColor(group, QPalette::Text, InputTextColour(desk_.theme, Look()));
  if (palette != this->palette()) setPalette(palette);
  QString tip = TipOf(field_, desk_.station.s.signs);
  if (moves_) tip += QStringLiteral("\nA double click drives the machine there. It moves.");
  setToolTip(PlainTip(tip));
  update();
}

InputLook FieldEdit::Look() const {
  return {ShownMark(field_), field_.enabled(), hasFocus(), place_ != Place::Panel};
}

// Behind the 0 of an empty schedule a typed digit is the count.
QString FieldEdit::AsTyped(const QString& text) const {
  const bool count = field_.row().name == desk_.station.s.txtNumberOfLayers(0).row().name;
  if (!count || text.size() < 2 || text[0] != QLatin1Char('0') || !text[1].isDigit()) return text;
  return text.mid(1);
}

// What is taken back is what the operator did last, not what this field alone remembers.
bool FieldEdit::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
      key->ignore();
      return true;
    }
  }
  return QLineEdit::event(event);
}

void FieldEdit::paintEvent(QPaintEvent* event) {
  {
    QPainter painter(this);
    PaintInput(painter, desk_.theme, rect(), Look());
    if (moves_ && underMouse() && ShownMark(field_) == Mark::Plain) {
      const double size = 12;
      PaintIcon(painter, Icon::Home, {3, (height() - size) / 2, size, size}, desk_.theme[Token::Accent]);
    }
  }
  QLineEdit::paintEvent(event);
}

void FieldEdit::mouseReleaseEvent(QMouseEvent* event) {
  QLineEdit::mouseReleaseEvent(event);
  // The first click takes the whole text, so that typing replaces it; the next one sets the cursor.
  if (std::exchange(entered_, false) && !hasSelectedText()) selectAll();
  // A double click is one click and the double click, not two clicks.
  if (event->button() == Qt::LeftButton && !std::exchange(doubled_, false))
    desk_.Run(field_.row().name, Event::Click, field_.index());
}

void FieldEdit::mouseDoubleClickEvent(QMouseEvent* event) {
  // Where the machine moves on a double click no text is selected.
  doubled_ = event->button() == Qt::LeftButton;
  if (!desk_.Run(field_.row().name, Event::DoubleClick, field_.index()))
    QLineEdit::mouseDoubleClickEvent(event);
}

void FieldEdit::keyPressEvent(QKeyEvent* event) {
  idle_ = true;
  QLineEdit::keyPressEvent(event);
}

void FieldEdit::keyReleaseEvent(QKeyEvent* event) {
  QLineEdit::keyReleaseEvent(event);
  if (!event->isAutoRepeat() && std::exchange(idle_, false)) desk_.binder.ReleaseKey(field_);
}

void FieldEdit::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) selectAll();
  entered_ = event->reason() == Qt::MouseFocusReason;
}

}  // namespace torvane
