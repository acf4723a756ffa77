// Every field of the station is bound once, every control has its name, and the keyboard reaches the fields
// in their order.
#include <QAbstractButton>
#include <QAccessible>
#include <QMenu>
#include <QRegularExpression>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <set>

#include "design/catalogue.h"
#include "look/text.h"
#include "on_stage.h"
#include "window/field/field_widgets.h"
#include "window/field/help.h"
#include "window/field/segments.h"
#include "window/field/stepper.h"
#include "workbench/build/marks.h"
#include "workbench/dialog/links.h"
#include "workbench/dialog/machine_dialog.h"
#include "workbench/dialog/preview.h"
#include "workbench/document/design_commands.h"
#include "workbench/schedule/grids.h"
#include "workbench/schedule/row_menu.h"

namespace torvane {

namespace {

// A row of the table of names.
struct Named {
  QString name, window, where, kind;
};

std::vector<Named> TableOfNames() {
  QFile file(QStringLiteral(SOURCE_FOLDER "/docs/window-names.md"));
  if (!file.open(QIODevice::ReadOnly)) qFatal("no table");
  static const QRegularExpression row(
      QStringLiteral("^\\| `([^`]+)` \\| ([^|]*) \\| `([^`]+)` \\| (.*) \\| ([a-z -]+) \\|$"));
  std::vector<Named> names;
  for (const QString& line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
    const auto match = row.match(line);
    if (!match.hasMatch()) continue;
    const QString index = match.captured(2).trimmed();
    Named named{match.captured(1), match.captured(3), match.captured(4), match.captured(5)};
    if (index.isEmpty()) {
      names.push_back(named);
      continue;
    }
    const QStringList ends = index.split(QStringLiteral(" to "));
    for (int i = ends.first().toInt(); i <= ends.last().toInt(); ++i) {
      names.push_back(named);
      names.back().name += QStringLiteral("(%1)").arg(i);
    }
  }
  return names;
}

// How often a field is bound: widgets of its name in the main window, and cells of both grids.
int Bound(const WindowOnStage& station, const Field& field) {
  const QString name = QString::fromStdString(NameOf(field));
  int count = 0;
  for (const QWidget* widget : station.program->mainWindow().findChildren<QWidget*>(name)) {
    const bool shows = dynamic_cast<const FieldEdit*>(widget) || dynamic_cast<const FieldList*>(widget) ||
                       dynamic_cast<const FieldCheck*>(widget) || dynamic_cast<const ReadOut*>(widget) ||
                       dynamic_cast<const ChoiceSegments*>(widget) || field.row().kind == Kind::Option;
    count += shows ? 1 : 0;
  }
  for (auto* grid : station.program->mainWindow().findChildren<QTableView*>()) {
    const auto* model = dynamic_cast<LayersModel*>(grid->model());
    for (int column = 0; model != nullptr && column < model->columnCount(); ++column) {
      const auto cells = model->Column(column).cells;
      if (cells == nullptr) continue;
      for (int layer = 1; layer <= 15; ++layer)
        if (&(station.program->station().s.*cells)(layer) == &field) ++count;
    }
  }
  return count;
}

bool IsKind(const QWidget& widget, const QString& kind) {
  if (kind == QStringLiteral("input")) return dynamic_cast<const FieldEdit*>(&widget) != nullptr;
  if (kind == QStringLiteral("list")) return dynamic_cast<const FieldList*>(&widget) != nullptr;
  if (kind == QStringLiteral("switch")) return dynamic_cast<const ChoiceSegments*>(&widget) != nullptr;
  if (kind == QStringLiteral("read-out")) return dynamic_cast<const ReadOut*>(&widget) != nullptr;
  if (kind == QStringLiteral("grid")) return qobject_cast<const QTableView*>(&widget) != nullptr;
  if (kind == QStringLiteral("check box")) {
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    return button != nullptr && button->isCheckable();
  }
  if (kind == QStringLiteral("button")) return qobject_cast<const QAbstractButton*>(&widget) != nullptr;
  if (kind == QStringLiteral("window")) return widget.isWindow();
  return true;
}

}  // namespace

class NamesInWindow : public QObject {
  Q_OBJECT

