#include <QApplication>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollArea>
#include <QStackedWidget>

#include "look/paint.h"
#include "look/text.h"
#include "window/dialog/machine_picture.h"
#include "window/dialog/station_dialog.h"
#include "window/field/button.h"
#include "window/field/field_widgets.h"
#include "window/field/help.h"
#include "window/field/link.h"
#include "window/field/segments.h"
#include "workbench/dialog/settings_lines.h"

namespace torvane {

namespace {

constexpr int kTabBar = 49, kSide = 300;
constexpr int kSentence = 352;  // width
constexpr int kFieldX = 432, kTwinX = 544;
constexpr const char* kPanels[] = {"picGeneral", "pic2Axis", "pic4Axis", "picSpeeds"};
constexpr const char* kBelongs = "These values belong to the machine and serve every design.";
constexpr const char* kHints[] = {
    "", " The offset counts as measured once a key is pressed in it, and stays so after Cancel.",
    " The offset counts as measured once a key is pressed in it, and stays so after Cancel.",
    " A speed limit holds from its key on, and stays so after Cancel."};

// The heading of a tab. The current one is bold, as the state says.
class Tab : public QAbstractButton {
 public:
  Tab(Desk desk, const Field& field, int index, QWidget* parent)
      : QAbstractButton(parent), desk_(desk), field_(field) {
    setObjectName(QStringLiteral("lblTab(%1)").arg(index));
    setText(Shown(field.caption()));
    setFocusPolicy(Qt::TabFocus);
    setFixedSize(124, 44);
    connect(this, &QAbstractButton::clicked, this,
            [this, index] { desk_.Run("lblTab", Event::Click, index); });
    desk.binder.Bind(field, this, [this] { update(); });
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Theme& t = desk_.theme;
    QPainter p(this);
    const bool current = field_.bold();
    if (current) {
      p.fillRect(rect(), t[Token::Panel]);
      p.fillRect(0, 0, width(), 3, t[Token::Accent]);
      p.fillRect(0, 3, 1, height(), t[Token::Hairline]);
      p.fillRect(width() - 1, 3, 1, height(), t[Token::Hairline]);
    }
    QFont font = t.Font(14, Weight::Medium);
    font.setBold(current);
    p.setFont(font);
    p.setPen(t[current ? Token::Text : Token::Second]);
    p.drawText(rect(), Qt::AlignCenter, text());
    if (hasFocus()) PaintFocus(p, t[Token::Focus], rect().adjusted(5, 7, -5, -5));
  }

 private:
  Desk desk_;
  const Field& field_;
};

// The letter and the sentence of a setting; its fields stand on it. The one that has the focus stands out.
class Line : public QWidget {
 public:
  Line(Desk desk, const DialogLine& line) : desk_(desk), line_(line) {
    const SettingLine& setting = line.setting;
    const int below = (setting.note.empty() ? 0 : Height(12, setting.note)) + (line.picture() ? 26 : 0);
    text_ = Height(13, setting.sentence);
    setFixedHeight(std::max(44, text_ + below + 26));
    setAccessibleName(Shown(line.head));
    setMinimumWidth(660);
    connect(qApp, &QApplication::focusChanged, this, qOverload<>(&QWidget::update));
  }

  int TextBottom() const { return 13 + text_; }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Theme& t = desk_.theme;
    QPainter p(this);
    if (isAncestorOf(QApplication::focusWidget())) {
      p.fillRect(rect(), t[Token::Selected]);
      p.fillRect(0, 0, 4, height(), t[Token::Accent]);
    }
    p.fillRect(0, height() - 1, width(), 1, t[Token::Hairline]);
    const SettingLine& setting = line_.setting;
    if (setting.letter != 0) PaintLetter(p, t, QPointF(27.5, height() / 2.0), 11, setting.letter);
    Words(p, QRect(51, 13, kSentence, text_), 13, Token::Text, setting.sentence);
    Head(p, kFieldX, line_.head);
    Head(p, kTwinX, line_.twinHead);
    if (!setting.note.empty())
      Words(p, QRect(51, TextBottom(), kSentence, height()), 12, Token::Second, setting.note);
  }

 private:
  int Height(int size, std::string_view words) const {
    return QFontMetrics(desk_.theme.Font(size))
        .boundingRect(QRect(0, 0, kSentence, 1000), Qt::TextWordWrap, Shown(words))
        .height();
  }
  void Words(QPainter& p, const QRect& box, int size, Token token, std::string_view words) const {
    p.setFont(desk_.theme.Font(size));
    p.setPen(desk_.theme[token]);
    p.drawText(box, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, Shown(words));
  }

