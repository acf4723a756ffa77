// What the operator reaches for: the first click and key, menus by keys, lines that say all they have to say,
// and words for everything that can be reached.
#include <QFile>
#include <QListView>
#include <QMenu>
#include <QMenuBar>

#include "design/catalogue.h"
#include "on_stage.h"
#include "window/rail/proof_panel.h"
#include "workbench/document/design_commands.h"

namespace torvane {

class AtHand : public QObject {
  Q_OBJECT

 private slots:
  void AnOpenedDesignLeavesTheKeysWithItsCount();
  void ADigitBehindTheZeroIsTheCount();
  void AltOpensTheMenus();
  void NotesWrapAndAreReachedByKeys();
  void WhatCanBeReachedHasAnOperatorsName();
  void TheProofStandsBesideTheTyping();
  void TheDrawingShowsTheBands();
};

namespace {

struct Desktop : WindowOnStage {
  explicit Desktop(bool measured = true)
      : WindowOnStage(StoreEntries{{"gHasUserCheckedCarriageZOffset", measured ? "1" : "0"}}) {}

  QLineEdit* Count() const { return Find<QLineEdit>(QStringLiteral("txtNumberOfLayers(0)")); }
};

}  // namespace

void AtHand::AnOpenedDesignLeavesTheKeysWithItsCount() {
  Desktop desktop;
  auto* three = desktop.Find<QAbstractButton>(QStringLiteral("layers3"));
  QVERIFY(three != nullptr);
  three->setFocus(Qt::TabFocusReason);
  desktop.program->binder().Do([&] { desktop.s().txtNumberOfLayers(0) = "4"; });
  QCOMPARE(QApplication::focusWidget(), desktop.Count());
  QVERIFY2(!desktop.Count()->hasSelectedText(), "a stray key would empty the schedule");
}

void AtHand::ADigitBehindTheZeroIsTheCount() {
  Desktop desktop;
  desktop.Count()->setFocus();
  desktop.Count()->end(false);
  QCOMPARE(desktop.Count()->text(), QStringLiteral("0"));
  desktop.Keys("3");
  QCOMPARE(desktop.s().txtNumberOfLayers(0).text(), std::string("3"));
  desktop.Keys("0");
  QCOMPARE(desktop.s().txtNumberOfLayers(0).text(), std::string("15"));
}

void AtHand::AltOpensTheMenus() {
  Desktop desktop;
  desktop.Count()->setFocus();
  QMenu* edit = nullptr;
  QStringList letters;
  for (QAction* action : desktop.window().menuBar()->actions()) {
    const QString text = action->text();
    const auto at = text.indexOf(QLatin1Char('&'));
    QVERIFY2(at >= 0, qPrintable(text));
    letters << text.mid(at + 1, 1).toUpper();
    if (text == QStringLiteral("&Edit")) edit = action->menu();
  }
  QCOMPARE(letters.removeDuplicates(), 0);
  QTimer::singleShot(50, this, [&] {
    QVERIFY(edit->isVisible());
    QStringList entries;
    for (QAction* entry : edit->actions())
      if (const auto at = entry->text().indexOf(QLatin1Char('&')); at >= 0 && !entry->isSeparator())
        entries << entry->text().mid(at + 1, 1).toUpper();
    QCOMPARE(entries.size(), 9);
    QCOMPARE(entries.removeDuplicates(), 0);
    QTest::keyClick(edit, Qt::Key_A);  // ReCalc All Rows
    QVERIFY(!edit->isVisible());
  });
  desktop.s().gDirty = false;
  QTest::keyClick(&desktop.window(), Qt::Key_E, Qt::AltModifier);
  QTest::qWait(150);
  QVERIFY(!edit->isVisible());
}

void AtHand::NotesWrapAndAreReachedByKeys() {
  Desktop desktop(false);
  desktop.Type("txtNumberOfLayers(0)", "1");
  auto* lines = desktop.window().findChild<QListView*>(QStringLiteral("markLines"));
  QVERIFY(lines != nullptr && lines->isVisible());
  QStringList said;
  int longest = 0;
  for (int row = 0; row < lines->model()->rowCount(); ++row) {
    const QModelIndex index = lines->model()->index(row, 0);
    said << index.data(Qt::AccessibleTextRole).toString();
    if (said[row].size() > said[longest].size()) longest = row;
  }
  QVERIFY(said.contains(QStringLiteral(
      "The carriage offset is not measured. Build asks for it first. It stands in the settings.")));
  const int high = lines->sizeHintForIndex(lines->model()->index(longest, 0)).height();
  desktop.window().findChild<QWidget*>(QStringLiteral("marks"))->resize(150, 400);
  QVERIFY(lines->sizeHintForIndex(lines->model()->index(longest, 0)).height() > high);
  lines->setFocus();
  lines->setCurrentIndex(lines->model()->index(0, 0));
  desktop.Key(Qt::Key_Down);
  QCOMPARE(lines->currentIndex().row(), 1);
  const auto found = lines->model()->match(lines->model()->index(0, 0), Qt::AccessibleTextRole,
                                           QStringLiteral("Left diameter"), 1, Qt::MatchStartsWith);
  QVERIFY(!found.empty());
  lines->setCurrentIndex(found.first());
  desktop.Key(Qt::Key_Return);
  QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("txtDiameterLeft"));
}

