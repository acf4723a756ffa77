#include "executor/panel/findings_list.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "executor/session/words.h"

namespace torvane::dryrun {

using executor::Level;
using executor::Remark;

namespace {

constexpr int kRow = 27, kPadding = 10;
constexpr int kLongestWord = 20;

// A remark's sentence, which may be broken within what a program says in one word.
QString SentenceOf(const Remark& remark) {
  QString text = Words(remark.text);
  int word = 0;
  for (qsizetype i = 0; i < text.size(); ++i) {
    word = text[i].isSpace() ? 0 : word + 1;
    if (word % kLongestWord == 0 && word > 0) text.insert(++i, QChar(0x200B));
  }
  return text;
}

}  // namespace

FindingsList::FindingsList(Stand stand, QWidget* parent)
    : RowPanel(stand, QStringLiteral("Findings"), kRow, parent),
      work_(new PlainButton(stand.theme, ButtonLook::Outline, Icon::None, QStringLiteral("Cancel"), this)) {
  setObjectName(QStringLiteral("findings"));
  work_->setObjectName(QStringLiteral("proofButton"));
  work_->setFixedHeight(26);
  const auto anew = [this] {
    current_ = -1;
    setAccessibleDescription({});
    FitRows();
    verticalScrollBar()->setValue(0);
    ShowWork();
  };
  connect(&stand.session, &Session::Opened, this, anew);
  connect(&stand.session, &Session::Proven, this, anew);
  connect(&stand.session, &Session::Worked, this, &FindingsList::ShowWork);
  connect(work_, &PlainButton::clicked, this, [this] {
    if (stand_.session.work() == Session::Work::Proving)
      stand_.session.Cancel();
    else
      stand_.session.ProveAgain();
  });
  ShowWork();
}

void FindingsList::ShowWork() {
  const bool proving = stand_.session.work() == Session::Work::Proving;
  work_->setText(proving ? QStringLiteral("Cancel") : QStringLiteral("Prove"));
  work_->setAccessibleName(proving ? QStringLiteral("Cancel the proof")
                                   : QStringLiteral("Prove the program"));
  work_->setToolTip(proving ? QStringLiteral("Gives the proof up; the program can be played without it")
                            : QStringLiteral("Reads the whole program and says what is wrong with it"));
  work_->setVisible(stand_.player().program() != nullptr && stand_.session.proof() == nullptr);
  work_->setFixedWidth(work_->sizeHint().width());
  work_->move(width() - work_->width() - 10, (kHead - work_->height()) / 2);
  update();
  viewport()->update();
}

QString FindingsList::WorkText() const {
  if (stand_.player().program() == nullptr) return {};
  if (stand_.session.work() != Session::Work::Proving) return QStringLiteral("Not proven.");
  return QStringLiteral("Proving the program: %1 %").arg(static_cast<int>(stand_.session.WorkShare() * 100));
}

QRect FindingsList::SentenceIn(const QRect& row, bool hasLine) const {
  const int x = row.width() < 560 ? 154 : 166;
  return {x, row.top(), std::max(60, row.width() - x - (hasLine ? 96 : 20)), row.height()};
}

// A sentence takes as many lines as it needs.
void FindingsList::FitRows() {
  const QFontMetrics metrics(stand_.theme.Font(13));
  int end = 0;
  ends_.clear();
  for (const Remark& remark : stand_.session.remarks()) {
    const QRect room = SentenceIn({0, 0, viewport()->width(), 10'000}, remark.line > 0);
    const QString text = SentenceOf(remark);
    const bool one = metrics.horizontalAdvance(text) <= room.width();
    end += one ? kRow : metrics.boundingRect(room, Qt::TextWordWrap, text).height() + kPadding;
    ends_.push_back(end);
  }
  Fit(end);
}

int FindingsList::RowAt(int y) const {
  const auto row = std::upper_bound(ends_.begin(), ends_.end(), verticalScrollBar()->value() + y);
  return static_cast<int>(row - ends_.begin());
}

QRect FindingsList::BoxOf(int row) const {
  const auto index = static_cast<std::size_t>(row);
  const int top = row == 0 ? 0 : ends_[index - 1];
  return {0, top - verticalScrollBar()->value(), viewport()->width(), ends_[index] - top};
}

void FindingsList::resizeEvent(QResizeEvent*) {
  FitRows();
  ShowWork();
}

int FindingsList::Count(Level level) const {
  const auto& remarks = stand_.session.remarks();
  return static_cast<int>(
      std::count_if(remarks.begin(), remarks.end(), [level](const Remark& r) { return r.level == level; }));
}

void FindingsList::MakeCurrent(int row) {
  current_ = row;
  const Remark& remark = stand_.session.remarks()[static_cast<std::size_t>(row)];
  setAccessibleDescription(QStringLiteral("%1: %2").arg(Words(remark.subject), Words(remark.text)));
  QScrollBar* bar = verticalScrollBar();
  const QRect box = BoxOf(row);
  if (box.top() < 0)
    bar->setValue(bar->value() + box.top());
  else if (box.bottom() >= viewport()->height())
    bar->setValue(bar->value() + box.bottom() + 1 - viewport()->height());
  viewport()->update();
}

void FindingsList::Choose(int row) {
  if (row < 0 || row >= static_cast<int>(ends_.size())) return;
  MakeCurrent(row);
  const int line = stand_.session.remarks()[static_cast<std::size_t>(row)].line;
  if (line > 0) lineChosen(line);
}

void FindingsList::GoTo(int remark) {
  if (remark < 0 || remark >= static_cast<int>(ends_.size())) return;
  MakeCurrent(remark);
  const int line = stand_.session.remarks()[static_cast<std::size_t>(remark)].line;
  if (line > 0) lineSought(line);
}

// In the order of the program's lines. Without a current one it begins where the run stands.
void FindingsList::GoToNext(bool on) {
  const auto& remarks = stand_.session.remarks();
  std::vector<int> rows;
  for (std::size_t i = 0; i < remarks.size(); ++i)
    if (remarks[i].level != Level::Ok) rows.push_back(static_cast<int>(i));
  if (rows.empty()) return;
  const auto lineOf = [&remarks](int row) { return remarks[static_cast<std::size_t>(row)].line; };
  std::stable_sort(rows.begin(), rows.end(), [&](int a, int b) { return lineOf(a) < lineOf(b); });
  const auto count = static_cast<std::ptrdiff_t>(rows.size());
  const auto current = std::find(rows.begin(), rows.end(), current_);
  std::ptrdiff_t next = current - rows.begin() + (on ? 1 : -1);
  if (current == rows.end()) {
    const auto behind = std::find_if(rows.begin(), rows.end(),
                                     [&](int row) { return lineOf(row) > stand_.player().LineNow(); });
    next = behind - rows.begin() - (on ? 0 : 1);
  }
  GoTo(rows[static_cast<std::size_t>((next + count) % count)]);
}

void FindingsList::mousePressEvent(QMouseEvent* event) { Choose(RowAt(event->pos().y())); }

void FindingsList::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Down)
    Choose(current_ + 1);
  else if (event->key() == Qt::Key_Up)
    Choose(std::max(0, current_ - 1));
  else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    GoTo(current_);
  else
    RowPanel::keyPressEvent(event);
}

QString FindingsList::TipOf(int row) const {
  const auto& remarks = stand_.session.remarks();
  const auto index = static_cast<std::size_t>(row);
  return index < remarks.size() ? Words(remarks[index].text) : QString();
}

void FindingsList::PaintHead(QPainter& p) {
  const Theme& t = stand_.theme;
  if (stand_.session.proof() == nullptr) return;
  int right = width() - 14;
  for (const Level level : {Level::Fault, Level::Note, Level::Ok}) {
    const int count = Count(level);
    const QString words =
        QStringLiteral("%1 ").arg(count) +
        (level == Level::Ok     ? QStringLiteral("ok")
         : level == Level::Note ? (count == 1 ? QStringLiteral("note") : QStringLiteral("notes"))
                                : (count == 1 ? QStringLiteral("fault") : QStringLiteral("faults")));
    p.setFont(t.Font(13, Weight::Medium));
    const QColor ink = t[count > 0 ? InkOf(level) : Token::Off];
    p.setPen(ink);
    const int wide = p.fontMetrics().horizontalAdvance(words);
    p.drawText(QRect(right - wide, 0, wide + 2, kHead), Qt::AlignVCenter, words);
    PaintIcon(p, GlyphOf(level), QRectF(right - wide - 23, kHead / 2.0 - 8, 16, 16), ink);
    right -= wide + 46;
  }
}

void FindingsList::paintEvent(QPaintEvent*) {
  const Theme& t = stand_.theme;
  QPainter p(viewport());
  const QRect box = viewport()->rect();
  if (stand_.session.proof() == nullptr) {
    p.setFont(t.Font(13));
    p.setPen(t[Token::Second]);
    p.drawText(box.adjusted(14, 0, 0, 0), Qt::AlignVCenter, WorkText());
    return;
  }
  for (int row = RowAt(0); row < static_cast<int>(ends_.size()) && BoxOf(row).top() < box.height(); ++row)
    PaintRow(p, row);
}

void FindingsList::PaintRow(QPainter& p, int index) const {
  const Theme& t = stand_.theme;
  const Remark& remark = stand_.session.remarks()[static_cast<std::size_t>(index)];
  const QRect row = BoxOf(index);
  if (index == current_) p.fillRect(row, t[Token::Selected]);
  p.setPen(t[Token::Hairline]);
  if (index > RowAt(0)) p.drawLine(row.topLeft(), row.topRight());
  const QColor ink = t[InkOf(remark.level)];
  PaintIcon(p, GlyphOf(remark.level), QRectF(12, row.top() + kRow / 2.0 - 8, 16, 16), ink);
  // Its short words stand beside the sentence's first line.
  const auto draw = [&](int x, int wide, Qt::Alignment side, const QString& text) {
    p.drawText(QRect(x, row.top(), wide, kRow), static_cast<int>(side | Qt::AlignVCenter), text);
  };
  p.setFont(t.Font(13, Weight::Medium));
  p.setPen(ink);
  draw(38, 50, Qt::AlignLeft, QString::fromLatin1(NameOf(remark.level).data()));
  p.setFont(t.Font(13));
  p.setPen(t[Token::Second]);
  draw(90, 76, Qt::AlignLeft, Words(remark.subject));
  if (remark.line > 0) draw(row.width() - 92, 80, Qt::AlignRight, QStringLiteral("line %1").arg(remark.line));
  p.setPen(t[Token::Text]);
  const QRect room = SentenceIn(row, remark.line > 0);
  p.drawText(room, Qt::AlignVCenter | Qt::TextWordWrap, SentenceOf(remark));
}

}  // namespace torvane::dryrun