 private slots:
  void EveryFieldIsBoundOnce();
  void EveryControlStandsWhereTheTableSays();
  void TheTableKnowsEveryFieldOfTheStation();
  void TabGoesInTheOrderOfTheWork_data();
  void TabGoesInTheOrderOfTheWork();
  void TabGoesCellByCell();
  void EveryStopHasAName();
  void EveryFieldIsSpokenWithItsUnitAndMark();
  void KeysReachEveryControl_data();
  void KeysReachEveryControl();
  void TipsShowTextsAsTheyStand();
};

void NamesInWindow::EveryFieldIsBoundOnce() {
  WindowOnStage station;
  // Fields that no widget of their own shows: the table says why, and what shows them instead.
  std::set<std::string> elsewhere;
  for (const Named& named : TableOfNames())
    if (named.kind == QStringLiteral("painted") || named.kind == QStringLiteral("no place"))
      elsewhere.insert(named.name.toStdString());
  QStringList wrong;
  ForEachField(station.s(), [&](const Field& field) {
    const FieldRow& row = field.row();
    const std::string name = NameOf(field);
    const bool shown = row.kind == Kind::Text || row.kind == Kind::List || row.kind == Kind::Check ||
                       row.kind == Kind::ReadOut || row.kind == Kind::Option;
    // A schedule has 15 rows; those behind them and the all-rows fields have no cells.
    if (!shown || (IsScheduleRow(row) && field.index() > 15)) return;
    const int bound = Bound(station, field);
    // The start card stands in both families' grids.
    const int wanted = elsewhere.contains(name) ? 0 : name == "chkDontShowVideoLinks" ? 2 : 1;
    if (bound != wanted) wrong << QStringLiteral("%1: %2").arg(QString::fromStdString(name)).arg(bound);
  });
  QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QStringLiteral(", "))));
}

void NamesInWindow::EveryControlStandsWhereTheTableSays() {
  WindowOnStage station(StoreEntries{{"mnu2Axis", "0"}});
  station.stage.files.Put(std::string(kDesigns) + "Vessel.t4d", [] {
    QFile sample(QStringLiteral(SOURCE_FOLDER "/samples/Hemi-Vessel-150mm.t4d"));
    return sample.open(QIODevice::ReadOnly) ? sample.readAll().toStdString() : std::string();
  }());
  station.program->binder().Do([&] {
    OpenDesign(station.station(), std::string(kDesigns) + "Vessel.t4d");
    ShowPreviewOfRow(station.station(), 1);
    OpenPicture(station.station());
  });
  for (const char* control : {"mnuAbout", "mnuProperties", "mnuMachine"})
    station.program->binder().Run(control);
  MessageWindow message(station.theme, ViewOf({"Question", 1, false, false, true, {}}), {}, nullptr);
  const auto windowOf = [&](const QString& name) -> QWidget* {
    if (name == QStringLiteral("frmMain")) return &station.window();
    if (name == QStringLiteral("message")) return &message;
    for (QWidget* top : QApplication::topLevelWidgets())
      if (top->objectName() == name) return top;
    return nullptr;
  };
  const auto find = [&](QWidget& window, const QString& name) -> QWidget* {
    return window.objectName() == name ? &window : window.findChild<QWidget*>(name);
  };
  static const QRegularExpression host(QStringLiteral("`([^`]+)`"));
  QStringList wrong;
  for (const Named& named : TableOfNames()) {
    QWidget* window = windowOf(named.window);
    bool good = window != nullptr;
    if (good && named.kind == QStringLiteral("menu")) {
      good = window->findChild<QAction*>(named.name) != nullptr;
    } else if (good && named.kind == QStringLiteral("painted")) {
      const QString shownBy = host.match(named.where).captured(1);
      good = find(*window, shownBy) != nullptr || window->findChild<QAction*>(shownBy) != nullptr;
    } else if (good && named.kind == QStringLiteral("cell")) {
      const Field* field = FindField(station.s(), named.name.toStdString());
      good = field != nullptr && Bound(station, *field) == 1;
    } else if (good && named.kind == QStringLiteral("row menu")) {
      const auto entries = RowMenu(station.station());
      good = named.name == QStringLiteral("mnuPopMenu") ||
             std::any_of(entries.begin(), entries.end(),
                         [&](const RowMenuEntry& entry) { return Shown(entry.control) == named.name; });
    } else if (good && named.kind != QStringLiteral("no place")) {
      QWidget* widget = find(*window, named.name);
      good = widget != nullptr && IsKind(*widget, named.kind);
    }
    if (!good)
      wrong << named.window + QLatin1Char('.') + named.name + QStringLiteral(" (") + named.kind +
                   QLatin1Char(')');
  }
  QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QStringLiteral(", "))));
}

