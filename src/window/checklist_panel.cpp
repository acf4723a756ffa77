#include "window/checklist_panel.h"
#include "look/paint.h"

#include <QBoxLayout>
#include <QGridLayout>

#include "look/text.h"
#include "window/field_widgets.h"
#include "window/layer_columns.h"

namespace torvane {

namespace {

constexpr int kRow = 38;

}  // namespace

ChecklistPanel::ChecklistPanel(Desk desk, QWidget* parent) : QWidget(parent), desk_(desk) {
  DesignState& s = desk.station.s;
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(14, 8, 14, 8);
  grid->setHorizontalSpacing(5);
  grid->setVerticalSpacing(0);
  grid->setColumnStretch(0, 1);
  grid->addWidget(new Word(desk, QStringLiteral("Winding Checklist"), 15, Token::Text, Weight::Medium), 0, 0,
                  1, 2);
  grid->addWidget(new Word(desk, QStringLiteral("RPM"), 12, Token::Second), 0, 1, Qt::AlignRight);
  grid->addWidget(new Word(desk, QStringLiteral("in"), 12, Token::Second), 0, 2, Qt::AlignRight);
  grid->addWidget(new Word(desk, QStringLiteral("mm"), 12, Token::Second), 0, 3, Qt::AlignRight);
  grid->setRowMinimumHeight(0, 24);
  const Line lines[] = {
      {s.chkPreWrap1, "per turn", &s.cmbPreWrapRPM(1), &s.txtPreWrapAdvance(1), &s.txtPreWrapAdvanceMM(1)},
      {s.chkPreWrap2, "per turn", &s.cmbPreWrapRPM(2), &s.txtPreWrapAdvance(2), &s.txtPreWrapAdvanceMM(2)},
      {s.chkWindingSchedule, "", nullptr, nullptr, nullptr},
      {s.chkPromptForHST, "width", &s.cmbHSTRPM, &s.txtHSTWidth, &s.txtHSTWidthMM},
      {s.chkHeatGunApp, "speed, per s", &s.cmbHGRPM, &s.txtHGSpeed, &s.txtHGSpeedMM}};
  int row = 1;
  for (const Line& line : lines) AddLine(*grid, row++, line);
  AddNotices(*grid, row);
}

void ChecklistPanel::AddLine(QGridLayout& grid, int row, const Line& line) {
  grid.setRowMinimumHeight(row, kRow);
  auto* check = new FieldCheck(desk_, line.check, Shown(line.check.caption()));
  check->setFixedHeight(34);
  check->setMinimumWidth(104);
  stops_.push_back(check);
  checks_.push_back(check);
  if (line.speed == nullptr) {
    grid.addWidget(check, row, 0, 1, 4);
    desk_.binder.BindAll(check, [this, check] {
      const int rows = LayerRows(desk_.station.s);
      check->SetSecondLine(rows == 0   ? QStringLiteral("no layers yet")
                           : rows == 1 ? QStringLiteral("layer 1")
                                       : QStringLiteral("layers 1 to %1").arg(rows));
    });
    return;
  }
  check->SetSecondLine(QString::fromLatin1(line.second));
  grid.addWidget(check, row, 0);
  auto* speed = new FieldList(desk_, *line.speed);
  speed->setFixedWidth(54);
  auto* inches = new FieldEdit(desk_, *line.inches);
  inches->setFixedWidth(56);
  auto* millimetres = new FieldEdit(desk_, *line.millimetres);
  millimetres->setFixedWidth(60);
  int column = 1;
  for (QWidget* widget :
       {static_cast<QWidget*>(speed), static_cast<QWidget*>(inches), static_cast<QWidget*>(millimetres)}) {
    grid.addWidget(widget, row, column++);
    stops_.push_back(widget);
  }
}

void ChecklistPanel::AddNotices(QGridLayout& grid, int row) {
  DesignState& s = desk_.station.s;
  grid.setRowMinimumHeight(row, kRow);
  auto* first = new FieldCheck(desk_, s.chkNotify1, Shown(s.chkNotify1.caption()));
  auto* second = new FieldCheck(desk_, s.chkNotify2, QStringLiteral("2nd"));
  auto* line = new QHBoxLayout;
  line->setSpacing(4);
  line->addWidget(first);
  line->addStretch(1);
  line->addWidget(second);
  grid.addLayout(line, row, 0, 1, 4);
  stops_.push_back(first);
  stops_.push_back(second);
  checks_.push_back(first);
}

void ChecklistPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintPanel(painter, desk_.theme, rect());
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(QPen(desk_.theme[Token::Hairline], 2));
  const auto middle = [](const QWidget* box) { return box->geometry().center().y(); };
  for (std::size_t i = 1; i < checks_.size(); ++i)
    painter.drawLine(checks_[i]->x() + 10, middle(checks_[i - 1]) + 12, checks_[i]->x() + 10,
                     middle(checks_[i]) - 11);
}

}  // namespace torvane
