// The preview window: it plays a pattern to its end, pauses, is closed in mid-drawing, tells where the
// pointer stands and saves its picture.
#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QMenu>
#include <QXmlStreamReader>

#include "on_stage.h"
#include "workbench/dialog/preview.h"
#include "workbench/document/design_commands.h"

namespace torvane {

namespace {

// A vessel of 150 mm; its first layer has 2 groups of 39 circuits.
constexpr const char* kVessel = "Hemi-Vessel-150mm.t4d";
constexpr int kGroups = 2, kCircuits = 39;
constexpr double kRadius = 75;

class Preview : public WindowOnStage {
 public:
  Preview() : WindowOnStage(StoreEntries{{"mnu2Axis", "0"}}) {
    QFile sample(QStringLiteral(SOURCE_FOLDER "/samples/") + QString::fromLatin1(kVessel));
    if (!sample.open(QIODevice::ReadOnly)) qFatal("no sample");
    stage.files.Put(std::string(kDesigns) + kVessel, sample.readAll().toStdString());
    program->binder().Do([this] { OpenDesign(station(), std::string(kDesigns) + kVessel); });
    // A click on the row's number.
    QTableView* grid = Grid();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                      grid->visualRect(grid->model()->index(0, 0)).center());
    dialog = DialogOf("frmPolar");
  }

  // Lets the next timers of the drawing run out; false once none is left.
  bool Step() {
    const auto due =
        station().timers.tmrStartDraw.due ? station().timers.tmrStartDraw.due : station().timers.tmrDraw.due;
    if (!due) return false;
    stage.clock.Set(*due);
    program->binder().Do([this] { station().Tick(); });
    QCoreApplication::processEvents();
    return true;
  }
  std::string Text(const char* field) { return station().FindField(field)->text(); }
  QString Progress() const {
    return dialog->findChild<QWidget*>(QStringLiteral("progress"))->accessibleName();
  }
  template <class Kind = QAbstractButton>
  Kind* Part(const char* name) const {
    return dialog->findChild<Kind*>(QString::fromLatin1(name));
  }
  std::ptrdiff_t Chords() {
    const auto& figures = LastDrawing(station());
    return std::count_if(figures.begin(), figures.end(),
                         [](const PolarFigure& f) { return f.kind == PolarKind::Chord; });
  }

  QWidget* dialog = nullptr;
};

}  // namespace

class PreviewOnScreen : public QObject {
  Q_OBJECT

 private slots:
  void RunsToItsEnd();
  void IsClosedInMidDrawing();
  void PausesAndPlays();
  void SpeedIsChosenByKeysAndKept();
  void TellsWhereThePointerStands();
  void SavesItsPicture();
  void AnotherRowTakesItsPlace();
  void SaysWhyAPictureWasNotSaved();
};

void PreviewOnScreen::RunsToItsEnd() {
  Preview preview;
  QVERIFY(preview.dialog != nullptr && preview.dialog->isVisible());
  QCOMPARE(preview.dialog->windowModality(), Qt::NonModal);
  QCOMPARE(preview.Text("lblPolarTag"), preview.s().cmbPattern(1).text());
  int steps = 0;
  while (preview.Step()) QVERIFY(++steps < 1000);
  QCOMPARE(preview.Text("lblCircuitNo"), std::to_string(kCircuits));
  QCOMPARE(preview.Text("lblPassNo"), std::to_string(kGroups));
  QCOMPARE(preview.Progress(), QStringLiteral("78 of 78 passes drawn"));
  // The last pass gets neither mark nor chord.
  QCOMPARE(preview.Chords(), kGroups * kCircuits - 1);
  QTest::mouseClick(preview.Part("btnRedraw"), Qt::LeftButton);
  QCOMPARE(preview.Progress(), QStringLiteral("1 of 78 passes drawn"));
}

