#include "window/part/part_panel.h"

#include <QBoxLayout>
#include <algorithm>

#include "design/catalogue.h"
#include "look/paint.h"
#include "look/text.h"
#include "window/cover/unrolled_map.h"
#include "window/field/placed_field.h"
#include "window/field/stepper.h"
#include "window/part/four_axis_part.h"
#include "window/part/part_drawing.h"

namespace torvane {

namespace {

constexpr int kRow = 58;
constexpr int kOpen[] = {242, 316};  // by family
constexpr int kEdges = 2;
constexpr int kFolded[] = {kRow + 84 + kEdges, kRow + 84 + 54 + kEdges};
constexpr int kLarge = 176;
// Below this width the row's fields stand closer together.
constexpr int kCompact = 900;
// What a window of 800 has for part and schedule; of more height the drawing takes its share.
constexpr int kUsualColumn = 684, kUsualLargeColumn = 724;
constexpr double kDrawingShare = 0.6;

}  // namespace

PartPanel::PartPanel(Desk desk, int panel, QWidget* parent) : QWidget(parent), desk_(desk), panel_(panel) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(1, 1, 1, 1);
  column->setSpacing(0);
  row_ = MakeRow();
  column->addWidget(row_);
  const auto add = [&](auto* drawing) {
    column->addWidget(drawing, 1);
    // The count of layers comes behind the ends, in front of the grid.
    stops_.insert(stops_.end() - 1, drawing->stops().begin(), drawing->stops().end());
    return drawing;
  };
  if (panel == 0)
    twoAxes_ = add(new PartDrawing(desk, this));
  else
    fourAxes_ = add(new FourAxisPart(desk, this));
  if (twoAxes_ != nullptr && desk.live != nullptr) {
    unrolled_ = new UnrolledMap(
        desk, [this](double z) { return twoAxes_->XOf(z); }, this);
    unrolled_->hide();
    column->addWidget(unrolled_);
    twoAxes_->coverFollows = [this] { unrolled_->Follow(twoAxes_->cover()); };
    desk.binder.BindAll(this, [this] {
      if (IsUnrolled() == unrolled_->isHidden() && column_.isValid()) Arrange(arrangement_, column_);
    });
  }
  if (fourAxes_ != nullptr) laterStops_ = fourAxes_->headStops();
  const std::vector<QWidget*>& lines = panel == 0 ? twoAxes_->lineStops() : fourAxes_->lineStops();
  laterStops_.insert(laterStops_.end(), lines.begin(), lines.end());
  if (unrolled_ == nullptr) return;
  for (const std::vector<QWidget*>& stops : {twoAxes_->partSwitch()->stops(), unrolled_->stops()})
    laterStops_.insert(laterStops_.end(), stops.begin(), stops.end());
}

void PartPanel::Reveal(const QWidget& field) {
  if (fourAxes_ != nullptr) fourAxes_->Reveal(field);
}

bool PartPanel::IsUnrolled() const {
  const PartView& view = desk_.live->view();
  return view.mapped() && view.unrolled && arrangement_ == Arrangement::Open && column_.height() >= 560;
}

void PartPanel::Arrange(Arrangement arrangement, const QSize& column) {
  arrangement_ = arrangement;
  column_ = column;
  int height = arrangement == Arrangement::Large ? kLarge : kOpen[panel_];
  // A mandrel that is as long as the drawing is wide needs no more height.
  const int usual = arrangement == Arrangement::Large ? kUsualLargeColumn : kUsualColumn;
  height +=
      std::clamp(static_cast<int>((column.height() - usual) * kDrawingShare), 0, column.width() * 3 / 10);
  if (arrangement == Arrangement::Folded) height = kFolded[panel_];
  if (unrolled_ != nullptr) {
    unrolled_->setVisible(IsUnrolled());
    if (IsUnrolled()) height += kUnrolled;
  }
  setFixedHeight(height);
  // In a low window of large figures the schedule takes it all.
  setVisible(arrangement != Arrangement::Large || column.height() >= 600);
  row_->setVisible(arrangement != Arrangement::Large);
  const bool compact = column.width() < kCompact;
  for (const Sized& sized : sized_)
    sized.widget->setFixedWidth(compact ? sized.widths.compact : sized.widths.open);
  for (QSpacerItem* gap : gaps_) gap->changeSize(compact ? 0 : panel_ == 0 ? 8 : 2, 0);
  row_->layout()->setContentsMargins(12, 4, compact ? 8 : 12, 4);
  row_->layout()->setSpacing(compact ? 4 : 6);
  row_->layout()->invalidate();
  if (twoAxes_ != nullptr) twoAxes_->Arrange(arrangement);
  if (fourAxes_ != nullptr) fourAxes_->Arrange(arrangement);
}

