#include "window/part_panel.h"
#include "look/paint.h"

#include <QBoxLayout>

#include "look/text.h"
#include "window/four_axis_part.h"
#include "window/part_drawing.h"
#include "window/stepper.h"

namespace torvane {

PartPanel::PartPanel(Desk desk, int panel, QWidget* parent) : QWidget(parent), desk_(desk) {
  setFixedHeight(desk.theme.Px(panel == 0 ? 242 : 316));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(1, 1, 1, 1);
  column->setSpacing(0);
  column->addWidget(MakeRow(panel));
  const auto add = [&](auto* drawing) {
    column->addWidget(drawing, 1);
    // The count of layers comes behind the ends, in front of the grid.
    stops_.insert(stops_.end() - 1, drawing->stops().begin(), drawing->stops().end());
  };
  if (panel == 0)
    add(new PartDrawing(desk, this));
  else
    add(new FourAxisPart(desk, this));
}

QWidget* PartPanel::MakeRow(int panel) {
  DesignState& s = desk_.station.s;
  Binder& binder = desk_.binder;
  auto* row = new QWidget(this);
  row->setFixedHeight(desk_.theme.Px(58));
  auto* boxes = new QHBoxLayout(row);
  boxes->setContentsMargins(12, 4, 12, 4);
  boxes->setSpacing(6);
  // Four axes have one more group in the row.
  const int gap = panel == 0 ? 8 : 2;
  const int figure = panel == 0 ? 64 : 58;
  const auto group = [&](const QString& caption) {
    auto* box = new QVBoxLayout;
    box->setSpacing(2);
    box->addWidget(new Word(desk_, caption, 12, Token::Second));
    auto* line = new QHBoxLayout;
    line->setSpacing(5);
    box->addLayout(line);
    boxes->addLayout(box);
    return line;
  };
  const auto edit = [&](QHBoxLayout* line, Field& field, int width, const QString& unit) {
    auto* made = new FieldEdit(desk_, field);
    made->setFixedWidth(width);
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
  boxes->addSpacing(gap);
  line = group(QStringLiteral("Band width"));
  edit(line, s.txtBandWidth(panel), figure, QStringLiteral("in"));
  edit(line, s.txtBandWidthMM(panel), figure, QStringLiteral("mm"));
  boxes->addSpacing(gap);
  line = group(QStringLiteral("Band thickness"));
  edit(line, s.txtBandThickness(panel), figure, QStringLiteral("in"));
  edit(line, s.txtBandThicknessMM(panel), figure, QStringLiteral("mm"));
  if (panel == 1) {
    boxes->addSpacing(gap);
    line = group(QStringLiteral("Winding Rate"));
    auto* rate = new FieldList(desk_, s.cmbRate);
    rate->setFixedWidth(76);
    stops_.push_back(rate);
    line->addWidget(rate);
  }
  boxes->addStretch(1);

  line = group(QStringLiteral("Shift part"));
  const char* const shift = panel == 0 ? "btn2AxLeftRight" : "btnLR";
  auto* steps = new Stepper(desk_, panel == 0 ? s.txtStepSize2Ax : s.txtStepSize4Ax, panel == 0 ? 122 : 102,
                            Icon::Left, Icon::Right, [&binder, &s, shift, panel](int right) {
                              // The arrow says where the part goes; Z grows away from home.
                              const bool plus = (right == 1) == s.gIsLHDrive;
                              binder.Run(shift, Event::Click, plus == (panel == 0) ? 1 : 0);
                            });
  line->addWidget(steps);
  designUnit(line);
  boxes->addSpacing(gap);
  line = group(Shown(s.lblNumberOfLayers(panel).caption()));
  Field& layers = s.txtNumberOfLayers(panel);
  auto* count = new Stepper(desk_, layers, panel == 0 ? 120 : 98, Icon::Minus, Icon::Plus,
                            [&binder, &layers](int direction) {
                              const int rows = RowsOf(layers) + (direction == 1 ? 1 : -1);
                              if (rows >= 0 && rows <= 15) binder.Type(layers, QString::number(rows));
                            });
  line->addWidget(count);
  stops_.push_back(count->edit());
  return row;
}

void PartPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintPanel(painter, desk_.theme, rect());
  painter.drawLine(QPointF(1, 58.5), QPointF(width() - 1, 58.5));
}

}  // namespace torvane
