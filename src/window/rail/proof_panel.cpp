#include "window/rail/proof_panel.h"

#include <QBoxLayout>
#include <QListView>
#include <QStyledItemDelegate>
#include <algorithm>

#include "look/icons.h"
#include "look/paint.h"
#include "look/text.h"
#include "window/field/button.h"
#include "window/field/field_paint.h"
#include "window/field/help.h"
#include "window/rail/spool_line.h"
#include "workbench/station/layer_count.h"

namespace torvane {

namespace {

constexpr int kBeside = 48, kRight = 12, kBetween = 10, kButton = 30;
constexpr int kScrollBar = 12;
constexpr int kHead = 34, kLimits = 34, kSpools = 26;

// Where a note's parts stand in a panel of a width, from the line's top left. A button that would take more
// than half of the width goes below the text.
struct Parts {
  QRect title, second, button;
  int height = 0;
};

Parts PartsOf(const Theme& t, const Note& note, int width) {
  const int all = std::max(40, width - kBeside - kRight);
  const int button = note.button.isEmpty()
                         ? 0
                         : QFontMetrics(t.Font(13, Weight::Medium)).horizontalAdvance(note.button) + 26;
  const bool below = 2 * button > width;
  const int room = button == 0 || below ? all : all - button - 8;
  const auto height = [room](const QFont& font, const QString& text) {
    const QRect box(0, 0, room, 1000);
    return text.isEmpty() ? 0 : QFontMetrics(font).boundingRect(box, Qt::TextWordWrap, text).height();
  };
  Parts parts;
  parts.title = {kBeside, 3, room, height(t.FigureFont(13, Weight::Medium), note.title)};
  parts.second = {kBeside, parts.title.bottom() + 1, room, height(t.FigureFont(12), note.second)};
  parts.height = std::max(parts.title.height() + parts.second.height(), 26) + kBetween;
  if (button > 0) {
    parts.button = below ? QRect(kBeside, parts.height - 2, all, kButton)
                         : QRect(kBeside + all - button, 3, button, kButton);
    parts.height = std::max(parts.height, parts.button.bottom() + 1 + kBetween);
  }
  return parts;
}

void PaintNote(QPainter& p, const Theme& t, const Note& note, const QRect& box) {
  const Parts parts = PartsOf(t, note, box.width());
  p.setFont(t.FigureFont(13, Weight::Medium));
  p.setPen(t[Token::Text]);
  p.drawText(parts.title.translated(box.topLeft()), Qt::TextWordWrap, note.title);
  p.setFont(t.FigureFont(12));
  p.setPen(t[Token::Second]);
  p.drawText(parts.second.translated(box.topLeft()), Qt::TextWordWrap, note.second);
}

// "Carriage" of "carriage speed"; the travel goes by its own name.
QString AxisName(std::string_view what) {
  if (what == "carriage travel") return QStringLiteral("Travel");
  QString name = Shown(what.substr(0, what.find(' ')));
  name[0] = name[0].toUpper();
  return name;
}

QString Sentence(const Note& note) { return note.title + QStringLiteral(". ") + note.second; }

}  // namespace

// The notes as they stand now.
class ProofPanel::Lines : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  const std::vector<Note>& notes() const { return notes_; }
  // False if they are the same as before.
  bool Take(std::vector<Note> notes) {
    if (notes == notes_) return false;
    beginResetModel();
    notes_ = std::move(notes);
    endResetModel();
    return true;
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
    // Beside the scroll bar, whether it is there or not: the lines must not wrap anew when it comes.
    const int width = view_.width() - kScrollBar;
    return {width, PartsOf(desk_.theme, NoteAt(index), width).height};
  }
  void updateEditorGeometry(QWidget* button, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override {
    const int width = view_.width() - kScrollBar;
    button->setGeometry(PartsOf(desk_.theme, NoteAt(index), width).button.translated(option.rect.topLeft()));
  }
  void paint(QPainter* p, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const Theme& t = desk_.theme;
    const Note& note = NoteAt(index);
    if (view_.hasFocus() && view_.currentIndex() == index)
      PaintFocus(*p, t[Token::Focus], option.rect.adjusted(4, 1, -4, -3));
    PaintNoteIcon(*p, t, QPointF(14, option.rect.y() + 4), note);
    PaintNote(*p, t, note, option.rect);
  }

 private:
  const Note& NoteAt(const QModelIndex& index) const { return notes_[static_cast<std::size_t>(index.row())]; }

  Desk desk_;
  const std::vector<Note>& notes_;
  QAbstractItemView& view_;
};

}  // namespace

