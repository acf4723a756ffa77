// Warnings, recent designs, the machine page, four-axis rows and a program's progress, in the real window.
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>

#include "on_stage.h"
#include "window/dialog/program_dialog.h"
#include "window/rail/proof_panel.h"

namespace torvane {

class OperationsOnScreen : public QObject {
  Q_OBJECT

 private slots:
  void WarningsAreListedAndStopNothing();
  void ANewDesignBeginsWithItsLayers();
  void RecentDesignsOpenFromTheMenu();
  void MachinePageTakesWhatIsTyped();
  void APageThatClosesIsGoneBeforeAMessageComes();
  void DeleteEmptiesTypedCellsAlone();
  void FourAxisRowsHaveEntriesOfTheirOwn();
  void ALongProgramShowsItselfAndIsCancelled();
  void ANumberSaysWhatItReadsAs();
};

namespace {

struct Desktop : WindowOnStage {
  Desktop() : WindowOnStage({{"MSG12", "True"}, {"gHasUserCheckedCarriageZOffset", "1"}}) {}

  Binder& binder() { return program->binder(); }
  // A tube whose second layer has no angle.
  void TypeTube() {
    for (const auto& [field, text] :
         {std::pair("txtLengthTotal(0)", "24"), std::pair("txtBandWidth(0)", "0.25"),
          std::pair("txtBandThickness(0)", "0.01"), std::pair("txtDiameterLeft", "4"),
          std::pair("txtDiameterRight", "4"), std::pair("txtZ2(0)", "28"), std::pair("txtZ2(1)", "4"),
          std::pair("txtNumberOfLayers(0)", "2"), std::pair("txtWA(1)", "45")})
      binder().Type(*station().FindField(field), QString::fromLatin1(text));
  }
  void Save(const std::string& name) {
    stage.fileDialog.answers.emplace_back(kDesigns + name);
    binder().Run("btnSaveAS");
  }
};

// A menu of the bar as it opens.
QMenu* Filled(Desktop& desktop, const char* title) {
  for (QAction* action : desktop.program->mainWindow().menuBar()->actions())
    if (action->text().remove(QLatin1Char('&')) == QLatin1String(title)) {
      QMetaObject::invokeMethod(action->menu(), "aboutToShow");
      return action->menu();
    }
  return nullptr;
}

}  // namespace

void OperationsOnScreen::WarningsAreListedAndStopNothing() {
  Desktop desktop;
  desktop.TypeTube();
  desktop.Save("tube.t2d");
  QStringList titles;
  for (const Note& note : NotesOf(desktop.program->desk())) titles << note.title;
  QVERIFY(titles.contains(QStringLiteral("Layer 2 has no winding angle")));
  QVERIFY(titles.contains(QStringLiteral("Layer 1 shows nothing on the machine")));
  QWidget* build = desktop.Find(QStringLiteral("imgBUILD"));
  QVERIFY(build->isEnabled());
  QVERIFY(build->accessibleDescription().contains(QStringLiteral("2 warnings")));
  // With an angle in each row the program is written, whatever else is warned of.
  desktop.binder().Type(*desktop.station().FindField("txtWA(2)"), QStringLiteral("45"));
  QVERIFY(!NotesOf(desktop.program->desk()).empty());
  QTest::mouseClick(build, Qt::LeftButton);
  QCOMPARE(desktop.stage.launcher.starts.size(), 1U);
}

// Five counts a row, and below them what has to be measured once.
void OperationsOnScreen::ANewDesignBeginsWithItsLayers() {
  Desktop measured;
  WindowOnStage fresh;
  const auto shown = [](const WindowOnStage& station, const QString& text) -> QAbstractButton* {
    for (auto* button : station.program->mainWindow().findChildren<QAbstractButton*>())
      if (button->isVisible() && (button->text() == text || button->accessibleName() == text)) return button;
    return nullptr;
  };
  QVERIFY(shown(measured, QStringLiteral("Measure now")) == nullptr);
  QVERIFY(shown(fresh, QStringLiteral("Measure now")) != nullptr);
  const auto place = [&](int count) { return shown(fresh, QStringLiteral("%1 layers").arg(count))->pos(); };
  for (int count = 2; count <= 15; ++count) {
    const bool begins = count % 5 == 1;
    QVERIFY(begins ? place(count).y() > place(count - 1).y() : place(count).y() == place(count - 1).y());
    QVERIFY(begins ? place(count).x() == place(1).x() : place(count).x() > place(count - 1).x());
  }
  QTest::mouseClick(shown(fresh, QStringLiteral("3 layers")), Qt::LeftButton);
  QCOMPARE(fresh.s().txtNumberOfLayers(0).text(), std::string("3"));
}

void OperationsOnScreen::RecentDesignsOpenFromTheMenu() {
  Desktop desktop;
  QVERIFY(!Filled(desktop, "File")->findChild<QMenu*>(QStringLiteral("mnuRecent"))->isEnabled());
  desktop.TypeTube();
  desktop.Save("one.t2d");
  desktop.Save("two & a half.t2d");
  auto* recent = Filled(desktop, "File")->findChild<QMenu*>(QStringLiteral("mnuRecent"));
  QCOMPARE(recent->actions().size(), 2);
  QCOMPARE(recent->actions()[0]->text(), QStringLiteral("&1  two && a half.t2d"));
  recent->actions()[1]->trigger();
  QCOMPARE(desktop.s().gFileName.text(), std::string("one.t2d"));
}

void OperationsOnScreen::MachinePageTakesWhatIsTyped() {
  Desktop desktop;
  desktop.binder().Run("mnuMachine");
  QWidget* page = desktop.DialogOf("frmMachine");
  QVERIFY(page != nullptr);
  const auto find = [page](const char* name) { return page->findChild<QWidget*>(QString::fromLatin1(name)); };
  auto* speed = qobject_cast<QLineEdit*>(find("txtmMaxRPM"));
  QCOMPARE(speed->text(), QStringLiteral("90.20"));
  speed->selectAll();
  QTest::keyClicks(speed, QStringLiteral("47.5"));
  QTest::mouseClick(find("chkLHDrive"), Qt::LeftButton);
  QVERIFY(find("btnShowMessages")->isEnabled());
  QTest::mouseClick(find("btnShowMessages"), Qt::LeftButton);
  QVERIFY2(!find("btnShowMessages")->isEnabled(), "the page follows its fields");
  QTest::mouseClick(find("btnOK"), Qt::LeftButton);
  QVERIFY(desktop.DialogOf("frmMachine") == nullptr);
  QCOMPARE(desktop.s().mMaxRPM, 47.5);
  QVERIFY(desktop.s().gIsLHDrive);
  QCOMPARE(desktop.stage.store.Read("Settings", "MSG12").value_or(""), std::string("False"));
}

// Its fields go with it, and what it shows would be painted behind the message.
void OperationsOnScreen::APageThatClosesIsGoneBeforeAMessageComes() {
  Desktop desktop;
  desktop.binder().Run("mnuMachine");
  const QPointer<QWidget> page = desktop.DialogOf("frmMachine");
  QVERIFY(page->isVisible());
  QTest::mouseClick(page->findChild<QWidget*>(QStringLiteral("chkLHDrive")), Qt::LeftButton);
  desktop.stage.store.FailWrites("the store is locked");
  int told = 0;
  bool shown = false;
  desktop.stage.messageBox.observer = [&](const auto&) {
    ++told;
    shown = shown || (page != nullptr && page->isVisible());
  };
  QTest::mouseClick(page->findChild<QWidget*>(QStringLiteral("btnOK")), Qt::LeftButton);
  QVERIFY(told > 0);
  QVERIFY(!shown);
}

void OperationsOnScreen::DeleteEmptiesTypedCellsAlone() {
  Desktop desktop;
  DesignState& s = desktop.s();
  QTest::keyClick(desktop.Grid(), Qt::Key_Delete);  // no row, no cell
  desktop.binder().Choose(s.optX(1), "True");
  desktop.binder().Type(s.txtNumberOfLayers(1), QStringLiteral("1"));
  desktop.binder().Check(s.chkPause(1), true);
  desktop.GoToCell(s.chkPause(1));
  desktop.Key(Qt::Key_Delete);
  QVERIFY(s.chkPause(1).checked());
  desktop.binder().Run("optType", Event::Click, 2);
  desktop.binder().Type(s.cmbPattern(1), QStringLiteral("45"));
  desktop.GoToCell(s.cmbPattern(1));
  desktop.Key(Qt::Key_Delete);
  QCOMPARE(s.cmbPattern(1).text(), std::string());
}

void OperationsOnScreen::FourAxisRowsHaveEntriesOfTheirOwn() {
  Desktop desktop;
  const auto entry = [&desktop]() -> QAction* {
    for (QAction* action : Filled(desktop, "Edit")->actions())
      if (action->objectName() == QStringLiteral("mnuDelete4Ax")) return action;
    return nullptr;
  };
  QVERIFY(entry() == nullptr);
  desktop.binder().Choose(desktop.s().optX(1), "True");
  desktop.binder().Type(desktop.s().txtNumberOfLayers(1), QStringLiteral("3"));
  QVERIFY(entry() != nullptr);
  QVERIFY(!entry()->isEnabled());
  desktop.binder().Run("btn4XRow", Event::Press, 2);
  QVERIFY(entry()->isEnabled());
  QVERIFY2(entry()->shortcut().isEmpty(), "no keys where these entries work on two-axis rows");
  entry()->trigger();
  QCOMPARE(desktop.s().txtNumberOfLayers(1).text(), std::string("2"));
}

void OperationsOnScreen::ALongProgramShowsItselfAndIsCancelled() {
  const Theme theme(false);
  ProgramDialog follower(theme);
  follower.Begin();
  QVERIFY(follower.busy());
  QVERIFY(follower.GoOn(0.1));
  QVERIFY2(QApplication::activeModalWidget() == nullptr, "a short program shows nothing");
  QTest::qSleep(600);
  QVERIFY(follower.GoOn(0.4));
  QWidget* dialog = QApplication::activeModalWidget();
  QVERIFY(dialog != nullptr);
  QCOMPARE(dialog->findChild<QProgressBar*>()->value(), 400);
  dialog->findChild<QPushButton*>(QStringLiteral("btnCancel"))->click();
  QVERIFY(!follower.GoOn(0.5));
  follower.End();
  QVERIFY(!follower.busy());
  QVERIFY(QApplication::activeModalWidget() == nullptr);
  follower.Begin();
  QVERIFY2(follower.GoOn(0.1), "the next program is not cancelled with it");
  follower.End();
}

void OperationsOnScreen::ANumberSaysWhatItReadsAs() {
  Desktop desktop;
  desktop.binder().Type(desktop.s().txtDiameterLeft, QStringLiteral("12,5"));
  const QString hint = QStringLiteral("\"12,5\" reads as 125: the decimal sign here is a point.");
  QCOMPARE(desktop.Find(QStringLiteral("txtDiameterLeft"))->toolTip(), hint);
  bool listed = false;
  for (const Note& note : NotesOf(desktop.program->desk())) listed = listed || note.second == hint;
  QVERIFY(listed);
}

}  // namespace torvane

QTEST_MAIN(torvane::OperationsOnScreen)
#include "operations_on_screen.moc"
