#include "window/frame/folded_bar.h"

#include <QBoxLayout>
#include <QPainter>
#include <algorithm>

#include "executor/program/number.h"
#include "look/paint.h"
#include "look/text.h"
#include "window/field/button.h"
#include "window/field/field_paint.h"
#include "window/rail/proof_panel.h"
#include "workbench/schedule/totals.h"

namespace torvane {

namespace {

constexpr int kFolded = 58;
constexpr int kProven = 74;  // what the proven minutes need at least

// A fault before a mark, a mark before a note.
class ProofButton : public QAbstractButton {
 public:
  ProofButton(Desk desk, QWidget* parent) : QAbstractButton(parent), desk_(desk) {
    setObjectName(QStringLiteral("foldedProof"));
    setFocusPolicy(Qt::TabFocus);
    setFixedSize(136, 42);
    setToolTip(QStringLiteral("Opens and closes what the proof says (Ctrl+P)."));
    desk.binder.BindAll(this, [this] {
      const std::vector<Note> notes = NotesOf(desk_);
      first_ = notes.empty() ? Note{} : notes.front();
      const auto alike = [this](const Note& note) {
        return note.state == first_.state && (note.mark == Mark::Plain) == (first_.mark == Mark::Plain);
      };
      const auto count = std::count_if(notes.begin(), notes.end(), alike);
      const char* what = first_.state == ProofState::Fault  ? "fault"
                         : first_.state == ProofState::Note ? "note"
                         : first_.mark == Mark::Plain       ? "warning"
                                                            : "mark";
      count_ = notes.empty() ? QString()
                             : QStringLiteral("%1 %2%3").arg(count).arg(
                                   QString::fromLatin1(what), count == 1 ? QString() : QStringLiteral("s"));
      empty_ = notes.empty();
      setAccessibleName(empty_ ? QStringLiteral("Proof") : QStringLiteral("Proof, ") + count_);
      update();
    });
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Theme& t = desk_.theme;
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(t[Token::Accent]);
    p.setBrush(isDown() ? t[Token::Selected] : t[Token::Panel]);
    p.drawRoundedRect(Inset(rect(), 0.5), 4, 4);
    if (hasFocus()) PaintFocus(p, t[Token::Focus], Inset(rect(), 3));
    if (empty_)
      PaintProofState(p, t, QPointF(18, height() / 2.0), ProofState::Ok, 18);
    else
      PaintNoteIcon(p, t, QPointF(5, (height() - 26) / 2.0), first_);
    p.setFont(t.Font(13, Weight::Medium));
    p.setPen(t[Token::Text]);
    p.drawText(QRect(36, 0, 44, height()), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Proof"));
    p.setFont(t.Font(12, Weight::Medium));
    p.setPen(t[first_.state == ProofState::Fault ? Token::Fault : Token::Second]);
    p.drawText(QRect(76, 0, width() - 82, height()), Qt::AlignRight | Qt::AlignVCenter, count_);
  }

 private:
  Desk desk_;
  Note first_;
  QString count_;
  bool empty_ = true;
};

}  // namespace

FoldedBar::FoldedBar(Desk desk, QWidget* parent) : QWidget(parent), desk_(desk) {
  setObjectName(QStringLiteral("foldedRail"));
  setFixedHeight(kFolded);
  row_ = new QHBoxLayout(this);
  row_->setContentsMargins(14, 0, 8, 0);
  row_->setSpacing(12);
  row_->addStretch(1);
  proof_ = new ProofButton(desk, this);
  row_->addWidget(proof_);
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
  const int end = proof_->x() - 12;
  int x = 14;
  for (const Total& total : TotalsOf(s, s.family())) {
    const QString words = Shown(total.caption), unit = Shown(total.unit);
    const QString figure = FigureOf(*total.figure);
    const QFontMetrics caption(t.Font(12)), figures(t.Font(20, Weight::Medium));
    const int tall = figures.horizontalAdvance(figure);
    const int wide = std::max(caption.horizontalAdvance(words), tall + 5 + caption.horizontalAdvance(unit));
    if (x + wide + 20 + kProven > end) break;
    p.setFont(t.Font(12));
    p.setPen(t[Token::Second]);
    p.drawText(QRect(x, 7, wide + 2, 16), Qt::AlignLeft | Qt::AlignVCenter, words);
    p.drawText(QRect(x + tall + 5, 28, wide, 18), Qt::AlignLeft | Qt::AlignVCenter, unit);
    p.setFont(t.Font(20, Weight::Medium));
    p.setPen(t[total.figure->empty() ? Token::Off : Token::Figures]);
    p.drawText(QRect(x, 22, wide + 2, 28), Qt::AlignLeft | Qt::AlignVCenter, figure);
    x += wide + 20;
  }
  PaintProven(p, x, end);
}

// The proven minutes beside the estimates, where there is room.
void FoldedBar::PaintProven(QPainter& p, int from, int to) const {
  const LiveResult* result = desk_.live == nullptr ? nullptr : desk_.live->result();
  if (result == nullptr || to - from < 70) return;
  const Theme& t = desk_.theme;
  const executor::Range& range = result->proof.winding;
  QString text = QStringLiteral("\u2013");
  if (result->formed && range.high > 0) {
    text = Shown(executor::Fixed(range.low / 60, 1));
    if (const QString high = Shown(executor::Fixed(range.high / 60, 1)); high != text && to - from > 110)
      text += QStringLiteral(" to ") + high;
    text.replace(QLatin1Char('.'), QLatin1Char(desk_.station.s.signs.decimal));
  }
  p.setPen(t[Token::Hairline]);
  p.drawLine(from - 8, 10, from - 8, height() - 10);
  p.setFont(t.Font(12));
  p.setPen(t[Token::Second]);
  p.drawText(QRect(from, 7, to - from, 18), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("proven"));
  p.setFont(t.Font(13, Weight::Medium));
  p.setPen(t[desk_.live->proving() ? Token::Off : Token::Figures]);
  p.drawText(QRect(from, 28, to - from, 18), Qt::AlignLeft | Qt::AlignVCenter, text + QStringLiteral(" min"));
}

}  // namespace torvane
