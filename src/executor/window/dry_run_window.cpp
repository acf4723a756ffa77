#include "executor/window/dry_run_window.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QPainter>
#include <QUrl>
#include <QVBoxLayout>
#include <utility>

#include "executor/session/words.h"
#include "look/screen.h"

namespace torvane::dryrun {

using executor::RunState;

namespace {

constexpr int kStatus = 24, kMargin = 8, kLeft = 452, kFindings = 146;

}  // namespace

DryRunWindow::DryRunWindow(Theme& theme, Session& session, AskForProgram ask, Wanted wanted)
    : theme_(theme),
      stand_{theme, session},
      ask_(std::move(ask)),
      wanted_(std::move(wanted)),
      appearance_(wanted_()),
      bar_(new RunBar(stand_, this)),
      timeline_(new Timeline(stand_, this)),
      list_(new ProgramList(stand_)),
      press_(new PressPanel(stand_)),
      left_(new QWidget),
      leftStack_(new QStackedWidget),
      manual_(new ManualPanel(stand_)),
      display_(new DisplayStrip(stand_)),
      axes_(new AxesStrip(stand_)),
      view_(new MandrelView(stand_)),
      findings_(new FindingsList(stand_)) {
  setObjectName(QStringLiteral("dryRunWindow"));
  setMinimumSize(800, 600);
  resize(1280, 800);
  KeepOnScreen(*this);
  setAcceptDrops(true);
  auto* running = new QVBoxLayout(left_);
  running->setContentsMargins(0, 0, 0, 0);
  running->setSpacing(kMargin);
  running->addWidget(list_, 1);
  running->addWidget(press_);
  leftStack_->addWidget(left_);
  leftStack_->addWidget(manual_);
  auto* right = new QVBoxLayout;
  right->setSpacing(kMargin);
  right->addWidget(display_);
  right->addWidget(axes_);
  right->addWidget(view_, 1);
  right->addWidget(findings_);
  auto* body = new QHBoxLayout;
  body->setSpacing(kMargin);
  body->addWidget(leftStack_);
  body->addLayout(right, 1);
  auto* middle = new QVBoxLayout;
  middle->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  middle->setSpacing(kMargin);
  middle->addWidget(timeline_);
  middle->addLayout(body, 1);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, kStatus);
  all->setSpacing(0);
  all->addWidget(bar_);
  all->addLayout(middle, 1);

  MakeKeys();
  MakeManualKeys();
  bar_->openAsked = [this] { Ask(); };
  list_->openAsked = [this] { Ask(); };
  findings_->lineChosen = [this](int line) { list_->ShowLine(line); };
  findings_->lineSought = [this](int line) {
    stand_.session.SeekLine(line);
    // A line that is never run is shown all the same.
    if (stand_.player().LineNow() != line) list_->ShowLine(line);
  };
  timeline_->findingChosen = [this](int remark) { findings_->GoTo(remark); };
  timeline_->nextFindingAsked = [this] { findings_->GoToNext(true); };
  connect(&session, &Session::Refused, this, [this](const QString& reason) {
    Tell(QStringLiteral("The program cannot be opened: %1").arg(reason));
  });
  connect(&session, &Session::Opened, this, &DryRunWindow::Refresh);
  connect(&session, &Session::Played, this, &DryRunWindow::Refresh);
  list_->setFocus();
  Refresh();
}

QShortcut* DryRunWindow::AddKey(const QKeySequence& key, const std::function<void()>& does, bool repeats) {
  auto* shortcut = new QShortcut(key, this);
  shortcut->setAutoRepeat(repeats);
  connect(shortcut, &QShortcut::activated, this, does);
  return shortcut;
}

// They reach the run wherever the focus is; the focused button is pressed by Enter.
void DryRunWindow::MakeKeys() {
  Session& session = stand_.session;
  const auto add = [this](const QKeySequence& key, const std::function<void()>& does, bool repeats = true) {
    runKeys_.push_back(AddKey(key, does, repeats));
  };
  for (const auto& [modifier, stride] : {std::pair(Qt::NoModifier, executor::Stride::Line),
                                         {Qt::ControlModifier, executor::Stride::Pass},
                                         {Qt::ShiftModifier, executor::Stride::Layer}}) {
    add(modifier | Qt::Key_Left, [&session, stride = stride] { session.Step(stride, false); });
    add(modifier | Qt::Key_Right, [&session, stride = stride] { session.Step(stride, true); });
  }
  add(Qt::Key_Home, [&session] { session.SeekTime(0); });
  add(Qt::Key_End, [&session] { session.SeekEnd(); });
  add(Qt::Key_N, [this] { findings_->GoToNext(true); });
  add(Qt::SHIFT | Qt::Key_N, [this] { findings_->GoToNext(false); });
  add(
      Qt::Key_Space, [this] { PressOrPlay(); }, false);
  for (const auto& [key, step] : {std::pair(Qt::Key_Plus, 1), {Qt::Key_Equal, 1}, {Qt::Key_Minus, -1}})
    add(key, [this, step = step] { bar_->Step(step); });
  connect(new QShortcut(QKeySequence::Open, this), &QShortcut::activated, this, &DryRunWindow::Ask);
}

