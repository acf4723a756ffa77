// The operator's keys and clicks in the dry run's window.
#include <QLabel>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <fstream>
#include <set>

#include "executor/program/number.h"
#include "executor/window/start.h"
#include "host/store/ini_store.h"
#include "look/text.h"
#include "staging.h"

namespace torvane::dryrun {

namespace {

using executor::Axis;
using executor::Player;
using executor::RunState;

// One layer of two traverses between two waits: 2 s, then 10 s.
const std::string kShort =
    "C C0\r\nG20\r\nG90\r\nX V420.000 T2 Z1.875\r\nM17\r\nG1 F1 Z3.875\r\n"
    "D0 ST=Winding Schedule\r\n"
    "M0 [Wait for Button Press]\r\n"
    "D0 LA=1_of_1 PA=1_of_1 RPM=10 CS=2 WA=45 WM=ms TI=0.2 LD=4 FW=0.25 HL=2\r\n"
    "M4 S10\r\nG1 F2 Z13.875\r\nG1 Z3.875\r\n"
    "D0 GM=Winding_Process_Complete\r\nM5\r\n"
    "M0 [Take the part off]\r\n";

class DryRun : public QObject {
  Q_OBJECT

 private slots:
  void ObeysTheFourCommandLines();
  void FollowsTheStation();
  void KeysReachEveryControl();
  void OpensEmpty();
  void RunsToItsEndByTheButton();
  void ChangesItsSpeedByKeys();
  void PausesAndStops();
  void PlaysToTheEnd();
  void MovesByHand();
  void ShowsFindingsAndGoesToTheirLines();
  void TellsWhatCannotBeOpened();
  void ShowsTextOfProgramsAsItStands();
  void PlaysALongProgramToItsEnd();
  void OpensAVeryLongProgramBehindTheWindow();
  void FillsTheUnrolledView();
  void PaintsWhatABandCovers_data();
  void PaintsWhatABandCovers();

 private:
  std::string Write(const char* name, const std::string& text) {
    const std::string path = folder_.filePath(QString::fromLatin1(name)).toStdString();
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }
  template <class Kind = QAbstractButton>
  static Kind* Find(Staged& stage, const char* name) {
    return stage.window.findChild<Kind*>(QString::fromLatin1(name));
  }
  static void Click(Staged& stage, const char* name) {
    auto* button = Find(stage, name);
    QVERIFY2(button != nullptr, name);
    QTest::mouseClick(button, Qt::LeftButton);
  }

