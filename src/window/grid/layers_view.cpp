#include "window/grid/layers_view.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "look/text.h"
#include "window/field/choice_popup.h"
#include "window/field/field_widgets.h"
#include "workbench/station/layer_count.h"

namespace torvane {

namespace {

constexpr int kHead = 40;
constexpr int kTallHead = 54;
// Below this width a head of two words takes two lines beside its unit.
constexpr int kTallBelow = 880;
constexpr int kLeastRow = 22, kMostRow = 36;
constexpr int kLargeRow = 53, kLeastLargeRow = 46;

// Two lines: caption and unit; three where the caption has to be broken.
class Head : public QHeaderView {
 public:
  Head(Desk desk, LayersModel& model, QWidget* parent)
      : QHeaderView(Qt::Horizontal, parent), desk_(desk), model_(model) {
    setSectionResizeMode(QHeaderView::Fixed);
    setMinimumSectionSize(20);
  }

 protected:
  void paintSection(QPainter* painter, const QRect& box, int section) const override {
    const Theme& t = desk_.theme;
    painter->save();
    painter->fillRect(box, t[Token::TableHead]);
    const CellKind kind = model_.Column(section).kind;
    int side = Qt::AlignRight;
    if (kind == CellKind::List) side = Qt::AlignLeft;
    if (kind == CellKind::Row || kind == CellKind::Check) side = Qt::AlignHCenter;
    const QRect text = box.adjusted(4, 4, side == Qt::AlignRight ? -9 : -4, -4)
                           .adjusted(side == Qt::AlignLeft ? 6 : 0, 0, 0, 0);
    const bool empty = model_.rowCount() == 0;
    const QString unit = model_.UnitOf(section);
    const int unitHeight = unit.isEmpty() ? 0 : 15;
    QString caption = model_.CaptionOf(section);
    painter->setFont(t.Font(13, Weight::Medium));
    bool wide = painter->fontMetrics().horizontalAdvance(caption) > text.width();
    if (wide) {
      painter->setFont(t.Font(12, Weight::Medium));
      wide = painter->fontMetrics().horizontalAdvance(caption) > text.width();
    }
    const bool broken = wide && height() > kHead && caption.contains(u' ');
    if (wide && !broken) caption = painter->fontMetrics().elidedText(caption, Qt::ElideRight, text.width());
    painter->setPen(empty ? t[Token::Off] : t[Token::Text]);
    const QRect words = text.adjusted(0, 0, 0, -unitHeight);
    // One line of words stands above its unit, wherever the head is higher than both.
    const int below = unit.isEmpty() && height() == kHead ? Qt::AlignTop : Qt::AlignBottom;
    painter->drawText(words, side | below | (broken ? Qt::TextWordWrap : Qt::TextSingleLine), caption);
    painter->setFont(t.Font(12));
    painter->setPen(empty ? t[Token::Off] : t[Token::Second]);
    painter->drawText(text, side | Qt::AlignBottom, unit);
    painter->setPen(t[Token::FieldEdge]);
    painter->drawLine(box.bottomLeft(), box.bottomRight());
    painter->restore();
  }

  // Without rows the head of the angles stands for their cells.
  void mouseReleaseEvent(QMouseEvent* event) override {
    const int section = logicalIndexAt(event->position().toPoint());
    if (model_.rowCount() == 0 && section >= 0 && model_.Column(section).kind == CellKind::Angle)
      desk_.Run("txtWA", Event::Click, 1);
    else
      QHeaderView::mouseReleaseEvent(event);
  }

