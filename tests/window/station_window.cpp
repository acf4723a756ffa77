// An operator's keys and clicks in the real window, over a computer in memory.
#include <QAction>
#include <QLineEdit>
#include <QTableView>
#include <QtTest>

#include "design/catalogue.h"
#include "handoff/launch.h"
#include "look/style.h"
#include "stage/stage.h"
#include "window/application.h"

namespace torvane {

namespace {

constexpr const char* kPath = "C:\\Torvane\\TV_Design_Files\\Tube.t2d";

void Prepare(Stage& stage) {
  stage.files.MakeFolder("C:\\Torvane\\TV_Design_Files");
  stage.files.MakeFolder("C:\\Torvane\\TV_G-Code_Files");
  stage.store.Write("Settings", "gVersionNumber", "420");
  stage.store.Write("Settings", "mnu2Axis", "1");
}

// The window on its stage, past the start guard and the splash.
struct Opened {
  Opened() {
    Prepare(stage);
    program = std::make_unique<WindowProgram>(stage.AsPlatform(), theme);
    stage.clock.Advance(std::chrono::seconds(10));
    program->binder().Do([this] { program->station().Tick(); });
    program->mainWindow().resize(1280, 800);
  }

  template <class Kind = QWidget>
  Kind* Find(const char* name) const {
    return program->mainWindow().findChild<Kind*>(QString::fromLatin1(name));
  }
  void Type(const char* name, const char* text) const {
    auto* edit = Find<QLineEdit>(name);
    QVERIFY2(edit != nullptr, name);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, QString::fromLatin1(text));
  }
  void TypeInGrid(int layer, int column, const char* text) const {
    auto* grid = Find<QTableView>("pic2DGrid");
    grid->setFocus();
    grid->setCurrentIndex(grid->model()->index(layer - 1, column));
    QTest::keyClick(grid, text[0]);
    auto* editor = grid->viewport()->findChild<QLineEdit*>();
    QVERIFY(editor != nullptr);
    QTest::keyClicks(editor, QString::fromLatin1(text + 1));
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  Stage stage;
  Theme theme{false};
  std::unique_ptr<WindowProgram> program;
};

// The same keys without a window: each one replaces the text by one character more.
void TypeKeys(Station& station, Field& field, std::string_view text) {
  for (std::size_t i = 1; i <= text.size(); ++i) station.Type(field, text.substr(0, i));
}

struct Typed {
  const char* field;
  const char* text;
};
constexpr Typed kPart[] = {
    {"txtLengthTotal(0)", "24"}, {"txtBandWidth(0)", "0.25"},  {"txtBandThickness(0)", "0.01"},
    {"txtDiameterLeft", "4"},    {"txtDiameterRight", "4"},    {"txtZ2(0)", "28"},
    {"txtZ2(1)", "4"},           {"txtNumberOfLayers(0)", "2"}};

}  // namespace

class StationWindow : public QObject {
  Q_OBJECT

