#include "window/rail/proof_panel.h"

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
#include "workbench/station/layer_count.h"

namespace torvane {

namespace {

constexpr int kBeside = 48, kRight = 12, kBetween = 10;
constexpr int kScrollBar = 12;
constexpr int kHead = 34, kLimits = 34, kSpools = 22;

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
    // Beside the scroll bar, whether it is there or not: the lines must not wrap anew when it comes.
    const int width = view_.width() - kScrollBar;
    return {width, HeightsOf(desk_.theme, NoteAt(index), width).whole()};
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

namespace {

// What a finding says, without the number of its own layer: alike ones of several layers are told as one.
QString SentenceOf(const executor::Remark& remark) {
  return Shown(remark.text)
      .replace(QStringLiteral("layer %1").arg(remark.layer), QStringLiteral("the layer"));
}

// "Layers 1, 2 and 6".
QString LayersText(const std::vector<int>& layers) {
  QString text = layers.size() == 1 ? QStringLiteral("Layer ") : QStringLiteral("Layers ");
  for (std::size_t i = 0; i < layers.size(); ++i) {
    if (i > 0) text += i + 1 == layers.size() ? QStringLiteral(" and ") : QStringLiteral(", ");
    text += QString::number(layers[i]);
  }
  return text;
}

void AddFindings(std::vector<Note>& notes, const Desk& desk, executor::Level level) {
  const LiveResult* result = desk.live == nullptr ? nullptr : desk.live->result();
  if (result == nullptr) return;
  const DesignState& s = desk.station.s;
  std::vector<std::pair<const executor::Remark*, std::vector<int>>> groups;
  for (const executor::Remark& remark : result->remarks) {
    if (remark.level != level) continue;
    const auto alike = std::find_if(groups.begin(), groups.end(), [&remark](const auto& group) {
      return remark.layer > 0 && group.first->layer > 0 && SentenceOf(*group.first) == SentenceOf(remark);
    });
    if (alike == groups.end())
      groups.push_back({&remark, {remark.layer}});
    else
      alike->second.push_back(remark.layer);
  }
  for (const auto& [remark, layers] : groups) {
    const bool ofRow = remark->layer > 0 && remark->layer <= kMostLayers;
    const Field* field =
        ofRow ? &(s.gShow4Axis ? s.cmbPattern(remark->layer) : s.txtWA(remark->layer)) : nullptr;
    notes.push_back({field, Mark::Plain, StateOf(level),
                     remark->layer > 0 ? LayersText(layers) : Shown(remark->subject), SentenceOf(*remark)});
  }
}

}  // namespace

std::vector<Note> NotesOf(const Desk& desk) {
  std::vector<Note> notes;
  AddFindings(notes, desk, executor::Level::Fault);
  for (const Field* field : MarkedFields(desk.station.s))
    notes.push_back({field, ShownMark(*field), ProofState::NotJudged,
                     HelpOf(*field).name + QStringLiteral(" ") + Shown(field->text()),
                     QString::fromLatin1(WordsOf(ShownMark(*field)))});
  for (const BuildWarning& warning : WarningsBesideMarks(desk.station))
    notes.push_back(
        {warning.field, Mark::Plain, ProofState::NotJudged, Shown(warning.what), Shown(warning.why)});
  AddFindings(notes, desk, executor::Level::Note);
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
    : QWidget(parent), desk_(desk), lines_(new Lines(this)), view_(new QListView(this)) {
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
    lines_->Take(NotesOf(desk_));
    PlaceList();
    view_->setVisible(!lines_->notes().empty());
    update();
  });
}

QWidget* ProofPanel::stop() const { return view_; }

int ProofPanel::LimitsHeight() const {
  const LiveResult* result = desk_.live == nullptr ? nullptr : desk_.live->result();
  if (result == nullptr || !result->formed || height() < 150) return 0;
  return kLimits + (result->proof.spoolLength > 0 ? kSpools : 0);
}

void ProofPanel::PlaceList() {
  layout()->setContentsMargins(1, kHead + LimitsHeight() + 3, 1, 5);
  layout()->activate();
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
  if (proof.spoolLength > 0) {
    const QRect line(14, kHead + kLimits, room, kSpools - 2);
    p.setFont(t.Font(12));
    p.setPen(t[Token::Second]);
    p.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Spools"));
    QString text = QString::number(proof.spools.Count());
    if (const auto& splices = proof.spools.splices(); !splices.empty())
      text +=
          QStringLiteral(", splice in layer %1, pass %2").arg(splices[0].layer).arg(qRound(splices[0].pass));
    p.setFont(t.Font(12, Weight::Medium));
    p.setPen(t[pale ? Token::Off : Token::Figures]);
    p.drawText(line, Qt::AlignRight | Qt::AlignVCenter, text);
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