 private:
  Desk desk_;
  LayersModel& model_;
};

}  // namespace

LayersView::LayersView(Desk desk, Family family, QWidget* parent)
    : QTableView(parent), desk_(desk), family_(family), model_(new LayersModel(desk, family, this)) {
  setObjectName(family == Family::FourAxes ? QStringLiteral("pic3DGrid") : QStringLiteral("pic2DGrid"));
  setAccessibleName(QStringLiteral("Layers"));
  delegate_ = new LayersDelegate(desk, *model_, this);
  delegate_->leave = [this](int down, int right) { Move(down, right); };
  setModel(model_);
  setItemDelegate(delegate_);
  setHorizontalHeader(new Head(desk, *model_, this));
  verticalHeader()->hide();
  verticalHeader()->setMinimumSectionSize(kLeastRow);
  setShowGrid(false);
  viewport()->setAutoFillBackground(false);
  setFrameShape(QFrame::NoFrame);
  setSelectionMode(QAbstractItemView::NoSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setTabKeyNavigation(false);
  const auto arrange = [this] { Arrange(); };
  connect(model_, &QAbstractItemModel::rowsInserted, this, arrange);
  connect(model_, &QAbstractItemModel::rowsRemoved, this, arrange);
  desk.binder.BindAll(this, [this] { viewport()->update(); });
}

int LayersView::headHeight() const { return horizontalHeader()->height(); }

int LayersView::rowHeight() const { return verticalHeader()->defaultSectionSize(); }

void LayersView::SetArrangement(Arrangement arrangement) {
  arrangement_ = arrangement;
  Arrange();
  viewport()->update();
}

int LayersView::ChooseColumns() {
  const auto columns = LayerColumns(family_);
  const bool large = arrangement_ == Arrangement::Large;
  const auto wantedOf = [&](int most) {
    int wanted = 0;
    for (const LayerColumn& column : columns)
      if (!large || column.largeRank <= most) wanted += large ? column.largeWidth : column.width;
    return wanted;
  };
  int most = 4;
  while (large && most > 1 && wantedOf(most) > width()) --most;
  for (int i = 0; i < model_->columnCount(); ++i) {
    const LayerColumn& column = columns[static_cast<std::size_t>(i)];
    setColumnHidden(i, large && (column.largeWidth == 0 || column.largeRank > most));
  }
  return std::max(1, wantedOf(most));
}

void LayersView::Arrange() {
  const bool large = arrangement_ == Arrangement::Large;
  const int rows = model_->rowCount();
  const int head = !large && width() < kTallBelow ? kTallHead : kHead;
  horizontalHeader()->setFixedHeight(head);
  const int adding = arrangement_ == Arrangement::Open && rows < kMostLayers ? kLeastRow + 8 : 2;
  const int room = height() - head - adding;
  const int least = large ? kLeastLargeRow : kLeastRow, highest = large ? kLargeRow : kMostRow;
  verticalHeader()->setMinimumSectionSize(kLeastRow);
  verticalHeader()->setDefaultSectionSize(std::clamp(room / std::max(rows, 1), least, highest));
  const int wanted = ChooseColumns();
  const auto columns = LayerColumns(family_);
  const int bar = rows * rowHeight() > height() - head ? 12 : 0;
  const int present = width() - bar;
  const double share = static_cast<double>(present) / wanted;
  int used = 0, last = 0;
  for (int i = 0; i < model_->columnCount(); ++i) {
    if (isColumnHidden(i)) continue;
    const LayerColumn& column = columns[static_cast<std::size_t>(i)];
    const int taken = static_cast<int>((large ? column.largeWidth : column.width) * share);
    setColumnWidth(i, taken);
    used += taken;
    last = i;
  }
  setColumnWidth(last, columnWidth(last) + present - used);
  if (arranged) arranged();
}

void LayersView::paintEvent(QPaintEvent* event) {
  QPainter(viewport()).fillRect(event->rect(), desk_.theme[Token::Panel]);
  QTableView::paintEvent(event);
}

void LayersView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  Arrange();
}

void LayersView::focusInEvent(QFocusEvent* event) {
  // Before the toolkit takes the row's number for the first cell.
  if (!currentIndex().isValid() && model_->rowCount() > 0) setCurrentIndex(model_->index(0, 1));
  QTableView::focusInEvent(event);
}

void LayersView::currentChanged(const QModelIndex& now, const QModelIndex& before) {
  QTableView::currentChanged(now, before);
  const Field* field = now.isValid() ? model_->FieldAt(now) : nullptr;
  if (field != nullptr && arrivedAt) arrivedAt(*field);
}

// To the next row, or over the inputs and on to the next row, or out of the grid.
void LayersView::Move(int down, int right) {
  const QModelIndex at = currentIndex();
  setFocus();
  if (!at.isValid() || (down == 0 && right == 0)) return;
  if (down != 0) {
    const QModelIndex next = model_->index(at.row() + down, at.column());
    if (next.isValid()) setCurrentIndex(next);
    return;
  }
  focusNextPrevChild(right > 0);
}

// Tab and Shift+Tab go cell by cell before they leave the grid.
bool LayersView::focusNextPrevChild(bool next) {
  const int right = next ? 1 : -1;
  int row = currentIndex().row(), column = currentIndex().column();
  while (currentIndex().isValid()) {
    column += right;
    if (column < 0 || column >= model_->columnCount()) {
      row += right;
      column = next ? 0 : model_->columnCount() - 1;
    }
    if (row < 0 || row >= model_->rowCount()) break;
    const Field* field = model_->FieldAt(model_->index(row, column));
    if (field == nullptr || isColumnHidden(column) || !IsInput(model_->Column(column).kind) ||
        !field->enabled() || !field->shown())
      continue;
    setCurrentIndex(model_->index(row, column));
    return true;
  }
  return QTableView::focusNextPrevChild(next);
}

void LayersView::Edit(const QModelIndex& index, const QString& replacement) {
  Field* field = index.isValid() ? model_->FieldAt(index) : nullptr;
  if (field == nullptr || !IsInput(model_->Column(index.column()).kind) || !field->enabled()) return;
  edit(index);
  auto* editor = qobject_cast<QLineEdit*>(indexWidget(index));
  if (editor == nullptr) return;
  editor->setFocus();
  if (replacement.isEmpty()) {
    editor->selectAll();
    return;
  }
  editor->selectAll();
  editor->insert(replacement);
}

bool LayersView::IsTyped(const QModelIndex& index) const {
  const Field* field = index.isValid() ? model_->FieldAt(index) : nullptr;
  if (field == nullptr || !field->enabled() || !field->entries().empty()) return false;
  const CellKind kind = model_->Column(index.column()).kind;
  return IsInput(kind) && kind != CellKind::Check;
}

void LayersView::Activate(const QModelIndex& index) {
  Field* field = index.isValid() ? model_->FieldAt(index) : nullptr;
  if (field == nullptr || !field->enabled()) return;
  const CellKind kind = model_->Column(index.column()).kind;
  if (kind == CellKind::Check) {
    desk_.binder.Check(*field, !field->checked());
  } else if (kind == CellKind::List && !field->entries().empty()) {
    const QRect box = visualRect(index);
    OpenChoices(desk_, *field, this, {viewport()->mapToGlobal(box.topLeft()), box.size()});
  } else {
    Edit(index);
  }
}

bool LayersView::GoTo(const Field& field) {
  for (int column = 1; column < model_->columnCount(); ++column)
    for (int row = 0; row < model_->rowCount(); ++row) {
      const QModelIndex at = model_->index(row, column);
      if (model_->FieldAt(at) != &field) continue;
      setCurrentIndex(at);
      setFocus();
      if (IsInput(model_->Column(column).kind) && field.entries().empty()) Edit(at);
      return true;
    }
  return false;
}

// The row menu's keys, on a two-axis row alone.
bool LayersView::RowCommand(const QKeyEvent& event, const QModelIndex& at) {
  if (family_ == Family::FourAxes || !at.isValid() || event.modifiers() != Qt::ControlModifier) return false;
  const char* command = nullptr;
  if (event.key() == Qt::Key_C) command = "mnuCopy";
  if (event.key() == Qt::Key_V) command = "mnuPaste";
  if (event.key() == Qt::Key_Delete) command = "mnuDeleteRow";
  if (command == nullptr) return false;
  desk_.binder.Run(RowButton(), Event::Press, LayersModel::LayerOf(at));
  desk_.binder.Run(command);
  return true;
}

void LayersView::keyPressEvent(QKeyEvent* event) {
  const QModelIndex at = currentIndex();
  const bool alt = (event->modifiers() & Qt::AltModifier) != 0;
  if (RowCommand(*event, at)) return;
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return Move(1, 0);
    case Qt::Key_F2:
      return Activate(at);
    case Qt::Key_Down:
      if (alt) return Activate(at);
      break;
    case Qt::Key_Space:
      if (at.isValid() && model_->FieldAt(at) == nullptr) {
        desk_.binder.Run(RowButton(), Event::Press, LayersModel::LayerOf(at));
        return;
      }
      return Activate(at);
    case Qt::Key_Menu:
      if (!at.isValid()) return;
      desk_.binder.Run(RowButton(), Event::PressRight, LayersModel::LayerOf(at));
      desk_.binder.Run(RowButton(), Event::ReleaseRight, LayersModel::LayerOf(at));
      if (menuWanted) menuWanted(viewport()->mapToGlobal(visualRect(at).bottomLeft()));
      return;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
      if (event->modifiers() != Qt::NoModifier || !IsTyped(at)) break;
      desk_.binder.Type(*model_->FieldAt(at), {});
      return;
    default:
      break;
  }
  Field* field = at.isValid() ? model_->FieldAt(at) : nullptr;
  if (field == nullptr || !IsCharacter(*event) || !IsInput(model_->Column(at.column()).kind) ||
      !field->enabled())
    return QTableView::keyPressEvent(event);
  if (IsTyped(at))
    Edit(at, event->text());
  else if (const std::string entry = EntryOf(*field, *event); !entry.empty())
    desk_.binder.Choose(*field, entry);
}