  QTemporaryDir folder_;
};

void DryRun::ObeysTheFourCommandLines() {
  const std::string home = folder_.path().toStdString();
  IniStore store(home + "/store.ini");
  store.Write("Settings", "gCarriageOffsetFromRMPFace", "2.5");
  store.Write("Settings", "mnu2Axis", "0");
  const auto begin = [&](Staged& stage, const std::vector<std::string>& words) {
    Begin({executor::ReadRequest(words), {}, home}, store, stage.session, stage.window);
  };
  Write("my part - 2.T2G", kShort);
  Write("TV_TRACE.TVG", "X V420 T2 Z1.875\r\nG28 F1\r\nG1 F1 Z8\r\nX99 [END EXECUTOR]\r\n\r\n");
  {
    Staged stage;
    begin(stage, {});
    QCOMPARE(stage.player().State(), RunState::Empty);
  }
  {
    // In the words that its blanks make of it.
    QString path = QString::fromStdString(home + "/my part - 2.T2G");
    Staged stage;
    std::vector<std::string> words;
    for (const QString& word : path.split(QLatin1Char(' '))) words.push_back(word.toStdString());
    begin(stage, words);
    QCOMPARE(stage.session.name(), QStringLiteral("my part - 2.T2G"));
    QCOMPARE(stage.player().State(), RunState::Running);
    // The station's own form of the path has backslashes.
    words[0] = path.replace(QLatin1Char('/'), QLatin1Char('\\')).toStdString();
    Staged again;
    begin(again, {words[0]});
    QCOMPARE(again.session.name(), QStringLiteral("my part - 2.T2G"));
  }
  {
    Staged stage;
    begin(stage, {"TRACE"});
    QCOMPARE(stage.session.name(), QStringLiteral("TV_TRACE.TVG"));
    QCOMPARE(stage.player().Speed(), 1.0);
    stage.RunTo(100);
    QCOMPARE(stage.player().State(), RunState::Finished);
    QCOMPARE(stage.player().At().carriage, 8.0);
  }
  {
    Staged stage;
    begin(stage, {"MANUAL"});
    QCOMPARE(stage.player().State(), RunState::Manual);
    QCOMPARE(stage.player().At().carriage, 2.5);
    QVERIFY(stage.player().course().head);
    QVERIFY(!stage.player().course().millimetres);
    store.Write("Settings", "Units", "mm");
    begin(stage, {"MANUAL"});
    QCOMPARE(stage.player().At().carriage, 63.5);
  }
}

// Figures take the operator's sign; the program's own texts keep theirs. The palette is the one that was
// chosen.
void DryRun::FollowsTheStation() {
  Staged stage;
  Session comma(executor::Limits(), ',');
  QCOMPARE((Stand{stage.theme, comma}.Figure(-0.13, 2)), QStringLiteral("-0,13"));
  QCOMPARE((Stand{stage.theme, stage.session}.Figure(1234.5, 1)), QStringLiteral("1234.5"));
  QCOMPARE(AppearanceOf("dark"), Appearance::Dark);
  QCOMPARE(AppearanceOf("purple"), Appearance::System);
  for (const Appearance appearance : {Appearance::System, Appearance::Light, Appearance::Dark})
    QCOMPARE(AppearanceOf(StoredAs(appearance)), appearance);
  QVERIFY(IsDark(Appearance::Dark) && !IsDark(Appearance::Light));
  // A desktop that turns light does not take a chosen palette away.
  Theme dark(true);
  Appearance chosen = Appearance::Dark;
  DryRunWindow window(dark, comma, {}, [&chosen] { return chosen; });
  QEvent change(QEvent::ThemeChange);
  QApplication::sendEvent(&window, &change);
  QVERIFY(dark.dark());
  // Chosen in the station while the dry run is open: it follows when it comes to the front.
  window.show();
  window.activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(&window));
  QEvent front(QEvent::ActivationChange);
  chosen = Appearance::Light;
  QApplication::sendEvent(&window, &front);
  QVERIFY(!dark.dark());
  QCOMPARE(QApplication::palette().color(QPalette::Window), dark.Palette().color(QPalette::Window));
  chosen = Appearance::Dark;
  QApplication::sendEvent(&window, &front);
  QVERIFY(dark.dark());
  DryRunWindow following(dark, comma, {});
  QApplication::sendEvent(&following, &change);
  QCOMPARE(dark.dark(), DesktopIsDark());
}

void DryRun::KeysReachEveryControl() {
  Staged stage;
  stage.Open(Write("short.T2G", kShort));
  stage.window.show();
  stage.window.activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(&stage.window));
  std::set<const QWidget*> reached;
  for (int step = 0; step < 100; ++step) {
    QTest::keyClick(stage.window.windowHandle(), Qt::Key_Tab);
    QVERIFY(QApplication::focusWidget() != nullptr);
    reached.insert(QApplication::focusWidget());
  }
  QStringList left;
  for (const auto* control : stage.window.findChildren<QAbstractButton*>())
    if (control->isVisible() && control->isEnabled() && !reached.contains(control))
      left << control->objectName();
  QVERIFY2(left.isEmpty(), qPrintable(left.join(QStringLiteral(", "))));
}

void DryRun::OpensEmpty() {
  Staged stage;
  stage.window.show();
  QVERIFY(!Find(stage, "runButton")->isEnabled());
  QVERIFY(!Find(stage, "stopButton")->isEnabled());
  QVERIFY(!Find(stage, "pressButton")->isEnabled());
  QVERIFY(Find(stage, "openHere")->isVisible());
  // Of an axis that has a place the letter stands on a colour.
  const auto axesThere = [&stage] {
    const QImage strip = Find<QWidget>(stage, "axes")->grab().toImage();
    int quarters = 0;
    for (int i = 0; i < 4; ++i) {
      bool there = false;
      for (int x = strip.width() * i / 4; x < strip.width() * (i + 1) / 4; ++x)
        there = there || strip.pixelColor(x, 15) == stage.theme[Token::Accent];
      quarters += there ? 1 : 0;
    }
    return quarters;
  };
  QCOMPARE(axesThere(), 0);
  stage.asked = Write("short.T2G", kShort);
  Click(stage, "openHere");
  QCOMPARE(stage.session.name(), QStringLiteral("short.T2G"));
  QCOMPARE(stage.player().State(), RunState::Running);
  QVERIFY(!Find(stage, "openHere")->isVisible());
  QCOMPARE(axesThere(), 2);
  // A question that is answered with nothing leaves the program as it is.
  stage.asked.clear();
  Click(stage, "openButton");
  QCOMPARE(stage.session.name(), QStringLiteral("short.T2G"));
}

