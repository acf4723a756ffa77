#include "window/frame/folded_bar.h"

#include <QBoxLayout>
#include <QMouseEvent>
#include <QPainter>

#include "look/paint.h"
#include "look/text.h"
#include "window/field/button.h"
#include "window/field/field_paint.h"
#include "window/rail/proof_panel.h"
#include "workbench/schedule/totals.h"

namespace torvane {

namespace {

constexpr int kFolded = 58;
constexpr int kMarks = 150;  // what the marks need at least

}  // namespace

FoldedBar::FoldedBar(Desk desk, QWidget* parent) : QWidget(parent), desk_(desk) {
  setObjectName(QStringLiteral("foldedRail"));
  setFixedHeight(kFolded);
  row_ = new QHBoxLayout(this);
  row_->setContentsMargins(14, 0, 8, 0);
  row_->setSpacing(12);
  row_->addStretch(1);
  checklist_ = new Button(desk, ButtonLook::Outline, Icon::Up, QStringLiteral("Winding &Checklist"), this);
  checklist_->setObjectName(QStringLiteral("foldedChecklist"));
  checklist_->setAccessibleName(QStringLiteral("Winding Checklist"));
  checklist_->setToolTip(QStringLiteral("Opens and closes the steps of the program."));
  checklist_->setFixedHeight(42);
  row_->addWidget(checklist_);
  desk.binder.BindAll(this, [this] { update(); });
}

void FoldedBar::Take(QWidget* build) {
  row_->addWidget(build);
  build->setFixedSize(118, 42);
}

void FoldedBar::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  const DesignState& s = desk_.station.s;
  QPainter p(this);
  PaintPanel(p, t, rect());
  const int end = checklist_->x() - 12;
  int x = 14;
  for (const Total& total : TotalsOf(s, s.family())) {
    const QString words = Shown(total.caption), unit = Shown(total.unit);
    const QString figure = FigureOf(*total.figure);
    const QFontMetrics caption(t.Font(12)), figures(t.Font(20, Weight::Medium));
    const int tall = figures.horizontalAdvance(figure);
    const int wide = std::max(caption.horizontalAdvance(words), tall + 5 + caption.horizontalAdvance(unit));
    if (x + wide + 20 + kMarks > end) break;
    p.setFont(t.Font(12));
    p.setPen(t[Token::Second]);
    p.drawText(QRect(x, 7, wide + 2, 16), Qt::AlignLeft | Qt::AlignVCenter, words);
    p.drawText(QRect(x + tall + 5, 28, wide, 18), Qt::AlignLeft | Qt::AlignVCenter, unit);
    p.setFont(t.Font(20, Weight::Medium));
    p.setPen(t[total.figure->empty() ? Token::Off : Token::Figures]);
    p.drawText(QRect(x, 22, wide + 2, 28), Qt::AlignLeft | Qt::AlignVCenter, figure);
    x += wide + 20;
  }
  PaintMarks(p, x, end);
}

void FoldedBar::PaintMarks(QPainter& p, int from, int to) const {
  const Theme& t = desk_.theme;
  const auto notes = NotesOf(desk_);
  const auto line = [&](int y, const QString& text, int size, Token token, Weight weight) {
    p.setFont(t.Font(size, weight));
    p.setPen(t[token]);
    const QRect box(from + 34, y, to - from - 34, 18);
    p.drawText(box, Qt::AlignLeft | Qt::AlignVCenter,
               p.fontMetrics().elidedText(text, Qt::ElideRight, box.width()));
  };
  if (notes.empty()) {
    PaintIcon(p, Icon::Check, {from + 4.0, 19, 20, 20}, t[Token::Ok]);
    line(20, QStringLiteral("Nothing marked"), 13, Token::Text, Weight::Regular);
    return;
  }
  PaintNoteIcon(p, t, {static_cast<double>(from), 16}, notes.front());
  line(11, notes.front().title, 13, Token::Text, Weight::Medium);
  line(28, notes.size() == 1 ? notes.front().second : QStringLiteral("and %1 more").arg(notes.size() - 1), 12,
       Token::Second, Weight::Regular);
}

void FoldedBar::mousePressEvent(QMouseEvent*) {
  const auto notes = NotesOf(desk_);
  if (!notes.empty() && goTo) goTo(*notes.front().field);
}

}  // namespace torvane
