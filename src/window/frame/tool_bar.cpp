#include "window/frame/tool_bar.h"

#include <QBoxLayout>
#include <algorithm>

#include "look/paint.h"
#include "look/text.h"
#include "window/field/button.h"
#include "window/field/help.h"
#include "workbench/document/design_commands.h"

namespace torvane {

namespace {

constexpr int kHeight = 50, kLargeHeight = 60, kLargeTool = 46;
constexpr int kBesideSegments = 6;
constexpr int kIconAlone = 0;
constexpr int kBehindName = 22;  // for the unsaved dot
// What the design's name keeps while tools give up their words: its own width between these.
constexpr int kDocument = 170, kLongDocument = 320;

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
    setFixedHeight(44);
    desk.binder.BindAll(this, [this] {
      setToolTip(PlainTip(Shown(desk_.station.s.gFilePath.text())));
      setAccessibleName(Shown(desk_.station.s.lblStatusBar2.text()));
      update();
    });
  }

  QSize sizeHint() const override {
    return {QFontMetrics(NameFont()).horizontalAdvance(Name()) + kBesideSegments + kBehindName, height()};
  }

 protected:
  void mouseReleaseEvent(QMouseEvent*) override { desk_.binder.Run("lblStatusBar2"); }
  void paintEvent(QPaintEvent*) override {
    const Theme& t = desk_.theme;
    const DesignState& s = desk_.station.s;
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setFont(NameFont());
    p.setPen(t[Token::Text]);
    const QString name =
        p.fontMetrics().elidedText(Name(), Qt::ElideMiddle, width() - kBehindName - kBesideSegments);
    const QRect line = t.large() ? rect() : QRect(kBesideSegments, 4, width() - kBesideSegments, 20);
    p.drawText(line, Qt::AlignVCenter | Qt::AlignLeft, name);
    if (s.gDirty) {
      p.setBrush(t[Token::BandOut]);
      p.setPen(Qt::NoPen);
      p.drawEllipse(QPointF(line.left() + p.fontMetrics().horizontalAdvance(name) + t.Figure(12),
                            line.center().y() + 1),
                    t.Figure(4), t.Figure(4));
    }
    if (t.large()) return;
    p.setFont(t.Font(12));
    p.setPen(t[Token::Second]);
    QString state = s.gShow4Axis ? QStringLiteral("4-axis design, ") : QStringLiteral("2-axis design, ");
    state += s.gDirty  ? QStringLiteral("not saved")
             : Named() ? QStringLiteral("saved")
                       : QStringLiteral("nothing to save");
    p.drawText(QRect(kBesideSegments, 23, width() - kBesideSegments, 17), Qt::AlignVCenter | Qt::AlignLeft,
               p.fontMetrics().elidedText(state, Qt::ElideRight, width()));
  }

 private:
  bool Named() const { return !DesignName(desk_.station.s).empty(); }
  QString Name() const { return Named() ? Shown(DesignName(desk_.station.s)) : QStringLiteral("New design"); }
  QFont NameFont() const { return desk_.theme.FigureFont(15, Weight::Medium); }

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
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(10, 0, 8, 0);
  row->setSpacing(6);
  const auto add = [&](QWidget* widget) {
    row->addWidget(widget);
    small_.push_back(widget);
  };
  const auto divide = [&] {
    dividers_.push_back(new Divider(desk));
    row->addWidget(dividers_.back());
  };
  // What a file is done with everybody knows by its icon; the machine's tools keep their words longest.
  add(Tool(Icon::New, "mnuNewFile", 3));
  add(Tool(Icon::Open, "btnOPen", 3));
  add(Tool(Icon::Save, "btnSaveAS", 3));
  divide();
  Button* undo = Tool(Icon::Undo, "mnuUndo", kIconAlone);
  Button* redo = Tool(Icon::Redo, "mnuRedo", kIconAlone);
  // The entries of the Edit menu have these operations' names already.
  undo->setObjectName(QStringLiteral("toolUndo"));
  redo->setObjectName(QStringLiteral("toolRedo"));
  desk.binder.BindAll(undo, [undo, redo, desk] {
    undo->setEnabled(desk.station.IsUsable("mnuUndo"));
    redo->setEnabled(desk.station.IsUsable("mnuRedo"));
  });
  add(undo);
  add(redo);
  divide();
  add(MakeFamily());
  add(MakeUnit());
  divide();
  document_ = new Document(desk);
  row->addWidget(document_, 1);
  row->addWidget(Tool(Icon::Trace, "lblGoTrace", 2));
  row->addWidget(Tool(Icon::Home, "lblHome", 2));
  row->addWidget(Tool(Icon::Wheel, "lblManualOperation", 2));
  add(Tool(Icon::Gear, "Command3", kIconAlone));
  divide();
  Button* view = Tool(Icon::Document, "Command2", 1);
  view->SetLook(ButtonLook::Outline);
  add(view);
  leave_ = new Button(desk, ButtonLook::Outline, Icon::Enlarge, QStringLiteral("Small Figures"), this);
  leave_->setObjectName(QStringLiteral("smallFigures"));
  leave_->setAccessibleName(leave_->text());
  leave_->setToolTip(QStringLiteral("Shows the whole window again (Ctrl+L)"));
  connect(leave_, &QAbstractButton::clicked, this, [this] {
    if (smallFigures) smallFigures();
  });
  worded_.push_back({leave_, leave_->text(), 1});
  row->addWidget(leave_);
  Arrange(Arrangement::Open);
  desk.binder.BindAll(this, [this] {
    if (document_->sizeHint().width() != room_) ShowWords();
  });
}