void DryRun::RunsToItsEndByTheButton() {
  Staged stage;
  stage.session.SetSpeed(1000);
  stage.window.show();
  QVERIFY(QTest::qWaitForWindowActive(&stage.window));
  stage.window.Open(Write("short.T2G", kShort));
  auto* press = Find(stage, "pressButton");
  QTRY_COMPARE(stage.player().State(), RunState::Waiting);
  QVERIFY(press->isEnabled());
  QCOMPARE(press->accessibleDescription(), QStringLiteral("Wait for Button Press"));
  QTest::keyClick(&stage.window, Qt::Key_Space);
  QTRY_COMPARE(stage.player().LineNow(), 15);
  QTRY_COMPARE(stage.player().State(), RunState::Waiting);
  QCOMPARE(press->accessibleDescription(), QStringLiteral("Take the part off"));
  QTest::keyClick(press, Qt::Key_Return);
  QTRY_COMPARE(stage.player().State(), RunState::Finished);
  QCOMPARE(stage.player().Elapsed(), 12.0);
  QVERIFY(!press->isEnabled());
  Click(stage, "runButton");  // again
  QTRY_COMPARE(stage.player().State(), RunState::Waiting);
}

void DryRun::ChangesItsSpeedByKeys() {
  Staged stage;
  stage.window.show();
  QVERIFY(QTest::qWaitForWindowActive(&stage.window));
  stage.Open(Write("short.T2G", kShort));
  Click(stage, "speed10");
  QCOMPARE(stage.player().Speed(), 10.0);
  QTest::keyClick(&stage.window, Qt::Key_Plus);
  QCOMPARE(stage.player().Speed(), 50.0);
  for (int i = 0; i < 5; ++i) QTest::keyClick(&stage.window, Qt::Key_Plus);
  QCOMPARE(stage.player().Speed(), 1000.0);
  for (int i = 0; i < 9; ++i) QTest::keyClick(&stage.window, Qt::Key_Minus);
  QCOMPARE(stage.player().Speed(), 1.0);
}

void DryRun::PausesAndStops() {
  Staged stage;
  stage.window.show();
  stage.window.Open(Write("short.T2G", kShort));
  stage.session.SetSpeed(1);
  QTRY_VERIFY(stage.player().Elapsed() > 0);
  Click(stage, "runButton");
  QCOMPARE(stage.player().State(), RunState::Paused);
  const double stands = stage.player().Elapsed();
  QTest::qWait(60);
  QCOMPARE(stage.player().Elapsed(), stands);
  Click(stage, "runButton");
  QTRY_VERIFY(stage.player().Elapsed() > stands);
  Click(stage, "stopButton");
  QCOMPARE(stage.player().State(), RunState::Stopped);
  QVERIFY(!Find(stage, "stopButton")->isEnabled());
}

void DryRun::PlaysToTheEnd() {
  Staged stage;
  stage.window.show();
  stage.session.SetSpeed(1000);
  stage.window.Open(Write("short.T2G", kShort));
  QTRY_COMPARE(stage.player().State(), RunState::Waiting);
  Click(stage, "speedEnd");
  QTRY_COMPARE(stage.player().State(), RunState::Finished);
}

