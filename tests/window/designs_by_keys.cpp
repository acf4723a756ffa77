// Whole designs by keys alone, against what the `torvane` program makes of the same keys.
#include <QMenu>

#include "on_stage.h"

namespace torvane {

namespace {

// The offset is confirmed, so that a build goes through.
const StoreEntries kReady = {{"gHasUserCheckedCarriageZOffset", "1"},
                             {"gCarriageOffsetFromRMPFace", "1.875"},
                             {"gDHYtoMandrelCenter", "4.625"}};

void TypeTwoAxisDesign(WindowOnStage& station) {
  station.Find(QStringLiteral("txtLengthTotal(0)"))->setFocus();
  // Empty: the stop is passed by.
  for (const char* text : {"24", "0.25", "", "0.01", "", "4", "28", "4", "4", "3"}) {
    if (*text != '\0') station.TypeHere(text);
    station.Key(Qt::Key_Tab);
  }
  DesignState& s = station.s();
  for (const auto& [row, angle] : {std::pair{1, "90"}, {2, "45"}, {3, "30.5"}}) {
    station.TypeInCell(s.txtWA(row), angle);
    station.Key(Qt::Key_Return);
  }
  station.ChooseInCell(s.cmbSpeed(2), "slow");
  station.ChooseInCell(s.cmbMethod(3), "cs");
  station.TypeInCell(s.txtAddRevs(2), "45");
  station.Key(Qt::Key_Return);
}

void TypeFourAxisDesign(WindowOnStage& station) {
  DesignState& s = station.s();
  station.Click(QStringLiteral("optType(1)"));
  station.Note("check optType(1) on");
  for (const auto& [field, text] : {std::pair{"txtDia(0)", "4"},
                                    {"txtDia(1)", "4"},
                                    {"txtPODia(0)", "1"},
                                    {"txtPODia(1)", "1"},
                                    {"txtZ4(0)", "32"},
                                    {"txtZ4(1)", "30"},
                                    {"txtZ4(2)", "6"},
                                    {"txtZ4(3)", "4"},
                                    {"txtBandWidth(1)", "2"},
                                    {"txtBandThickness(1)", "0.012"},
                                    {"txtAdjust(0)", "1.5"},
                                    {"txtAdjust(1)", "31.5"},
                                    {"txtAdjust(2)", "30"},
                                    {"txtAdjust(3)", "0.5"},
                                    {"txtAdjust(4)", "6"},
                                    {"txtAdjust(5)", "4.5"},
                                    {"txtAdjust(6)", "1.5"},
                                    {"txtNumberOfLayers(1)", "3"}})
    station.Type(field, text);
  station.ChooseInCell(s.cmbPhiW(1), "180°");
  station.ChooseInCell(s.cmbPhiSplit(1), "45°");
  station.ChooseInCell(s.cmbPattern(1), "21.44 | 2 x 3 | 180°");
  station.ChooseInCell(s.cmb3D(2), "HOOP");
  station.ChooseInCell(s.cmbPhiW(3), "170°");
  station.ChooseInCell(s.cmbPhiSplit(3), "40°");
  station.ChooseInCell(s.cmbPattern(3), "19.98 | 3 x 2 | 170°");
  station.GoToCell(s.chkPause(3));
  station.Key(Qt::Key_Space);
  station.Note("check chkPause(3) on");
}

void Compare(const std::string& window, const std::string& program) {
  QVERIFY2(window == program, FirstDifference(window, program).c_str());
}

struct Built {
  std::string design, program;
  std::string told;  // by torvane
};

// Saves under a new name and builds, by keys. Both files are those that torvane makes of the same design.
Built SaveAndBuild(WindowOnStage& station, const StoreEntries& entries, const std::string& designName,
                   const std::string& programName) {
  station.stage.fileDialog.answers.emplace_back(kDesigns + designName);
  station.Key(Qt::Key_S, Qt::ControlModifier);
  station.Note("file TV_Design_Files/" + designName);
  station.Note("click mnuSaveFile");
  station.Key(Qt::Key_F9);
  station.Note("click mnuBeginWinding");
  const TorvaneProgram torvane(entries);
  const std::string told = torvane.Follow(station.script);
  const auto fileOf = [&](const char* folder, const std::string& name) {
    const auto text = station.stage.files.ReadWhole(folder + name);
    return text ? text.value() : "<no file " + name + ">";
  };
  const std::string design = fileOf(kDesigns, designName), program = fileOf(kPrograms, programName);
  Compare(design, torvane.FileAt(QStringLiteral("TV_Design_Files/") + QString::fromStdString(designName)));
  Compare(program, torvane.FileAt(QStringLiteral("TV_G-Code_Files/") + QString::fromStdString(programName)));
  return {design, program, told};
}

}  // namespace

class DesignsByKeys : public QObject {
  Q_OBJECT