 private slots:
  void KeysMakeTheSameFilesAsTheStation();
  void EveryInputIsBoundOnce();
  void MarksAreListedAndLeadToTheirField();
  void OffsetQuestionOpensTheSettings();
  void BuildWritesTheProgramAndStartsTheExecutor();
  void ClosingAsksAboutChanges();
  void RowKeysCopyAndDelete();
  void ForeignCharacterIsRefused();
  void UndoBringsTheFormerTextBack();
};

void StationWindow::KeysMakeTheSameFilesAsTheStation() {
  Opened opened;
  for (const Typed& typed : kPart) opened.Type(typed.field, typed.text);
  opened.TypeInGrid(1, 2, "90");
  opened.TypeInGrid(2, 2, "45");
  opened.stage.fileDialog.answers.emplace_back(kPath);
  QTest::mouseClick(opened.Find("btnSaveAS"), Qt::LeftButton);

  Stage bare;
  Prepare(bare);
  WholeStation station(bare.AsPlatform());
  station.Form_Load();
  bare.clock.Advance(std::chrono::seconds(10));
  station.Tick();
  for (const Typed& typed : kPart) TypeKeys(station, *station.FindField(typed.field), typed.text);
  TypeKeys(station, station.s.txtWA(1), "90");
  TypeKeys(station, station.s.txtWA(2), "45");
  bare.fileDialog.answers.emplace_back(kPath);
  station.Run("btnSaveAS", Event::Click);

  QVERIFY(opened.stage.files.Exists(kPath));
  QCOMPARE(opened.stage.files.All().size(), bare.files.All().size());
  for (const auto& [path, bytes] : bare.files.All())
    QCOMPARE(opened.stage.files.ReadWhole(path).value(), bytes);
  QVERIFY(!opened.program->mainWindow().isWindowModified());
}

void StationWindow::EveryInputIsBoundOnce() {
  Opened opened;
  ForEachField(opened.program->station().s, [&](const Field& field) {
    const FieldRow& row = field.row();
    const bool input = row.kind == Kind::Text || row.kind == Kind::List || row.kind == Kind::Check;
    if (!input || IsScheduleRow(row)) return;
    // The drawing of two axes shows these as dimensions; the start card stands in both grids.
    const std::string name = NameOf(field);
    if (name == "txtDia(2)" || name == "txtDia(3)" || name == "txtZ2(2)" || name == "chkDontShowVideoLinks")
      return;
    const auto bound = opened.program->mainWindow().findChildren<QWidget*>(QString::fromStdString(name));
    QVERIFY2(bound.size() == 1, name.c_str());
    QVERIFY2(!bound.first()->accessibleName().isEmpty(), name.c_str());
  });
}

void StationWindow::MarksAreListedAndLeadToTheirField() {
  Opened opened;
  for (const Typed& typed : kPart) opened.Type(typed.field, typed.text);
  opened.Type("txtZ2(1)", "1");
  opened.Find<QLineEdit>("txtLengthTotal(0)")->setFocus();
  QTest::mouseClick(opened.Find("marks"), Qt::LeftButton, {}, {60, 16});
  QCOMPARE(opened.program->station().s.txtZ2(1).mark(), Mark::StopTooLow);
  QCOMPARE(opened.program->mainWindow().focusWidget(), opened.Find("txtZ2(1)"));
}

void StationWindow::OffsetQuestionOpensTheSettings() {
  Opened opened;
  QTest::mouseClick(opened.Find("imgBUILD"), Qt::LeftButton);
  QCOMPARE(opened.stage.messageDialog.shown.size(), std::size_t{1});
  QCOMPARE(opened.stage.messageDialog.shown.front().number, 33);
  Station& station = opened.program->station();
  Window* settings = station.OpenWindow("frmSettings");
  QVERIFY(settings != nullptr);
  QWidget* dialog = opened.program->dialogs().DialogOf(*settings);
  QVERIFY(dialog != nullptr && dialog->isVisible());
  auto* offset = dialog->findChild<QLineEdit*>(QStringLiteral("Text3"));
  offset->selectAll();
  QTest::keyClicks(offset, QStringLiteral("2.5"));
  QTest::qWait(20);
  QCOMPARE(dialog->findChild<QLineEdit*>(QStringLiteral("Text2"))->text(), QStringLiteral("63.50"));
  QTest::mouseClick(dialog->findChild<QWidget*>(QStringLiteral("btnOK")), Qt::LeftButton);
  QVERIFY(station.OpenWindow("frmSettings") == nullptr);
  QCOMPARE(station.s.gCarriageOffsetFromRMPFace.text(), std::string("2.5"));
}

void StationWindow::BuildWritesTheProgramAndStartsTheExecutor() {
  Opened opened;
  opened.stage.store.Write("Settings", "gHasUserCheckedCarriageZOffset", "1");
  for (const Typed& typed : kPart) opened.Type(typed.field, typed.text);
  opened.TypeInGrid(1, 2, "90");
  opened.TypeInGrid(2, 2, "45");
  opened.stage.fileDialog.answers.emplace_back(kPath);
  QTest::mouseClick(opened.Find("btnSaveAS"), Qt::LeftButton);
  QTest::keyClick(opened.Find("imgBUILD"), Qt::Key_Space);
  QVERIFY(opened.stage.files.Exists("C:\\Torvane\\TV_G-Code_Files\\Tube.T2G"));
  QCOMPARE(opened.stage.launcher.starts.size(), std::size_t{1});
  QCOMPARE(opened.stage.launcher.starts.front().commandLine,
           std::string("Torvane_Executor.exe C:\\Torvane\\TV_G-Code_Files\\Tube.T2G"));
}

void StationWindow::ClosingAsksAboutChanges() {
  Opened opened;
  opened.Type("txtLengthTotal(0)", "24");
  opened.stage.messageDialog.answers.push_back({true, false});
  opened.stage.fileDialog.answers.emplace_back(kPath);
  opened.program->mainWindow().close();
  QCOMPARE(opened.stage.messageDialog.shown.size(), std::size_t{1});
  QCOMPARE(opened.stage.messageDialog.shown.front().number, 1);
  QVERIFY(opened.stage.files.Exists(kPath));
  QVERIFY(opened.program->station().ended);
  QVERIFY(!opened.program->mainWindow().isVisible());
}

void StationWindow::RowKeysCopyAndDelete() {
  Opened opened;
  for (const Typed& typed : kPart) opened.Type(typed.field, typed.text);
  opened.TypeInGrid(1, 2, "60");
  opened.TypeInGrid(2, 2, "45");
  auto* grid = opened.Find<QTableView>("pic2DGrid");
  const DesignState& s = opened.program->station().s;
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
  Opened opened;
  auto* edit = opened.Find<QLineEdit>("txtLengthTotal(0)");
  opened.Type("txtLengthTotal(0)", "24");
  edit->setFocus();
  QTest::sendKeyEvent(QTest::Click, edit, Qt::Key_unknown, QString(QChar(0x6F22)), Qt::NoModifier);
  QCOMPARE(edit->text(), QStringLiteral("24"));
  QCOMPARE(opened.program->station().s.txtLengthTotal(0).text(), std::string("24"));
}

void StationWindow::UndoBringsTheFormerTextBack() {
  Opened opened;
  opened.Type("txtDiameterLeft", "4");
  opened.Type("txtBandWidth(0)", "0.25");  // keys in one field are one step back
  opened.Type("txtDiameterLeft", "6");
  const DesignState& s = opened.program->station().s;
  const auto trigger = [&](const QKeySequence& keys) {
    for (QAction* action : opened.program->mainWindow().findChildren<QAction*>())
      if (action->shortcut() == keys) return action->trigger();
    QFAIL("no such entry");
  };
  QCOMPARE(s.txtDiameterLeft.text(), std::string("6"));
  trigger(QKeySequence(QStringLiteral("Ctrl+Z")));
  QCOMPARE(s.txtDiameterLeft.text(), std::string("4"));
  QCOMPARE(opened.Find<QLineEdit>("txtDiameterLeft")->text(), QStringLiteral("4"));
  trigger(QKeySequence(QStringLiteral("Ctrl+Shift+Z")));
  QCOMPARE(s.txtDiameterLeft.text(), std::string("6"));
  QCOMPARE(opened.Find<QLineEdit>("txtDiameterLeft")->text(), QStringLiteral("6"));
}

}  // namespace torvane

QTEST_MAIN(torvane::StationWindow)
#include "station_window.moc"