// The larger Z is at the left, so Left is more.
void DryRunWindow::MakeManualKeys() {
  using executor::Axis;
  struct Key {
    QKeySequence key;
    Axis axis;
    bool more;
  };
  for (const Key& key : {Key{Qt::Key_Left, Axis::Carriage, true},
                         {Qt::Key_Right, Axis::Carriage, false},
                         {Qt::Key_Up, Axis::Mandrel, true},
                         {Qt::Key_Down, Axis::Mandrel, false},
                         {Qt::CTRL | Qt::Key_Up, Axis::Head, false},
                         {Qt::CTRL | Qt::Key_Down, Axis::Head, true},
                         {Qt::SHIFT | Qt::Key_Up, Axis::Rotation, true},
                         {Qt::SHIFT | Qt::Key_Down, Axis::Rotation, false}})
    manualKeys_.push_back(AddKey(key.key, [this, key] { manual_->Move(key.axis, key.more); }));
  manualKeys_.push_back(AddKey(
      Qt::Key_Home, [this] { stand_.session.Home(); }, false));
}

void DryRunWindow::PressOrPlay() {
  if (stand_.player().State() == RunState::Waiting)
    stand_.session.PressButton();
  else
    timeline_->steps().PlayOrPause();
}

void DryRunWindow::Ask() {
  const std::string path = ask_(this);
  if (!path.empty()) Open(path);
}

void DryRunWindow::Open(const std::string& hostPath) {
  const QString path = QString::fromStdString(hostPath);
  const Outcome opened = stand_.session.Open(hostPath, QFileInfo(path).fileName());
  Tell(opened ? QString() : QStringLiteral("%1 cannot be opened: %2").arg(path, Words(opened.reason())));
  if (opened) stand_.session.Run();
}

void DryRunWindow::Tell(const QString& trouble) {
  trouble_ = trouble;
  update();
}

void DryRunWindow::Refresh() {
  const executor::Player& player = stand_.player();
  const bool manual = player.State() == RunState::Manual;
  for (QShortcut* key : runKeys_) key->setEnabled(!manual);
  for (QShortcut* key : manualKeys_) key->setEnabled(manual);
  timeline_->setVisible(!manual);
  leftStack_->setCurrentIndex(manual ? 1 : 0);
  QString name = stand_.session.name();
  // The desktop's bar of windows shows it while another window is in front.
  if (player.State() == RunState::Waiting) name += QStringLiteral(", waits for the button");
  if (player.State() == RunState::Running && player.EndlessNow())
    name += QStringLiteral(", runs until stopped");
  if (player.State() == RunState::Stopped) name += QStringLiteral(", stopped");
  if (player.State() == RunState::Finished) name += QStringLiteral(", finished");
  setWindowTitle(name.isEmpty() ? QStringLiteral("Torvane dry run")
                                : QStringLiteral("%1 - Torvane dry run").arg(name));
}

void DryRunWindow::resizeEvent(QResizeEvent*) {
  const int spare = width() - 1280;
  // The program gives way first, down to where a statement can still be read.
  leftStack_->setFixedWidth(std::clamp(kLeft + (spare < 0 ? spare * 3 / 8 : 0), 270, kLeft));
  findings_->setFixedHeight(height() < 720 ? 100 : kFindings);
  bar_->SetNarrow(width() < 1120);
}

// What the keys do.
QString DryRunWindow::Help() const {
  QStringList words = {QStringLiteral("Space presses the button, else plays"),
                       QStringLiteral("Left and Right step a line")};
  if (width() >= 1000)
    words = {words[0], QStringLiteral("Left and Right step a line, with Ctrl a pass, with Shift a layer"),
             QStringLiteral("N next finding"),
             QStringLiteral("+ and %1 change the speed").arg(QChar(0x2212))};
  if (stand_.player().State() == RunState::Manual)
    words = {QStringLiteral("Left and Right move the carriage"),
             QStringLiteral("Up and Down turn the mandrel"), QStringLiteral("Home to the limit switches")};
  return words.join(QStringLiteral("  ") + QChar(0xB7) + QStringLiteral("  "));
}

void DryRunWindow::paintEvent(QPaintEvent*) {
  const Theme& t = theme_;
  QPainter p(this);
  p.fillRect(rect(), t[Token::Window]);
  const QRect status(0, height() - kStatus, width(), kStatus);
  p.fillRect(status, t[Token::Bars]);
  p.setPen(t[Token::Hairline]);
  p.drawLine(status.topLeft(), status.topRight());
  p.setFont(t.Font(12));
  const QString right = QStringLiteral("Torvane dry run");
  const int most = status.width() - 36 - p.fontMetrics().horizontalAdvance(right);
  p.setPen(t[Token::Second]);
  p.drawText(status.adjusted(0, 1, -12, 0), Qt::AlignRight | Qt::AlignVCenter, right);
  p.setPen(t[trouble_.isEmpty() ? Token::Second : Token::Fault]);
  const QString words = trouble_.isEmpty() ? Help() : trouble_;
  p.drawText(QRect(12, status.top() + 1, most, kStatus - 1), Qt::AlignVCenter,
             p.fontMetrics().elidedText(words, Qt::ElideMiddle, most));
}

// The desktop has changed its colours, or the operator comes from the station, where another appearance can
// have been chosen.
void DryRunWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  const bool front = event->type() == QEvent::ActivationChange && isActiveWindow();
  if (!front && event->type() != QEvent::ThemeChange) return;
  const Appearance former = std::exchange(appearance_, wanted_());
  if (appearance_ == former && (front || appearance_ != Appearance::System)) return;
  theme_.SetDark(IsDark(appearance_));
  QApplication::setPalette(theme_.Palette());
}

void DryRunWindow::dragEnterEvent(QDragEnterEvent* event) {
  const QList<QUrl> urls = event->mimeData()->urls();
  if (urls.size() == 1 && urls[0].isLocalFile()) event->acceptProposedAction();
}

void DryRunWindow::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  Open(event->mimeData()->urls()[0].toLocalFile().toStdString());
}

}  // namespace torvane::dryrun
