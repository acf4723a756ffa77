#include "window/frame/menus.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QWhatsThis>

#include "look/text.h"
#include "text/text.h"
#include "workbench/document/recent_files.h"
#include "workbench/schedule/row_menu.h"

namespace torvane {

namespace {

struct Entry {
  const char* caption;  // null: a separator
  const char* control;
  const char* keys;
};

constexpr Entry kFile[] = {{"&New", "mnuNewFile", "Ctrl+N"},
                           {"&Open...", "mnuOpenFile", "Ctrl+O"},
                           {"&Save...", "mnuSaveFile", "Ctrl+S"},
                           {"Save &As...", "mnuSaveAsFile", "Ctrl+Shift+S"},
                           {nullptr, nullptr, nullptr},
                           {"View Design &File", "mnuViewDesignFile", ""},
                           {"View &Design Folder", "mnuViewDesignDirectory", ""},
                           {"View &G-Code Folder", "mnuViewGCodeDirectory", ""},
                           {nullptr, nullptr, nullptr},
                           {"&Quit", "mnuQuit", "Ctrl+Q"}};
constexpr Entry kMachine[] = {{"&Trace", "lblGoTrace", ""},
                              {"&Go Home", "lblHome", ""},
                              {nullptr, nullptr, nullptr},
                              {"Operate Torvane &Manually", "mnuManually", ""},
                              {"&Launch Executor w/o G-Code", "mnuLaunchExecutor", ""}};
constexpr Entry kBuild[] = {{"&Begin Build Process w/G-Code", "mnuBeginWinding", "F9"},
                            {"&View G-Code", "Command2", ""},
                            {"&ReCalc All Rows", "mnuRefresh", "F5"}};
constexpr Entry kHelp[] = {{"&2-Axis Software Overview", "mnuVideo2AX", ""},
                           {"&4-Axis Software Overview", "mnuVideo4AX", ""},
                           {nullptr, nullptr, nullptr},
                           {"&About Torvane Designer", "mnuAbout", ""}};
constexpr Entry kSettings[] = {{"&Settings...", "mnuProperties", ""},
                               {"S&peeds...", "mnuSpeeds", ""},
                               {"&Machine...", "mnuMachine", ""}};

QAction* Add(QMenu& menu, Desk desk, const Entry& entry) {
  if (entry.caption == nullptr) return menu.addSeparator();
  QAction* action = menu.addAction(QString::fromLatin1(entry.caption));
  action->setObjectName(QString::fromLatin1(entry.control));
  if (*entry.keys != '\0') action->setShortcut(QKeySequence(QString::fromLatin1(entry.keys)));
  QObject::connect(action, &QAction::triggered, &menu,
                   [desk, control = entry.control] { desk.binder.Run(control); });
  return action;
}

template <std::size_t count>
QMenu* AddMenu(QMainWindow& window, Desk desk, const char* title, const Entry (&entries)[count]) {
  QMenu* menu = window.menuBar()->addMenu(QString::fromLatin1(title));
  for (const Entry& entry : entries) Add(*menu, desk, entry);
  return menu;
}

void AddRowEntries(QMenu& menu, Desk desk) {
  for (const RowMenuEntry& entry : RowMenu(desk.station.s)) {
    if (entry.beginsGroup) menu.addSeparator();
    QAction* action = menu.addAction(Shown(entry.caption));
    action->setObjectName(Shown(entry.control));
    action->setEnabled(entry.usable);
    if (!entry.tip.empty()) action->setToolTip(PlainTip(Shown(entry.tip)));
    QObject::connect(action, &QAction::triggered, &menu,
                     [desk, control = entry.control] { desk.binder.Run(control); });
    // The station does nothing at it; the next click tells what it hits.
    if (action->objectName() == QStringLiteral("mnuWhatsThis"))
      QObject::connect(action, &QAction::triggered, &menu, [] { QWhatsThis::enterWhatsThisMode(); });
  }
  menu.setToolTipsVisible(true);
}

// The designs last opened or saved, as they stand when the menu opens.
void AddRecentFiles(QMenu& file, Desk desk) {
  auto* recent = new QMenu(QStringLiteral("Open &Recent"), &file);
  recent->setObjectName(QStringLiteral("mnuRecent"));
  recent->setToolTipsVisible(true);
  QAction* save = file.findChild<QAction*>(QStringLiteral("mnuSaveFile"));
  file.insertMenu(save, recent);
  QObject::connect(&file, &QMenu::aboutToShow, recent, [recent, desk] {
    recent->clear();
    int place = 0;
    for (const std::string& path : RecentFiles(desk.station.platform.store)) {
      ++place;
      QString name = Shown(BehindLastBackslash(path));
      name.replace(QLatin1Char('&'), QStringLiteral("&&"));
      QAction* action = recent->addAction(QStringLiteral("&%1  %2").arg(place).arg(name));
      action->setToolTip(PlainTip(Shown(path)));
      QObject::connect(action, &QAction::triggered, recent,
                       [desk, place] { desk.binder.Run("mnuRecent", Event::Click, place); });
    }
    recent->setEnabled(place > 0);
  });
}

// Keys of the whole window, so the action outlives the menu that shows it.
QAction* AddHistoryEntry(QMainWindow& window, Desk desk, const Entry& entry) {
  auto* action = new QAction(QString::fromLatin1(entry.caption), &window);
  action->setObjectName(QString::fromLatin1(entry.control));
  action->setShortcut(QKeySequence(QString::fromLatin1(entry.keys)));
  QObject::connect(action, &QAction::triggered, &window,
                   [desk, control = entry.control] { desk.binder.Run(control); });
  window.addAction(action);
  return action;
}

void AddEditMenu(QMainWindow& window, Desk desk) {
  QAction* undo = AddHistoryEntry(window, desk, {"&Undo", "mnuUndo", "Ctrl+Z"});
  QAction* redo = AddHistoryEntry(window, desk, {"&Redo", "mnuRedo", "Ctrl+Shift+Z"});
  redo->setShortcuts({redo->shortcut(), QKeySequence(QStringLiteral("Ctrl+Y"))});
  QMenu* edit = window.menuBar()->addMenu(QStringLiteral("&Edit"));
  QObject::connect(edit, &QMenu::aboutToShow, edit, [edit, undo, redo, desk] {
    edit->clear();
    AddRowEntries(*edit, desk);
    QAction* first = edit->actions().front();
    edit->insertAction(first, undo);
    edit->insertAction(first, redo);
    edit->insertSeparator(first);
    undo->setEnabled(desk.station.CanUndo());
    redo->setEnabled(desk.station.CanRedo());
  });
  QObject::connect(edit, &QMenu::aboutToHide, edit, [undo, redo] {
    undo->setEnabled(true);
    redo->setEnabled(true);
  });
}

}  // namespace

void AddMenus(QMainWindow& window, Desk desk, const std::function<void(QMenu& view)>& fillView) {
  AddRecentFiles(*AddMenu(window, desk, "&File", kFile), desk);
  AddEditMenu(window, desk);
  fillView(*window.menuBar()->addMenu(QStringLiteral("&View")));
  AddMenu(window, desk, "&Machine", kMachine);
  AddMenu(window, desk, "&Build", kBuild);
  AddMenu(window, desk, "&Settings", kSettings);
  AddMenu(window, desk, "&Help", kHelp);
}

void OpenRowMenu(QWidget& parent, Desk desk, const QPoint& at) {
  QMenu menu(&parent);
  menu.setObjectName(QStringLiteral("mnuPopMenu"));
  AddRowEntries(menu, desk);
  menu.exec(at);
  desk.binder.Do([&] { CloseRowMenu(desk.station); });
}

}  // namespace torvane
