#include "window/field/field_widgets.h"

#include <QKeyEvent>

#include "design/catalogue.h"
#include "look/icons.h"
#include "look/paint.h"
#include "look/text.h"
#include "window/field/choice_popup.h"
#include "window/field/help.h"
#include "workbench/build/marks.h"

namespace torvane {

FieldList::FieldList(Desk desk, Field& field, QWidget* parent)
    : QAbstractButton(parent), desk_(desk), field_(field) {
  setObjectName(QString::fromStdString(NameOf(field)));
  Explain(desk, *this, field);
  setFocusPolicy(Qt::StrongFocus);
  setFixedHeight(30);
  connect(this, &QAbstractButton::pressed, this, [this] { Open(); });
  desk.binder.Bind(field, this, [this] {
    setEnabled(field_.enabled());
    ShowAs(*this, field_.shown());
    setAccessibleDescription(Shown(field_.text()));
    setToolTip(PlainTip(TipOf(field_, desk_.station.s.signs)));
    update();
  });
}

QSize FieldList::sizeHint() const { return {54, 30}; }

void FieldList::Open() {
  setDown(false);
  OpenChoices(desk_, field_, this, {mapToGlobal(QPoint(0, 0)), size()});
}

void FieldList::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  const InputLook look{ShownMark(field_), isEnabled(), hasFocus(), false};
  QPainter painter(this);
  PaintInput(painter, t, rect(), look);
  const QColor ink = InputTextColour(t, look);
  const int left = look.mark == Mark::Plain ? 8 : 26;
  const QRect text = rect().adjusted(left, 0, -20, 0);
  painter.setFont(t.Font(14, Weight::Medium));
  painter.setPen(ink);
  painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                   painter.fontMetrics().elidedText(Shown(field_.text()), Qt::ElideRight, text.width()));
  const double size = 16;
  PaintIcon(painter, Icon::Chevron, {width() - size - 4, (height() - size) / 2, size, size}, ink);
}

void FieldList::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Space) return Open();
  if (!IsCharacter(*event)) return QAbstractButton::keyPressEvent(event);
  if (const std::string entry = EntryOf(field_, *event); !entry.empty()) desk_.binder.Choose(field_, entry);
}

FieldCheck::FieldCheck(Desk desk, Field& field, const QString& caption, QWidget* parent)
    : QAbstractButton(parent), desk_(desk), field_(field) {
  setObjectName(QString::fromStdString(NameOf(field)));
  setText(caption);
  Explain(desk, *this, field, caption);
  setToolTip(HelpOf(field).sentence);
  setCheckable(true);
  setFocusPolicy(Qt::StrongFocus);
  desk.binder.Bind(field, this, [this] {
    setChecked(field_.checked());
    setEnabled(field_.enabled());
    ShowAs(*this, field_.shown());
    update();
  });
}

void FieldCheck::SetSecondLine(const QString& text) {
  second_ = text;
  update();
}

QSize FieldCheck::sizeHint() const {
  const Theme& t = desk_.theme;
  const int caption = QFontMetrics(t.FigureFont(13)).horizontalAdvance(text());
  return {t.Figure(20) + (text().isEmpty() ? 0 : t.Figure(11) + caption), std::max(32, t.Figure(20) + 12)};
}

void FieldCheck::nextCheckState() {
  desk_.binder.Check(field_, !field_.checked());
  setChecked(field_.checked());
}

void FieldCheck::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter painter(this);
  const double size = t.Figure(20);
  const QRectF box(0, (height() - size) / 2, size, size);
  PaintCheckBox(painter, t, hasFocus() ? Inset(box.translated(2, 0), 1) : box, field_.checked(), isEnabled(),
                hasFocus());
  if (text().isEmpty()) return;
  const bool titled = !second_.isEmpty() && !t.large();
  const bool strong = field_.checked() && isEnabled();
  painter.setPen(isEnabled() ? (strong ? t[Token::Text] : t[Token::Second]) : t[Token::Off]);
  painter.setFont(t.FigureFont(13, titled || t.large() ? Weight::Medium : Weight::Regular));
  const QRect area = rect().adjusted(t.Figure(30), 0, 0, 0);
  if (!titled) {
    painter.drawText(area, Qt::AlignVCenter | Qt::AlignLeft,
                     painter.fontMetrics().elidedText(text(), Qt::ElideRight, area.width()));
    return;
  }
  painter.drawText(area.adjusted(0, 1, 0, -area.height() / 2 + 2), Qt::AlignBottom | Qt::AlignLeft, text());
  painter.setFont(t.FigureFont(11));
  painter.setPen(isEnabled() ? t[Token::Second] : t[Token::Off]);
  painter.drawText(area.adjusted(0, area.height() / 2 + 1, 0, 0), Qt::AlignTop | Qt::AlignLeft, second_);
}

ReadOut::ReadOut(Desk desk, const Field& field, int size, QWidget* parent)
    : QWidget(parent), desk_(desk), field_(field), size_(size) {
  setObjectName(QString::fromStdString(NameOf(field)));
  Explain(desk, *this, field);
  desk.binder.Bind(field, this, [this] {
    ShowAs(*this, field_.shown());
    setToolTip(PlainTip(TipOf(field_, desk_.station.s.signs)));
    setAccessibleDescription(Shown(field_.text()));
    updateGeometry();
    update();
  });
}

QSize ReadOut::sizeHint() const {
  const QFontMetrics metrics(desk_.theme.Font(size_, Weight::Medium));
  return {std::max(30, metrics.horizontalAdvance(Shown(field_.text())) + 2), metrics.height()};
}

void ReadOut::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter painter(this);
  if (filled_) painter.fillRect(rect(), t[Token::ReadOut]);
  painter.setFont(t.Font(size_, Weight::Medium));
  const bool empty = field_.empty();
  painter.setPen(empty || pale_ ? t[Token::Off] : t[Token::Figures]);
  painter.drawText(rect().adjusted(0, 0, filled_ ? -8 : 0, 0), Qt::AlignRight | Qt::AlignVCenter,
                   FigureOf(field_));
}

Word::Word(Desk desk, QString text, int size, Token token, Weight weight, QWidget* parent)
    : QWidget(parent), desk_(desk), text_(std::move(text)), size_(size), token_(token), weight_(weight) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void Word::SetText(const QString& text) {
  if (text == text_) return;
  text_ = text;
  updateGeometry();
  update();
}

void Word::SetEmphasis(bool emphasis) {
  if (emphasis == emphasis_) return;
  emphasis_ = emphasis;
  updateGeometry();
  update();
}

QFont Word::Font() const {
  QFont font = desk_.theme.Font(size_, weight_);
  if (emphasis_) font.setBold(true);
  return font;
}

QSize Word::sizeHint() const {
  const QFontMetrics metrics(Font());
  return {metrics.horizontalAdvance(text_) + 1, metrics.height()};
}

QSize Word::minimumSizeHint() const { return {1, sizeHint().height()}; }

void Word::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setFont(Font());
  const Token token = emphasis_ ? Token::Fault : token_;
  painter.setPen(desk_.theme[isEnabled() ? token : Token::Off]);
  painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter,
                   painter.fontMetrics().elidedText(text_, Qt::ElideRight, width()));
}

}  // namespace torvane