void PreviewOnScreen::IsClosedInMidDrawing() {
  for (const bool byCross : {true, false}) {
    Preview preview;
    for (int i = 0; i < 10; ++i) QVERIFY(preview.Step());
    if (byCross)
      preview.dialog->close();
    else
      QTest::mouseClick(preview.Part("btnClose"), Qt::LeftButton);
    QVERIFY(preview.DialogOf("frmPolar") == nullptr);
    QVERIFY(!preview.station().timers.tmrDraw.due);
    QVERIFY(!preview.Step());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(preview.window().isVisible());
  }
}

void PreviewOnScreen::PausesAndPlays() {
  Preview preview;
  for (int i = 0; i < 5; ++i) preview.Step();
  auto* pause = preview.Part("btnPause");
  auto* play = preview.Part("btnPlay");
  QVERIFY(pause->isEnabled() && !play->isEnabled());
  QTest::mouseClick(pause, Qt::LeftButton);
  QTRY_VERIFY(!pause->isEnabled() && play->isEnabled());
  // The pass that is drawn next still comes.
  while (preview.Step()) continue;
  const auto held = preview.Chords();
  QVERIFY(held < 10);
  QTest::mouseClick(play, Qt::LeftButton);
  while (preview.Step()) continue;
  QCOMPARE(preview.Chords(), kGroups * kCircuits - 1);
}

void PreviewOnScreen::SpeedIsChosenByKeysAndKept() {
  Preview preview;
  QVERIFY(WindowOnStage::Activate(*preview.dialog));
  QCOMPARE(preview.Text("cmbSpeed"), std::string("1x"));
  preview.Part<QWidget>("cmbSpeed")->setFocus();
  preview.Key(Qt::Key_Right);
  QCOMPARE(preview.Text("cmbSpeed"), std::string("2x"));
  preview.Keys("4");
  QCOMPARE(preview.Text("cmbSpeed"), std::string("4x"));
  QCOMPARE(preview.stage.store.Read("Settings", "cmbSpeed").value_or(""), std::string("4x"));
  preview.Step();
  preview.Step();
  QCOMPARE(preview.station().timers.tmrDraw.interval.count(), 10);
}

