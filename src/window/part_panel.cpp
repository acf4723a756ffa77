#include "window/part_panel.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QShortcut>

#include "window/button.h"
#include "window/field_widgets.h"
#include "window/part_drawing.h"
#include "window/text.h"

namespace torvane {

namespace {

// Small buttons round a field: one box of three.
class Stepper : public QWidget {
 public:
  Stepper(Desk desk, Field& field, int width, Icon less, Icon more, const std::function<void(int)>& step)
      : desk_(desk), edit_(new FieldEdit(desk, field, Place::Cell, this)) {
    setFixedSize(width, desk.theme.Px(30));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(1, 1, 1, 1);
    row->setSpacing(0);
    edit_->setAlignment(Qt::AlignCenter);
    edit_->setFixedHeight(28);
    const auto button = [&](Icon icon, int direction, const QString& name) {
      auto* made = new Button(desk, ButtonLook::Flat, icon, {}, this);
      made->setFixedSize(33, 28);
      made->setFocusPolicy(Qt::NoFocus);
      made->setAccessibleName(name);
      connect(made, &QAbstractButton::clicked, this, [step, direction] { step(direction); });
      return made;
    };
    row->addWidget(button(less, 0, QStringLiteral("less")));
    row->addWidget(edit_, 1);
    row->addWidget(button(more, 1, QStringLiteral("more")));
    for (const auto& [key, direction] : {std::pair{Qt::Key_Up, 1}, std::pair{Qt::Key_Down, 0}}) {
      auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | key), edit_);
      shortcut->setContext(Qt::WidgetShortcut);
      connect(shortcut, &QShortcut::activated, this, [step, way = direction] { step(way); });
    }
  }
  FieldEdit* edit() const { return edit_; }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(desk_.theme[Token::FieldEdge], 1));
    painter.setBrush(desk_.theme[Token::Input]);
    painter.drawRoundedRect(Inset(rect(), 0.5), 4, 4);
    painter.drawLine(34, 1, 34, height() - 1);
    painter.drawLine(width() - 34, 1, width() - 34, height() - 1);
  }

 private:
  Desk desk_;
  FieldEdit* edit_;
};

}  // namespace

PartPanel::PartPanel(Desk desk, int panel, QWidget* parent) : QWidget(parent), desk_(desk) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(1, 1, 1, 1);
  column->setSpacing(0);
  column->addWidget(MakeRow(panel));
  auto* drawing = new PartDrawing(desk, this);
  column->addWidget(drawing, 1);
  QWidget* const layers = stops_.back();
  stops_.pop_back();
  stops_.insert(stops_.end(), drawing->stops().begin(), drawing->stops().end());
  stops_.push_back(layers);
}

QWidget* PartPanel::MakeRow(int panel) {
  DesignState& s = desk_.station.s;
  Binder& binder = desk_.binder;
  auto* row = new QWidget(this);
  row->setFixedHeight(desk_.theme.Px(58));
  auto* boxes = new QHBoxLayout(row);
  boxes->setContentsMargins(12, 4, 12, 4);
  boxes->setSpacing(6);
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
  edit(line, s.txtLengthTotal(panel), 72, {});
  designUnit(line);
  boxes->addSpacing(8);
  line = group(QStringLiteral("Band width"));
  edit(line, s.txtBandWidth(panel), 64, QStringLiteral("in"));
  edit(line, s.txtBandWidthMM(panel), 64, QStringLiteral("mm"));
  boxes->addSpacing(8);
  line = group(QStringLiteral("Band thickness"));
  edit(line, s.txtBandThickness(panel), 64, QStringLiteral("in"));
  edit(line, s.txtBandThicknessMM(panel), 64, QStringLiteral("mm"));
  boxes->addStretch(1);

  line = group(QStringLiteral("Shift part"));
  const char* const shift = panel == 0 ? "btn2AxLeftRight" : "btnLR";
  auto* steps = new Stepper(desk_, panel == 0 ? s.txtStepSize2Ax : s.txtStepSize4Ax, 122, Icon::Left,
                            Icon::Right, [&binder, &s, shift, panel](int right) {
                              // The arrow says where the part goes; Z grows away from home.
                              const bool plus = (right == 1) == s.gIsLHDrive;
                              binder.Run(shift, Event::Click, plus == (panel == 0) ? 1 : 0);
                            });
  line->addWidget(steps);
  designUnit(line);
  boxes->addSpacing(10);
  line = group(Shown(s.lblNumberOfLayers(panel).caption()));
  Field& layers = s.txtNumberOfLayers(panel);
  auto* count = new Stepper(desk_, layers, 120, Icon::Minus, Icon::Plus, [&binder, &layers](int direction) {
    const int rows = RowsOf(layers) + (direction == 1 ? 1 : -1);
    if (rows >= 0 && rows <= 15) binder.Type(layers, QString::number(rows));
  });
  line->addWidget(count);
  stops_.push_back(count->edit());
  return row;
}

void PartPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(desk_.theme[Token::Hairline]);
  painter.setBrush(desk_.theme[Token::Panel]);
  painter.drawRoundedRect(Inset(rect(), 0.5), 6, 6);
  painter.drawLine(QPointF(1, 58.5), QPointF(width() - 1, 58.5));
}

}  // namespace torvane
