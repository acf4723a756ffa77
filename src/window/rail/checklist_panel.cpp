#include "window/rail/checklist_panel.h"

#include <QBoxLayout>
#include <QGridLayout>

#include "look/paint.h"
#include "look/text.h"
#include "window/field/field_widgets.h"
#include "workbench/station/layer_count.h"

namespace torvane {

namespace {

constexpr int kRow = 32;
constexpr int kCaptions = 24;

}  // namespace

ChecklistPanel::ChecklistPanel(Desk desk, QWidget* parent) : QWidget(parent), desk_(desk) {
  DesignState& s = desk.station.s;
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(14, 8, 14, 8);
  grid->setHorizontalSpacing(5);
  grid->setVerticalSpacing(0);
  grid->setColumnStretch(0, 1);
  const auto head = [&](const QString& text, int size, Token token, Weight weight) {
    details_.push_back(new Word(desk_, text, size, token, weight, this));
    return details_.back();
  };
  grid->addWidget(head(QStringLiteral("Winding Checklist"), 15, Token::Text, Weight::Medium), 0, 0, 1, 2);
  int column = 1;
  for (const char* unit : {"RPM", "in", "mm"})
    grid->addWidget(head(QString::fromLatin1(unit), 12, Token::Second, Weight::Regular), 0, column++,
                    Qt::AlignRight);
  grid->setRowMinimumHeight(0, kCaptions);
  const Line lines[] = {
      {s.chkPreWrap1, "per turn", &s.cmbPreWrapRPM(1), &s.txtPreWrapAdvance(1), &s.txtPreWrapAdvanceMM(1)},
      {s.chkPreWrap2, "per turn", &s.cmbPreWrapRPM(2), &s.txtPreWrapAdvance(2), &s.txtPreWrapAdvanceMM(2)},
      {s.chkWindingSchedule, "", nullptr, nullptr, nullptr},
      {s.chkPromptForHST, "width", &s.cmbHSTRPM, &s.txtHSTWidth, &s.txtHSTWidthMM},
      {s.chkHeatGunApp, "speed, per s", &s.cmbHGRPM, &s.txtHGSpeed, &s.txtHGSpeedMM}};
  int row = 1;
  for (const Line& line : lines) AddLine(*grid, row++, line);
  AddNotices(*grid, row);
  Arrange(Arrangement::Open);
}

void ChecklistPanel::AddLine(QGridLayout& grid, int row, const Line& line) {
  rows_.push_back(row);
  auto* check = new FieldCheck(desk_, line.check, Shown(line.check.caption()));
  check->setMinimumWidth(100);
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
  // On a child of their own, so that they go and come together whatever each one's field says.
  auto* owner = new QWidget(this);
  details_.push_back(owner);
  auto* values = new QHBoxLayout(owner);
  values->setContentsMargins(0, 0, 0, 0);
  values->setSpacing(5);
  auto* speed = new FieldList(desk_, *line.speed);
  speed->setFixedWidth(54);
  auto* inches = new FieldEdit(desk_, *line.inches);
  inches->setFixedWidth(56);
  auto* millimetres = new FieldEdit(desk_, *line.millimetres);
  millimetres->setFixedWidth(60);
  for (QWidget* widget :
       {static_cast<QWidget*>(speed), static_cast<QWidget*>(inches), static_cast<QWidget*>(millimetres)}) {
    values->addWidget(widget);
    stops_.push_back(widget);
  }
  grid.addWidget(owner, row, 1, 1, 3);
}

void ChecklistPanel::AddNotices(QGridLayout& grid, int row) {
  DesignState& s = desk_.station.s;
  auto* owner = new QWidget(this);
  owner->setFixedHeight(kRow);
  details_.push_back(owner);
  auto* first = new FieldCheck(desk_, s.chkNotify1, Shown(s.chkNotify1.caption()));
  auto* second = new FieldCheck(desk_, s.chkNotify2, QStringLiteral("2nd"));
  auto* line = new QHBoxLayout(owner);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(4);
  line->addWidget(first);
  line->addStretch(1);
  line->addWidget(second);
  grid.addWidget(owner, row, 0, 1, 4);
  stops_.push_back(first);
  stops_.push_back(second);
  checks_.push_back(first);
}

void ChecklistPanel::Arrange(Arrangement arrangement) {
  const bool large = arrangement == Arrangement::Large;
  for (QWidget* detail : details_) detail->setVisible(!large);
  auto* grid = static_cast<QGridLayout*>(layout());
  grid->setRowMinimumHeight(0, large ? 0 : kCaptions);
  for (const int row : rows_) grid->setRowMinimumHeight(row, large ? desk_.theme.Figure(28) : kRow);
  for (QWidget* check : checks_) {
    if (!details_.back()->isAncestorOf(check)) check->setFixedHeight(large ? 46 : 32);
    check->updateGeometry();
  }
}

void ChecklistPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintPanel(painter, desk_.theme, rect());
  if (desk_.theme.large()) return;
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(QPen(desk_.theme[Token::Hairline], 2));
  const auto middle = [this](const QWidget* box) { return box->mapTo(this, box->rect().center()).y(); };
  const int x = layout()->contentsMargins().left() + 10;
  for (std::size_t i = 1; i < checks_.size(); ++i)
    painter.drawLine(x, middle(checks_[i - 1]) + 12, x, middle(checks_[i]) - 11);
}

}  // namespace torvane