void PreviewOnScreen::TellsWhereThePointerStands() {
  Preview preview;
  preview.Step();
  auto* canvas = preview.Part<QWidget>("picPreview");
  // The ticks reach 1.2 times the radius, and the margin is 14 pixels.
  const double pixel = 1.2 * kRadius / (std::min(canvas->width(), canvas->height()) / 2.0 - 14);
  const QPoint centre = canvas->rect().center();
  const auto move = [canvas](const QPoint& to) {
    QMouseEvent event(QEvent::MouseMove, to, canvas->mapToGlobal(to), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(canvas, &event);
  };
  move(centre + QPoint(100, 0));
  QTRY_VERIFY(!preview.Text("lblX").empty());
  QVERIFY2(std::abs(QString::fromStdString(preview.Text("lblX")).toDouble() - 100 * pixel) < 2 * pixel,
           preview.Text("lblX").c_str());
  QVERIFY(std::abs(QString::fromStdString(preview.Text("lblY")).toDouble()) < 2 * pixel);
  move(centre + QPoint(0, 100));
  QTRY_VERIFY(QString::fromStdString(preview.Text("lblY")).toDouble() < -90 * pixel);
  QVERIFY2(preview.Text("lblRadius").ends_with(" mm"), preview.Text("lblRadius").c_str());
  QVERIFY2(preview.Text("lblAngle").starts_with("27") || preview.Text("lblAngle").starts_with("26"),
           preview.Text("lblAngle").c_str());

  // Where nothing is drawn there is no place to tell.
  WindowOnStage blank;
  blank.program->binder().Do([&blank] { ShowPreview(blank.station()); });
  canvas = blank.DialogOf("frmPolar")->findChild<QWidget*>(QStringLiteral("picPreview"));
  QMouseEvent event(QEvent::MouseMove, QPoint(200, 200), canvas->mapToGlobal(QPoint(200, 200)), Qt::NoButton,
                    Qt::NoButton, {});
  QApplication::sendEvent(canvas, &event);
  QCOMPARE(blank.station().FindField("lblX")->text(), std::string());
}

void PreviewOnScreen::SavesItsPicture() {
  Preview preview;
  for (int i = 0; i < 20; ++i) preview.Step();
  auto* canvas = preview.Part<QWidget>("picPreview");
  const auto save = [&](int entry, const std::string& path) {
    preview.stage.fileDialog.answers.emplace_back(path);
    WhenShown<QMenu>([&preview, entry](QMenu&) {
      for (int i = 0; i < entry; ++i) preview.Key(Qt::Key_Down);
      preview.Key(Qt::Key_Return);
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, canvas->rect().center(),
                            canvas->mapToGlobal(canvas->rect().center()));
    QApplication::sendEvent(canvas, &event);
    return QByteArray::fromStdString(preview.stage.files.ReadWhole(path).value());
  };
  const QByteArray svg = save(2, std::string(kDesigns) + "row.svg");
  const auto& asked = preview.stage.fileDialog.asked.back();
  QVERIFY(asked.save);
  QCOMPARE(asked.folder, std::string("C:\\Torvane\\TV_Design_Files"));
  QCOMPARE(asked.proposedName, std::string("Hemi-Vessel-150mm-layer-1.svg"));
  QXmlStreamReader reader(svg);
  while (!reader.atEnd()) reader.readNext();
  QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
  QCOMPARE(svg.count("<line"), preview.Chords() + 4);
  const QImage png = QImage::fromData(save(1, std::string(kDesigns) + "row.png"), "PNG");
  QCOMPARE(png.size(), QSize(1600, 1600));
  // The end wrap's arc of half a turn stands above the part, at 1.12 of its radius, and not below.
  const int reach = static_cast<int>((800 - 28) * 1.12 / 1.2);
  QCOMPARE(png.pixelColor(800, 800 - reach), preview.theme[Token::BandBack]);
  QCOMPARE(png.pixelColor(801 - reach / 2, 800 + static_cast<int>(reach * 0.866)),
           preview.theme[Token::Panel]);
}

void PreviewOnScreen::AnotherRowTakesItsPlace() {
  Preview preview;
  for (const int row : {3, 1, 3, 1, 3, 3}) {
    preview.program->binder().Run("btn4XRow", Event::Click, row);
    const QWidget* dialog = preview.DialogOf("frmPolar");
    QVERIFY(dialog != nullptr && dialog->isVisible());
    const auto shown = [dialog](const char* field) {
      return dialog->findChild<QWidget*>(QString::fromLatin1(field))->accessibleDescription().toStdString();
    };
    QCOMPARE(shown("lbllayerNo"), std::to_string(row));
    QCOMPARE(QString::fromLatin1(shown("lblPolarTag").substr(0, 5)),
             QString::fromLatin1(preview.s().cmbPattern(row).text().substr(0, 5)));
  }
}

void PreviewOnScreen::SaysWhyAPictureWasNotSaved() {
  Preview preview;
  preview.Step();
  const std::string path = std::string(kDesigns) + "row.png";
  preview.stage.files.FailWrites(path, "the disk is full");
  preview.stage.fileDialog.answers.emplace_back(path);
  auto* canvas = preview.Part<QWidget>("picPreview");
  WhenShown<QMenu>([&preview](QMenu&) {
    preview.Key(Qt::Key_Down);
    preview.Key(Qt::Key_Return);
  });
  QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(40, 40), canvas->mapToGlobal(QPoint(40, 40)));
  QApplication::sendEvent(canvas, &event);
  QCOMPARE(preview.stage.messageBox.shown.size(), std::size_t{1});
  QVERIFY(preview.stage.messageBox.shown.front().text.find("the disk is full") != std::string::npos);
  QVERIFY(!preview.stage.files.Exists(path));
}

}  // namespace torvane

QTEST_MAIN(torvane::PreviewOnScreen)
#include "preview_on_screen.moc"