void DryRun::MovesByHand() {
  Staged stage;
  stage.window.show();
  stage.session.BeginManual({1.875, 4.4375, 48, 9, false});
  QVERIFY(Find<QWidget>(stage, "manualPanel")->isVisible());
  QVERIFY(!Find(stage, "jogYMore")->isEnabled());
  Click(stage, "lengthStep0");
  Click(stage, "jogZMore");
  Click(stage, "jogZMore");
  QTRY_COMPARE(stage.player().JogsLeft(), std::size_t(0));
  QVERIFY(qAbs(stage.player().At().carriage - 1.895) < 1e-9);
  Click(stage, "angleStep0");
  Click(stage, "jogALess");
  QTRY_VERIFY(qAbs(stage.player().At().mandrel + 1) < 1e-9);
  Click(stage, "jogHome");
  QTRY_VERIFY(qAbs(stage.player().At().carriage - 1.875) < 1e-9);
  // On four axes the head moves as well.
  stage.session.BeginManual({1.875, 4.4375, 48, 9, true});
  QVERIFY(Find(stage, "jogYMore")->isEnabled());
  // By keys, wherever the focus is, in the design's unit.
  stage.session.BeginManual({2, 4, 48, 9, true, true});
  QVERIFY(QTest::qWaitForWindowActive(&stage.window));
  QCOMPARE(stage.player().At().carriage, 50.8);
  QVERIFY(stage.player().course().millimetres);
  Click(stage, "lengthStep1");
  QCOMPARE(Find(stage, "lengthStep1")->accessibleName(), QStringLiteral("Step of 1 millimetres"));
  QTest::keyClick(&stage.window, Qt::Key_Left);
  QTRY_VERIFY(qAbs(stage.player().At().carriage - 51.8) < 1e-9);
  QTest::keyClick(&stage.window, Qt::Key_Right);
  QTest::keyClick(&stage.window, Qt::Key_Right);
  QTRY_VERIFY(qAbs(stage.player().At().carriage - 50.8) < 1e-9);  // no further than its limit switch
  QTest::keyClick(&stage.window, Qt::Key_Up);
  QTRY_VERIFY(qAbs(stage.player().At().mandrel - 1) < 1e-9);
  QTest::keyClick(&stage.window, Qt::Key_Up, Qt::ControlModifier);
  QTRY_VERIFY(qAbs(stage.player().At().head - 100.6) < 1e-9);
  QTest::keyClick(&stage.window, Qt::Key_Down, Qt::ShiftModifier);
  QTRY_VERIFY(qAbs(stage.player().At().rotation + 1) < 1e-9);
  QTest::keyClick(&stage.window, Qt::Key_Home);
  QTRY_VERIFY(qAbs(stage.player().At().head - 101.6) < 1e-9);
}

void DryRun::ShowsFindingsAndGoesToTheirLines() {
  std::string text = kShort;
  text.insert(text.find("G1 F1"), "G28 F1\r\n");
  for (int i = 0; i < 200; ++i) text += "\r\n";
  text += "Q7 WHAT\r\n";
  Staged stage;
  stage.window.show();
  stage.Open(Write("bad.T2G", text));
  stage.AwaitProof();
  QVERIFY(!stage.session.remarks().empty());
  QCOMPARE(stage.session.remarks()[0].line, 217);
  auto* list = Find<ProgramList>(stage, "programList");
  QVERIFY(list->Follows());
  auto* findings = Find<QAbstractScrollArea>(stage, "findings");
  QTest::mouseClick(findings->viewport(), Qt::LeftButton, {}, QPoint(200, 10));
  QVERIFY(!list->Follows());
  QVERIFY(list->FirstLineShown() > 180);
  Click(stage, "followButton");
  QVERIFY(list->Follows());
  QCOMPARE(list->FirstLineShown(), 1);
}

void DryRun::TellsWhatCannotBeOpened() {
  Staged stage;
  stage.window.show();
  stage.Open(Write("short.T2G", kShort));
  stage.window.Open(folder_.filePath("missing.T2G").toStdString());
  QCOMPARE(stage.session.name(), QStringLiteral("short.T2G"));  // what was open stays
  QVERIFY(stage.window.Trouble().contains(QStringLiteral("missing.T2G")));
  stage.Open(Write("noise.T2G", std::string("\0\xff\xfe[[[\n\r\r\n", 10)));
  stage.AwaitProof();
  stage.window.grab();
  QVERIFY(stage.window.Trouble().isEmpty());
}

