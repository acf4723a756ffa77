#include "window/frame/view_menu.h"

#include <QActionGroup>
#include <QMenu>

#include "look/text.h"

namespace torvane {

namespace {

QAction* AddSwitch(QMenu& menu, const QString& caption, const QString& name, const QString& tip) {
  QAction* action = menu.addAction(caption);
  action->setObjectName(name);
  action->setCheckable(true);
  action->setToolTip(tip);
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