void AtHand::WhatCanBeReachedHasAnOperatorsName() {
  Desktop desktop;
  desktop.Type("txtNumberOfLayers(0)", "2");
  const auto check = [](const QWidget& window) {
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
      if (!widget->isVisible() || (widget->focusPolicy() & Qt::TabFocus) == 0) continue;
      const auto* button = qobject_cast<const QAbstractButton*>(widget);
      const QString name = !widget->accessibleName().isEmpty() || button == nullptr ? widget->accessibleName()
                                                                                    : button->text();
      QVERIFY2(!name.isEmpty(), qPrintable(widget->objectName() + QLatin1Char(' ') +
                                           QString::fromLatin1(widget->metaObject()->className())));
      for (const char* prefix : {"txt", "lbl", "cmb", "chk", "btn", "mnu", "frm", "pic", "Command", "Label"})
        QVERIFY2(!name.startsWith(QLatin1String(prefix)), qPrintable(name));
    }
  };
  check(desktop.window());
  desktop.program->binder().Choose(desktop.s().optX(1), "True");
  check(desktop.window());
  for (const auto& [command, window] :
       {std::pair{"mnuProperties", "frmSettings"}, {"mnuMachine", "frmMachine"}, {"mnuAbout", "frmAbout"}}) {
    desktop.program->binder().Run(command);
    QVERIFY(desktop.DialogOf(window) != nullptr);
    check(*desktop.DialogOf(window));
    desktop.program->binder().Do(
        [&] { desktop.station().windows.Close(*desktop.station().windows.Find(window)); });
  }
}

void AtHand::TheProofStandsBesideTheTyping() {
  Desktop desktop;
  const LiveWatch& live = *desktop.program->desk().live;
  const auto cell = [&](int row) {
    return desktop.Grid()->model()->index(row, 11).data(Qt::AccessibleTextRole).toString();
  };
  const auto notes = [&](ProofState state) {
    const auto all = NotesOf(desktop.program->desk());
    return std::count_if(all.begin(), all.end(), [state](const Note& note) { return note.state == state; });
  };
  QFile sample(QStringLiteral(SOURCE_FOLDER "/samples/Tube-4x24.t2d"));
  QVERIFY(sample.open(QIODevice::ReadOnly));
  const std::string path = kDesigns + std::string("tube.t2d");
  desktop.stage.files.Put(path, sample.readAll().toStdString());
  desktop.program->binder().Do([&] { OpenDesign(desktop.station(), path); });
  QTRY_VERIFY(live.result() != nullptr && live.result()->formed && live.result()->LayerOf(2) != nullptr);
  QTRY_COMPARE(cell(2), QStringLiteral("Proof: in order"));
  const auto minutes = [&] {
    return desktop.window().findChild<QWidget*>(QStringLiteral("provenMinutes"))->accessibleName();
  };
  const QString before = minutes();
  QVERIFY2(before.startsWith(QStringLiteral("proven ")), qPrintable(before));
  QCOMPARE(notes(ProofState::Fault), std::ptrdiff_t{0});
  // Beyond the carriage's travel.
  desktop.Type("txtZ2(0)", "60");
  QTRY_VERIFY(notes(ProofState::Fault) > 0);
  QTRY_VERIFY(minutes() != before);
  QVERIFY(!desktop.stage.files.Exists(kPrograms + std::string("tube.T2G")));

  // What mends a finding stands beside it, and is one step of undo.
  desktop.Type("txtZ2(0)", "28");
  desktop.program->binder().Type(*desktop.station().FindField("txtMRPM(2)"), QStringLiteral("60"));
  QTRY_VERIFY(!live.proving() && notes(ProofState::Fault) > 0);
  const auto mend = [&] {
    return desktop.window().findChild<QAbstractButton*>(QStringLiteral("btnRecalculate"));
  };
  QTRY_VERIFY(mend() != nullptr);
  QCOMPARE(mend()->text(), QStringLiteral("ReCalc All Rows"));
  QTest::mouseClick(mend(), Qt::LeftButton);
  QTRY_COMPARE(notes(ProofState::Fault), std::ptrdiff_t{0});
  QTRY_VERIFY(mend() == nullptr);
  desktop.program->binder().Do([&] { desktop.station().Undo(); });
  QCOMPARE(desktop.station().FindField("txtMRPM(2)")->text(), std::string("60"));
}

void AtHand::TheDrawingShowsTheBands() {
  Desktop desktop;
  QFile sample(QStringLiteral(SOURCE_FOLDER "/samples/Taper-Mast.t2d"));
  QVERIFY(sample.open(QIODevice::ReadOnly));
  const std::string path = kDesigns + std::string("mast.t2d");
  desktop.stage.files.Put(path, sample.readAll().toStdString());
  desktop.program->binder().Do([&] { OpenDesign(desktop.station(), path); });
  QWidget* drawing = desktop.Find(QStringLiteral("drawing2Axis"));
  const QImage pattern = drawing->grab().toImage();
  QTest::keyClick(&desktop.window(), Qt::Key_2, Qt::ControlModifier);
  QTRY_VERIFY(drawing->accessibleDescription().contains(QStringLiteral("% covered")));
  QVERIFY(drawing->grab().toImage() != pattern);
  QTest::mouseClick(desktop.Find(QStringLiteral("unroll")), Qt::LeftButton);
  const QWidget* unrolled = desktop.Find(QStringLiteral("unrolled"));
  QVERIFY(unrolled->isVisible());
  QVERIFY(unrolled->accessibleDescription().contains(QStringLiteral("% covered")));
  QTest::mouseClick(desktop.Find(QStringLiteral("showThickness")), Qt::LeftButton);
  QVERIFY(unrolled->isVisible());
  QTest::keyClick(&desktop.window(), Qt::Key_1, Qt::ControlModifier);
  QVERIFY(!unrolled->isVisible());
  QVERIFY(drawing->accessibleDescription().isEmpty());
  QCOMPARE(drawing->grab().toImage(), pattern);
}

}  // namespace torvane

QTEST_MAIN(torvane::AtHand)
#include "at_hand.moc"
