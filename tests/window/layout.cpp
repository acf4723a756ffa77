// How the main window lays itself out: at every size nothing is cut off or covered, small windows fold, large
// figures are large, the palette reaches every widget.
#include <QAction>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTest>

#include "look/style.h"
#include "stage/stage.h"
#include "window/field/button.h"
#include "window/field/field_widgets.h"
#include "window/field/stepper.h"
#include "window/frame/application.h"
#include "window/grid/layers_view.h"
#include "workbench/document/design_commands.h"

namespace torvane {

namespace {

constexpr const char* kFolder = "C:\\Torvane\\TV_Design_Files\\";

// The window on its stage with a sample, past the start guard.
struct Shown {
  explicit Shown(const char* sample, QSize size = {1280, 800}) {
    const bool fourAxis = QString::fromLatin1(sample).endsWith(QStringLiteral(".t4d"));
    stage.files.MakeFolder("C:\\Torvane\\TV_Design_Files");
    stage.files.MakeFolder("C:\\Torvane\\TV_G-Code_Files");
    stage.store.Write("Settings", "gVersionNumber", "420");
    stage.store.Write("Settings", "mnu2Axis", fourAxis ? "0" : "1");
    QFile file(QStringLiteral(SOURCE_FOLDER "/samples/") + QString::fromLatin1(sample));
    if (!file.open(QIODevice::ReadOnly)) qFatal("no sample %s", sample);
    stage.files.Put(kFolder + std::string(sample), file.readAll().toStdString());
    QApplication::setStyle(new Style(theme));
    program = std::make_unique<WindowProgram>(stage.AsPlatform(), theme);
    stage.clock.Advance(std::chrono::seconds(10));
    program->binder().Do([&] {
      program->station().Tick();
      OpenDesign(program->station(), kFolder + std::string(sample));
    });
    Resize(size);
  }
  void Resize(QSize size) const {
    window().resize(size);
    QCoreApplication::processEvents();
  }
  MainWindow& window() const { return program->mainWindow(); }
  DesignState& s() const { return program->station().s; }
  template <class Kind = QWidget>
  Kind* Find(const char* name) const {
    for (Kind* widget : window().findChildren<Kind*>(QString::fromLatin1(name)))
      if (widget->isVisible()) return widget;
    return nullptr;
  }
  LayersView* Grid() const { return Find<LayersView>(s().gShow4Axis ? "pic3DGrid" : "pic2DGrid"); }
  QAction* Action(const char* name) const { return window().findChild<QAction*>(QString::fromLatin1(name)); }
  QRect Place(const QWidget* widget) const {
    return {widget->mapTo(&window(), QPoint(0, 0)), widget->size()};
  }

  Stage stage;
  Theme theme{false};
  std::unique_ptr<WindowProgram> program;
};

bool IsInputWidget(const QWidget* widget) {
  return dynamic_cast<const FieldEdit*>(widget) != nullptr ||
         dynamic_cast<const FieldList*>(widget) != nullptr ||
         dynamic_cast<const FieldCheck*>(widget) != nullptr || dynamic_cast<const Button*>(widget) != nullptr;
}

QString Named(const QWidget* widget) {
  return widget->objectName().isEmpty() ? widget->accessibleName() : widget->objectName();
}

}  // namespace

class Layout : public QObject {
  Q_OBJECT