std::vector<Note> NotesOf(const Desk& desk) {
  std::vector<Note> notes;
  for (const Advice& advice : AdviceOf(desk.station, desk.live == nullptr ? nullptr : desk.live->result())) {
    Note note{advice.field, advice.mark, advice.level ? StateOf(*advice.level) : ProofState::NotJudged,
              Shown(advice.title), Shown(advice.text)};
    RepairOutcome outcome;
    if (const Repair* repair = desk.live == nullptr ? nullptr : desk.live->OfferOf(advice, outcome)) {
      note.repair = *repair;
      note.button = Shown(repair->button);
      if (!outcome.words.empty()) note.second += QStringLiteral(" ") + Shown(outcome.words);
    }
    notes.push_back(std::move(note));
  }
  return notes;
}

void PaintNoteIcon(QPainter& p, const Theme& t, const QPointF& at, const Note& note) {
  if (note.state != ProofState::NotJudged)
    PaintProofState(p, t, at + QPointF(13, 13), note.state, 20);
  else if (note.mark == Mark::Plain)
    PaintIcon(p, Icon::Warning, {at.x() + 1, at.y() + 1, 24, 24}, t[Token::Note]);
  else
    PaintInput(p, t, QRectF(at, QSizeF(26, 26)), {note.mark, true, false, false});
}

ProofPanel::ProofPanel(Desk desk, QWidget* parent)
    : QWidget(parent),
      desk_(desk),
      lines_(new Lines(this)),
      view_(new QListView(this)),
      spools_(new SpoolLine(desk, this)) {
  setObjectName(QStringLiteral("marks"));
  setMinimumHeight(80);
  auto* room = new QVBoxLayout(this);
  room->setContentsMargins(1, kHead + 3, 1, 5);
  room->addWidget(view_);
  view_->setObjectName(QStringLiteral("markLines"));
  view_->setAccessibleName(QStringLiteral("Findings of the proof, marked values and warnings"));
  view_->setFrameShape(QFrame::NoFrame);
  view_->viewport()->setAutoFillBackground(false);
  view_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  view_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view_->setResizeMode(QListView::Adjust);
  view_->setModel(lines_);
  view_->setItemDelegate(new NoteDelegate(desk, lines_->notes(), *view_));
  const auto go = [this](const QModelIndex& index) {
    const Field* field = lines_->notes()[static_cast<std::size_t>(index.row())].field;
    if (goTo && field != nullptr) goTo(*field);
  };
  connect(view_, &QListView::clicked, this, go);
  connect(view_, &QListView::activated, this, go);
  desk.binder.BindAll(this, [this] {
    if (lines_->Take(NotesOf(desk_))) PlaceButtons();
    PlaceList();
    view_->setVisible(!lines_->notes().empty());
    update();
  });
}

void ProofPanel::PlaceButtons() {
  QWidget* before = view_;
  for (int row = 0; row < static_cast<int>(lines_->notes().size()); ++row) {
    const Note& note = lines_->notes()[static_cast<std::size_t>(row)];
    if (!note.repair) continue;
    auto* button = new Button(desk_, ButtonLook::Outline, Icon::None, note.button);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(PlainTip(note.second));
    const Repair repair = *note.repair;
    button->setObjectName(Shown(repair.control));
    connect(button, &QAbstractButton::clicked, this,
            [this, repair] { desk_.binder.Run(repair.control, Event::Click, repair.index); });
    view_->setIndexWidget(lines_->index(row), button);
    setTabOrder(before, button);
    before = button;
  }
}

void ProofPanel::GoToNext() {
  const int count = static_cast<int>(lines_->notes().size());
  for (int i = 1, row = view_->currentIndex().row(); i <= count; ++i) {
    row = (row + 1) % count;
    const Field* field = lines_->notes()[static_cast<std::size_t>(row)].field;
    if (field == nullptr) continue;
    view_->setCurrentIndex(lines_->index(row));
    if (goTo) goTo(*field);
    return;
  }
}

QWidget* ProofPanel::stop() const { return view_; }

int ProofPanel::LimitsHeight() const {
  const LiveResult* result = desk_.live == nullptr ? nullptr : desk_.live->result();
  if (result == nullptr || !result->formed || height() < 150) return 0;
  return kLimits + kSpools;
}

void ProofPanel::PlaceList() {
  layout()->setContentsMargins(1, kHead + LimitsHeight() + 3, 1, 5);
  layout()->activate();
  spools_->setVisible(LimitsHeight() > 0);
  spools_->setGeometry(14, kHead + kLimits, width() - 28, kSpools - 2);
}

void ProofPanel::resizeEvent(QResizeEvent*) { PlaceList(); }

