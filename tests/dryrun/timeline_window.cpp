// The ways to a moment of the run: the timeline, the steps, the findings; and what a long program keeps
// waiting.
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <fstream>
#include <set>

#include "executor/programs.h"
#include "staging.h"

namespace torvane::dryrun {

namespace {

using executor::Player;
using executor::RunState;

// Two layers between two waits: 2 s, then 10 s each.
const std::string kTwoLayers =
    "C C0\r\nG20\r\nG90\r\nX V420.000 T2 Z1.875\r\nM17\r\nG1 F1 Z3.875\r\n"
    "D0 ST=Winding Schedule\r\n"
    "M0 [Wait for Button Press]\r\n"  // line 8
    "D0 LA=1_of_2 PA=1_of_1 RPM=10 CS=2 WA=45 WM=ms TI=0.4 LD=4 FW=0.25 HL=2\r\n"
    "M4 S10\r\nG1 F2 Z13.875\r\nG1 Z3.875\r\n"                              // lines 11 and 12
    "D0 LA=2_of_2 PA=1_of_1 RPM=10 CS=2 WA=45 WM=ms LD=4 FW=0.25 HL=2\r\n"  // line 13
    "G1 Z13.875\r\nG1 Z3.875\r\n"
    "D0 GM=Winding_Process_Complete\r\nM5\r\n"
    "M0 [Take the part off]\r\n";  // line 18

class TimelineRun : public QObject {
  Q_OBJECT

 private slots:
  void SeeksWhereItIsClicked();
  void IsDraggedByItsHandle();
  void StandsAtTheWaitBetweenTwoSegments();
  void StepsByButtonsAndKeys();
  void SpacePressesTheButtonElsePlays();
  void GoesToFindings();
  void WrapsFindings();
  void NamesEveryControl();
  void ReadsALongProgramThatCanBeGivenUp();
  void ProvesAgainWhatWasGivenUp();

 private:
  std::string Write(const char* name, const std::string& text) {
    const std::string path = folder_.filePath(QString::fromLatin1(name)).toStdString();
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }
  template <class Kind = QWidget>
  static Kind* Find(Staged& stage, const char* name) {
    return stage.window.findChild<Kind*>(QString::fromLatin1(name));
  }
  static void Click(Staged& stage, const char* name) {
    auto* button = Find<QAbstractButton>(stage, name);
    QVERIFY2(button != nullptr, name);
    QTest::mouseClick(button, Qt::LeftButton);
  }
  // Open, proven, paused at its beginning.
  void Stage(Staged& stage, const std::string& text) {
    stage.window.resize(1280, 800);
    stage.window.show();
    QVERIFY(QTest::qWaitForWindowActive(&stage.window));
    stage.Open(Write("program.T2G", text));
    stage.AwaitProof();
  }
  // Where the handle's line comes out above the segments.
  static int HandleX(Staged& stage) {
    const QImage picture = Find(stage, "timeline")->grab().toImage();
    for (int x = 130; x < picture.width() - 110; ++x)
      if (picture.pixelColor(x, 6) == stage.theme[Token::Text]) return x + 1;
    return -1;
  }