QWidget* PartPanel::MakeRow() {
  DesignState& s = desk_.station.s;
  auto* row = new QWidget(this);
  row->setFixedHeight(kRow);
  auto* boxes = new QHBoxLayout(row);
  boxes->setContentsMargins(12, 4, 12, 4);
  boxes->setSpacing(6);
  // Four axes have one more group in the row.
  const int figure = panel_ == 0 ? 64 : 60, narrow = panel_ == 0 ? 60 : 56;
  const auto gap = [&] {
    gaps_.push_back(new QSpacerItem(panel_ == 0 ? 8 : 2, 0));
    boxes->addSpacerItem(gaps_.back());
  };
  QHBoxLayout* line = AddGroup(*boxes, QStringLiteral("Total length"));
  AddInput(*line, s.txtLengthTotal(panel_), {figure + 8, narrow + 8}, {});
  line->addWidget(MakeDesignUnit(desk_, row));
  gap();
  line = AddGroup(*boxes, QStringLiteral("Band width"));
  AddInput(*line, s.txtBandWidth(panel_), {figure, narrow}, QStringLiteral("in"));
  AddInput(*line, s.txtBandWidthMM(panel_), {figure, narrow}, QStringLiteral("mm"));
  gap();
  line = AddGroup(*boxes, QStringLiteral("Band thickness"));
  AddInput(*line, s.txtBandThickness(panel_), {figure, 60}, QStringLiteral("in"));
  AddInput(*line, s.txtBandThicknessMM(panel_), {figure, 60}, QStringLiteral("mm"));
  if (panel_ == 1) {
    gap();
    line = AddGroup(*boxes, QStringLiteral("Winding Rate"));
    AddSized(*line, new FieldList(desk_, s.cmbRate), {84, 72});
    stops_.push_back(sized_.back().widget);
  }
  boxes->addStretch(1);
  line = AddGroup(*boxes, QStringLiteral("Shift part"));
  const Widths shift = panel_ == 0 ? Widths{122, 102} : Widths{102, 96};
  auto* jog =
      new Stepper(desk_, panel_ == 0 ? s.txtStepSize2Ax : s.txtStepSize4Ax, shift.open, PartJog(panel_));
  jog->edit()->setTextMargins(0, 0, 0, 0);
  AddSized(*line, jog, shift);
  line->addWidget(MakeDesignUnit(desk_, row));
  gap();
  line = AddGroup(*boxes, Shown(s.lblNumberOfLayers(panel_).caption()), &s.lblNumberOfLayers(panel_));
  AddCount(*line);
  return row;
}

QHBoxLayout* PartPanel::AddGroup(QHBoxLayout& boxes, const QString& caption, const Field* field) {
  auto* box = new QVBoxLayout;
  box->setSpacing(2);
  auto* word = new Word(desk_, caption, 12, Token::Second);
  if (field != nullptr) {
    word->setObjectName(QString::fromStdString(NameOf(*field)));
    desk_.binder.Bind(*field, word, [word, field] { word->SetEmphasis(field->bold()); });
  }
  box->addWidget(word);
  auto* line = new QHBoxLayout;
  line->setSpacing(4);
  box->addLayout(line);
  boxes.addLayout(box);
  return line;
}

void PartPanel::AddSized(QHBoxLayout& line, QWidget* widget, Widths widths) {
  sized_.push_back({widget, widths});
  line.addWidget(widget);
}

void PartPanel::AddInput(QHBoxLayout& line, Field& field, Widths widths, const QString& unit) {
  AddSized(line, new FieldEdit(desk_, field), widths);
  stops_.push_back(sized_.back().widget);
  if (!unit.isEmpty()) line.addWidget(new Word(desk_, unit, 12, Token::Second));
}

void PartPanel::AddCount(QHBoxLayout& line) {
  const Widths widths{panel_ == 0 ? 120 : 98, 98};
  auto* count = new Stepper(
      desk_, desk_.station.s.txtNumberOfLayers(panel_), widths.open, Icon::Minus, Icon::Plus,
      [&binder = desk_.binder](bool more) { binder.Run(more ? "btnMoreLayers" : "btnFewerLayers"); });
  AddSized(line, count, widths);
  stops_.push_back(count->edit());
}

void PartPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintPanel(painter, desk_.theme, rect());
  if (!row_->isHidden()) painter.drawLine(QPointF(1, kRow + 0.5), QPointF(width() - 1, kRow + 0.5));
}

}  // namespace torvane