 private slots:
  void NothingIsCutOffOrCovered_data();
  void NothingIsCutOffOrCovered();
  void FoldsBelow1100By720();
  void TheFoldedChecklistOpensUpward();
  void FoldedPagesTurnToAMarkedField();
  void FifteenRowsFit();
  void RailAndDrawingTakeTheirShare();
  void LargeFiguresAreLarge();
  void LargeFiguresChangeNoState();
  void AppearanceReachesEveryWidget();
  void AllRowsRowStandsUnderItsColumns();
  void SmallButtonsArePressedByKeys();
  void OffsetsFollowThePartType();
  void FiguresStandBesideTheEndView();
  void SmallButtonsCanBeHit();
};

void Layout::NothingIsCutOffOrCovered_data() {
  QTest::addColumn<QString>("sample");
  QTest::addColumn<QSize>("size");
  QTest::addColumn<bool>("large");
  for (const char* sample : {"Tube-4x24.t2d", "Hemi-Vessel-150mm.t4d", "No-Wrap-Mast.t4d"})
    for (const QSize size :
         {QSize(800, 600), QSize(900, 720), QSize(1099, 800), QSize(1100, 720), QSize(1133, 833),
          QSize(1280, 719), QSize(1280, 800), QSize(1600, 900), QSize(1920, 1080), QSize(3840, 2160)})
      for (const bool large : {false, true})
        QTest::addRow("%s %dx%d%s", sample, size.width(), size.height(), large ? " large" : "")
            << QString::fromLatin1(sample) << size << large;
}

void Layout::NothingIsCutOffOrCovered() {
  QFETCH(QString, sample);
  QFETCH(QSize, size);
  QFETCH(bool, large);
  const Shown shown(sample.toLatin1().constData(), size);
  if (large) shown.window().UseLargeFigures(true);
  QCoreApplication::processEvents();
  QCOMPARE(shown.window().size(), size);
  std::vector<const QWidget*> inputs;
  for (const QWidget* widget : shown.window().findChildren<QWidget*>()) {
    if (!widget->isVisible() || !IsInputWidget(widget)) continue;
    // What mends a finding scrolls with its line.
    if (qobject_cast<const QAbstractScrollArea*>(widget->parentWidget()->parentWidget()) != nullptr) continue;
    // Inside everything that it stands on.
    const QWidget* inner = widget;
    QRect box = widget->rect();
    while (inner != &shown.window()) {
      box.translate(inner->pos());
      inner = inner->parentWidget();
      QVERIFY2(inner->rect().contains(box),
               qPrintable(Named(widget) + QStringLiteral(" leaves ") +
                          QString::fromLatin1(inner->metaObject()->className())));
    }
    // Its text has room.
    if (const auto* edit = dynamic_cast<const FieldEdit*>(widget)) {
      const QMargins margins = edit->textMargins();
      // The toolkit keeps 2 pixels for itself at either side.
      const int room = edit->width() - margins.left() - margins.right() - 4;
      QVERIFY2(edit->fontMetrics().horizontalAdvance(edit->text()) <= room,
               qPrintable(Named(widget) + QLatin1Char(' ') + edit->text()));
    } else if (dynamic_cast<const FieldCheck*>(widget) == nullptr) {
      QVERIFY2(widget->height() >= 22 && widget->width() >= 22, qPrintable(Named(widget)));
    }
    inputs.push_back(widget);
  }
  QVERIFY(inputs.size() >= 3);
  for (const QWidget* one : inputs)
    for (const QWidget* other : inputs)
      QVERIFY2(one >= other || !shown.Place(one).intersects(shown.Place(other)),
               qPrintable(Named(one) + QStringLiteral(" covers ") + Named(other)));
  // The schedule's columns fill it, none beyond its edge.
  const LayersView* grid = shown.Grid();
  QVERIFY(grid != nullptr);
  int last = 0;
  for (int column = 0; column < grid->model()->columnCount(); ++column)
    if (!grid->isColumnHidden(column)) last = column;
  QVERIFY(grid->columnViewportPosition(last) + grid->columnWidth(last) <= grid->viewport()->width());
  QVERIFY(grid->rowHeight() >= (large ? 46 : 22));
}

void Layout::FoldsBelow1100By720() {
  const Shown shown("Tube-4x24.t2d");
  QCOMPARE(shown.window().minimumSize(), QSize(800, 600));
  const struct {
    QSize size;
    bool folded;
  } cases[] = {{{1280, 800}, false}, {{1133, 833}, false}, {{1100, 720}, false}, {{1099, 720}, true},
               {{1100, 719}, true},  {{800, 600}, true},   {{1280, 800}, false}};
  for (const auto& at : cases) {
    shown.Resize(at.size);
    QCOMPARE(shown.Find("foldedRail") != nullptr, at.folded);
    QCOMPARE(shown.Find("checklist") != nullptr, !at.folded);
    QCOMPARE(shown.Find("marks") != nullptr, !at.folded);
    QCOMPARE(shown.Find("lblBuildTime(0)") != nullptr, !at.folded);
    // What the operator needs at every size.
    for (const char* always : {"imgBUILD", "txtDiameterLeft", "txtZ2(1)", "txtNumberOfLayers(0)", "optX(1)",
                               "txtStepSize2Ax", "lblStatusBar2", "Command2", "toolUndo"})
      QVERIFY2(shown.Find(always) != nullptr, always);
  }
  shown.Resize({800, 600});
  QCOMPARE(shown.Find("drawing2Axis")->height(), 84);
  // Words gave way to icons, which say in their tool tips what they are.
  for (const char* tool : {"mnuNewFile", "btnOPen", "btnSaveAS", "lblGoTrace", "lblHome", "Command2"}) {
    const auto* button = shown.Find<QAbstractButton>(tool);
    QVERIFY2(button->text().isEmpty() && !button->toolTip().isEmpty() && !button->accessibleName().isEmpty(),
             tool);
  }
  shown.Resize({1280, 800});
  for (const char* tool : {"mnuNewFile", "lblHome", "Command2"})
    QVERIFY2(!shown.Find<QAbstractButton>(tool)->text().isEmpty(), tool);
}

void Layout::TheFoldedChecklistOpensUpward() {
  const Shown shown("Tube-4x24.t2d", {800, 600});
  shown.window().activateWindow();
  auto* button = shown.Find<QAbstractButton>("foldedChecklist");
  QTest::mouseClick(button, Qt::LeftButton);
  const QWidget* checklist = shown.Find("checklist");
  QVERIFY(checklist != nullptr);
  const QRect place = shown.Place(checklist);
  QVERIFY(shown.window().rect().contains(place));
  QVERIFY(place.bottom() < shown.Place(shown.Find("foldedRail")).top());
  for (const char* name : {"chkPreWrap1", "cmbHGRPM", "txtHGSpeedMM", "chkNotify2"}) {
    const QWidget* field = shown.Find(name);
    QVERIFY2(field != nullptr && place.contains(shown.Place(field)), name);
  }
  QWidget* first = shown.Find("chkPreWrap1");
  QTest::keyClick(first, Qt::Key_Space);
  QVERIFY(shown.s().chkPreWrap1.checked());
  QTest::keyClick(first, Qt::Key_Escape);
  QVERIFY(shown.Find("checklist") == nullptr);
  // So does the proof; one of the two is open.
  auto* proof = shown.Find<QAbstractButton>("foldedProof");
  QTest::mouseClick(button, Qt::LeftButton);
  QTest::mouseClick(proof, Qt::LeftButton);
  QVERIFY(shown.Find("checklist") == nullptr && shown.Find("marks") != nullptr);
  QVERIFY(shown.window().rect().contains(shown.Place(shown.Find("marks"))));
  QVERIFY(shown.Place(shown.Find("marks")).bottom() < shown.Place(shown.Find("foldedRail")).top());
  QTest::keyClick(&shown.window(), Qt::Key_P, Qt::ControlModifier);
  QVERIFY(shown.Find("marks") == nullptr);
  // A wider window takes it back into the rail.
  QTest::mouseClick(button, Qt::LeftButton);
  shown.Resize({1280, 800});
  QVERIFY(shown.Find("checklist")->parentWidget() == shown.Find("imgBUILD")->parentWidget());
}

void Layout::FoldedPagesTurnToAMarkedField() {
  const Shown shown("Hemi-Vessel-150mm.t4d", {800, 600});
  QVERIFY(shown.Find("txtZ4(0)") != nullptr);
  QVERIFY(shown.Find("txtAdjust(3)") == nullptr);
  shown.window().GoTo(shown.s().txtAdjust(3));
  QVERIFY(shown.Find("txtAdjust(3)") != nullptr);
  QVERIFY(shown.Find("txtZ4(0)") == nullptr);
  shown.window().GoTo(shown.s().txtZ4(1));
  QVERIFY(shown.Find("txtZ4(1)") != nullptr);
  shown.Resize({1280, 800});
  QVERIFY(shown.Find("txtZ4(1)") != nullptr && shown.Find("txtAdjust(3)") != nullptr);
}

void Layout::FifteenRowsFit() {
  const Shown shown("Tube-4x24.t2d", {1280, 800});
  shown.program->binder().Type(shown.s().txtNumberOfLayers(0), "15");
  QCoreApplication::processEvents();
  const LayersView* grid = shown.Grid();
  QCOMPARE(grid->model()->rowCount(), 15);
  QVERIFY(grid->rowHeight() >= 22);
  QCOMPARE(grid->verticalScrollBar()->maximum(), 0);
  QVERIFY(grid->rowViewportPosition(14) + grid->rowHeight() <= grid->viewport()->height());
  // In the smallest window they scroll, and head and rows keep their place.
  shown.Resize({800, 600});
  QCOMPARE(grid->rowHeight(), 22);
  QVERIFY(grid->verticalScrollBar()->maximum() > 0);
}

void Layout::RailAndDrawingTakeTheirShare() {
  const Shown shown("Tube-4x24.t2d", {1280, 800});
  const auto rail = [&] { return shown.Find("imgBUILD")->width(); };
  const auto drawing = [&] { return shown.Find("drawing2Axis")->height(); };
  QCOMPARE(rail(), 326);
  const int usual = drawing();
  shown.Resize({1133, 833});
  QVERIFY(rail() < 326 && rail() >= 300);
  shown.Resize({1600, 800});
  QCOMPARE(rail(), 380);
  QCOMPARE(drawing(), usual);
  // Of 280 pixels more the drawing takes 60 %.
  shown.Resize({1600, 1080});
  QCOMPARE(drawing(), usual + 168);
  shown.Resize({3840, 2160});
  QCOMPARE(rail(), 380);
  QCOMPARE(shown.Grid()->rowHeight(), 36);
  QCOMPARE(shown.Find("txtDiameterLeft")->size(), QSize(76, 30));
}

void Layout::LargeFiguresAreLarge() {
  const Shown shown("Tube-4x24.t2d", {1280, 800});
  shown.Action("viewLargeFigures")->trigger();
  QCoreApplication::processEvents();
  LayersView* grid = shown.Grid();
  QCOMPARE(grid->rowHeight(), 53);
  QCOMPARE(shown.theme.FigureFont(14).pixelSize(), 24);
  for (const char* target : {"imgBUILD", "lblGoTrace", "lblHome", "lblManualOperation", "smallFigures",
                             "chkPreWrap1", "chkWindingSchedule", "chkHeatGunApp"}) {
    const QWidget* widget = shown.Find(target);
    QVERIFY2(widget != nullptr && widget->height() >= 46, target);
  }
  QVERIFY(shown.Find("txtDiameterLeft") == nullptr && shown.Find("cmbHGRPM") == nullptr);
  // A cell is typed in with the same large figures.
  grid->setFocus();
  grid->setCurrentIndex(grid->model()->index(1, 2));
  QTest::keyClick(grid, '3');
  auto* editor = grid->viewport()->findChild<QLineEdit*>();
  QVERIFY(editor != nullptr);
  QCOMPARE(editor->font().pixelSize(), 24);
  QTest::keyClick(editor, Qt::Key_Escape);
  // Keys of the menu bar work though it is not there.
  shown.window().activateWindow();
  QTest::keyClick(&shown.window(), Qt::Key_L, Qt::ControlModifier);
  QCoreApplication::processEvents();
  QVERIFY(!shown.theme.large());
  QVERIFY(shown.Find("txtDiameterLeft") != nullptr && shown.Find("cmbHGRPM") != nullptr);
}

void Layout::LargeFiguresChangeNoState() {
  const Shown shown("Tube-4x24.t2d", {1133, 833});
  shown.Grid()->setFocus();
  const LiveWatch& live = *shown.program->desk().live;
  QTRY_VERIFY(live.result() != nullptr && live.result()->formed && !live.proving());
  const auto before = shown.window().grab().toImage();
  const auto snapshot = shown.s().TakeSnapshot();
  shown.window().UseLargeFigures(true);
  QCoreApplication::processEvents();
  QVERIFY(shown.window().grab().toImage() != before);
  QTest::mouseClick(shown.Find("smallFigures"), Qt::LeftButton);
  QCoreApplication::processEvents();
  QVERIFY(shown.s().HasTextsOf(snapshot));
  QVERIFY(!shown.s().gDirty);
  QCOMPARE(shown.window().grab().toImage(), before);
}

void Layout::AppearanceReachesEveryWidget() {
  const Shown shown("Hemi-Vessel-150mm.t4d", {1280, 800});
  const auto stored = shown.stage.store.All();
  const auto light = [&] {
    const QImage image = shown.window().grab().toImage();
    int pale = 0;
    for (int y = 0; y < image.height(); y += 2)
      for (int x = 0; x < image.width(); x += 2) pale += image.pixelColor(x, y).lightness() > 225 ? 1 : 0;
    return pale * 400 / (image.width() * image.height());
  };
  QVERIFY(light() > 80);
  shown.Action("appearanceDark")->trigger();
  QVERIFY2(light() < 4, qPrintable(QString::number(light())));
  shown.Action("appearanceLight")->trigger();
  QVERIFY(light() > 80);
  shown.Action("appearanceDark")->trigger();
  // Kept in a section of its own; the station's entries are as they were.
  QCOMPARE(shown.stage.store.Read("Designer_Window", "Appearance"), std::optional<std::string>("dark"));
  for (const auto& entry : stored)
    QCOMPARE(shown.stage.store.Read(entry.section, entry.key), std::optional<std::string>(entry.value));
  QVERIFY(StoredAppearance(shown.stage.store) == Appearance::Dark);
  shown.Action("appearanceLight")->trigger();
}

void Layout::AllRowsRowStandsUnderItsColumns() {
  const Shown shown("Tube-4x24.t2d", {1280, 800});
  QVERIFY(shown.Find("txtWA(26)") == nullptr);
  shown.Action("mnuAllRows")->trigger();
  QCoreApplication::processEvents();
  const LayersView* grid = shown.Grid();
  const struct {
    const char* name;
    int column;
  } cells[] = {
      {"txtWA(26)", 2}, {"cmbSpeed(26)", 3}, {"cmbMethod(26)", 4}, {"txtAddRevs(26)", 5}, {"txtMRPM(26)", 6}};
  for (const auto& cell : cells) {
    const QWidget* widget = shown.Find(cell.name);
    QVERIFY2(widget != nullptr, cell.name);
    const QRect place = shown.Place(widget);
    const int left = shown.Place(grid).left() + grid->columnViewportPosition(cell.column);
    QVERIFY2(place.left() >= left && place.right() < left + grid->columnWidth(cell.column), cell.name);
    QVERIFY(place.top() > shown.Place(grid).bottom());
  }
  auto* angle = shown.Find<QLineEdit>("txtWA(26)");
  QTest::keyClicks(angle, QStringLiteral("45"));
  for (int row = 1; row <= RowsOf(shown.s().txtNumberOfLayers(0)); ++row)
    QCOMPARE(shown.s().txtWA(row).text(), std::string("45.00"));
  shown.Action("mnuAllRows")->trigger();
  QVERIFY(shown.Find("txtWA(26)") == nullptr);
}

void Layout::SmallButtonsArePressedByKeys() {
  const Shown shown("Tube-4x24.t2d");
  shown.window().activateWindow();
  auto* count = shown.Find<QLineEdit>("txtNumberOfLayers(0)");
  count->setFocus();
  const int rows = RowsOf(shown.s().txtNumberOfLayers(0));
  QTest::keyClick(count, Qt::Key_Up, Qt::ControlModifier);
  QCOMPARE(RowsOf(shown.s().txtNumberOfLayers(0)), rows + 1);
  QTest::keyClick(count, Qt::Key_Down, Qt::ControlModifier);
  QCOMPARE(RowsOf(shown.s().txtNumberOfLayers(0)), rows);
  // The step's keys shift both stops, with the right one to the right.
  auto* step = shown.Find<QLineEdit>("txtStepSize2Ax");
  step->setFocus();
  const double before = number(shown.s().txtZ2(1)).value();
  QTest::keyClick(step, Qt::Key_Up, Qt::ControlModifier);
  QCOMPARE(number(shown.s().txtZ2(1)).value(), before - number(shown.s().txtStepSize2Ax).value());
}

void Layout::OffsetsFollowThePartType() {
  const Shown shown("Hemi-Vessel-150mm.t4d");
  QVERIFY(shown.Find("txtAdjust(0)") != nullptr && shown.Find("txtZ4(1)") != nullptr);
  QVERIFY(shown.Find("picPolar") != nullptr);
  QTest::mouseClick(shown.Find("optType(2)"), Qt::LeftButton);
  QCoreApplication::processEvents();
  for (const char* absent : {"txtAdjust(0)", "txtAdjust(6)", "txtZ4(1)", "txtPODia(0)", "picPolar"})
    QVERIFY2(shown.Find(absent) == nullptr, absent);
  QVERIFY(shown.Find("txtAdjust(3)") != nullptr && shown.Find("lblMinutes(26)") != nullptr);
}

// Groups, circuits, rotation and grazing angle, one line each in a low window.
void Layout::FiguresStandBesideTheEndView() {
  for (const QSize size : {QSize(1100, 720), QSize(1133, 833), QSize(1280, 800)}) {
    const Shown shown("Hemi-Vessel-150mm.t4d", size);
    const std::string pattern = shown.s().cmbPattern(1).text();
    shown.program->binder().Choose(shown.s().cmbPattern(1), pattern);
    QCoreApplication::processEvents();
    QWidget* panel = shown.Find("picPolar");
    const QImage picture = panel->grab().toImage();
    const QRgb figures = shown.theme[Token::Figures].rgb();
    int found = 0;
    int last = 0;  // row of a figure
    for (int y = 30; y < panel->height() - 100; ++y) {
      bool any = false;
      for (int x = panel->width() - 130; x < panel->width() - 8; ++x) any |= picture.pixel(x, y) == figures;
      if (any && y - last > 4) ++found;
      if (any) last = y;
    }
    QVERIFY2(found == 4, qPrintable(QStringLiteral("%1 at %2").arg(found).arg(size.width())));
  }
}

void Layout::SmallButtonsCanBeHit() {
  for (const char* sample : {"Tube-4x24.t2d", "Hemi-Vessel-150mm.t4d"})
    for (const QSize size : {QSize(800, 600), QSize(1100, 720), QSize(1280, 800)}) {
      const Shown shown(sample, size);
      shown.window().GoTo(shown.s().txtAdjust(3));
      QCoreApplication::processEvents();
      int seen = 0;
      for (const Stepper* stepper : shown.window().findChildren<Stepper*>())
        for (const Button* button : stepper->findChildren<Button*>()) {
          if (!button->isVisible()) continue;
          ++seen;
          QVERIFY2(button->width() >= 24 && button->height() >= 24, qPrintable(Named(button)));
        }
      QVERIFY(seen >= 4);
    }
}

}  // namespace torvane

QTEST_MAIN(torvane::Layout)
#include "layout.moc"
