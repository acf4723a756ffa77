#include "window/part_panel.h"
#include "look/paint.h"

#include <QBoxLayout>
#include <algorithm>

#include "look/text.h"
#include "window/four_axis_part.h"
#include "window/part_drawing.h"
#include "window/stepper.h"
#include "workbench/layer_count.h"

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
  row_ = MakeRow(panel);
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
}

const std::vector<QWidget*>& PartPanel::headStops() const {
  static const std::vector<QWidget*> none;
  return fourAxes_ == nullptr ? none : fourAxes_->headStops();
}

void PartPanel::Reveal(const QWidget& field) {
  if (fourAxes_ != nullptr) fourAxes_->Reveal(field);
}

void PartPanel::Arrange(Arrangement arrangement, const QSize& column) {
  int height = arrangement == Arrangement::Large ? kLarge : kOpen[panel_];
  // A mandrel that is as long as the drawing is wide needs no more height.
  const int usual = arrangement == Arrangement::Large ? kUsualLargeColumn : kUsualColumn;
  height +=
      std::clamp(static_cast<int>((column.height() - usual) * kDrawingShare), 0, column.width() * 3 / 10);
  if (arrangement == Arrangement::Folded) height = kFolded[panel_];
  setFixedHeight(height);
  // In a low window of large figures the schedule takes it all.
  setVisible(arrangement != Arrangement::Large || column.height() >= 600);
  row_->setVisible(arrangement != Arrangement::Large);
  const bool compact = column.width() < kCompact;
  for (const Sized& sized : sized_) sized.widget->setFixedWidth(compact ? sized.compact : sized.width);
  for (QSpacerItem* gap : gaps_) gap->changeSize(compact ? 0 : panel_ == 0 ? 8 : 2, 0);
  row_->layout()->setContentsMargins(12, 4, compact ? 8 : 12, 4);
  row_->layout()->invalidate();
  if (twoAxes_ != nullptr) twoAxes_->Arrange(arrangement);
  if (fourAxes_ != nullptr) fourAxes_->Arrange(arrangement);
}

QWidget* PartPanel::MakeRow(int panel) {
  DesignState& s = desk_.station.s;
  Binder& binder = desk_.binder;
  auto* row = new QWidget(this);
  row->setFixedHeight(desk_.theme.Px(kRow));
  auto* boxes = new QHBoxLayout(row);
  boxes->setContentsMargins(12, 4, 12, 4);
  boxes->setSpacing(6);
  // Four axes have one more group in the row.
  const int figure = panel == 0 ? 64 : 60;
  const int compactFigure = 60;
  const auto gap = [&] {
    gaps_.push_back(new QSpacerItem(panel == 0 ? 8 : 2, 0));
    boxes->addSpacerItem(gaps_.back());
  };
  const auto group = [&](const QString& caption, const QString& name = {}) {
    auto* box = new QVBoxLayout;
    box->setSpacing(2);
    auto* word = new Word(desk_, caption, 12, Token::Second);
    word->setObjectName(name);
    box->addWidget(word);
    auto* line = new QHBoxLayout;
    line->setSpacing(5);
    box->addLayout(line);
    boxes->addLayout(box);
    return line;
  };
  const auto edit = [&](QHBoxLayout* line, Field& field, int width, const QString& unit) {
    auto* made = new FieldEdit(desk_, field);
    sized_.push_back({made, width, compactFigure + width - figure});
    stops_.push_back(made);
    line->addWidget(made);
    if (!unit.isEmpty()) line->addWidget(new Word(desk_, unit, 12, Token::Second));
  };
  const auto designUnit = [&](QHBoxLayout* line) {
    auto* unit = new Word(desk_, {}, 12, Token::Second);
    line->addWidget(unit);
    binder.Bind(s.gUnits, unit, [unit, &s] { unit->SetText(Shown(s.gUnits.text())); });
  };
  QHBoxLayout* line = group(QStringLiteral("Total length"));
  edit(line, s.txtLengthTotal(panel), figure + 8, {});
  designUnit(line);
  gap();
  line = group(QStringLiteral("Band width"));
  edit(line, s.txtBandWidth(panel), figure, QStringLiteral("in"));
  edit(line, s.txtBandWidthMM(panel), figure, QStringLiteral("mm"));
  gap();
  line = group(QStringLiteral("Band thickness"));
  edit(line, s.txtBandThickness(panel), figure, QStringLiteral("in"));
  edit(line, s.txtBandThicknessMM(panel), figure, QStringLiteral("mm"));
  if (panel == 1) {
    gap();
    line = group(QStringLiteral("Winding Rate"));
    auto* rate = new FieldList(desk_, s.cmbRate);
    sized_.push_back({rate, 76, 76});
    stops_.push_back(rate);
    line->addWidget(rate);
  }
  boxes->addStretch(1);

  line = group(QStringLiteral("Shift part"));
  auto* steps = new Stepper(desk_, panel == 0 ? s.txtStepSize2Ax : s.txtStepSize4Ax, panel == 0 ? 122 : 102,
                            PartJog(panel));
  sized_.push_back({steps, panel == 0 ? 122 : 102, panel == 0 ? 102 : 100});
  line->addWidget(steps);
  designUnit(line);
  gap();
  line =
      group(Shown(s.lblNumberOfLayers(panel).caption()), QStringLiteral("lblNumberOfLayers(%1)").arg(panel));
  Field& layers = s.txtNumberOfLayers(panel);
  auto* count = new Stepper(desk_, layers, panel == 0 ? 120 : 98, Icon::Minus, Icon::Plus,
                            [&binder, &layers](bool more) {
                              const int rows = RowsOf(layers) + (more ? 1 : -1);
                              if (rows >= 0 && rows <= kMostLayers)
                                binder.Type(layers, QString::number(rows));
                            });
  sized_.push_back({count, panel == 0 ? 120 : 98, 98});
  line->addWidget(count);
  stops_.push_back(count->edit());
  return row;
}

void PartPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintPanel(painter, desk_.theme, rect());
  if (!row_->isHidden()) painter.drawLine(QPointF(1, kRow + 0.5), QPointF(width() - 1, kRow + 0.5));
}

}  // namespace torvane
