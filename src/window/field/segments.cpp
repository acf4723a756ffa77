#include "window/field/segments.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "design/catalogue.h"
#include "look/paint.h"
#include "look/text.h"
#include "window/field/choice_popup.h"
#include "window/field/field_widgets.h"
#include "window/field/help.h"

namespace torvane {

ChoiceSegments::ChoiceSegments(Desk desk, Field& field, std::vector<std::string> choices,
                               const QSize& segment, QWidget* parent)
    : QWidget(parent), desk_(desk), field_(field), choices_(std::move(choices)), segment_(segment.width()) {
  setObjectName(QString::fromStdString(NameOf(field)));
  Explain(desk, *this, field);
  setFocusPolicy(Qt::StrongFocus);
  setFixedSize(segment.width() * static_cast<int>(choices_.size()) + 2, segment.height());
  desk.binder.Bind(field, this, [this] {
    setEnabled(field_.enabled());
    ShowAs(*this, field_.shown());
    setAccessibleDescription(Shown(field_.text()));
    update();
  });
}

int ChoiceSegments::Chosen() const {
  const auto found = std::find(choices_.begin(), choices_.end(), field_.text());
  return found == choices_.end() ? -1 : static_cast<int>(found - choices_.begin());
}

void ChoiceSegments::Choose(int place) {
  if (place < 0 || place >= static_cast<int>(choices_.size())) return;
  const std::string& text = choices_[static_cast<std::size_t>(place)];
  if (field_.row().kind == Kind::List)
    desk_.binder.Choose(field_, text);
  else
    desk_.binder.Type(field_, Shown(text));
}

void ChoiceSegments::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(isEnabled() ? t[Token::FieldEdge] : t[Token::Hairline]);
  p.setBrush(t.dark() ? t[Token::TableHead] : t[Token::Panel]);
  p.drawRoundedRect(Inset(rect(), 0.5), 4, 4);
  p.setFont(t.Font(13, Weight::Medium));
  const int chosen = Chosen();
  for (int i = 0; i < static_cast<int>(choices_.size()); ++i) {
    const QRect box(1 + i * segment_, 1, segment_, height() - 2);
    if (i == chosen) {
      p.setPen(Qt::NoPen);
      p.setBrush(t[Token::Accent]);
      p.drawRoundedRect(box, 3, 3);
    } else if (i > 0 && i - 1 != chosen) {
      p.fillRect(box.left(), 1, 1, height() - 2, t[Token::Hairline]);
    }
    p.setPen(!isEnabled() ? t[Token::Off] : i == chosen ? t[Token::OnAccent] : t[Token::Second]);
    p.drawText(box, Qt::AlignCenter, Shown(choices_[static_cast<std::size_t>(i)]));
  }
  if (hasFocus()) PaintFocus(p, t[Token::Focus], Inset(rect(), 1));
}

void ChoiceSegments::mousePressEvent(QMouseEvent* event) {
  Choose((static_cast<int>(event->position().x()) - 1) / segment_);
}

void ChoiceSegments::keyPressEvent(QKeyEvent* event) {
  const int chosen = Chosen();
  if (event->key() == Qt::Key_Left) return Choose(std::max(0, chosen - 1));
  if (event->key() == Qt::Key_Right)
    return Choose(std::min(chosen + 1, static_cast<int>(choices_.size()) - 1));
  if (!IsCharacter(*event)) return QWidget::keyPressEvent(event);
  if (field_.row().kind != Kind::List)
    desk_.binder.Type(field_, event->text());
  else if (const std::string entry = EntryOf(field_, *event); !entry.empty())
    desk_.binder.Choose(field_, entry);
}

void ChoiceSegments::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void ChoiceSegments::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

}  // namespace torvane
