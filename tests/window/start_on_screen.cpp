// The start card: samples and recent designs as cards, each with a picture of its part.
#include <QFile>
#include <cmath>

#include "on_stage.h"
#include "persist/settings.h"
#include "window/field/button.h"
#include "window/part/part_thumbnail.h"
#include "workbench/document/design_commands.h"
#include "workbench/document/recent_files.h"

namespace torvane {

class StartOnScreen : public QObject {
  Q_OBJECT

 private slots:
  void CardsStandForTheSamples();
  void ASampleOpensWithoutAName();
  void ASampleOfTheOtherFamilyTurnsToIt();
  void ReadingCardsChangesNothing();
  void RecentDesignsOpenAgain();
  void AGoneDesignIsOfferedToBeForgotten();
  void HiddenLinksLeaveTheirRoomToRecent();
  void EverythingHasItsRoom_data();
  void EverythingHasItsRoom();
  void KeysReachEveryCard();
  void ThumbnailsAreToScale();
};

namespace {

const std::string kSamples = "C:\\Torvane\\samples\\";
const char* const kNames[] = {"Carriage-Shift-Sleeve.t2d",
                              "Flat-Tube-4x24.t4d",
                              "Hemi-Vessel-150mm.t4d",
                              "Hoop-First-Tube.t4d",
                              "No-Wrap-Mast.t4d",
                              "Rocket-Airframe-75mm.t2d",
                              "Taper-Mast.t2d",
                              "Tube-100x600-mm.t2d",
                              "Tube-4x24.t2d"};

std::string SampleBytes(const char* name) {
  QFile file(QStringLiteral(SOURCE_FOLDER "/samples/") + QString::fromLatin1(name));
  if (!file.open(QIODevice::ReadOnly)) qFatal("no sample %s", name);
  return file.readAll().toStdString();
}

// Until every card that is in view has been read.
bool Read(WindowOnStage& station) {
  return QTest::qWaitFor([&] {
    for (QAbstractButton* card : station.window().findChildren<QAbstractButton*>())
      if (card->isVisible() && card->objectName().startsWith(QStringLiteral("sample")) &&
          card->objectName() != QStringLiteral("samplesOn") &&
          card->objectName() != QStringLiteral("samplesBack") &&
          !card->accessibleName().contains(QStringLiteral("axes")))
        return false;
    return true;
  });
}

void PutSamples(WindowOnStage& station) {
  for (const char* name : kNames) station.stage.files.Put(kSamples + name, SampleBytes(name));
  station.stage.files.Put(kSamples + "working-day.script", "start\n");
  station.program->binder().Do([] {});
}

void PutRecent(WindowOnStage& station, int count) {
  for (int i = count - 1; i >= 0; --i) {
    const std::string path = kDesigns + std::string(kNames[8 - i]);
    station.stage.files.Put(path, SampleBytes(kNames[8 - i]));
    NoteRecentFile(station.station().keptStore, path);
  }
  station.program->binder().Do([] {});
}

std::vector<QAbstractButton*> Cards(WindowOnStage& station, const QString& kind) {
  std::vector<QAbstractButton*> cards;
  for (int place = 1; place <= 24; ++place)
    for (auto* card : station.window().findChildren<QAbstractButton*>(kind + QString::number(place)))
      if (card->isVisible()) cards.push_back(card);
  return cards;
}

QAbstractButton* CardOf(WindowOnStage& station, const QString& name) {
  for (const QString& kind : {QStringLiteral("sample"), QStringLiteral("recent")})
    for (QAbstractButton* card : Cards(station, kind))
      if (card->text() == name) return card;
  qFatal("no card %s", qPrintable(name));
}

}  // namespace

void StartOnScreen::CardsStandForTheSamples() {
  WindowOnStage station;
  QVERIFY(Cards(station, QStringLiteral("sample")).empty());  // none came with the program
  PutSamples(station);
  QVERIFY(Read(station));
  QStringList names;
  const auto gather = [&] {
    for (const QAbstractButton* card : Cards(station, QStringLiteral("sample"))) {
      QCOMPARE(card->size(), QSize(168, 104));
      if (!names.contains(card->text())) names << card->text();
    }
  };
  gather();
  QCOMPARE(names.size(), 5);
  QVERIFY(!station.Find(QStringLiteral("samplesBack"))->isEnabled());
  station.Click(QStringLiteral("samplesOn"));
  gather();
  QVERIFY(!station.Find(QStringLiteral("samplesOn"))->isEnabled());
  QCOMPARE(names.size(), 9);
  QVERIFY(names.contains(QStringLiteral("Hemi-Vessel-150mm")));
  // All of them side by side need no arrows.
  station.window().resize(2400, 1000);
  QCoreApplication::processEvents();
  QCOMPARE(Cards(station, QStringLiteral("sample")).size(), std::size_t{9});
  for (const QWidget* arrow : station.window().findChildren<QWidget*>(QStringLiteral("samplesOn")))
    QVERIFY(!arrow->isVisible());
  // What the card says is what the station says of the design.
  QVERIFY(Read(station));
  QAbstractButton* tube = CardOf(station, QStringLiteral("Tube-4x24"));
  const QString told = tube->accessibleName(), sentence = tube->statusTip();
  QVERIFY2(sentence.startsWith(QStringLiteral("A tube of 4 by 24 in, 6 layers.")), qPrintable(sentence));
  QTest::mouseClick(tube, Qt::LeftButton);
  QCOMPARE(told, QStringLiteral("Sample Tube-4x24, 2 axes, in, %1 min")
                     .arg(QString::fromStdString(station.s().lblBuildTime(0).text())));
}

void StartOnScreen::ASampleOpensWithoutAName() {
  WindowOnStage station(StoreEntries{{"gLastFileInUse", "C:\\Torvane\\TV_Design_Files\\before.t2d"}});
  station.stage.files.Put(std::string(kDesigns) + "before.t2d", SampleBytes("Tube-4x24.t2d"));
  station.program->binder().Run("mnuNewFile");
  PutSamples(station);
  DesignState& s = station.s();
  const std::string last = s.gLastFileInUse.text();
  QTest::mouseClick(CardOf(station, QStringLiteral("Taper-Mast")), Qt::LeftButton);
  QCOMPARE(s.txtNumberOfLayers(0).text(), std::string("4"));
  QVERIFY(s.gFileName.empty() && s.gFilePath.empty() && s.lblStatusBar2.empty());
  QCOMPARE(DesignName(s), std::string());
  QCOMPARE(s.gLastFileInUse.text(), last);
  QVERIFY(!s.gDirty && !station.station().CanUndo());
  QVERIFY(RecentFiles(station.stage.store).empty());
  // Saving asks for a name, proposes none, and leaves the sample as it was.
  station.stage.fileDialog.answers = {std::string(kDesigns) + "mine.t2d"};
  station.program->binder().Run("btnSaveAS");
  QCOMPARE(station.stage.fileDialog.asked.back().proposedName, std::string());
  QCOMPARE(s.gFileName.text(), std::string("mine.t2d"));
  QCOMPARE(station.stage.files.ReadWhole(kSamples + "Taper-Mast.t2d").value(), SampleBytes("Taper-Mast.t2d"));
}

void StartOnScreen::ASampleOfTheOtherFamilyTurnsToIt() {
  WindowOnStage station;
  PutSamples(station);
  station.window().resize(2400, 1000);
  QCoreApplication::processEvents();
  station.Type("txtDiameterLeft", "3");
  station.stage.messageDialog.answers = {{false, false}};
  QTest::mouseClick(CardOf(station, QStringLiteral("Hemi-Vessel-150mm")), Qt::LeftButton);
  // What was typed is asked for first.
  QCOMPARE(station.stage.messageDialog.shown.size(), std::size_t{1});
  QVERIFY(station.s().gShow4Axis && station.s().optType(1).checked());
  QCOMPARE(station.s().Read(station.s().txtZ4(0).text()).value(), 775.0);
}

void StartOnScreen::ReadingCardsChangesNothing() {
  WindowOnStage station;
  PutRecent(station, 3);
  station.station().keptStore.Settle();
  const std::string before = StateOf(station.station());
  const auto store = station.stage.store.All();
  const auto files = station.stage.files.All();
  PutSamples(station);
  QVERIFY(Read(station));
  station.Click(QStringLiteral("samplesOn"));
  QVERIFY(Read(station));
  QCOMPARE(FirstDifference(StateOf(station.station()), before), std::string());
  const auto now = station.stage.store.All();
  QCOMPARE(now.size(), store.size());
  for (std::size_t i = 0; i < now.size(); ++i)
    QCOMPARE(now[i].key + now[i].value, store[i].key + store[i].value);
  QCOMPARE(station.stage.files.All().size(), files.size() + 10);
  QVERIFY(station.stage.messageBox.shown.empty() && station.stage.messageDialog.shown.empty());
  QVERIFY(!station.s().gDirty);
}

void StartOnScreen::RecentDesignsOpenAgain() {
  WindowOnStage station;
  PutRecent(station, 6);
  const auto rows = Cards(station, QStringLiteral("recent"));
  QCOMPARE(rows.size(), std::size_t{4});
  for (const QAbstractButton* row : rows) QCOMPARE(row->height(), 30);
  QCOMPARE(rows[0]->text(), QStringLiteral("Tube-4x24.t2d"));
  QTRY_VERIFY(rows[0]->statusTip().contains(QStringLiteral("6 layers")));
  rows[0]->setFocus(Qt::TabFocusReason);
  station.Key(Qt::Key_Return);
  QCOMPARE(station.s().gFileName.text(), std::string("Tube-4x24.t2d"));
  QVERIFY(!rows[0]->isVisible());
}

void StartOnScreen::AGoneDesignIsOfferedToBeForgotten() {
  WindowOnStage station;
  PutRecent(station, 3);
  const std::string gone = std::string(kDesigns) + "Tube-100x600-mm.t2d";
  station.stage.files.Remove(gone);
  station.program->binder().Do([] {});
  QAbstractButton* row = CardOf(station, QStringLiteral("Tube-100x600-mm.t2d"));
  QVERIFY(row->accessibleName().endsWith(QStringLiteral("not found")));
  QTest::mouseClick(row, Qt::LeftButton);
  QCOMPARE(station.stage.messageDialog.shown.size(), std::size_t{1});
  QVERIFY(station.stage.messageDialog.shown[0].text.find(gone) != std::string::npos);
  QCOMPARE(RecentFiles(station.station().keptStore).size(), std::size_t{3});  // No
  station.stage.messageDialog.answers = {{true, false}};
  QTest::mouseClick(row, Qt::LeftButton);
  const auto left = RecentFiles(station.station().keptStore);
  QVERIFY(left.size() == 2 && std::find(left.begin(), left.end(), gone) == left.end());
  QCOMPARE(Cards(station, QStringLiteral("recent")).size(), std::size_t{2});
  QVERIFY(station.stage.messageBox.shown.empty());
}

void StartOnScreen::HiddenLinksLeaveTheirRoomToRecent() {
  WindowOnStage station;
  PutRecent(station, 4);
  const int before = Cards(station, QStringLiteral("recent"))[0]->width();
  const int links = station.Find(QStringLiteral("picVidLinks"))->width();
  station.program->binder().Do([&] { station.s().picVidLinks.Show(false); });
  QCoreApplication::processEvents();
  QVERIFY(Cards(station, QStringLiteral("recent"))[0]->width() >= before + links);
}

void StartOnScreen::EverythingHasItsRoom_data() {
  QTest::addColumn<QSize>("size");
  QTest::addColumn<bool>("fourAxes");
  QTest::addColumn<bool>("measured");
  for (const QSize size : {QSize(800, 600), QSize(900, 720), QSize(1100, 720), QSize(1133, 833),
                           QSize(1280, 800), QSize(1600, 900), QSize(1920, 1080)})
    for (const bool fourAxes : {false, true})
      for (const bool measured : {false, true})
        QTest::addRow("%dx%d %s%s", size.width(), size.height(), fourAxes ? "four" : "two",
                      measured ? " measured" : "")
            << size << fourAxes << measured;
}

void StartOnScreen::EverythingHasItsRoom() {
  QFETCH(QSize, size);
  QFETCH(bool, fourAxes);
  QFETCH(bool, measured);
  StoreEntries entries = {{"mnu2Axis", fourAxes ? "0" : "1"}};
  if (measured) entries.push_back({"gCarriageOffsetFromRMPFace", "1.875"});
  WindowOnStage station(entries);
  PutSamples(station);
  PutRecent(station, 4);
  station.window().resize(size);
  QTest::qWait(20);
  std::vector<const QAbstractButton*> buttons;
  const QWidget* card = Cards(station, QStringLiteral("layers"))[0]->parentWidget()->parentWidget();
  for (const auto* button : card->findChildren<QAbstractButton*>()) {
    if (!button->isVisible()) continue;
    const QRect place(button->mapTo(card, QPoint(0, 0)), button->size());
    QVERIFY2(card->rect().contains(place), qPrintable(button->objectName() + QStringLiteral(" is cut off")));
    const QString& name = button->objectName();
    if (name.startsWith(QStringLiteral("samples")) || name.startsWith(QStringLiteral("layers")))
      QVERIFY2(button->height() >= 24 && button->width() >= 24, qPrintable(name));
    for (const auto* other : buttons) {
      const QRect there(other->mapTo(card, QPoint(0, 0)), other->size());
      QVERIFY2(!place.intersects(there), qPrintable(name + QStringLiteral(" covers ") + other->objectName()));
    }
    buttons.push_back(button);
  }
  // The number of layers and the way to a design are there at every size, and the latest designs.
  QCOMPARE(Cards(station, QStringLiteral("layers")).size(), std::size_t{15});
  QVERIFY(station.Find(QStringLiteral("startOpen")) != nullptr);
  QVERIFY(!Cards(station, QStringLiteral("recent")).empty());
  if (size.height() >= 800 && size.width() >= 1133 && !fourAxes)
    QVERIFY(Cards(station, QStringLiteral("sample")).size() >= 4);
}

void StartOnScreen::KeysReachEveryCard() {
  WindowOnStage station;
  PutSamples(station);
  PutRecent(station, 4);
  QVERIFY(Read(station));
  QStringList walked;
  station.Find<QLineEdit>(QStringLiteral("txtNumberOfLayers(0)"))->setFocus();
  for (int i = 0; i < 150; ++i) {
    station.Key(Qt::Key_Tab);
    const QWidget* here = QApplication::focusWidget();
    if (walked.contains(here->objectName())) continue;
    walked << here->objectName();
    if (!here->objectName().startsWith(QStringLiteral("sample")) &&
        !here->objectName().startsWith(QStringLiteral("recent")))
      continue;
    QVERIFY2(!here->accessibleName().isEmpty() && !here->statusTip().isEmpty(),
             qPrintable(here->objectName()));
  }
  for (const char* name : {"recent1", "recent4", "samplesOn", "sample1", "sample5"})
    QVERIFY2(walked.contains(QString::fromLatin1(name)), name);
  // Arrows by keys keep the keys where there is still somewhere to go.
  station.Find(QStringLiteral("samplesOn"))->setFocus(Qt::TabFocusReason);
  station.Key(Qt::Key_Space);
  QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("samplesBack"));
  Cards(station, QStringLiteral("sample"))[0]->setFocus(Qt::TabFocusReason);
  station.Key(Qt::Key_Return);
  QVERIFY(LayersOf(station.s().txtNumberOfLayers(station.s().Panel())).value() > 0);
  QCOMPARE(QApplication::focusWidget()->objectName().left(17), QStringLiteral("txtNumberOfLayers"));
}