void NamesInWindow::TheTableKnowsEveryFieldOfTheStation() {
  std::set<QString> known;
  for (const Named& named : TableOfNames()) known.insert(named.name);
  WindowOnStage station;
  QStringList missing;
  ForEachField(station.s(), [&](const Field& field) {
    if (field.row().kind == Kind::Value || (IsScheduleRow(field.row()) && field.index() > 15)) return;
    const QString name = QString::fromStdString(NameOf(field));
    if (!known.contains(name)) missing << name;
  });
  for (const RowMenuEntry& entry : RowMenu(station.station()))
    if (!known.contains(Shown(entry.control))) missing << Shown(entry.control);
  for (const MachineLine& line : MachineLines())
    if (const QString name = QString::fromStdString(line.field); !known.contains(name)) missing << name;
  QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QStringLiteral(", "))));
}

void NamesInWindow::TabGoesInTheOrderOfTheWork_data() {
  QTest::addColumn<QString>("family");
  QTest::addColumn<QStringList>("order");
  const QStringList checklist = {"chkPreWrap1",
                                 "cmbPreWrapRPM(1)",
                                 "txtPreWrapAdvance(1)",
                                 "txtPreWrapAdvanceMM(1)",
                                 "chkPreWrap2",
                                 "cmbPreWrapRPM(2)",
                                 "txtPreWrapAdvance(2)",
                                 "txtPreWrapAdvanceMM(2)",
                                 "chkWindingSchedule",
                                 "chkPromptForHST",
                                 "cmbHSTRPM",
                                 "txtHSTWidth",
                                 "txtHSTWidthMM",
                                 "chkHeatGunApp",
                                 "cmbHGRPM",
                                 "txtHGSpeed",
                                 "txtHGSpeedMM",
                                 "chkNotify1",
                                 "chkNotify2",
                                 "markLines",
                                 "imgBUILD"};
  QTest::newRow("two axes") << "1"
                            << QStringList{"txtLengthTotal(0)",
                                           "txtBandWidth(0)",
                                           "txtBandWidthMM(0)",
                                           "txtBandThickness(0)",
                                           "txtBandThicknessMM(0)",
                                           "txtDiameterLeft",
                                           "txtZ2(0)",
                                           "txtDiameterRight",
                                           "txtZ2(1)",
                                           "txtNumberOfLayers(0)",
                                           "pic2DGrid",
                                           "showPattern",
                                           "showCoverage",
                                           "showThickness"} +
                                   checklist;
  QTest::newRow("four axes")
      << "0"
      << QStringList{"txtLengthTotal(1)",     "txtBandWidth(1)", "txtBandWidthMM(1)", "txtBandThickness(1)",
                     "txtBandThicknessMM(1)", "cmbRate",         "txtDia(0)",         "txtPODia(0)",
                     "txtSkirtLeft",          "txtZ4(0)",        "txtZ4(1)",          "txtDia(1)",
                     "txtPODia(1)",           "txtZ4(2)",        "txtZ4(3)",          "txtSkirtRight",
                     "txtNumberOfLayers(1)",  "pic3DGrid"} +
             checklist;
}

void NamesInWindow::TabGoesInTheOrderOfTheWork() {
  QFETCH(QString, family);
  QFETCH(QStringList, order);
  const QByteArray stored = family.toLatin1();
  WindowOnStage station(StoreEntries{{"mnu2Axis", stored.constData()}});
  if (family == QStringLiteral("0")) station.Click(QStringLiteral("optType(1)"));
  station.program->binder().Choose(station.s().chkPreWrap1, "1");
  station.Find(order.first())->setFocus();
  const auto here = [] {
    const QWidget* focus = QApplication::focusWidget();
    return focus == nullptr ? QString() : focus->objectName();
  };
  // The grid has no rows yet, so it is one stop.
  QStringList walked = {here()};
  while (walked.last() != order.last() && walked.size() < 60) {
    station.Key(Qt::Key_Tab);
    // What mends a finding is a stop while the finding stands.
    if (here() == QStringLiteral("btnSaveDesign")) continue;
    // The offsets stand between the grid and the checklist, where they are stops.
    if (here().startsWith(QStringLiteral("txtAdjust")))
      QVERIFY(walked.last() == QStringLiteral("pic3DGrid"));
    else
      walked << here();
  }
  QVERIFY2(walked == order, qPrintable(walked.join(QStringLiteral(", "))));
  for (qsizetype i = order.size() - 2; i >= 0; --i) {
    do station.Key(Qt::Key_Backtab, Qt::ShiftModifier);
    while (here().startsWith(QStringLiteral("txtAdjust")) || here() == QStringLiteral("btnSaveDesign"));
    QCOMPARE(here(), order[i]);
  }
}

