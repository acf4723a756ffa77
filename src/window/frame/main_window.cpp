#include "window/frame/main_window.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QShortcut>
#include <QStackedWidget>
#include <QTimer>

#include "design/catalogue.h"
#include "look/text.h"
#include "window/field/button.h"
#include "window/field/field_widgets.h"
#include "window/field/help.h"
#include "window/frame/folded_bar.h"
#include "window/frame/menus.h"
#include "window/frame/status_line.h"
#include "window/frame/stored_place.h"
#include "window/frame/tool_bar.h"
#include "window/frame/view_menu.h"
#include "window/grid/layers_panel.h"
#include "window/part/part_panel.h"
#include "window/rail/build_button.h"
#include "window/rail/checklist_panel.h"
#include "window/rail/polar_panel.h"
#include "window/rail/proof_panel.h"
#include "window/rail/totals_panel.h"
#include "workbench/document/design_commands.h"
#include "workbench/schedule/totals.h"
#include "workbench/station/number_hint.h"

namespace torvane {

namespace {

// Width of the rail at 1280, as far as it gives way, and from 1600 on.
constexpr int kRail = 326, kNarrowRail = 324, kWideRail = 380;
constexpr int kLargeRail = 370, kNarrowLargeRail = 250;
constexpr int kGap = 8;
constexpr int kProof = 264;  // height of the proof above the folded rail
// Pages of the totals.
constexpr int kEndView = 2, kLargeTotals = 3;

}  // namespace

MainWindow::MainWindow(Desk desk) : desk_(desk), appearance_(StoredAppearance(desk.station.platform.store)) {
  setObjectName(QStringLiteral("frmMain"));
  setMinimumSize(kLeastWindow);
  AddMenus(*this, desk, [this](QMenu& view) {
    FillViewMenu(
        view, desk_,
        {[this](bool large) { UseLargeFigures(large); }, [this](Appearance appearance) { Use(appearance); },
         [this] { ShowProof(); }, [this] { marks_->GoToNext(); }});
  });
  // The keys of the menu bar work where large figures leave it out.
  for (QAction* action : menuBar()->findChildren<QAction*>())
    if (!action->shortcut().isEmpty()) addAction(action);
  auto* centre = new QWidget(this);
  auto* rows = new QVBoxLayout(centre);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  tools_ = new ToolBar(desk, centre);
  tools_->smallFigures = [this] { UseLargeFigures(false); };
  rows->addWidget(tools_);
  auto* body = new QHBoxLayout;
  body->setContentsMargins(kGap, kGap, kGap, kGap);
  body->setSpacing(kGap);
  body->addWidget(MakeDesign(), 1);
  body->addWidget(MakeRail());
  rows->addLayout(body, 1);
  barRow_ = new QHBoxLayout;
  bar_ = new FoldedBar(desk, centre);
  connect(bar_->checklist(), &QAbstractButton::clicked, this,
          [this] { OpenFolded(folded_ == checklist_ ? nullptr : checklist_); });
  connect(bar_->proof(), &QAbstractButton::clicked, this, [this] { ShowProof(); });
  barRow_->addWidget(bar_);
  rows->addLayout(barRow_);
  status_ = new StatusLine(desk, centre);
  rows->addWidget(status_);
  setCentralWidget(centre);
  UseDark(desk.theme.dark());
  TakeStoredPlace(*this, desk.station.s);
  placed_ = true;
  desk.binder.focusMoved = [this](const Field& field) { GoTo(field); };
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { FollowFocus(now); });
  auto* blink = new QTimer(this);
  connect(blink, &QTimer::timeout, this, [this] { Blink(); });
  blink->start(500);
  desk.binder.BindAll(this, [this] { FollowState(); });
  MoveRail(arrangement_);
  Arrange();
}