void StartOnScreen::ThumbnailsAreToScale() {
  const Theme theme(false);
  // How high the mandrel is in a column, and how long it is along its axis.
  const auto measured = [&](const DesignCard& card, double share) {
    QImage image(640, 400, QImage::Format_RGB32);
    image.fill(theme[Token::Drawing]);
    {
      QPainter painter(&image);
      PaintThumbnail(painter, theme, card, QRectF(20, 20, 600, 360));
    }
    const auto isPart = [&](int x, int y) { return image.pixelColor(x, y) != theme[Token::Drawing]; };
    int left = 320, right = 320;
    while (isPart(left, 206)) --left;  // beside the shaft
    while (isPart(right, 206)) ++right;
    const int x = left + static_cast<int>((right - left) * share);
    int top = 200, bottom = 200;
    while (isPart(x, top)) --top;
    while (isPart(x, bottom)) ++bottom;
    return QSizeF(right - left - 2, bottom - top - 2);  // without the ground beside it
  };
  DesignCard tube;
  tube.length = 24;
  tube.leftDiameter = tube.rightDiameter = 4;
  tube.band = 0.25;
  const QSizeF drawn = measured(tube, 0.5);
  QVERIFY2(std::abs(drawn.width() / drawn.height() - 6) < 0.2, qPrintable(QString::number(drawn.width())));
  QVERIFY(drawn.width() > 500);
  tube.rightDiameter = 2;
  QVERIFY(std::abs(measured(tube, 0.02).height() / measured(tube, 0.98).height() - 2) < 0.2);
  // A dome is round: near its pole it is thinner than the part.
  DesignCard vessel;
  vessel.family = Family::FourAxes;
  vessel.length = 650;
  vessel.leftDiameter = vessel.rightDiameter = 150;
  vessel.leftCap = vessel.rightCap = 75;
  QVERIFY(measured(vessel, 0.02).height() < 0.6 * measured(vessel, 0.5).height());
}

}  // namespace torvane

QTEST_MAIN(torvane::StartOnScreen)
#include "start_on_screen.moc"