 private slots:
  void TwoAxisFilesAreThoseOfTheProgram();
  void FourAxisFilesAreThoseOfTheProgram();
  void RowMenuByRightClick();
  void JogButtonsAndPartTypes();
};

void DesignsByKeys::TwoAxisFilesAreThoseOfTheProgram() {
  WindowOnStage station(kReady);
  TypeTwoAxisDesign(station);
  const Built built = SaveAndBuild(station, kReady, "Tube.t2d", "Tube.T2G");
  QVERIFY(built.program.size() > 2000);
  QCOMPARE(station.stage.launcher.starts.size(), std::size_t{1});
  QVERIFY(built.told.find("start: Torvane_Executor.exe <home>\\TV_G-Code_Files\\Tube.T2G") !=
          std::string::npos);
}

void DesignsByKeys::FourAxisFilesAreThoseOfTheProgram() {
  StoreEntries ready = kReady;
  ready.emplace_back("mnu2Axis", "0");
  WindowOnStage station(ready);
  TypeFourAxisDesign(station);
  const Built built = SaveAndBuild(station, ready, "Vessel.t4d", "Vessel.T4G");
  QVERIFY2(built.told.find("message 31") != std::string::npos, built.told.c_str());
  QVERIFY(built.design.find("<Layer>3;REG;1;") != std::string::npos);
  QVERIFY(built.program.size() > 2000);
}

void DesignsByKeys::RowMenuByRightClick() {
  WindowOnStage station(kReady);
  TypeTwoAxisDesign(station);
  const auto choose = [&](int row, const QString& caption, const char* control) {
    QTableView* grid = station.Grid();
    bool found = false;
    WhenShown<QMenu>([&](QMenu& menu) {
      for (QAction* action : menu.actions()) {
        station.Key(Qt::Key_Down);
        while (menu.activeAction() != nullptr && menu.activeAction()->isSeparator())
          station.Key(Qt::Key_Down);
        if (menu.activeAction() == nullptr || menu.activeAction()->text().remove(u'&') != caption) continue;
        found = action != nullptr;
        station.Key(Qt::Key_Return);
        return;
      }
      menu.close();
    });
    QTest::mouseClick(grid->viewport(), Qt::RightButton, {},
                      grid->visualRect(grid->model()->index(row - 1, 0)).center());
    QVERIFY2(found, qPrintable(caption));
    for (const char* event : {"press", "release"})
      station.Note(std::string(event) + " btn2XRow(" + std::to_string(row) + ") right");
    station.Note(std::string("click ") + control);
  };
  choose(2, QStringLiteral("Copy Row"), "mnuCopy");
  choose(1, QStringLiteral("Paste Row"), "mnuPaste");
  choose(3, QStringLiteral("Delete Row"), "mnuDeleteRow");
  QCOMPARE(station.s().txtWA(1).text(), station.s().txtWA(2).text());
  QCOMPARE(station.Grid()->model()->rowCount(), 2);
  const TorvaneProgram torvane(kReady);
  Compare(StateOf(station.station()), torvane.StateAfter(station.script));
}

void DesignsByKeys::JogButtonsAndPartTypes() {
  StoreEntries ready = kReady;
  ready.emplace_back("mnu2Axis", "0");
  WindowOnStage station(ready);
  TypeFourAxisDesign(station);
  station.Type("txtStepSize4Ax", "0.25");
  // With the drive at the right, Z grows to the left: Ctrl+Up presses the right or upper button.
  const struct {
    const char* field;
    Qt::Key key;
    const char* line;
  } jogs[] = {{"txtAdjust(0)", Qt::Key_Up, "release btnLeftCloser(1) left"},
              {"txtAdjust(0)", Qt::Key_Down, "release btnLeftCloser(0) left"},
              {"txtAdjust(1)", Qt::Key_Up, "click btnLDHZ(1)"},
              {"txtAdjust(2)", Qt::Key_Up, "release btnLeft(0) left"},
              {"txtAdjust(3)", Qt::Key_Down, "release btnCloser(0) left"},
              {"txtAdjust(3)", Qt::Key_Up, "release btnCloser(1) left"},
              {"txtAdjust(4)", Qt::Key_Down, "release btnRight(1) left"},
              {"txtAdjust(5)", Qt::Key_Down, "click btnRDHZ(0)"},
              {"txtAdjust(6)", Qt::Key_Up, "release btnRightCloser(1) left"},
              {"txtStepSize4Ax", Qt::Key_Up, "click btnLR(1)"},
              {"txtStepSize4Ax", Qt::Key_Down, "click btnLR(0)"},
              {"txtStepSize4Ax", Qt::Key_Down, "click btnLR(0)"}};
  for (const auto& jog : jogs) {
    station.Find(QString::fromLatin1(jog.field))->setFocus();
    station.Key(jog.key, Qt::ControlModifier);
    station.Note(jog.line);
  }
  QCOMPARE(station.s().txtAdjust(6).text(), std::string("1.75"));
  QCOMPARE(station.s().txtZ4(0).text(), std::string("32.25"));
  const TorvaneProgram torvane(ready);
  const auto compare = [&] { Compare(StateOf(station.station()), torvane.StateAfter(station.script)); };
  compare();
  // The buttons themselves. The arrow says where the part goes, so its member changes with the drive.
  const auto press = [&](const char* button) {
    station.Click(QString::fromLatin1(button));
    station.Note(std::string("click ") + button);
  };
  const auto standsLeft = [&](const char* button, const char* of) {
    return station.Find(QString::fromLatin1(button))->x() < station.Find(QString::fromLatin1(of))->x();
  };
  QVERIFY(standsLeft("btnLR(0)", "btnLR(1)") && standsLeft("btnLDHZ(0)", "btnLDHZ(1)"));
  QVERIFY(standsLeft("btnCloser(0)", "btnCloser(1)"));
  for (const char* button : {"btnLR(0)", "btnLDHZ(1)", "btnRDHZ(0)"}) press(button);
  compare();
  station.program->binder().Do([&] { station.s().gIsLHDrive = true; });
  QVERIFY(standsLeft("btnLR(1)", "btnLR(0)") && standsLeft("btnLDHZ(1)", "btnLDHZ(0)"));
  QVERIFY(standsLeft("btnCloser(0)", "btnCloser(1)"));
  station.program->binder().Do([&] { station.s().gIsLHDrive = false; });
  for (const int type : {0, 2, 1}) {
    station.Click(QStringLiteral("optType(%1)").arg(type));
    station.Note("check optType(" + std::to_string(type) + ") on");
    compare();
  }
  // The type is taken back as a whole.
  QVERIFY(station.station().Undo());
  QVERIFY(station.s().optType(2).checked() && !station.s().optType(1).checked());
}

}  // namespace torvane

QTEST_MAIN(torvane::DesignsByKeys)
#include "designs_by_keys.moc"