void NamesInWindow::TabGoesCellByCell() {
  WindowOnStage station;
  DesignState& s = station.s();
  station.Type("txtNumberOfLayers(0)", "2");
  station.Key(Qt::Key_Tab);
  QTableView* grid = station.Grid();
  QVERIFY(grid->hasFocus());
  const auto* model = static_cast<LayersModel*>(grid->model());
  const Field* const cells[] = {&s.cmb2AxisLayerType(1), &s.txtWA(1),      &s.cmbSpeed(1),
                                &s.cmbMethod(1),         &s.txtAddRevs(1), &s.txtMRPM(1),
                                &s.cmb2AxisLayerType(2), &s.txtWA(2)};
  for (const Field* cell : cells) {
    QCOMPARE(model->FieldAt(grid->currentIndex()), cell);
    station.Key(Qt::Key_Tab);
  }
  // A cell that is typed in is left in the same way.
  station.GoToCell(s.txtWA(1));
  station.Keys("4");
  station.Key(Qt::Key_Tab);
  QCOMPARE(model->FieldAt(grid->currentIndex()), &s.cmbSpeed(1));
  station.Key(Qt::Key_Backtab, Qt::ShiftModifier);
  QCOMPARE(model->FieldAt(grid->currentIndex()), &s.txtWA(1));
  station.GoToCell(s.txtMRPM(2));
  station.Key(Qt::Key_Tab);
  QVERIFY(!grid->hasFocus());
}

void NamesInWindow::EveryStopHasAName() {
  WindowOnStage station;
  for (const char* control : {"mnuAbout", "mnuProperties", "mnuMachine"})
    station.program->binder().Run(control);
  QStringList nameless;
  for (const QWidget* top : QApplication::topLevelWidgets())
    for (const QWidget* widget : top->findChildren<QWidget*>()) {
      if ((widget->focusPolicy() & Qt::TabFocus) == 0 || widget->inherits("QScrollArea")) continue;
      const auto* button = qobject_cast<const QAbstractButton*>(widget);
      if (!widget->accessibleName().isEmpty() || (button != nullptr && !button->text().isEmpty())) continue;
      nameless << QString::fromLatin1(widget->metaObject()->className()) + QLatin1Char(' ') +
                      widget->objectName();
    }
  QVERIFY2(nameless.isEmpty(), qPrintable(nameless.join(QStringLiteral(", "))));
}

void NamesInWindow::EveryFieldIsSpokenWithItsUnitAndMark() {
  WindowOnStage station;
  const auto check = [&](const Field& field, const char* inches, const char* millimetres) {
    const QString name = QString::fromStdString(NameOf(field));
    for (QWidget* widget : station.window().findChildren<QWidget*>(name)) {
      const QString spoken = QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
      const QString own = HelpOf(field).name.section(QStringLiteral(", mm"), 0, 0);
      const bool caption = widget->property("text").toString() == spoken.section(QStringLiteral(", "), 0, 0);
      QVERIFY2(spoken.contains(own) || caption, qPrintable(name + ": " + spoken));
      const FieldUnit unit = WordsOf(field).unit;
      const char* words = station.s().InInches() ? inches : millimetres;
      if (unit == FieldUnit::Length)
        QVERIFY2(spoken.contains(QString::fromLatin1(words)), qPrintable(name + ": " + spoken));
      if (unit == FieldUnit::Inches || unit == FieldUnit::Millimetres)
        QVERIFY2(spoken.contains(QLatin1String(unit == FieldUnit::Inches ? "inches" : "millimetres")),
                 qPrintable(name + ": " + spoken));
      const bool marked = ShownMark(field) != Mark::Plain;
      QVERIFY2(spoken.contains(QString::fromLatin1(WordsOf(Mark::NeedsInput))) ==
                   (marked && ShownMark(field) == Mark::NeedsInput),
               qPrintable(name + ": " + spoken));
    }
  };
  const auto all = [&] {
    int marked = 0;
    ForEachField(station.s(), [&](const Field& field) {
      if (field.row().kind == Kind::Control || field.row().kind == Kind::Caption) return;
      check(field, "inches", "millimetres");
      marked += ShownMark(field) == Mark::NeedsInput ? 1 : 0;
    });
    return marked;
  };
  const int before = all();
  QVERIFY(before > 3);
  station.Type("txtDiameterLeft", "4");
  QVERIFY(all() < before);
  station.stage.messageDialog.answers.push_back({true, false});
  station.program->binder().Run("mnuMM");
  QVERIFY(!station.s().InInches());
  all();
  // A cell of the schedule says it before its text.
  station.Type("txtNumberOfLayers(0)", "1");
  station.GoToCell(station.s().txtWA(1));
  QCOMPARE(station.Grid()->currentIndex().data(Qt::AccessibleTextRole).toString().left(31),
           QStringLiteral("Winding Angle, layer 1, degrees"));
}

