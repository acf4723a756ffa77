#include <QBoxLayout>
#include <QGridLayout>
#include <QPainter>
#include <QScrollArea>
#include <QStackedWidget>

#include "look/text.h"
#include "window/button.h"
#include "window/field_widgets.h"
#include "window/station_dialog.h"

namespace torvane {

namespace {

struct Line {
  int tab;
  const char* sentence;
  const char* field;
  const char* unit;
  const char* twin;
  const char* twinUnit;
};

constexpr const char* kOffset =
    "Z-distance from delivery head mid point to closest edge of mandrel post when carriage activates the "
    "limit switch (home position). Measure all Z distances from this reference point.";

constexpr Line kLines[] = {
    {0, "Speed at which the carriage approaches its limit switch", "txtLimitSwitchApproachSpeed", "in/s",
     "txtLimitSwitchApproachSpeedMM", "mm/s"},
    {0, "Turn of the mandrel after the carriage has stopped at the end of a pre-wrap",
     "txtMandrelAdvanceAfterPreWrapCarriageStop", "deg", "", ""},
    {0, "Pre-wrap the full length of the part (Y/N)", "txtPreWrapFullLengthYN", "", "", ""},
    {0, "Turn of the mandrel after a layer is complete", "txtMandrelRotateAfterLayerCompletion", "deg", "",
     ""},
    {0, "Turn of the mandrel after the carriage has stopped at the end of the shrink tape",
     "txtMandrelAdvanceAfterHSTCarriageStop", "deg", "", ""},
    {0, "The heat gun just keeps going (Y/N)", "txtHeatGunJustKeepGoingYN", "", "", ""},
    {1, kOffset, "Text3", "in", "Text2", "mm"},
    {1, "Passes added to each layer", "txtAddPasses", "", "", ""},
    {1, "Add an extra 360 degrees at the far end (Y/N)", "txtAddExtra360AtFarEndYN", "", "", ""},
    {1, "Use proportional filament spacing (Y/N)", "txtUseProportionalFilamentSpacingYN", "", "", ""},
    {1, "Add 360 degrees at the ends of a 2-axis layer (Y/N)", "txt2AXAdd360YN", "", "", ""},
    {2, kOffset, "txtCarriageOffsetFromRMPFace", "in", "txtCarriageOffsetFromRMPFaceMM", "mm"},
    {2, "Total width (including bolts) of delivery head when delivery head is horizontal",
     "txtDHStructureWidth", "in", "txtDHStructureWidthMM", "mm"},
    {2, "Distance from delivery head to mandrel central axis when delivery head fully retracted",
     "txtDHYtoMandrelCenter", "in", "txtDHYtoMandrelCenterMM", "mm"},
    {2, "Turn of the mandrel at the middle of an end wrap", "txtMidAngle", "deg", "", ""},
    {2, "Split angle of an end wrap", "txtSplitAngle", "deg", "", ""},
    {2, "Do not list winding patterns with winding angles greater than this many degrees",
     "txtNoListPatternDegrees", "deg", "", ""},
    {2,
     "Delay time in milliseconds (1/1000 s) between C, DHL and DHR movement completion and Mandrel movement "
     "completion (applies to G4, G5 and G6 movements)",
     "txtDelayTimeInG456ToWaitForMandrelinMS", "ms", "", ""},
    {2,
     "When hoop winding, pause winder before each hoop layer to ensure proper transition from helical layer "
     "to "
     "hoop layer",
     "txtPauseBeforeHoop", "", "", ""},
    {2, "On the first pass of a 3-Axis winding layer, wrap an extra 360 degrees at each end (Y/N)",
     "txt3AX1stPass360", "", "", ""},
    {3, "Carriage speed of class SLOW", "txtcSpeed(0)", "in/s", "txtcSpeedmm(0)", "mm/s"},
    {3, "Carriage speed of class MED", "txtcSpeed(1)", "in/s", "txtcSpeedmm(1)", "mm/s"},
    {3, "Carriage speed of class FAST", "txtcSpeed(2)", "in/s", "txtcSpeedmm(2)", "mm/s"},
    {3, "Mandrel speed of class SLOW", "txtmSpeed(0)", "RPM", "", ""},
    {3, "Mandrel speed of class MED", "txtmSpeed(1)", "RPM", "", ""},
    {3, "Mandrel speed of class FAST", "txtmSpeed(2)", "RPM", "", ""},
};

class SettingsWindow : public StationDialog {
 public:
  SettingsWindow(Desk desk, Window& window, QWidget* parent)
      : StationDialog(desk, window, QStringLiteral("Settings"), parent) {
    resize(720, 640);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(MakeTabs());
    pages_ = new QStackedWidget(this);
    for (int tab = 0; tab <= 3; ++tab) pages_->addWidget(MakePage(tab));
    rows->addWidget(pages_, 1);
    rows->addWidget(MakeButtons());
    desk_.binder.BindAll(this, [this] {
      if (desk_.station.OpenWindow("frmSettings") != &window_) return;
      int tab = 0;
      for (const char* panel : {"picGeneral", "pic2Axis", "pic4Axis", "picSpeeds"}) {
        const bool shown = Of(panel).shown();
        if (shown) pages_->setCurrentIndex(tab);
        tabs_[static_cast<std::size_t>(tab++)]->SetFilled(shown);
      }
    });
    if (auto* first = pages_->currentWidget()->findChild<QLineEdit*>()) first->setFocus();
  }