QWidget* MainWindow::MakeDesign() {
  families_ = new QStackedWidget(this);
  for (int panel = 0; panel <= 1; ++panel) {
    auto* page = new QWidget(families_);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    parts_[panel] = new PartPanel(desk_, panel, page);
    column->addWidget(parts_[panel], 0);
    layers_[panel] = new LayersPanel(desk_, panel == 1 ? Family::FourAxes : Family::TwoAxes, page);
    layers_[panel]->view()->menuWanted = [this](const QPoint& at) { ShowRowMenu(at); };
    layers_[panel]->view()->arrivedAt = [this](const Field& field) {
      described_ = &field;
      Describe(field);
    };
    column->addWidget(layers_[panel], 1);
    families_->addWidget(page);
  }
  return families_;
}

QWidget* MainWindow::MakeRail() {
  rail_ = new QWidget(this);
  railColumn_ = new QVBoxLayout(rail_);
  railColumn_->setContentsMargins(0, 0, 0, 0);
  railColumn_->setSpacing(kGap);
  totals_ = new QStackedWidget(rail_);
  totals_->addWidget(new TotalsPanel(desk_, Family::TwoAxes));
  totals_->addWidget(new TotalsPanel(desk_, Family::FourAxes));
  totals_->addWidget(new PolarPanel(desk_));
  totals_->addWidget(new LargeTotals(desk_));
  checklist_ = new ChecklistPanel(desk_);
  checklist_->setObjectName(QStringLiteral("checklist"));
  checklist_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  marks_ = new ProofPanel(desk_);
  for (QWidget* panel : {static_cast<QWidget*>(checklist_), static_cast<QWidget*>(marks_)})
    new QShortcut(
        QKeySequence(Qt::Key_Escape), panel, this, [this] { CloseFolded(); }, Qt::WidgetWithChildrenShortcut);
  marks_->goTo = [this](const Field& field) { GoTo(field); };
  build_ = new BuildButton(desk_);
  blank_ = new QSpacerItem(0, 0);
  railColumn_->addItem(blank_);
  return rail_;
}

