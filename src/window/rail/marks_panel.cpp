#include "window/rail/marks_panel.h"

#include <QBoxLayout>
#include <QListView>
#include <QStyledItemDelegate>
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

constexpr int kBeside = 48, kRight = 12, kBetween = 10;

struct Heights {
  int title, second;
  int whole() const { return std::max(title + second, 26) + kBetween; }
};

// The wrapped lines of a note in a panel of a width.
Heights HeightsOf(const Theme& t, const Note& note, int width) {
  const QRect room(0, 0, std::max(40, width - kBeside - kRight), 1000);
  const auto height = [&room](const QFont& font, const QString& text) {
    return text.isEmpty() ? 0 : QFontMetrics(font).boundingRect(room, Qt::TextWordWrap, text).height();
  };
  return {height(t.FigureFont(13, Weight::Medium), note.title), height(t.FigureFont(12), note.second)};
}

void PaintNote(QPainter& p, const Theme& t, const Note& note, const QRect& box) {
  const Heights heights = HeightsOf(t, note, box.width());
  const int room = box.width() - kBeside - kRight;
  p.setFont(t.FigureFont(13, Weight::Medium));
  p.setPen(t[Token::Text]);
  p.drawText(QRect(box.x() + kBeside, box.y() + 3, room, heights.title), Qt::TextWordWrap, note.title);
  p.setFont(t.FigureFont(12));
  p.setPen(t[Token::Second]);
  p.drawText(QRect(box.x() + kBeside, box.y() + 3 + heights.title, room, heights.second), Qt::TextWordWrap,
             note.second);
}

QString Sentence(const Note& note) { return note.title + QStringLiteral(". ") + note.second; }

}  // namespace

// The notes as they stand now.
class MarksPanel::Lines : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  const std::vector<Note>& notes() const { return notes_; }
  void Take(std::vector<Note> notes) {
    if (notes == notes_) return;
    beginResetModel();
    notes_ = std::move(notes);
    endResetModel();
  }

  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(notes_.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return {};
    const Note& note = notes_[static_cast<std::size_t>(index.row())];
    if (role == Qt::AccessibleTextRole) return Sentence(note);
    if (role == Qt::ToolTipRole) return PlainTip(Sentence(note));
    return {};
  }

 private:
  std::vector<Note> notes_;
};

namespace {

class NoteDelegate : public QStyledItemDelegate {
 public:
  NoteDelegate(Desk desk, const std::vector<Note>& notes, QAbstractItemView& view)
      : QStyledItemDelegate(&view), desk_(desk), notes_(notes), view_(view) {}

  QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const override {
    const int width = view_.viewport()->width();
    return {width, HeightsOf(desk_.theme, NoteAt(index), width).whole()};
  }
  void paint(QPainter* p, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const Theme& t = desk_.theme;
    const Note& note = NoteAt(index);
    if (view_.hasFocus() && view_.currentIndex() == index)
      PaintFocus(*p, t[Token::Focus], option.rect.adjusted(4, 1, -4, -3));
    PaintNoteIcon(*p, t, QPointF(14, option.rect.y() + 4), note.mark);
    PaintNote(*p, t, note, option.rect);
  }

 private:
  const Note& NoteAt(const QModelIndex& index) const { return notes_[static_cast<std::size_t>(index.row())]; }

  Desk desk_;
  const std::vector<Note>& notes_;
  QAbstractItemView& view_;
};

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

MarksPanel::MarksPanel(Desk desk, QWidget* parent)
    : QWidget(parent), desk_(desk), lines_(new Lines(this)), view_(new QListView(this)) {
  setObjectName(QStringLiteral("marks"));
  setMinimumHeight(50);
  auto* room = new QVBoxLayout(this);
  room->setContentsMargins(1, 5, 1, 5);
  room->addWidget(view_);
  view_->setObjectName(QStringLiteral("markLines"));
  view_->setAccessibleName(QStringLiteral("Marked values and warnings"));
  view_->setFrameShape(QFrame::NoFrame);
  view_->viewport()->setAutoFillBackground(false);
  view_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  view_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view_->setResizeMode(QListView::Adjust);
  view_->setModel(lines_);
  view_->setItemDelegate(new NoteDelegate(desk, lines_->notes(), *view_));
  const auto go = [this](const QModelIndex& index) {
    if (goTo) goTo(*lines_->notes()[static_cast<std::size_t>(index.row())].field);
  };
  connect(view_, &QListView::clicked, this, go);
  connect(view_, &QListView::activated, this, go);
  desk.binder.BindAll(this, [this] {
    lines_->Take(NotesOf(desk_.station));
    view_->setVisible(!lines_->notes().empty());
    update();
  });
}

QWidget* MarksPanel::stop() const { return view_; }

void MarksPanel::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter p(this);
  PaintPanel(p, t, rect());
  if (!lines_->notes().empty()) return;
  PaintIcon(p, Icon::Check, {15, 12, 22, 22}, t[Token::Ok]);
  const Note nothing{nullptr, Mark::Plain, QStringLiteral("Nothing marked"),
                     QStringLiteral("No value is missing, too high or too low.")};
  PaintNote(p, t, nothing, QRect(0, 6, width(), height()));
}

}  // namespace torvane
