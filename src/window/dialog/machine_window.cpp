// The machine page: drive, motors, notices, calibration, and silenced messages.
#include "workbench/dialog/machine_dialog.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QPainter>
#include <QScrollArea>

#include "look/text.h"
#include "window/dialog/station_dialog.h"
#include "window/field/button.h"
#include "window/field/field_widgets.h"
#include "window/field/help.h"

namespace torvane {

namespace {

class MachineWindow : public StationDialog {
 public:
  MachineWindow(Desk desk, Window& window, QWidget* parent)
      : StationDialog(desk, window, QStringLiteral("Machine"), parent) {
    resize(720, 700);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    auto* scroll = new QScrollArea(this);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setWidget(MakePage());
    rows->addWidget(scroll, 1);
    auto* foot = new QWidget(this);
    FillFoot(foot);
    rows->addWidget(foot);
  }

 protected:
  const char* Leaving() const override { return "btnCancel"; }
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.fillRect(rect(), desk_.theme[Token::Bars]);
    p.setPen(desk_.theme[Token::Hairline]);
    p.drawLine(0, height() - kFoot, width(), height() - kFoot);
  }

 private:
  QWidget* MakePage() {
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(24, 16, 24, 16);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(10);
    grid->setColumnStretch(0, 1);
    int row = 0;
    const auto head = [&](const char* words) {
      grid->addWidget(new Word(desk_, QString::fromLatin1(words), 15, Token::Text, Weight::Medium), row++, 0,
                      1, 2);
    };
    const MachineLine* before = nullptr;
    for (const MachineLine& line : MachineLines()) {
      if (before == nullptr) head("Machine");
      if (before != nullptr && before->check && !line.check) {
        head("Messages");
        AddMessages(*grid, row++);
        head("Notices");
      }
      if (before != nullptr && !before->calibration && line.calibration) head("Calibration");
      AddLine(*grid, row++, line);
      before = &line;
    }
    grid->setRowStretch(row, 1);
    return page;
  }

  void AddMessages(QGridLayout& grid, int row) {
    auto* silenced = new Word(desk_, {}, 14, Token::Text);
    silenced->setObjectName(QStringLiteral("lblSilenced"));
    desk_.binder.Bind(Of("lblSilenced"), silenced,
                      [this, silenced] { silenced->SetText(Shown(Of("lblSilenced").text())); });
    grid.addWidget(silenced, row, 0);
    auto* show = MakeButton(ButtonLook::Outline, Icon::None, "btnShowMessages", 220, this);
    desk_.binder.Bind(Of("btnShowMessages"), show,
                      [this, show] { show->setEnabled(Of("btnShowMessages").enabled()); });
    grid.addWidget(show, row, 1, Qt::AlignRight);
  }

  void AddLine(QGridLayout& grid, int row, const MachineLine& line) {
    const QString sentence = Shown(line.sentence);
    Field& field = Of(line.field);
    if (line.check) {
      auto* check = new FieldCheck(desk_, field, sentence);
      check->setObjectName(QString::fromStdString(line.field));
      check->setFixedHeight(32);
      grid.addWidget(check, row, 0, 1, 2);
      return;
    }
    grid.addWidget(new Word(desk_, sentence, 14, Token::Text), row, 0);
    auto* edit = new FieldEdit(desk_, field);
    edit->setObjectName(QString::fromStdString(line.field));
    Explain(desk_, *edit, field, sentence);
    edit->setFixedWidth(line.calibration ? 120 : 260);
    if (!line.calibration) edit->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    grid.addWidget(edit, row, 1, Qt::AlignRight);
  }
};

}  // namespace

QWidget* MakeMachineWindow(Desk desk, Window& window, QWidget* parent) {
  return new MachineWindow(desk, window, parent);
}

}  // namespace torvane