  // In two lines, its foot at the line's.
  void Head(QPainter& p, int x, std::string_view words) const {
    p.setFont(desk_.theme.Font(12, Weight::Medium));
    p.setPen(desk_.theme[Token::Text]);
    p.drawText(QRect(x, 0, kTwinX - kFieldX - 6, height() - 5),
               Qt::AlignLeft | Qt::AlignBottom | Qt::TextWordWrap, Shown(words));
  }

  Desk desk_;
  const DialogLine& line_;
  int text_ = 0;
};

// Names the same letters as the lines beside it, and stays while they scroll.
class Side : public QWidget {
 public:
  explicit Side(Desk desk) : desk_(desk) { setFixedWidth(kSide); }
  void Show(int tab) {
    tab_ = tab;
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Theme& t = desk_.theme;
    QPainter p(this);
    p.fillRect(rect(), t[Token::Panel]);
    p.fillRect(0, 0, 1, height(), t[Token::Hairline]);
    PaintMachine(p, t, QRectF(QPointF(12, 16), kMachinePicture), static_cast<MachineLetters>(tab_));
    PaintIcon(p, Icon::Info, {12, 290, 20, 20}, t[Token::Accent]);
    p.setFont(t.Font(12));
    p.setPen(t[Token::Second]);
    p.drawText(QRect(42, 290, 246, 120), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
               QString::fromLatin1(kBelongs) + QString::fromLatin1(kHints[tab_]));
  }

 private:
  Desk desk_;
  int tab_ = 0;
};

class SettingsWindow : public StationDialog {
 public:
  SettingsWindow(Desk desk, Window& window, QWidget* parent)
      : StationDialog(desk, window, QStringLiteral("Settings"), parent) {
    setMinimumSize(900, 420);
    resize(960, 664);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(MakeTabs());
    auto* middle = new QHBoxLayout;
    middle->setSpacing(0);
    pages_ = new QStackedWidget(this);
    for (int tab = 0; tab <= 3; ++tab) pages_->addWidget(MakePage(tab));
    middle->addWidget(pages_, 1);
    side_ = new Side(desk);
    middle->addWidget(side_);
    rows->addLayout(middle, 1);
    rows->addWidget(MakeFoot());
    desk_.binder.BindAll(this, [this] { Follow(); });
    if (auto* first = pages_->currentWidget()->findChild<QLineEdit*>()) first->setFocus();
  }