 protected:
  const char* Leaving() const override { return "btnCancel"; }
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.fillRect(rect(), desk_.theme[Token::Bars]);
    p.setPen(desk_.theme[Token::Hairline]);
    p.drawLine(0, 51, width(), 51);
    p.drawLine(0, height() - 65, width(), height() - 65);
  }

 private:
  QWidget* MakeTabs() {
    auto* bar = new QWidget(this);
    bar->setFixedHeight(52);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(16, 4, 16, 4);
    for (int i = 0; i <= 3; ++i) {
      auto* tab = new Button(desk_, ButtonLook::Segment, Icon::None,
                             Shown(Of("lblTab(" + std::to_string(i) + ")").caption()), bar);
      tab->Runs("lblTab", i);
      tab->setFixedSize(124, 40);
      tab->SetTextSize(14);
      tabs_.push_back(tab);
      row->addWidget(tab);
    }
    row->addStretch(1);
    row->addWidget(new Word(desk_, Shown(Of("lblUnits").text()), 13, Token::Second));
    return bar;
  }

  QWidget* MakePage(int tab) {
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(24, 16, 24, 16);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(14);
    grid->setColumnStretch(0, 1);
    int row = 0;
    for (const Line& line : kLines) {
      if (line.tab != tab) continue;
      auto* sentence = new QLabel(QString::fromLatin1(line.sentence), page);
      sentence->setWordWrap(true);
      sentence->setContentsMargins(0, 0, 12, 0);
      sentence->setFont(desk_.theme.Font(13));
      grid->addWidget(sentence, row, 0);
      AddField(*grid, row, 1, line.field, line.unit, line.sentence);
      if (*line.twin != '\0') AddField(*grid, row, 3, line.twin, line.twinUnit, line.sentence);
      ++row;
    }
    grid->setRowStretch(row, 1);
    auto* scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setWidget(page);
    return scroll;
  }

  void AddField(QGridLayout& grid, int row, int column, const char* name, const char* unit,
                const char* sentence) {
    auto* edit = new FieldEdit(desk_, Of(name));
    edit->setObjectName(QString::fromLatin1(name));
    edit->setAccessibleName(QString::fromLatin1(sentence));
    edit->setFixedWidth(72);
    grid.addWidget(edit, row, column);
    if (*unit != '\0')
      grid.addWidget(new Word(desk_, QString::fromLatin1(unit), 12, Token::Second), row, column + 1);
  }

  QWidget* MakeButtons() {
    auto* bar = new QWidget(this);
    bar->setFixedHeight(65);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(16, 12, 16, 12);
    row->setSpacing(10);
    const auto add = [&](ButtonLook look, Icon icon, const char* control, int width) {
      auto* button = new Button(desk_, look, icon, Shown(Of(control).caption()), bar);
      button->Runs(control);
      button->setFixedSize(width, 40);
      button->SetTextSize(14);
      return button;
    };
    row->addWidget(add(ButtonLook::Outline, Icon::Home, "Command5", 140));
    row->addStretch(1);
    row->addWidget(add(ButtonLook::Outline, Icon::None, "btnCancel", 112));
    row->addWidget(add(ButtonLook::Filled, Icon::None, "btnOK", 112));
    return bar;
  }

  QStackedWidget* pages_ = nullptr;
  std::vector<Button*> tabs_;
};

}  // namespace

QWidget* MakeSettingsWindow(Desk desk, Window& window, QWidget* parent) {
  return new SettingsWindow(desk, window, parent);
}

}  // namespace torvane
