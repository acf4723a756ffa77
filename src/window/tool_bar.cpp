#include "window/tool_bar.h"
#include "look/paint.h"

#include <QBoxLayout>

#include "look/text.h"
#include "window/button.h"

namespace torvane {

namespace {

constexpr int kHeight = 50;
constexpr int kWordsFrom = 1180;

// Two choices of which one is filled.
class Segments : public QWidget {
 public:
  explicit Segments(Desk desk) : desk_(desk) {
    setFixedHeight(34);
    row_ = new QHBoxLayout(this);
    row_->setContentsMargins(0, 0, 0, 0);
    row_->setSpacing(0);
  }
  Button* Add(const QString& caption, int width) {
    auto* button = new Button(desk_, ButtonLook::Segment, Icon::None, caption, this);
    button->setFixedSize(width, 34);
    row_->addWidget(button);
    return button;
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(desk_.theme[Token::FieldEdge]);
    painter.setBrush(desk_.theme[Token::Panel]);
    painter.drawRoundedRect(Inset(rect(), 0.5), 4, 4);
  }

 private:
  Desk desk_;
  QHBoxLayout* row_;
};

// The design's name with its unsaved dot, and one line of state.
class Document : public QWidget {
 public:
  explicit Document(Desk desk) : desk_(desk) {
    setObjectName(QStringLiteral("lblStatusBar2"));
    setMinimumWidth(60);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFixedHeight(40);
    desk.binder.BindAll(this, [this] {
      setToolTip(Shown(desk_.station.s.gFilePath.text()));
      setAccessibleName(Shown(desk_.station.s.lblStatusBar2.text()));
      update();
    });
  }

 protected:
  void mouseReleaseEvent(QMouseEvent*) override { desk_.binder.Run("lblStatusBar2"); }
  void paintEvent(QPaintEvent*) override {
    const Theme& t = desk_.theme;
    const DesignState& s = desk_.station.s;
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setFont(t.Font(15, Weight::Medium));
    p.setPen(t[Token::Text]);
    const bool named = !s.lblStatusBar2.empty() || !s.gFileName.empty();
    QString name = Shown(s.lblStatusBar2.empty() ? s.gFileName.text() : s.lblStatusBar2.text());
    if (!named) name = QStringLiteral("New design");
    name = p.fontMetrics().elidedText(name, Qt::ElideMiddle, width() - 22);
    p.drawText(QRect(0, 2, width(), 20), Qt::AlignVCenter | Qt::AlignLeft, name);
    if (s.gDirty) {
      p.setBrush(t[Token::BandOut]);
      p.setPen(Qt::NoPen);
      p.drawEllipse(QPointF(p.fontMetrics().horizontalAdvance(name) + 12, 13), 4, 4);
    }
    p.setFont(t.Font(12));
    p.setPen(t[Token::Second]);
    QString state = s.gShow4Axis ? QStringLiteral("4-axis design, ") : QStringLiteral("2-axis design, ");
    state += s.gDirty ? QStringLiteral("not saved")
             : named  ? QStringLiteral("saved")
                      : QStringLiteral("nothing to save");
    p.drawText(QRect(0, 21, width(), 17), Qt::AlignVCenter | Qt::AlignLeft,
               p.fontMetrics().elidedText(state, Qt::ElideRight, width()));
  }

 private:
  Desk desk_;
};

class Divider : public QWidget {
 public:
  explicit Divider(Desk desk) : desk_(desk) { setFixedSize(9, 34); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(desk_.theme[Token::Hairline]);
    painter.drawLine(4, 3, 4, height() - 4);
  }