void NamesInWindow::KeysReachEveryControl_data() {
  QTest::addColumn<QString>("window");
  QTest::addColumn<QString>("opener");
  QTest::addColumn<bool>("fourAxes");
  QTest::newRow("two axes") << ""
                            << "" << false;
  QTest::newRow("four axes") << ""
                             << "" << true;
  QTest::newRow("settings") << "frmSettings"
                            << "mnuProperties" << false;
  QTest::newRow("machine") << "frmMachine"
                           << "mnuMachine" << false;
  QTest::newRow("about") << "frmAbout"
                         << "mnuAbout" << false;
  QTest::newRow("preview") << "frmPolar"
                           << "" << true;
}

// By Tab, by a menu's entry of the same name, or by the keys of the field that a small button stands beside.
void NamesInWindow::KeysReachEveryControl() {
  QFETCH(QString, window);
  QFETCH(QString, opener);
  QFETCH(bool, fourAxes);
  WindowOnStage station(StoreEntries{{"mnu2Axis", fourAxes ? "0" : "1"}});
  const char* sample = fourAxes ? "Hemi-Vessel-150mm.t4d" : "Tube-4x24.t2d";
  QFile file(QStringLiteral(SOURCE_FOLDER "/samples/") + QString::fromLatin1(sample));
  QVERIFY(file.open(QIODevice::ReadOnly));
  station.stage.files.Put(std::string(kDesigns) + sample, file.readAll().toStdString());
  station.program->binder().Do([&] {
    OpenDesign(station.station(), std::string(kDesigns) + sample);
    if (window == QStringLiteral("frmPolar")) ShowPreviewOfRow(station.station(), 1);
  });
  if (!opener.isEmpty()) station.program->binder().Run(opener.toStdString());
  QWidget* top = &station.window();
  if (!window.isEmpty()) top = station.DialogOf(window.toLatin1().constData());
  QVERIFY(top != nullptr && WindowOnStage::Activate(*top));
  std::set<const QWidget*> reached;
  for (int step = 0; step < 400; ++step) {
    QTest::keyClick(top->windowHandle(), Qt::Key_Tab);
    const QWidget* here = QApplication::focusWidget();
    QVERIFY2(here != nullptr && here->window() == top, "the keys have left the window");
    reached.insert(here);
  }
  QStringList missed;
  for (const QWidget* widget : top->findChildren<QWidget*>()) {
    const bool isControl = qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                           qobject_cast<const QLineEdit*>(widget) != nullptr ||
                           qobject_cast<const QAbstractItemView*>(widget) != nullptr;
    if (!isControl || !widget->isVisibleTo(top) || !widget->isEnabled() || reached.contains(widget)) continue;
    if (top->findChild<QAction*>(widget->objectName()) != nullptr) continue;
    const auto* stepper = dynamic_cast<const Stepper*>(widget->parentWidget());
    if (stepper != nullptr && std::any_of(reached.begin(), reached.end(),
                                          [&](const QWidget* at) { return stepper->isAncestorOf(at); }))
      continue;
    missed << QString::fromLatin1(widget->metaObject()->className()) + QLatin1Char(' ') +
                  widget->objectName() + QLatin1Char('/') + widget->accessibleName();
  }
  QVERIFY2(missed.isEmpty(), qPrintable(missed.join(QStringLiteral(", "))));
}

// Paths, names and fields may look like markup; a tip of theirs shows each character.
void NamesInWindow::TipsShowTextsAsTheyStand() {
  const std::string hostile = "<img src=\"/dev/zero\"><b>1,5</b>";
  WindowOnStage station;
  station.s().gFilePath = "C:\\Torvane\\" + hostile + ".t2d";
  station.s().gFileName = hostile + ".t2d";
  station.Type("txtNumberOfLayers(0)", "1");
  station.Type("txtDiameterLeft", hostile.c_str());
  int seen = 0;
  for (QWidget* widget : station.window().findChildren<QWidget*>()) {
    const QString tip = widget->toolTip();
    if (!tip.contains(QStringLiteral("img"))) continue;
    const QString shown = Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip;
    QVERIFY2(shown.contains(QString::fromStdString(hostile)), qPrintable(shown));
    ++seen;
  }
  QVERIFY(seen >= 1);
}

}  // namespace torvane

QTEST_MAIN(torvane::NamesInWindow)
#include "names_in_window.moc"
