#include "window/frame/view_menu.h"

#include <QActionGroup>
#include <QMenu>

#include "look/text.h"
#include "window/cover/part_switch.h"

namespace torvane {

namespace {

QAction* AddSwitch(QMenu& menu, const QString& caption, const QString& name, const QString& tip) {
  QAction* action = menu.addAction(caption);
  action->setObjectName(name);
  action->setCheckable(true);
  action->setToolTip(tip);
  return action;
}

// What the drawing of the part shows.
void AddPartViews(QMenu& menu, const Desk& desk) {
  constexpr struct {
    PartShows shows;
    const char *caption, *name, *keys;
  } kViews[] = {{PartShows::Pattern, "Part: Pa&ttern", "viewPattern", "Ctrl+1"},
                {PartShows::Coverage, "Part: &Coverage", "viewCoverage", "Ctrl+2"},
                {PartShows::Thickness, "Part: T&hickness", "viewThickness", "Ctrl+3"}};
  auto* group = new QActionGroup(&menu);
  for (const auto& view : kViews) {
    QAction* action = AddSwitch(menu, QString::fromLatin1(view.caption), QString::fromLatin1(view.name),
                                QStringLiteral("What the drawing of a two-axis part shows."));
    action->setShortcut(QKeySequence(QString::fromLatin1(view.keys)));
    group->addAction(action);
    QObject::connect(action, &QAction::triggered, &menu, [desk, shows = view.shows] {
      PartView now = desk.live->view();
      now.shows = shows;
      ShowPart(desk, now);
    });
    desk.binder.BindAll(
        action, [action, desk, shows = view.shows] { action->setChecked(desk.live->view().shows == shows); });
  }
  menu.addSeparator();
}

QAction* AddCommand(QMenu& menu, const char* caption, const char* name, const char* keys, const char* tip) {
  QAction* action = menu.addAction(QString::fromLatin1(caption));
  action->setObjectName(QString::fromLatin1(name));
  action->setShortcut(QKeySequence(QString::fromLatin1(keys)));
  action->setToolTip(QString::fromLatin1(tip));
  return action;
}

}  // namespace

void FillViewMenu(QMenu& menu, Desk desk, const ViewChoices& choices) {
  menu.setToolTipsVisible(true);
  QAction* large = AddSwitch(menu, QStringLiteral("&Large Figures"), QStringLiteral("viewLargeFigures"),
                             QStringLiteral("Figures that can be read from the machine."));
  large->setShortcut(QKeySequence(QStringLiteral("Ctrl+L")));
  QObject::connect(large, &QAction::triggered, &menu, [choices](bool on) { choices.largeFigures(on); });
  desk.binder.BindAll(large, [large, desk] { large->setChecked(desk.theme.large()); });

  const CommandWords words = desk.station.WordsOf("mnuAllRows");
  QAction* rows = AddSwitch(menu, QStringLiteral("&") + Shown(words.caption), QStringLiteral("mnuAllRows"),
                            Shown(words.sentence));
  QObject::connect(rows, &QAction::triggered, &menu, [desk] { desk.binder.Run("mnuAllRows"); });
  desk.binder.BindAll(rows, [rows, desk] {
    rows->setEnabled(desk.station.IsUsable("mnuAllRows"));
    rows->setChecked(desk.station.allRowsShown);
  });

  if (desk.live != nullptr) AddPartViews(menu, desk);
  QObject::connect(
      AddCommand(menu, "P&roof", "viewProof", "Ctrl+P", "What the program would do, and what mends it."),
      &QAction::triggered, &menu, [choices] { choices.proof(); });
  QObject::connect(
      AddCommand(menu, "&Next Finding", "nextFinding", "F8", "Goes to what is to be looked at next."),
      &QAction::triggered, &menu, [choices] { choices.nextFinding(); });
  menu.addSeparator();

  QMenu* looks = menu.addMenu(QStringLiteral("A&ppearance"));
  auto* group = new QActionGroup(looks);
  constexpr struct {
    Appearance appearance;
    const char *caption, *name;
  } kLooks[] = {{Appearance::System, "&System", "appearanceSystem"},
                {Appearance::Light, "&Light", "appearanceLight"},
                {Appearance::Dark, "&Dark", "appearanceDark"}};
  for (const auto& look : kLooks) {
    QAction* action = looks->addAction(QString::fromLatin1(look.caption));
    action->setObjectName(QString::fromLatin1(look.name));
    action->setCheckable(true);
    action->setChecked(StoredAppearance(desk.station.platform.store) == look.appearance);
    group->addAction(action);
    QObject::connect(action, &QAction::triggered, looks,
                     [choices, appearance = look.appearance] { choices.appearance(appearance); });
  }
}

}  // namespace torvane