// One chain for both families: what the other family's page hides is passed by.
void MainWindow::OrderTabs() {
  std::vector<QWidget*> order;
  for (int panel = 0; panel <= 1; ++panel) {
    const auto add = [&](const std::vector<QWidget*>& stops) {
      order.insert(order.end(), stops.begin(), stops.end());
    };
    add(parts_[panel]->stops());
    order.push_back(layers_[panel]->view());
    add(parts_[panel]->laterStops());
  }
  if (arrangement_ == Arrangement::Folded) order.insert(order.end(), {bar_->proof(), bar_->checklist()});
  order.insert(order.end(), checklist_->stops().begin(), checklist_->stops().end());
  order.insert(order.end(), {marks_->spools(), marks_->stop()});
  order.push_back(build_);
  for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void MainWindow::MoveRail(Arrangement arrangement) {
  const bool folded = arrangement == Arrangement::Folded, large = arrangement == Arrangement::Large;
  OpenFolded(nullptr);
  // What is hidden hands the keys on to whatever comes next, and that could be a tool that moves the machine.
  const QWidget* focus = focusWidget();
  if (focus != nullptr && focus->isVisible() && (large || checklist_->isAncestorOf(focus)))
    layers_[desk_.station.s.Panel()]->view()->setFocus();
  railColumn_->addWidget(totals_, large ? 10 : 6);
  if (folded) {
    railColumn_->removeWidget(checklist_);
    checklist_->setParent(centralWidget());
    checklist_->hide();
    railColumn_->removeWidget(marks_);
    marks_->setParent(centralWidget());
    marks_->hide();
    bar_->Take(build_);
  } else {
    railColumn_->addWidget(checklist_);
    railColumn_->addWidget(marks_, 1);
    // Where the marks are left out, blank ground takes what nothing else needs.
    blank_->changeSize(0, 0, QSizePolicy::Minimum, large ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    railColumn_->removeItem(blank_);
    railColumn_->addItem(blank_);
    railColumn_->addWidget(build_);
    build_->setMinimumWidth(0);
    build_->setMaximumWidth(QWIDGETSIZE_MAX);
    build_->setFixedHeight(large ? 138 : 62);
    checklist_->show();
  }
  build_->show();
  checklist_->Arrange(arrangement);
  rail_->setVisible(!folded);
  bar_->setVisible(folded);
  barRow_->setContentsMargins(kGap, 0, kGap, folded ? kGap : 0);
  status_->setVisible(!large);
  menuBar()->setVisible(!large);
  tools_->Arrange(arrangement);
  for (LayersPanel* layers : layers_) layers->Arrange(arrangement);
  OrderTabs();
}

void MainWindow::Arrange() {
  const Arrangement arrangement = ArrangementOf(size(), desk_.theme.large());
  if (arrangement != arrangement_) {
    arrangement_ = arrangement;
    MoveRail(arrangement);
    FollowState();
  }
  const bool large = arrangement == Arrangement::Large;
  // Columns and rail give way evenly to a narrow window.
  const int narrow = kNarrowRail + (kRail - kNarrowRail) * (width() - 1100) / (1280 - 1100);
  int rail = width() >= 1600 ? kWideRail : std::clamp(narrow, kNarrowRail, kRail);
  if (large) rail = std::clamp(width() * 29 / 100, kNarrowLargeRail, kLargeRail);
  rail_->setFixedWidth(rail);
  // In a low window of large figures time, marks and Build are left.
  if (large) checklist_->setVisible(height() >= 700);
  if (arrangement != Arrangement::Folded)
    marks_->setVisible(!large || checklist_->isHidden() || height() >= 780);
  const int bars = tools_->height() + (large ? 0 : menuBar()->sizeHint().height() + status_->height());
  const QSize column(width() - 2 * kGap - (arrangement == Arrangement::Folded ? 0 : rail + kGap),
                     height() - bars - 2 * kGap - (bar_->isHidden() ? 0 : bar_->height() + kGap));
  for (PartPanel* part : parts_) part->Arrange(arrangement, column);
  centralWidget()->layout()->activate();
  PlaceFolded();
}

void MainWindow::PlaceFolded() {
  if (folded_ == nullptr) return;
  const bool proof = folded_ == marks_;
  const QSize size = proof ? QSize(kRail, std::min(kProof, bar_->y() - 2 * kGap))
                           : folded_->sizeHint().expandedTo({kRail, 0});
  const int right = proof ? bar_->x() + bar_->proof()->geometry().right() : centralWidget()->width() - kGap;
  folded_->setGeometry(
      {{std::max(kGap, right - size.width()), std::max(0, bar_->y() - kGap - size.height())}, size});
  folded_->raise();
}

void MainWindow::OpenFolded(QWidget* panel) {
  if (panel == folded_) return;
  QWidget* const former = std::exchange(folded_, panel);
  if (panel != nullptr) {
    panel->show();
    PlaceFolded();
    (panel == marks_ ? marks_->stop() : checklist_->stops().front())->setFocus(Qt::TabFocusReason);
  }
  // Last: what hides hands the keys on, and they are to be in the other one by then.
  if (former != nullptr) former->setVisible(arrangement_ != Arrangement::Folded);
}

void MainWindow::CloseFolded() {
  const QWidget* panel = folded_;
  OpenFolded(nullptr);
  if (panel != nullptr) (panel == marks_ ? bar_->proof() : bar_->checklist())->setFocus();
}

void MainWindow::ShowProof() {
  if (arrangement_ == Arrangement::Folded)
    OpenFolded(folded_ == marks_ ? nullptr : marks_);
  else if (marks_->isVisible())
    marks_->stop()->setFocus(Qt::ShortcutFocusReason);
}

void MainWindow::UseLargeFigures(bool large) {
  if (large == desk_.theme.large()) return;
  if (large) focusOfSmall_ = focusWidget();
  desk_.theme.SetLarge(large);
  Arrange();
  UseDark(desk_.theme.dark());
  if (!large && focusOfSmall_ != nullptr) focusOfSmall_->setFocus();
}

void MainWindow::FollowState() {
  const DesignState& s = desk_.station.s;
  families_->setCurrentIndex(s.Panel());
  int page = s.Panel();
  if (ShowsEndView(s)) page = kEndView;
  if (desk_.theme.large()) page = kLargeTotals;
  totals_->setCurrentIndex(page);
  const int highest[] = {206, 240, 316, 330};
  totals_->setMaximumHeight(highest[page]);
  setWindowTitle(Shown(s.frmMain.caption()).trimmed() + QStringLiteral("[*]"));
  setWindowModified(s.gDirty);
  setVisible(s.frmMain.shown() && !desk_.station.ended);
  if (described_ != nullptr) Describe(*described_);
}

void MainWindow::FollowFocus(QWidget* now) {
  const Field* field = nullptr;
  // What stands open in a small window closes when the keys go elsewhere.
  if (folded_ != nullptr && now != nullptr && isAncestorOf(now) && !folded_->isAncestorOf(now) &&
      now != bar_->checklist() && now != bar_->proof())
    OpenFolded(nullptr);
  if (now != nullptr && isAncestorOf(now))
    field = FindField(desk_.station.s, now->objectName().toStdString());
  if (field != nullptr) {
    described_ = field;
    Describe(*field);
  } else if (now != nullptr && isAncestorOf(now) && !now->statusTip().isEmpty()) {
    described_ = nullptr;
    status_->Describe(now->accessibleName(), now->statusTip());
  }
}

// What a typed number reads as goes before what its field is for.
void MainWindow::Describe(const Field& field) {
  const Help help = HelpOf(field);
  const QString hint = Shown(NumberHint(field, desk_.station.s.signs));
  status_->Describe(help.name, hint.isEmpty() ? help.sentence : hint);
}

void MainWindow::GoTo(const Field& field) {
  DesignState& s = desk_.station.s;
  // It stands in the settings, on the tab of the family.
  if (&field == &s.gCarriageOffsetFromRMPFace) {
    desk_.binder.Run(s.gShow4Axis ? "Label9" : "Label10");
    return;
  }
  LayersView* grid = layers_[desk_.station.s.Panel()]->view();
  if (IsScheduleRow(field.row()) && grid->GoTo(field)) return;
  const QString name = QString::fromStdString(NameOf(field));
  for (QWidget* widget : findChildren<QWidget*>(name)) {
    parts_[desk_.station.s.Panel()]->Reveal(*widget);
    if (arrangement_ == Arrangement::Folded && checklist_->isAncestorOf(widget)) OpenFolded(checklist_);
    if (!widget->isVisibleTo(this)) continue;
    widget->setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<QLineEdit*>(widget)) edit->selectAll();
    return;
  }
}

void MainWindow::Use(Appearance appearance) {
  appearance_ = appearance;
  StoreAppearance(desk_.station.platform.store, appearance);
  UseDark(IsDark(appearance));
}

bool MainWindow::event(QEvent* event) {
  // The desktop has another palette.
  if (event->type() == QEvent::ThemeChange && appearance_ == Appearance::System)
    UseDark(IsDark(Appearance::System));
  return QMainWindow::event(event);
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

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (placed_) {
    Arrange();
    StorePlace(*this, desk_.station.s);
  }
  desk_.binder.Run("Form", Event::Resize);
}

void MainWindow::moveEvent(QMoveEvent* event) {
  QMainWindow::moveEvent(event);
  if (placed_) StorePlace(*this, desk_.station.s);
}

// What no widget has taken is a click on the background.
void MainWindow::mouseReleaseEvent(QMouseEvent* event) {
  QMainWindow::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton) desk_.binder.Run("Form", Event::Click);
}

// Its widgets take the focus from each other while they go.
MainWindow::~MainWindow() {
  disconnect(qApp, nullptr, this, nullptr);
  desk_.binder.focusMoved = nullptr;
}

void MainWindow::closeEvent(QCloseEvent* event) {
  desk_.binder.Run("mnuQuit");
  event->setAccepted(desk_.station.ended);
}

void MainWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), desk_.theme[Token::Window]);
}

}  // namespace torvane
