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

// Null: a separator.
constexpr const char* kFile[] = {"mnuNewFile",
                                 "mnuOpenFile",
                                 "mnuSaveFile",
                                 "mnuSaveAsFile",
                                 nullptr,
                                 "mnuViewDesignFile",
                                 "mnuViewDesignDirectory",
                                 "mnuViewGCodeDirectory",
                                 nullptr,
                                 "mnuQuit"};
constexpr const char* kMachine[] = {"lblGoTrace", "lblHome", nullptr, "mnuManually", "mnuLaunchExecutor"};
constexpr const char* kBuild[] = {"mnuBeginWinding", "Command2", "mnuRefresh"};
constexpr const char* kSettings[] = {"mnuProperties", "mnuSpeeds", "mnuMachine"};
constexpr const char* kHelp[] = {"mnuVideo2AX", "mnuVideo4AX", nullptr, "mnuAbout"};

// The entry of a command, of a menu or of the whole window.
QAction* MakeAction(Desk desk, const char* control, QObject* parent) {
  const CommandWords words = desk.station.WordsOf(control);
  QString caption = Shown(words.caption);
  if (words.letter != 0) caption.insert(caption.indexOf(QLatin1Char(words.letter)), QLatin1Char('&'));
  auto* action = new QAction(caption, parent);
  action->setObjectName(QString::fromLatin1(control));
  action->setToolTip(Shown(words.sentence));
  action->setStatusTip(Shown(words.sentence));
  action->setShortcuts(QKeySequence::listFromString(Shown(words.keys)));
  action->setEnabled(desk.station.IsUsable(control));
  QObject::connect(action, &QAction::triggered, parent, [desk, control] { desk.binder.Run(control); });
  return action;
}

template <std::size_t count>
QMenu* AddMenu(QMainWindow& window, Desk desk, const char* title, const char* const (&controls)[count]) {
  QMenu* menu = window.menuBar()->addMenu(QString::fromLatin1(title));
  for (const char* control : controls) {
    if (control == nullptr)
      menu->addSeparator();
    else
      menu->addAction(MakeAction(desk, control, menu));
  }
  return menu;
}

void AddRowEntries(QMenu& menu, Desk desk) {
  for (const RowMenuEntry& entry : RowMenu(desk.station)) {
    if (entry.beginsGroup) menu.addSeparator();
    QAction* action = MakeAction(desk, entry.control.data(), &menu);
    action->setToolTip(PlainTip(Shown(entry.tip)));
    menu.addAction(action);
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

void AddEditMenu(QMainWindow& window, Desk desk) {
  // Keys of the whole window, so the actions outlive the menu that shows them.
  QAction* undo = MakeAction(desk, "mnuUndo", &window);
  QAction* redo = MakeAction(desk, "mnuRedo", &window);
  for (QAction* action : {undo, redo}) {
    action->setEnabled(true);
    window.addAction(action);
  }
  QMenu* edit = window.menuBar()->addMenu(QStringLiteral("&Edit"));
  QObject::connect(edit, &QMenu::aboutToShow, edit, [edit, undo, redo, desk] {
    edit->clear();
    AddRowEntries(*edit, desk);
    QAction* first = edit->actions().front();
    edit->insertAction(first, undo);
    edit->insertAction(first, redo);
    edit->insertSeparator(first);
    undo->setEnabled(desk.station.IsUsable("mnuUndo"));
    redo->setEnabled(desk.station.IsUsable("mnuRedo"));
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
  AddMenu(window, desk, "&Help", kHelp)->setObjectName(QStringLiteral("menuHelp"));
}

void OpenRowMenu(QWidget& parent, Desk desk, const QPoint& at) {
  QMenu menu(&parent);
  menu.setObjectName(QStringLiteral("mnuPopMenu"));
  AddRowEntries(menu, desk);
  menu.exec(at);
  desk.binder.Do([&] { CloseRowMenu(desk.station); });
}

}  // namespace torvane