  QTemporaryDir folder_;
};

void TimelineRun::SeeksWhereItIsClicked() {
  Staged stage;
  Stage(stage, kTwoLayers);
  auto* timeline = Find(stage, "timeline");
  auto* list = Find<ProgramList>(stage, "programList");
  double before = 0;
  for (const int x : {400, 700, 900}) {
    QTest::mouseClick(timeline, Qt::LeftButton, {}, {x, 20});
    QVERIFY(stage.player().Elapsed() > before);
    before = stage.player().Elapsed();
    QCOMPARE(stage.player().State(), RunState::Paused);
    QVERIFY(std::abs(HandleX(stage) - x) <= 1);
    QVERIFY(list->Follows());
  }
  // Of 1000 pixels for 22 s the last layer takes from 12 to 22.
  QCOMPARE(stage.player().screen().layer, 2.0);
  QVERIFY(std::abs(before - 22 * (900 - 142) / 1000.0) < 0.2);
  stage.session.SetSpeed(1);
  stage.session.Run();
  QTest::mouseClick(timeline, Qt::LeftButton, {}, {400, 20});
  QCOMPARE(stage.player().State(), RunState::Running);
  QTest::mouseClick(timeline, Qt::LeftButton, {}, {400, 70});  // beside the buttons
  QVERIFY(stage.player().Elapsed() < 8);
}

void TimelineRun::IsDraggedByItsHandle() {
  Staged stage;
  Stage(stage, kTwoLayers);
  auto* timeline = Find(stage, "timeline");
  QTest::mouseClick(timeline, Qt::LeftButton, {}, {500, 20});
  const int from = HandleX(stage);
  // Taken within its target, it keeps its distance from the pointer.
  QTest::mousePress(timeline, Qt::LeftButton, {}, {from + 17, 40});
  QCOMPARE(HandleX(stage), from);
  QTest::mouseMove(timeline, {from + 17 + 200, 60});
  QVERIFY(std::abs(HandleX(stage) - (from + 200)) <= 1);
  QTest::mouseMove(timeline, {-500, 60});
  QCOMPARE(stage.player().Elapsed(), 0.0);
  QTest::mouseMove(timeline, {5000, 60});
  QCOMPARE(stage.player().Elapsed(), 22.0);
  QTest::mouseRelease(timeline, Qt::LeftButton, {}, {from, 20});
  QTest::mouseMove(timeline, {from, 20});
  QCOMPARE(stage.player().Elapsed(), 22.0);
  // Pressed within the target and let go is a click.
  QTest::mouseClick(timeline, Qt::LeftButton, {}, {500, 20});
  QTest::mouseClick(timeline, Qt::LeftButton, {}, {515, 20});
  QVERIFY(std::abs(HandleX(stage) - 515) <= 1);
}

void TimelineRun::StandsAtTheWaitBetweenTwoSegments() {
  Staged stage;
  Stage(stage, kTwoLayers);
  auto* timeline = Find(stage, "timeline");
  int waits = 0;
  for (int x = 142; x < 300 && waits == 0; ++x) {
    stage.session.SeekTime(20);  // the handle is out of the way
    QTest::mouseClick(timeline, Qt::LeftButton, {}, {x, 20});
    if (stage.player().State() == RunState::Waiting) ++waits;
  }
  QCOMPARE(waits, 1);
  QCOMPARE(stage.player().LineNow(), 8);
  QVERIFY(Find<QAbstractButton>(stage, "pressButton")->isEnabled());
}

void TimelineRun::StepsByButtonsAndKeys() {
  Staged stage;
  Stage(stage, kTwoLayers);
  const auto line = [&stage] { return stage.player().LineNow(); };
  Click(stage, "LineOn");
  QCOMPARE(line(), 1);
  Click(stage, "LayerOn");
  QCOMPARE(line(), 8);
  Click(stage, "PassOn");
  QCOMPARE(line(), 13);
  Click(stage, "LineBack");
  QCOMPARE(line(), 12);
  Click(stage, "PassBack");
  QCOMPARE(line(), 8);
  Click(stage, "LayerBack");
  QCOMPARE(line(), 0);
  const auto key = [&](Qt::Key pressed, Qt::KeyboardModifiers with = {}) {
    QTest::keyClick(&stage.window, pressed, with);
    return line();
  };
  QCOMPARE(key(Qt::Key_Right), 1);
  QCOMPARE(key(Qt::Key_Right), 2);
  QCOMPARE(key(Qt::Key_Left), 1);
  QCOMPARE(key(Qt::Key_Right, Qt::ShiftModifier), 8);
  QCOMPARE(key(Qt::Key_Right, Qt::ControlModifier), 13);
  QCOMPARE(key(Qt::Key_Left, Qt::ControlModifier), 8);
  QCOMPARE(key(Qt::Key_End), 18);
  QCOMPARE(key(Qt::Key_Left, Qt::ShiftModifier), 13);
  QCOMPARE(key(Qt::Key_Home), 0);
  // Whatever has the focus.
  Find<QAbstractButton>(stage, "speed10")->setFocus();
  QCOMPARE(key(Qt::Key_Right), 1);
  QCOMPARE(Find(stage, "timeline")->accessibleDescription(), QStringLiteral("Start, line 1"));
}

void TimelineRun::SpacePressesTheButtonElsePlays() {
  Staged stage;
  Stage(stage, kTwoLayers);
  stage.session.SetSpeed(1);
  Find<QAbstractButton>(stage, "speed10")->setFocus();
  QTest::keyClick(&stage.window, Qt::Key_Space);
  QCOMPARE(stage.player().State(), RunState::Running);
  QCOMPARE(stage.player().Speed(), 1.0);
  QTest::keyClick(&stage.window, Qt::Key_Space);
  QCOMPARE(stage.player().State(), RunState::Paused);
  stage.session.SeekLine(8);
  QCOMPARE(stage.player().State(), RunState::Waiting);
  QVERIFY(!Find<QAbstractButton>(stage, "runButton")->isEnabled());
  QTest::keyClick(&stage.window, Qt::Key_Space);
  QCOMPARE(stage.player().State(), RunState::Running);
}

// A move past the travel in layer 2, and a line that cannot be read and never runs.
void TimelineRun::GoesToFindings() {
  std::string text = kTwoLayers;
  text.insert(text.rfind("G1 Z13.875"), "G1 Z99\r\n");  // line 14
  text += "X99\r\nQ7 WHAT\r\n";                         // line 21
  Staged stage;
  Stage(stage, text);
  auto* findings = Find<FindingsList>(stage, "findings");
  const auto& remarks = stage.session.remarks();
  const auto current = [&] {
    return findings->Current() < 0 ? -1 : remarks[static_cast<std::size_t>(findings->Current())].line;
  };
  QCOMPARE(current(), -1);
  std::set<int> lines;
  int count = 0;
  for (const executor::Remark& remark : remarks)
    if (remark.level != executor::Level::Ok) {
      lines.insert(remark.line);
      ++count;
    }
  QVERIFY(lines.count(14) == 1 && lines.count(21) == 1);
  std::set<int> seen;
  for (int i = 0, last = 0; i < count; ++i) {
    QTest::keyClick(&stage.window, Qt::Key_N);
    QVERIFY(current() >= last);
    last = current();
    seen.insert(last);
    if (last == 14) QCOMPARE(stage.player().LineNow(), 14);
  }
  QCOMPARE(seen, lines);
  QCOMPARE(current(), 21);
  QVERIFY(stage.player().LineNow() < 21);
  // Round to the first again, and back.
  Click(stage, "nextFinding");
  QCOMPARE(current(), *lines.begin());
  QTest::keyClick(&stage.window, Qt::Key_N, Qt::ShiftModifier);
  QCOMPARE(current(), 21);
  // Its glyph stands below its place.
  auto* timeline = Find(stage, "timeline");
  stage.session.SeekLine(14);
  const int x = HandleX(stage);
  stage.session.SeekTime(0);
  QTest::mouseClick(timeline, Qt::LeftButton, {}, {x, 42});
  QCOMPARE(current(), 14);
  QCOMPARE(stage.player().LineNow(), 14);
}

void TimelineRun::WrapsFindings() {
  std::string text = kTwoLayers;
  text.insert(text.rfind("G1 Z13.875"), "G1 Z99\r\n");
  Staged stage;
  Stage(stage, text);
  stage.window.resize(800, 600);
  auto* findings = Find<FindingsList>(stage, "findings");
  // What its sentences take besides a line each makes it scroll further.
  const int rows = static_cast<int>(stage.session.remarks().size());
  const int all = findings->verticalScrollBar()->maximum() + findings->viewport()->height();
  QVERIFY(all >= rows * 27 + 18);
  QTest::mouseClick(findings->viewport(), Qt::LeftButton, {}, {200, 35});
  QCOMPARE(findings->Current(), 0);
}

void TimelineRun::NamesEveryControl() {
  Staged stage;
  Stage(stage, kTwoLayers);
  std::set<QWidget*> chain;
  for (QWidget* widget = &stage.window; chain.insert(widget).second;) widget = widget->nextInFocusChain();
  const auto buttons = stage.window.findChildren<QAbstractButton*>();
  QVERIFY(buttons.size() > 25);
  for (const QAbstractButton* button : buttons) {
    const QByteArray name = button->objectName().toUtf8();
    QVERIFY2(!button->accessibleName().isEmpty(), name);
    QVERIFY2(!button->toolTip().isEmpty(), name);
    QVERIFY2((button->focusPolicy() & Qt::TabFocus) != 0, name);
    QVERIFY2(chain.count(const_cast<QAbstractButton*>(button)) == 1, name);
  }
}

void TimelineRun::ReadsALongProgramThatCanBeGivenUp() {
  const std::string path = Write("long.T2G", executor::ProgramOf({.passes = 60'000, .step = 0.004}));
  Staged stage;
  stage.window.show();
  stage.window.Open(path);
  QCOMPARE(stage.session.work(), Session::Work::Opening);
  QVERIFY(Find(stage, "cancelOpening")->isVisible());
  QVERIFY(!Find(stage, "openHere")->isVisible());
  Click(stage, "cancelOpening");
  QCOMPARE(stage.session.work(), Session::Work::None);
  QVERIFY(stage.session.name().isEmpty());
  QVERIFY(Find(stage, "openHere")->isVisible());
  stage.window.Open(path);
  double share = 0;
  while (stage.session.work() == Session::Work::Opening) {
    QTest::qWait(1);
    if (stage.session.work() != Session::Work::Opening) break;
    QVERIFY(stage.session.WorkShare() >= share && stage.session.WorkShare() <= 1);
    share = stage.session.WorkShare();
  }
  QVERIFY(share > 0);
  QCOMPARE(stage.player().State(), RunState::Running);
  stage.session.Pause();
  stage.session.SeekLine(200'000);
  QCOMPARE(stage.player().LineNow(), 200'000);
  // A short one that is opened meanwhile is there at once, and stays.
  stage.window.Open(path);
  stage.Open(Write("short.T2G", kTwoLayers));
  stage.AwaitProof();
  QCOMPARE(stage.player().program()->Lines(), 18);
}

void TimelineRun::ProvesAgainWhatWasGivenUp() {
  Staged stage;
  stage.window.show();
  stage.Open(Write("short.T2G", kTwoLayers));
  QVERIFY(Find(stage, "proofButton")->isVisible());
  Click(stage, "proofButton");
  QCOMPARE(stage.session.work(), Session::Work::None);
  QTest::qWait(100);
  QVERIFY(stage.session.proof() == nullptr);
  Click(stage, "proofButton");
  QCOMPARE(stage.session.work(), Session::Work::Proving);
  stage.AwaitProof();
  QVERIFY(stage.session.proof() != nullptr);
  QVERIFY(!Find(stage, "proofButton")->isVisible());
}

}  // namespace

}  // namespace torvane::dryrun

QTEST_MAIN(torvane::dryrun::TimelineRun)
#include "timeline_window.moc"