 protected:
  const char* Leaving() const override { return "btnCancel"; }
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
      desk_.Run("btnOK");
    else
      StationDialog::keyPressEvent(event);
  }
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.fillRect(rect(), desk_.theme[Token::Bars]);
    p.fillRect(0, kTabBar - 1, width(), 1, desk_.theme[Token::Hairline]);
    p.fillRect(0, height() - kFoot, width(), 1, desk_.theme[Token::Hairline]);
  }

 private:
  void Follow() {
    if (!desk_.station.windows.Hold(&window_)) return;
    for (int tab = 0; tab <= 3; ++tab) {
      if (!Of(kPanels[tab]).shown() || tab == pages_->currentIndex()) continue;
      pages_->setCurrentIndex(tab);
      side_->Show(tab);
    }
    const bool fourAxis = pages_->currentIndex() == 2;
    home_[0]->setVisible(!fourAxis);
    home_[1]->setVisible(fourAxis);
  }

  QWidget* MakeTabs() {
    auto* bar = new QWidget(this);
    bar->setFixedHeight(kTabBar);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(12, 5, 20, 0);
    row->setSpacing(0);
    for (int i = 0; i <= 3; ++i)
      row->addWidget(new Tab(desk_, Of("lblTab(" + std::to_string(i) + ")"), i, bar));
    row->addStretch(1);
    auto* units = new Word(desk_, Shown(Of("lblUnits").text()), 13, Token::Second);
    units->setObjectName(QStringLiteral("lblUnits"));
    row->addWidget(units);
    return bar;
  }

  QWidget* MakePage(int tab) {
    auto* page = new QWidget;
    page->setObjectName(QString::fromLatin1(kPanels[tab]));
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    for (const DialogLine& line : DialogLines())
      if (line.setting.tab == tab) column->addWidget(MakeLine(line));
    column->addStretch(1);
    auto* scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidgetResizable(true);
    scroll->setWidget(page);
    return scroll;
  }

  QWidget* MakeLine(const DialogLine& shown) {
    const SettingLine& setting = shown.setting;
    auto* line = new Line(desk_, shown);
    if (!shown.head.empty()) {
      head_ = &shown;
      return line;
    }
    if (shown.picture()) {
      auto* picture = new Link(desk_, Icon::Picture, Shown(Of("Label21").caption()), "Label21", line);
      picture->move(47, line->height() - 38);
    }
    const int y = (line->height() - 31) / 2;
    if (shown.yesNo()) {
      auto* choice = new ChoiceSegments(desk_, Of(setting.field), {"Y", "N"}, {49, 34}, line);
      Explain(desk_, *choice, Of(setting.field), Shown(setting.sentence));
      choice->setWhatsThis(Shown(setting.sentence));
      choice->move(kFieldX, y - 2);
      return line;
    }
    AddFigure(*line, shown, setting.field, setting.unit, kFieldX, y);
    if (!setting.twin.empty()) AddFigure(*line, shown, setting.twin, shown.TwinUnit(), kTwinX, y);
    return line;
  }

  void AddFigure(QWidget& line, const DialogLine& shown, std::string_view field, std::string_view unit, int x,
                 int y) {
    QWidget* figure = nullptr;
    if (shown.readOut)
      figure = new ReadOut(desk_, Of(field), 14, &line);
    else
      figure = new FieldEdit(desk_, Of(field), Place::Panel, &line);
    std::string_view over;
    if (head_ != nullptr && head_->setting.tab == shown.setting.tab)
      over = x == kFieldX ? head_->head : head_->twinHead;
    const QString sentence = Shown(shown.setting.sentence);
    const QString name = over.empty() ? sentence + QStringLiteral(", ") + Shown(unit)
                                      : Shown(over) + QStringLiteral(", ") + sentence;
    Explain(desk_, *figure, Of(field), name);
    figure->setWhatsThis(over.empty() ? sentence : name);
    figure->setGeometry(x, y, 72, 30);
    if (unit.empty()) return;
    auto* word = new Word(desk_, Shown(unit), 12, Token::Second, Weight::Regular, &line);
    word->setGeometry(x + 77, y + 7, 40, 16);
  }

  QWidget* MakeFoot() {
    auto* foot = new QWidget(this);
    home_ = {MakeButton(ButtonLook::Outline, Icon::Home, "Command5", 140, foot),
             MakeButton(ButtonLook::Outline, Icon::Home, "Command6", 140, foot)};
    for (Button* home : home_) home->setToolTip(QStringLiteral("The machine drives to its limit switches."));
    FillFoot(foot, home_);
    return foot;
  }

  QStackedWidget* pages_ = nullptr;
  Side* side_ = nullptr;
  const DialogLine* head_ = nullptr;  // over the line that is being made
  std::vector<Button*> home_;         // of tab 4-Axis the second, of the others the first
};

// Where the carriage offset is measured, large enough to look at from the machine.
class PictureWindow : public StationDialog {
 public:
  PictureWindow(Desk desk, Window& window, QWidget* parent)
      : StationDialog(desk, window, QStringLiteral("Carriage Offset Distance"), parent) {
    setAccessibleDescription(
        QStringLiteral("The offset A is measured from the middle of the delivery head to the face of the "
                       "mandrel post, with the carriage at its limit switch."));
    resize(3 * kMachinePicture.toSize());
  }

 protected:
  const char* Leaving() const override { return ""; }
  void reject() override {
    desk_.binder.Do([this] { desk_.station.windows.Close(window_); });
  }
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.fillRect(rect(), desk_.theme[Token::Drawing]);
    const QSizeF size = kMachinePicture.scaled(QSizeF(this->size()), Qt::KeepAspectRatio);
    PaintMachine(p, desk_.theme,
                 {QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size},
                 desk_.station.s.gShow4Axis ? MachineLetters::FourAxis : MachineLetters::TwoAxis);
  }
};

}  // namespace

QWidget* MakeSettingsWindow(Desk desk, Window& window, QWidget* parent) {
  return new SettingsWindow(desk, window, parent);
}

QWidget* MakePictureWindow(Desk desk, Window& window, QWidget* parent) {
  return new PictureWindow(desk, window, parent);
}

}  // namespace torvane