// A program's line may look like markup: in the list, in what the proof says of it, in the name of a stage.
void DryRun::ShowsTextOfProgramsAsItStands() {
  const QString hostile = QStringLiteral("<img src=\"/dev/null\">");
  QVERIFY(Qt::mightBeRichText(hostile));
  QCOMPARE(QTextDocumentFragment::fromHtml(PlainTip(hostile + QStringLiteral("\n&amp;"))).toPlainText(),
           hostile + QStringLiteral("\n&amp;"));

  std::string text = kShort;
  const std::string end = "[Take the part off]";
  text.replace(text.find(end), end.size(), hostile.toStdString() + end);
  text += "D0 ST=" + hostile.toStdString() + "\r\nG1 F2 Z13.875\r\nG1 Z3.875\r\n";
  text += hostile.toStdString() + "\r\n";
  Staged stage;
  stage.window.resize(1280, 800);
  stage.window.show();
  stage.Open(Write("hostile.T2G", text));
  stage.AwaitProof();
  stage.window.grab();
  for (const char* name : {"programList", "findings", "timeline"}) {
    QWidget* widget = Find<QWidget>(stage, name);
    QVERIFY2(widget != nullptr, name);
    auto* list = qobject_cast<QAbstractScrollArea*>(widget);
    QWidget* face = list != nullptr ? list->viewport() : widget;
    int hostileTips = 0;
    for (int y = 2; y < face->height(); y += 6)
      for (int x = 2; x < face->width(); x += list != nullptr ? face->width() : 12) {
        QHelpEvent help(QEvent::ToolTip, {x, y}, face->mapToGlobal(QPoint(x, y)));
        QApplication::sendEvent(face, &help);
        for (const QWidget* top : QApplication::topLevelWidgets()) {
          if (!top->inherits("QTipLabel") || !top->isVisible()) continue;
          const QString tip = static_cast<const QLabel*>(top)->text();
          QVERIFY2(!tip.contains(QStringLiteral("<img")), name);
          hostileTips += tip.contains(QStringLiteral("&lt;img")) ? 1 : 0;
        }
      }
    QVERIFY2(hostileTips > 0, name);
  }
}