void LayersView::mousePressEvent(QMouseEvent* event) {
  const QModelIndex at = indexAt(event->pos());
  if (!at.isValid()) {
    setFocus();
    desk_.binder.Run(objectName().toLatin1().constData(), Event::Click);
    return;
  }
  setFocus();
  setCurrentIndex(at);
  const bool right = event->button() == Qt::RightButton;
  Field* field = model_->FieldAt(at);
  if (field == nullptr) {
    desk_.binder.Run(RowButton(), right ? Event::PressRight : Event::Press, LayersModel::LayerOf(at));
    return;
  }
  if (right) return;
  Activate(at);
  // A list's click is its choice; a figure's opens what sets it.
  if (model_->Column(at.column()).kind != CellKind::List &&
      model_->Column(at.column()).kind != CellKind::Check)
    desk_.binder.Run(field->row().name, Event::Click, field->index());
}

void LayersView::mouseReleaseEvent(QMouseEvent* event) {
  const QModelIndex at = indexAt(event->pos());
  if (!at.isValid() || model_->FieldAt(at) != nullptr) return;
  const int layer = LayersModel::LayerOf(at);
  if (event->button() == Qt::RightButton) {
    desk_.binder.Run(RowButton(), Event::ReleaseRight, layer);
    if (menuWanted) menuWanted(event->globalPosition().toPoint());
    return;
  }
  desk_.binder.Run(RowButton(), Event::Release, layer);
  if (family_ == Family::FourAxes) desk_.binder.Run(RowButton(), Event::Click, layer);
}

void LayersView::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

}  // namespace torvane
