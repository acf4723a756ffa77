#include "window/main_window.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QPainter>
#include <QScreen>
#include <QStackedWidget>
#include <QTimer>
#include <QUrl>

#include "design/catalogue.h"
#include "host/paths.h"
#include "look/text.h"
#include "window/build_button.h"
#include "window/checklist_panel.h"
#include "window/field_widgets.h"
#include "window/help.h"
#include "window/layers_panel.h"
#include "window/marks_panel.h"
#include "window/menus.h"
#include "window/part_panel.h"
#include "window/polar_panel.h"
#include "window/status_line.h"
#include "window/tool_bar.h"
#include "window/totals_panel.h"
#include "workbench/design_commands.h"
#include "workbench/number_hint.h"

namespace torvane {

namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kRail = 326, kNarrowRail = 324, kWideRail = 380;

int Pixels(const Field& twips) {
  const Number value = number(twips);
  return holds(value > -60000) && holds(value < 600000) ? static_cast<int>(value.value()) / kTwipsPerPixel
                                                        : 0;
}

}  // namespace

MainWindow::MainWindow(Desk desk) : desk_(desk) {
  setObjectName(QStringLiteral("frmMain"));
  setMinimumSize(1124, 730);
  setAcceptDrops(true);
  AddMenus(*this, desk, [this](bool dark) { UseDark(dark); });
  auto* centre = new QWidget(this);
  auto* rows = new QVBoxLayout(centre);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(new ToolBar(desk, centre));
  auto* body = new QHBoxLayout;
  body->setContentsMargins(8, 8, 8, 8);
  body->setSpacing(8);
  body->addWidget(MakeDesign(), 1);
  body->addWidget(MakeRail());
  rows->addLayout(body, 1);
  status_ = new StatusLine(desk, centre);
  rows->addWidget(status_);
  setCentralWidget(centre);
  OrderTabs();
  UseDark(desk.theme.dark());
  const DesignState& s = desk.station.s;
  resize(std::max(1124, Pixels(s.meWidth)), std::max(730, Pixels(s.meHeight)));
  const QPoint place(Pixels(s.meLeft), Pixels(s.meTop));
  if (QGuiApplication::screenAt(place + QPoint(40, 10)) != nullptr) move(place);
  placed_ = true;
  desk.binder.focusMoved = [this](const Field& field) { GoTo(field); };
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { FollowFocus(now); });
  auto* blink = new QTimer(this);
  connect(blink, &QTimer::timeout, this, [this] { Blink(); });
  blink->start(500);
  desk.binder.BindAll(this, [this] { FollowState(); });
}

QWidget* MainWindow::MakeDesign() {
  families_ = new QStackedWidget(this);
  for (int panel = 0; panel <= 1; ++panel) {
    auto* page = new QWidget(families_);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    auto* part = new PartPanel(desk_, panel, page);
    column->addWidget(part, 0);
    layers_[panel] = new LayersPanel(desk_, panel == 1, page);
    layers_[panel]->view()->menuWanted = [this](const QPoint& at) { ShowRowMenu(at); };
    column->addWidget(layers_[panel], 1);
    parts_.push_back(part->stops());
    families_->addWidget(page);
  }
  return families_;
}

QWidget* MainWindow::MakeRail() {
  rail_ = new QWidget(this);
  rail_->setFixedWidth(kRail);
  auto* column = new QVBoxLayout(rail_);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(8);
  totals_ = new QStackedWidget(rail_);
  totals_->setMaximumHeight(316);
  totals_->addWidget(new TotalsPanel(desk_, 0));
  totals_->addWidget(new PolarPanel(desk_));
  column->addWidget(totals_, 6);
  checklist_ = new ChecklistPanel(desk_);
  checklist_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  column->addWidget(checklist_);
  marks_ = new MarksPanel(desk_);
  marks_->goTo = [this](const Field& field) { GoTo(field); };
  column->addWidget(marks_, 1);
  build_ = new BuildButton(desk_);
  column->addWidget(build_);
  return rail_;
}

void MainWindow::OrderTabs() {
  for (int panel = 0; panel <= 1; ++panel) {
    std::vector<QWidget*> order = parts_[static_cast<std::size_t>(panel)];
    order.push_back(layers_[panel]->view());
    order.insert(order.end(), checklist_->stops().begin(), checklist_->stops().end());
    order.push_back(build_);
    for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
  }
}

