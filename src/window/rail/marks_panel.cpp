#include "window/rail/marks_panel.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <algorithm>

#include "look/icons.h"
#include "look/paint.h"
#include "look/text.h"
#include "window/field/field_paint.h"
#include "window/field/help.h"
#include "workbench/build/build_outlook.h"
#include "workbench/build/marks.h"

namespace torvane {

namespace {

constexpr int kLine = 34;

}  // namespace

std::vector<Note> NotesOf(const Station& station) {
  std::vector<Note> notes;
  for (const Field* field : MarkedFields(station.s))
    notes.push_back({field, ShownMark(*field),
                     HelpOf(*field).name + QStringLiteral(" ") + Shown(field->text()),
                     QString::fromLatin1(WordsOf(ShownMark(*field)))});
  for (const BuildWarning& warning : WarningsBesideMarks(station))
    notes.push_back({warning.field, Mark::Plain, Shown(warning.what), Shown(warning.why)});
  return notes;
}

void PaintNoteIcon(QPainter& p, const Theme& t, const QPointF& at, Mark mark) {
  if (mark == Mark::Plain)
    PaintIcon(p, Icon::Warning, {at.x() + 1, at.y() + 1, 24, 24}, t[Token::Note]);
  else
    PaintInput(p, t, QRectF(at, QSizeF(26, 26)), {mark, true, false, false});
}

MarksPanel::MarksPanel(Desk desk, QWidget* parent) : QWidget(parent), desk_(desk) {
  setObjectName(QStringLiteral("marks"));
  setMinimumHeight(50);
  desk.binder.BindAll(this, [this] { update(); });
}

void MarksPanel::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter p(this);
  PaintPanel(p, t, rect());
  p.setRenderHint(QPainter::Antialiasing, false);
  const auto line = [&](int y, const QString& title, const QString& second) {
    p.setFont(t.Font(13, Weight::Medium));
    p.setPen(t[Token::Text]);
    const QRect box(48, y, width() - 60, 17);
    p.drawText(box, Qt::AlignLeft | Qt::AlignVCenter,
               p.fontMetrics().elidedText(title, Qt::ElideRight, box.width()));
    p.setFont(t.Font(12));
    p.setPen(t[Token::Second]);
    p.drawText(box.translated(0, 16), Qt::AlignLeft | Qt::AlignVCenter,
               p.fontMetrics().elidedText(second, Qt::ElideRight, box.width()));
  };
  const auto notes = NotesOf(desk_.station);
  if (notes.empty()) {
    PaintIcon(p, Icon::Check, {15, 12, 22, 22}, t[Token::Ok]);
    line(8, QStringLiteral("Nothing marked"), QStringLiteral("No value is missing, too high or too low."));
    return;
  }
  const int room = std::max(1, (height() - 12) / kLine);
  int y = 8;
  for (int i = 0; i < static_cast<int>(notes.size()); ++i) {
    const Note& note = notes[static_cast<std::size_t>(i)];
    const int left = static_cast<int>(notes.size()) - i;
    PaintNoteIcon(p, t, QPointF(14, y), note.mark);
    if (i == room - 1 && left > 1) {
      const QString count = i == 0 ? QStringLiteral("%1 to look at") : QStringLiteral("%1 more to look at");
      line(y - 2, count.arg(left), note.title + QStringLiteral(" ..."));
      break;
    }
    line(y - 2, note.title, note.second);
    y += kLine;
  }
}

int MarksPanel::LineAt(int y) const {
  const int room = std::max(1, (height() - 12) / kLine);
  return std::clamp((y - 8) / kLine, 0, room - 1);
}

void MarksPanel::mousePressEvent(QMouseEvent* event) {
  const auto notes = NotesOf(desk_.station);
  const auto line = static_cast<std::size_t>(LineAt(event->pos().y()));
  if (line < notes.size() && goTo) goTo(*notes[line].field);
}

// What a line has no room for; the last line stands for all that follow.
bool MarksPanel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  auto* help = static_cast<QHelpEvent*>(event);
  const auto notes = NotesOf(desk_.station);
  const auto line = static_cast<std::size_t>(LineAt(help->pos().y()));
  const bool last = LineAt(help->pos().y()) == LineAt(height());
  QStringList words;
  for (std::size_t i = line; i < notes.size() && (i == line || last); ++i)
    words.push_back(notes[i].title + QStringLiteral(". ") + notes[i].second);
  QToolTip::showText(help->globalPos(), PlainTip(words.join(QLatin1Char('\n'))), this);
  return true;
}

}  // namespace torvane
