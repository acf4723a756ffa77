// An operator's keys and clicks in the real window, over a computer in memory.
#include <QAction>
#include <QListView>

#include "on_stage.h"

namespace torvane {

namespace {

constexpr const char* kPath = "C:\\Torvane\\TV_Design_Files\\Tube.t2d";

// A tube of two layers, typed.
void TypeTube(WindowOnStage& station, const char* first = "90") {
  for (const auto& [field, text] : {std::pair{"txtLengthTotal(0)", "24"},
                                    {"txtBandWidth(0)", "0.25"},
                                    {"txtBandThickness(0)", "0.01"},
                                    {"txtDiameterLeft", "4"},
                                    {"txtDiameterRight", "4"},
                                    {"txtZ2(0)", "28"},
                                    {"txtZ2(1)", "4"},
                                    {"txtNumberOfLayers(0)", "2"}})
    station.Type(field, text);
  station.TypeInCell(station.s().txtWA(1), first);
  station.TypeInCell(station.s().txtWA(2), "45");
  station.Key(Qt::Key_Return);
}

}  // namespace

class StationWindow : public QObject {
  Q_OBJECT

 private slots:
  void MarksAreListedAndLeadToTheirField();
  void OffsetQuestionOpensTheSettings();
  void BuildWritesTheProgramAndStartsTheExecutor();
  void ClosingAsksAboutChanges();
  void RowKeysCopyAndDelete();
  void ForeignCharacterIsRefused();
  void UndoBringsTheFormerTextBack();
};

void StationWindow::MarksAreListedAndLeadToTheirField() {
  WindowOnStage opened;
  TypeTube(opened);
  opened.Type("txtZ2(1)", "1");
  opened.Find<QLineEdit>(QStringLiteral("txtLengthTotal(0)"))->setFocus();
  auto* lines = opened.window().findChild<QListView*>(QStringLiteral("markLines"));
  const QAbstractItemModel& notes = *lines->model();
  const auto said = notes.match(notes.index(0, 0), Qt::AccessibleTextRole, QStringLiteral("Right stop"), 1,
                                Qt::MatchStartsWith);
  QVERIFY(!said.empty());
  lines->scrollTo(said.first());
  QTest::mouseClick(lines->viewport(), Qt::LeftButton, {}, lines->visualRect(said.first()).center());
  QCOMPARE(opened.s().txtZ2(1).mark(), Mark::StopTooLow);
  QCOMPARE(opened.window().focusWidget(), opened.Find(QStringLiteral("txtZ2(1)")));
}

void StationWindow::OffsetQuestionOpensTheSettings() {
  WindowOnStage opened;
  QTest::mouseClick(opened.Find(QStringLiteral("imgBUILD")), Qt::LeftButton);
  QCOMPARE(opened.stage.messageDialog.shown.size(), std::size_t{1});
  QCOMPARE(opened.stage.messageDialog.shown.front().number, 33);
  Station& station = opened.station();
  Window* settings = station.windows.Find("frmSettings");
  QVERIFY(settings != nullptr);
  QWidget* dialog = opened.program->dialogs().DialogOf(*settings);
  QVERIFY(dialog != nullptr && dialog->isVisible());
  auto* offset = dialog->findChild<QLineEdit*>(QStringLiteral("Text3"));
  offset->selectAll();
  QTest::keyClicks(offset, QStringLiteral("2.5"));
  QTest::qWait(20);
  QCOMPARE(dialog->findChild<QLineEdit*>(QStringLiteral("Text2"))->text(), QStringLiteral("63.50"));
  QTest::mouseClick(dialog->findChild<QWidget*>(QStringLiteral("btnOK")), Qt::LeftButton);
  QVERIFY(station.windows.Find("frmSettings") == nullptr);
  QCOMPARE(station.s.gCarriageOffsetFromRMPFace.text(), std::string("2.5"));
}

void StationWindow::BuildWritesTheProgramAndStartsTheExecutor() {
  WindowOnStage opened;
  opened.stage.store.Write("Settings", "gHasUserCheckedCarriageZOffset", "1");
  TypeTube(opened);
  opened.stage.fileDialog.answers.emplace_back(kPath);
  QTest::mouseClick(opened.Find(QStringLiteral("btnSaveAS")), Qt::LeftButton);
  QTest::keyClick(opened.Find(QStringLiteral("imgBUILD")), Qt::Key_Space);
  QVERIFY(opened.stage.files.Exists("C:\\Torvane\\TV_G-Code_Files\\Tube.T2G"));
  QCOMPARE(opened.stage.launcher.starts.size(), std::size_t{1});
  QCOMPARE(opened.stage.launcher.starts.front().commandLine,
           std::string("Torvane_Executor.exe C:\\Torvane\\TV_G-Code_Files\\Tube.T2G"));
}

void StationWindow::ClosingAsksAboutChanges() {
  WindowOnStage opened;
  opened.Type("txtLengthTotal(0)", "24");
  opened.stage.messageDialog.answers.push_back({true, false});
  opened.stage.fileDialog.answers.emplace_back(kPath);
  opened.window().close();
  QCOMPARE(opened.stage.messageDialog.shown.size(), std::size_t{1});
  QCOMPARE(opened.stage.messageDialog.shown.front().number, 1);
  QVERIFY(opened.stage.files.Exists(kPath));
  QVERIFY(opened.station().ended);
  QVERIFY(!opened.window().isVisible());
}

void StationWindow::RowKeysCopyAndDelete() {
  WindowOnStage opened;
  TypeTube(opened, "60");
  auto* grid = opened.Find<QTableView>(QStringLiteral("pic2DGrid"));
  const DesignState& s = opened.s();
  grid->setCurrentIndex(grid->model()->index(0, 2));
  QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
  QCOMPARE(s.gCurrentRow, 1);
  grid->setCurrentIndex(grid->model()->index(1, 2));
  QTest::keyClick(grid, Qt::Key_V, Qt::ControlModifier);
  QCOMPARE(s.txtWA(2).text(), std::string("60"));
  QTest::keyClick(grid, Qt::Key_Delete, Qt::ControlModifier);
  QCOMPARE(grid->model()->rowCount(), 1);
}

void StationWindow::ForeignCharacterIsRefused() {
  WindowOnStage opened;
  auto* edit = opened.Find<QLineEdit>(QStringLiteral("txtLengthTotal(0)"));
  opened.Type("txtLengthTotal(0)", "24");
  edit->setFocus();
  QTest::sendKeyEvent(QTest::Click, edit, Qt::Key_unknown, QString(QChar(0x6F22)), Qt::NoModifier);
  QCOMPARE(edit->text(), QStringLiteral("24"));
  QCOMPARE(opened.s().txtLengthTotal(0).text(), std::string("24"));
}

void StationWindow::UndoBringsTheFormerTextBack() {
  WindowOnStage opened;
  opened.Type("txtDiameterLeft", "4");
  opened.Type("txtBandWidth(0)", "0.25");  // keys in one field are one step back
  opened.Type("txtDiameterLeft", "6");
  const DesignState& s = opened.s();
  const auto trigger = [&](const QKeySequence& keys) {
    for (QAction* action : opened.window().findChildren<QAction*>())
      if (action->shortcut() == keys) return action->trigger();
    QFAIL("no such entry");
  };
  QCOMPARE(s.txtDiameterLeft.text(), std::string("6"));
  trigger(QKeySequence(QStringLiteral("Ctrl+Z")));
  QCOMPARE(s.txtDiameterLeft.text(), std::string("4"));
  QCOMPARE(opened.Find<QLineEdit>(QStringLiteral("txtDiameterLeft"))->text(), QStringLiteral("4"));
  trigger(QKeySequence(QStringLiteral("Ctrl+Shift+Z")));
  QCOMPARE(s.txtDiameterLeft.text(), std::string("6"));
  QCOMPARE(opened.Find<QLineEdit>(QStringLiteral("txtDiameterLeft"))->text(), QStringLiteral("6"));
}

}  // namespace torvane

QTEST_MAIN(torvane::StationWindow)
#include "station_window.moc"