void DryRun::PlaysALongProgramToItsEnd() {
  std::string text = kShort;
  for (int pass = 1; pass <= 25'000; ++pass)
    text += "D0 LA=2_of_2 PA=" + std::to_string(pass) +
            "_of_25000 RPM=10 CS=2 WA=45 WM=ms LD=4 FW=0.25 HL=2\r\n" +
            "M4 S10\r\nG1 F2 Z13.875\r\nG1 Z3.875\r\nG4 L602 C90\r\n";
  Staged stage;
  stage.window.show();
  stage.session.SetSpeed(Player::kToTheEnd);
  stage.window.Open(Write("long.T2G", text));
  QTRY_VERIFY(stage.player().program() != nullptr);
  QCOMPARE(stage.player().program()->Lines(), 125'015);
  QTRY_COMPARE_WITH_TIMEOUT(stage.player().State(), RunState::Finished, 60'000);
  stage.AwaitProof();
  QVERIFY(stage.session.proof() != nullptr);
}

// At 45 degrees round 4 in: a bare surface where no band lies, its colours where one does.
void DryRun::OpensAVeryLongProgramBehindTheWindow() {
  std::string text = kShort;
  for (int line = 0; line < 250'000; ++line) text += "G4 P1\r\n";
  const std::string path = Write("very-long.T2G", text);
  Staged stage;
  stage.window.show();
  stage.window.Open(path);
  QCOMPARE(stage.player().State(), RunState::Empty);
  QCOMPARE(stage.session.name(), QStringLiteral("very-long.T2G"));
  QTRY_COMPARE(stage.player().State(), RunState::Running);
  QCOMPARE(stage.player().program()->Lines(), 250'015);
  QCOMPARE(stage.player().course().waits.size(), 2U);
  // What was asked of it meanwhile holds.
  stage.Open(path);
  QTRY_COMPARE(stage.player().State(), RunState::Ready);
  // What comes back late belongs to a program that is no longer there.
  stage.window.Open(path);
  stage.Open(Write("short.T2G", kShort));
  stage.AwaitProof();
  QCOMPARE(stage.player().program()->Lines(), 15);
  // A window that closes waits for nobody.
  stage.window.Open(path);
}

void DryRun::FillsTheUnrolledView() {
  Staged stage;
  stage.window.show();
  stage.Open(Write("short.T2G", kShort));
  const auto colours = [&](Token token) {
    stage.window.mandrelView().Finish();
    const QImage picture = stage.window.mandrelView().grab().toImage();
    const QRect box = stage.window.mandrelView().UnrolledBox().toRect();
    int found = 0;
    for (int y = box.top(); y < box.bottom(); ++y)
      for (int x = box.left(); x < box.right(); ++x)
        if (picture.pixelColor(x, y) == stage.theme[token]) ++found;
    return found;
  };
  QCOMPARE(colours(Token::BandOut), 0);
  stage.RunTo(6);
  const int out = colours(Token::BandOut);
  QVERIFY(out > 100);
  QCOMPARE(colours(Token::BandBack), 0);
  stage.RunTo(12);
  QVERIFY(colours(Token::BandBack) > 100);
  // Other colours, other size: drawn anew.
  stage.window.resize(1500, 900);
  QVERIFY(colours(Token::BandOut) > 50);
}

void DryRun::PaintsWhatABandCovers_data() {
  QTest::addColumn<double>("width");
  QTest::addColumn<double>("feed");
  QTest::addColumn<bool>("back");
  QTest::addColumn<double>("share");
  // Round 4 in at 60 RPM. A turn of 2 in rises at 80.96 degrees: the band takes 0.25 / cos(80.96) of 4 pi.
  QTest::newRow("helix") << 0.25 << 2.0 << false << 0.1266;
  QTest::newRow("helix on the way back") << 0.25 << 2.0 << true << 0.1266;
  QTest::newRow("hoops that close, without seams") << 0.25 << 0.25 << false << 1.0;
  QTest::newRow("the same on the way back") << 0.25 << 0.25 << true << 1.0;
  QTest::newRow("hoops with gaps") << 0.25 << 0.5 << false << 0.5002;
  QTest::newRow("hoops over each other") << 0.25 << 0.1 << false << 1.0;
  QTest::newRow("hundreds of turns in a column") << 0.25 << 0.0001 << true << 1.0;
  QTest::newRow("as many of a thread") << 0.00005 << 0.0001 << false << 0.5;
}

// One traverse of 10 in: what of the surface is painted, whatever the band looks like.
void DryRun::PaintsWhatABandCovers() {
  QFETCH(const double, width);
  QFETCH(const double, feed);
  QFETCH(const bool, back);
  QFETCH(const double, share);
  const std::string home = "3.875", far = "13.875";
  Staged stage;
  stage.Open(Write(
      "band.T2G",
      "C C0\r\nG20\r\nG90\r\nX V420.000 T2 Z1.875\r\nM17\r\nG1 F1 Z" + (back ? far : home) +
          "\r\nD0 ST=Winding Schedule\r\nD0 LA=1_of_1 PA=1_of_1 RPM=60 CS=2 WA=45 WM=ms TI=0.2 LD=4 FW=" +
          executor::Fixed(width, 5) + " HL=2\r\nM4 S60\r\nG1 F" + executor::Fixed(feed, 4) + " Z" +
          (back ? home : far) + "\r\n"));
  stage.session.SetSpeed(Player::kToTheEnd);
  stage.session.Run();
  stage.session.Advance(1);
  QCOMPARE(stage.player().State(), RunState::Finished);
  Surface surface(stage.theme);
  surface.Reshape({200, 720}, {13.875, 3.875, 0, 200});
  while (!surface.UpToDate()) surface.Follow(stage.player(), 1000);
  const QImage& image = surface.Image();
  double painted = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) painted += qAlpha(image.pixel(x, y)) / 255.0;
  painted /= image.width() * image.height();
  // The light edge lies over the band, so the pixels at its rim are a little fuller than they should be.
  QVERIFY2(painted > share - 0.001 && painted < share + 0.006, qPrintable(QString::number(painted)));
}

}  // namespace

}  // namespace torvane::dryrun

QTEST_MAIN(torvane::dryrun::DryRun)
#include "dryrun_window.moc"