// How far each axis is used, with a line below; over its limit in the colour of a fault.
void ProofPanel::PaintLimits(QPainter& p) const {
  if (LimitsHeight() == 0) return;
  const Theme& t = desk_.theme;
  const executor::Proof& proof = desk_.live->result()->proof;
  std::vector<const executor::AxisUse*> axes;
  for (const executor::AxisUse& axis : proof.axes)
    if (axes.size() < 3) axes.push_back(&axis);
  const bool pale = desk_.live->proving();
  const int room = width() - 28, gap = 16;
  const int wide = axes.empty()
                       ? room
                       : (room - gap * (static_cast<int>(axes.size()) - 1)) / static_cast<int>(axes.size());
  int x = 14;
  for (const executor::AxisUse* axis : axes) {
    const QRect box(x, kHead + 4, wide, 18);
    const double share = axis->limit > 0 ? axis->most / axis->limit : 0;
    p.setFont(t.Font(12));
    p.setPen(t[Token::Second]);
    p.drawText(box, Qt::AlignLeft | Qt::AlignVCenter, AxisName(axis->what));
    p.setFont(t.Font(12, Weight::Medium));
    p.setPen(t[pale ? Token::Off : share > 1 ? Token::Fault : Token::Figures]);
    p.drawText(
        box, Qt::AlignRight | Qt::AlignVCenter,
        axis->limit > 0 ? QStringLiteral("%1 %").arg(qRound(100 * share)) : QStringLiteral("not checked"));
    p.fillRect(QRect(x, kHead + 23, wide, 3), t[Token::Hairline]);
    p.fillRect(QRect(x, kHead + 23, static_cast<int>(wide * std::min(1.0, share)), 3),
               t[share > 1 ? Token::Fault : Token::Accent]);
    x += wide + gap;
  }
  p.setPen(t[Token::Hairline]);
  p.drawLine(1, kHead + LimitsHeight(), width() - 2, kHead + LimitsHeight());
}

void ProofPanel::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter p(this);
  PaintPanel(p, t, rect());
  PaintHead(p);
  PaintLimits(p);
  if (!lines_->notes().empty()) return;
  const bool empty = LayerRows(desk_.station.s) == 0;
  PaintProofState(p, t, QPointF(27, kHead + LimitsHeight() + 21),
                  empty ? ProofState::NotJudged : ProofState::Ok, 22);
  const Note nothing{nullptr, Mark::Plain, ProofState::Ok,
                     empty ? QStringLiteral("Nothing to prove yet") : QStringLiteral("Nothing marked"),
                     empty ? QStringLiteral("A design is proven as soon as it has layers.")
                           : QStringLiteral("No value is missing, too high or too low.")};
  PaintNote(p, t, nothing, QRect(0, kHead + LimitsHeight() + 4, width(), height()));
}

// Its name, and how many layers are in order, how many notes and how many faults there are.
void ProofPanel::PaintHead(QPainter& p) const {
  const Theme& t = desk_.theme;
  const QRect head(14, 1, width() - 26, kHead - 1);
  p.setFont(t.Font(15, Weight::Medium));
  p.setPen(t[Token::Text]);
  p.drawText(head, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Proof"));
  const int named = p.fontMetrics().horizontalAdvance(QStringLiteral("Proof")) + 10;
  p.setRenderHint(QPainter::Antialiasing, false);
  p.setPen(t[Token::Hairline]);
  p.drawLine(1, kHead, width() - 2, kHead);
  const LiveResult* result = desk_.live == nullptr ? nullptr : desk_.live->result();
  const bool proving = desk_.live != nullptr && desk_.live->proving();
  int right = head.right();
  if (result != nullptr && result->formed) {
    int ok = 0, faults = 0, notes = 0;
    for (const executor::LayerFigures& layer : result->proof.layers)
      ok += layer.stands == executor::Level::Ok ? 1 : 0;
    for (const Note& note : lines_->notes()) {
      faults += note.state == ProofState::Fault ? 1 : 0;
      notes += note.state == ProofState::Note ? 1 : 0;
    }
    for (const auto& [state, count] :
         {std::pair{ProofState::Fault, faults}, {ProofState::Note, notes}, {ProofState::Ok, ok}}) {
      p.setFont(t.Font(13, Weight::Medium));
      p.setPen(t[count == 0 || proving        ? Token::Off
                 : state == ProofState::Fault ? Token::Fault
                 : state == ProofState::Note  ? Token::Note
                                              : Token::Ok]);
      const QString figure = QString::number(count);
      const int wide = p.fontMetrics().horizontalAdvance(figure);
      p.drawText(QRect(right - wide, head.y(), wide, head.height()), Qt::AlignRight | Qt::AlignVCenter,
                 figure);
      p.setOpacity(count == 0 ? 0.4 : 1);
      PaintProofState(p, t, QPointF(right - wide - 14, head.center().y() + 1),
                      proving ? ProofState::Proving : state, 16);
      p.setOpacity(1);
      right -= wide + 36;
    }
  }
  const QString what = proving ? QStringLiteral("proving ...") : QStringLiteral("of what Build would write");
  p.setFont(t.Font(12));
  p.setPen(t[Token::Second]);
  if (p.fontMetrics().horizontalAdvance(what) < right - 14 - named)
    p.drawText(head.adjusted(named, 1, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, what);
}

}  // namespace torvane