void MainWindow::FollowState() {
  const DesignState& s = desk_.station.s;
  families_->setCurrentIndex(s.Panel());
  totals_->setCurrentIndex(s.Panel());
  totals_->setMaximumHeight(s.Panel() == 0 ? 206 : 316);
  setWindowTitle(Shown(s.frmMain.caption()).trimmed() + QStringLiteral("[*]"));
  setWindowModified(s.gDirty);
  setVisible(s.frmMain.shown() && !desk_.station.ended);
  if (described_ != nullptr) Describe(*described_);
}

void MainWindow::FollowFocus(QWidget* now) {
  const Field* field = nullptr;
  if (now != nullptr && isAncestorOf(now))
    field = FindField(desk_.station.s, now->objectName().toStdString());
  if (field == nullptr) return;
  described_ = field;
  Describe(*field);
}

// What a typed number reads as goes before what its field is for.
void MainWindow::Describe(const Field& field) {
  const Help help = HelpOf(field);
  const QString hint = Shown(NumberHint(field, desk_.station.s.signs));
  status_->Describe(help.name, hint.isEmpty() ? help.sentence : hint);
}

void MainWindow::GoTo(const Field& field) {
  LayersView* grid = layers_[desk_.station.s.Panel()]->view();
  if (IsScheduleRow(field.row()) && grid->GoTo(field)) return;
  const QString name = QString::fromStdString(NameOf(field));
  for (QWidget* widget : findChildren<QWidget*>(name)) {
    if (!widget->isVisibleTo(this)) continue;
    widget->setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<QLineEdit*>(widget)) edit->selectAll();
    return;
  }
}

void MainWindow::UseDark(bool dark) {
  desk_.theme.SetDark(dark);
  QApplication::setPalette(desk_.theme.Palette());
  QPalette bars = desk_.theme.Palette();
  bars.setColor(QPalette::Window, desk_.theme[Token::Bars]);
  menuBar()->setPalette(bars);
  menuBar()->setFont(desk_.theme.Font(13));
  desk_.binder.ShowEverything();
  for (QWidget* widget : findChildren<QWidget*>()) widget->update();
  update();
}

void MainWindow::Blink() {
  bool any = false;
  ForEachField(desk_.station.s, [&](const Field& field) {
    if (field.mark() != Mark::TooHigh) return;
    desk_.binder.Again(field);
    any = true;
  });
  if (!any) return;
  desk_.theme.TurnBlink();
  desk_.binder.Flush();
}

void MainWindow::ShowRowMenu(const QPoint& at) {
  if (desk_.station.s.mnuPopMenu.shown()) OpenRowMenu(*this, desk_, at);
}

void MainWindow::StorePlace() {
  if (!placed_) return;
  DesignState& s = desk_.station.s;
  s.meWasMaximized = isMaximized() ? "1" : "0";
  if (!isMaximized() && !isFullScreen()) {
    s.meWidth = std::to_string(width() * kTwipsPerPixel);
    s.meHeight = std::to_string(height() * kTwipsPerPixel);
    s.meLeft = std::to_string(x() * kTwipsPerPixel);
    s.meTop = std::to_string(y() * kTwipsPerPixel);
  }
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  // Columns and rail give way evenly to a narrow window.
  const int narrow = kNarrowRail + (kRail - kNarrowRail) * (width() - 1133) / (1280 - 1133);
  rail_->setFixedWidth(width() >= 1600 ? kWideRail : std::clamp(narrow, kNarrowRail, kRail));
  StorePlace();
  desk_.binder.Run("Form", Event::Resize);
}

void MainWindow::moveEvent(QMoveEvent* event) {
  QMainWindow::moveEvent(event);
  StorePlace();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  desk_.binder.Run("mnuQuit");
  event->setAccepted(desk_.station.ended);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls() && event->mimeData()->urls().first().isLocalFile())
    event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  const auto path = StationPath(event->mimeData()->urls().first().toLocalFile().toStdString());
  if (!path) {
    desk_.station.platform.messageBox.Show("Torvane Designer", path.reason(), BoxIcon::Stop);
    return;
  }
  desk_.binder.Do([&] { OpenNamedDesign(desk_.station, path.value()); });
}

void MainWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), desk_.theme[Token::Window]);
}

}  // namespace torvane
