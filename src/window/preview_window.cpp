#include <QBoxLayout>
#include <QGridLayout>
#include <QPainter>

#include "look/paint.h"
#include "look/text.h"
#include "window/button.h"
#include "window/field_widgets.h"
#include "window/polar_picture.h"
#include "window/station_dialog.h"
#include "workbench/preview.h"

namespace torvane {

namespace {

class Canvas : public QWidget {
 public:
  explicit Canvas(Desk desk) : desk_(desk) { setMinimumSize(320, 320); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.fillRect(rect(), desk_.theme[Token::Drawing]);
    PaintPolar(p, desk_.theme, LastDrawing(desk_.station), Inset(rect(), 20));
  }

 private:
  Desk desk_;
};

class PreviewDialog : public StationDialog {
 public:
  PreviewDialog(Desk desk, Window& window, QWidget* parent)
      : StationDialog(desk, window, QStringLiteral("Pattern Preview"), parent) {
    resize(720, 640);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(14, 14, 14, 14);
    rows->setSpacing(12);
    auto* upper = new QHBoxLayout;
    upper->setSpacing(14);
    canvas_ = new Canvas(desk);
    upper->addWidget(canvas_, 1);
    upper->addWidget(MakeFigures());
    rows->addLayout(upper, 1);
    rows->addWidget(MakeButtons());
    desk_.binder.BindAll(this, [this] { canvas_->update(); });
  }

 protected:
  const char* Leaving() const override { return "btnClose"; }
  void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), desk_.theme[Token::Panel]); }

 private:
  QWidget* MakeFigures() {
    auto* owner = new QWidget(this);
    owner->setFixedWidth(174);
    auto* grid = new QGridLayout(owner);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnStretch(0, 1);
    constexpr const char* kFigures[][2] = {{"Layer", "lbllayerNo"},     {"Pattern", "lblPolarTag"},
                                           {"Groups:", "lblC"},         {"Circuits per Group:", "lblP"},
                                           {"Phi Len:", "lblPhiL"},     {"End Grazing Angle:", "lblG"},
                                           {"End Wrap", "lblW"},        {"Split", "lblSplitAngle"},
                                           {"Circuit", "lblCircuitNo"}, {"Pass", "lblPassNo"}};
    int row = 0;
    for (const auto& [caption, field] : kFigures) {
      grid->addWidget(new Word(desk_, QString::fromLatin1(caption), 12, Token::Second), row++, 0);
      auto* figure = new ReadOut(desk_, Of(field), 14);
      figure->setObjectName(QString::fromLatin1(field));
      grid->addWidget(figure, row++, 0);
    }
    grid->setRowStretch(row, 1);
    return owner;
  }

  QWidget* MakeButtons() {
    auto* bar = new QWidget(this);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(10);
    for (const char* control : {"btnPause", "btnPlay", "btnRedraw"})
      row->addWidget(Add(control, ButtonLook::Outline));
    row->addWidget(new Word(desk_, QStringLiteral("Draw Spd"), 12, Token::Second));
    auto* speed = new FieldList(desk_, Of("cmbSpeed"));
    speed->setFixedWidth(76);
    row->addWidget(speed);
    row->addStretch(1);
    row->addWidget(Add("btnClose", ButtonLook::Filled));
    return bar;
  }

  Button* Add(const char* control, ButtonLook look) {
    auto* button = new Button(desk_, look, Icon::None, Shown(Of(control).caption()), this);
    button->Runs(control);
    button->setFixedHeight(44);
    button->setMinimumWidth(92);
    desk_.binder.Bind(Of(control), button,
                      [button, &field = Of(control)] { button->setEnabled(field.enabled()); });
    return button;
  }

  Canvas* canvas_ = nullptr;
};

}  // namespace

QWidget* MakePreviewWindow(Desk desk, Window& window, QWidget* parent) {
  return new PreviewDialog(desk, window, parent);
}

}  // namespace torvane
