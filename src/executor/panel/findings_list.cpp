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

constexpr int kRow = 27;

}  // namespace

FindingsList::FindingsList(Stand stand, QWidget* parent) : RowPanel(stand, tr("Findings"), kRow, parent) {
  setObjectName(QStringLiteral("findings"));
  const auto anew = [this] {
    chosen_ = -1;
    FitRows();
    verticalScrollBar()->setValue(0);
    update();
    viewport()->update();
  };
  connect(&stand.session, &Session::Opened, this, anew);
  connect(&stand.session, &Session::Proven, this, anew);
}

void FindingsList::FitRows() { Fit(static_cast<int>(stand_.session.remarks().size())); }

void FindingsList::resizeEvent(QResizeEvent*) { FitRows(); }

int FindingsList::Count(Level level) const {
  const auto& remarks = stand_.session.remarks();
  return static_cast<int>(
      std::count_if(remarks.begin(), remarks.end(), [level](const Remark& r) { return r.level == level; }));
}

void FindingsList::Choose(int row) {
  const auto& remarks = stand_.session.remarks();
  if (row < 0 || row >= static_cast<int>(remarks.size())) return;
  chosen_ = row;
  QScrollBar* bar = verticalScrollBar();
  if (row * kRow < bar->value()) bar->setValue(row * kRow);
  if ((row + 1) * kRow > bar->value() + viewport()->height())
    bar->setValue((row + 1) * kRow - viewport()->height());
  viewport()->update();
  const int line = remarks[static_cast<std::size_t>(row)].line;
  if (line > 0) emit LineChosen(line);
}

void FindingsList::mousePressEvent(QMouseEvent* event) { Choose(RowAt(event->pos().y())); }

void FindingsList::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Down)
    Choose(chosen_ + 1);
  else if (event->key() == Qt::Key_Up)
    Choose(std::max(0, chosen_ - 1));
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
    const QString words = QStringLiteral("%1 ").arg(count) +
                          (level == Level::Ok     ? tr("ok")
                           : level == Level::Note ? (count == 1 ? tr("note") : tr("notes"))
                                                  : (count == 1 ? tr("fault") : tr("faults")));
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
    if (stand_.player().program() == nullptr) return;
    p.setFont(t.Font(13));
    p.setPen(t[Token::Second]);
    p.drawText(box.adjusted(14, 0, 0, 0), Qt::AlignVCenter, tr("Proving the program ..."));
    return;
  }
  const auto& remarks = stand_.session.remarks();
  const bool narrow = box.width() < 560;
  for (int i = RowAt(0); i < static_cast<int>(remarks.size()) && BoxOf(i).top() < box.height(); ++i) {
    const Remark& remark = remarks[static_cast<std::size_t>(i)];
    const QRect row = BoxOf(i);
    if (i == chosen_) p.fillRect(row, t[Token::Selected]);
    p.setPen(t[Token::Hairline]);
    if (i > RowAt(0)) p.drawLine(row.topLeft(), row.topRight());
    const QColor ink = t[InkOf(remark.level)];
    PaintIcon(p, GlyphOf(remark.level), QRectF(12, row.center().y() - 7.5, 16, 16), ink);
    const auto draw = [&](int x, int wide, Qt::Alignment side, const QString& text) {
      p.drawText(QRect(x, row.top(), wide, kRow), static_cast<int>(side | Qt::AlignVCenter),
                 p.fontMetrics().elidedText(text, Qt::ElideRight, wide));
    };
    p.setFont(t.Font(13, Weight::Medium));
    p.setPen(ink);
    draw(38, 46, Qt::AlignLeft, QString::fromLatin1(NameOf(remark.level).data()));
    p.setFont(t.Font(13));
    p.setPen(t[Token::Second]);
    draw(90, 70, Qt::AlignLeft, Words(remark.subject));
    const int lineWide = remark.line > 0 ? 76 : 0;
    draw(box.width() - 12 - lineWide, lineWide, Qt::AlignRight, tr("line %1").arg(remark.line));
    p.setPen(t[Token::Text]);
    const int x = narrow ? 154 : 166;
    draw(x, box.width() - x - lineWide - 20, Qt::AlignLeft, Words(remark.text));
  }
}

}  // namespace torvane::dryrun