 private:
  Desk desk_;
};

}  // namespace

ToolBar::ToolBar(Desk desk, QWidget* parent) : QWidget(parent), desk_(desk) {
  setFixedHeight(kHeight);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(10, 0, 8, 0);
  row->setSpacing(6);
  row->addWidget(
      Tool(Icon::New, QStringLiteral("New"), "mnuNewFile", QStringLiteral("Begins a new design (Ctrl+N)")));
  row->addWidget(
      Tool(Icon::Open, QStringLiteral("Open"), "btnOPen", QStringLiteral("Opens a design (Ctrl+O)")));
  row->addWidget(
      Tool(Icon::Save, QStringLiteral("Save"), "btnSaveAS", QStringLiteral("Saves the design (Ctrl+S)")));
  row->addWidget(new Divider(desk));
  row->addWidget(Family());
  row->addSpacing(4);
  row->addWidget(Unit());
  row->addWidget(new Divider(desk));
  document_ = new Document(desk);
  row->addWidget(document_, 1);
  row->addWidget(Tool(Icon::Trace, QStringLiteral("Trace"), "lblGoTrace",
                      QStringLiteral("The machine visits the design's points. It moves.")));
  row->addWidget(Tool(Icon::Home, QStringLiteral("Go Home"), "lblHome",
                      QStringLiteral("The machine drives to its limit switches. It moves.")));
  row->addWidget(Tool(Icon::Wheel, QStringLiteral("Manual"), "lblManualOperation",
                      QStringLiteral("Starts the executor for work by hand.")));
  auto* settings = Tool(Icon::Gear, {}, "Command3", QStringLiteral("Settings"));
  settings->setAccessibleName(QStringLiteral("Settings"));
  row->addWidget(settings);
  row->addWidget(new Divider(desk));
  auto* view =
      new Button(desk, ButtonLook::Outline, Icon::Document, Shown(desk.station.s.Command2.caption()), this);
  view->Runs("Command2");
  view->setToolTip(QStringLiteral("Writes the program and shows it."));
  row->addWidget(view);
}

Button* ToolBar::Tool(Icon icon, const QString& word, const char* control, const QString& tip) {
  auto* button = new Button(desk_, ButtonLook::Flat, icon, word, this);
  button->Runs(control);
  button->setToolTip(tip);
  button->setAccessibleName(word);
  if (!word.isEmpty()) worded_.emplace_back(button, word);
  return button;
}

QWidget* ToolBar::Family() {
  DesignState& s = desk_.station.s;
  auto* segments = new Segments(desk_);
  for (int i = 0; i <= 1; ++i) {
    Button* button = segments->Add(Shown(s.optX(i).caption()), 53);
    button->setObjectName(QStringLiteral("optX(%1)").arg(i));
    button->setToolTip(i == 0 ? QStringLiteral("Carriage and mandrel")
                              : QStringLiteral("Carriage, mandrel and delivery head"));
    connect(button, &QAbstractButton::clicked, this, [this, i] {
      DesignState& state = desk_.station.s;
      // One of two options: the other one falls with it, before the choice takes effect.
      state.optX(1 - i) = "False";
      desk_.binder.Choose(state.optX(i), "True");
    });
    desk_.binder.Bind(s.optX(i), button, [button, &s, i] { button->SetFilled(s.optX(i).checked()); });
  }
  return segments;
}

QWidget* ToolBar::Unit() {
  DesignState& s = desk_.station.s;
  auto* segments = new Segments(desk_);
  for (const bool inches : {true, false}) {
    Button* button = segments->Add(inches ? QStringLiteral("in") : QStringLiteral("mm"), inches ? 35 : 48);
    button->Runs(inches ? "mnuINCH" : "mnuMM");
    button->setToolTip(QStringLiteral("Unit of the design. Another unit empties it; you are asked first."));
    desk_.binder.BindAll(button, [button, &s, inches] { button->SetFilled(inches ? s.mnuINCH : s.mnuMM); });
  }
  return segments;
}

void ToolBar::resizeEvent(QResizeEvent*) {
  const bool words = width() >= kWordsFrom;
  for (const auto& [button, word] : worded_) button->setText(words ? word : QString());
}

void ToolBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), desk_.theme[Token::Bars]);
  painter.setPen(desk_.theme[Token::Hairline]);
  painter.drawLine(0, height() - 1, width(), height() - 1);
}

}  // namespace torvane