Button* ToolBar::Tool(Icon icon, const char* control, int rank) {
  const CommandWords words = desk_.station.WordsOf(control);
  const QString word = Shown(words.caption).remove(QStringLiteral("..."));
  auto* button = new Button(desk_, ButtonLook::Flat, icon, rank == kIconAlone ? QString() : word, this);
  button->Runs(control);
  QString tip = Shown(words.sentence);
  if (const auto keys = QKeySequence::listFromString(Shown(words.keys)); !keys.empty())
    tip += QStringLiteral(" (%1)").arg(keys.front().toString(QKeySequence::NativeText));
  button->setToolTip(tip);
  button->setAccessibleName(word);
  if (rank != kIconAlone) worded_.push_back({button, word, rank});
  return button;
}

void ToolBar::Arrange(Arrangement arrangement) {
  arrangement_ = arrangement;
  const bool large = arrangement == Arrangement::Large;
  setFixedHeight(large ? kLargeHeight : kHeight);
  for (QWidget* widget : small_) widget->setVisible(!large);
  leave_->setVisible(large);
  // A small window keeps the room between its groups for the design's name.
  layout()->setSpacing(arrangement == Arrangement::Folded ? 2 : 6);
  for (QWidget* divider : dividers_) divider->setVisible(arrangement == Arrangement::Open);
  for (const Worded& worded : worded_) {
    worded.button->setFixedHeight(large ? kLargeTool : 34);
    worded.button->SetTextSize(large ? 16 : 13);
    worded.button->SetLook(large || worded.rank == 1 ? ButtonLook::Outline : ButtonLook::Flat);
  }
  ShowWords();
}

void ToolBar::ShowWords() {
  room_ = document_->sizeHint().width();
  // Among large figures a tool keeps its word before a long name its middle: these tools move the machine.
  const int document =
      std::clamp(room_, kDocument, arrangement_ == Arrangement::Large ? kDocument : kLongDocument);
  // The tools give up their words one rank after the other, until the design's name has its room.
  for (int most = 3; most >= 0; --most) {
    for (const Worded& worded : worded_)
      worded.button->setText(worded.rank <= most ? worded.word : QString());
    int wanted = layout()->contentsMargins().left() + layout()->contentsMargins().right() + document;
    for (int i = 0; i < layout()->count(); ++i) {
      const QLayoutItem* item = layout()->itemAt(i);
      if (item->isEmpty()) continue;
      if (item->widget() != document_)
        wanted += item->widget()->sizeHint().expandedTo(item->widget()->minimumSize()).width();
      wanted += layout()->spacing();
    }
    if (wanted <= width()) break;
  }
  for (const Worded& worded : worded_) worded.button->updateGeometry();
}

QWidget* ToolBar::MakeFamily() {
  DesignState& s = desk_.station.s;
  auto* segments = new Segments(desk_);
  for (int i = 0; i <= 1; ++i) {
    Button* button = segments->Add(Shown(s.optX(i).caption()), 53);
    button->setObjectName(QStringLiteral("optX(%1)").arg(i));
    Explain(*button, s.optX(i));
    button->setToolTip(i == 0 ? QStringLiteral("Carriage and mandrel")
                              : QStringLiteral("Carriage, mandrel and delivery head"));
    connect(button, &QAbstractButton::clicked, this, [this, &s, i] { desk_.binder.Check(s.optX(i), true); });
    desk_.binder.Bind(s.optX(i), button, [button, &s, i] { button->SetFilled(s.optX(i).checked()); });
  }
  return segments;
}

QWidget* ToolBar::MakeUnit() {
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

void ToolBar::resizeEvent(QResizeEvent*) { ShowWords(); }

void ToolBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), desk_.theme[Token::Bars]);
  painter.setPen(desk_.theme[Token::Hairline]);
  painter.drawLine(0, height() - 1, width(), height() - 1);
}

}  // namespace torvane
