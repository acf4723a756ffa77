// Every message of the station on the real dialog: text, title, buttons, tick box, keys.
#include <QAbstractButton>
#include <QFileDialog>
#include <QLabel>

#include "host/files/paths.h"
#include "on_stage.h"

namespace torvane {

namespace {

// What an operator sees of the first dialog while this lives; a key answers it. Later ones are left by Esc.
class Seen {
 public:
  explicit Seen(Qt::Key answer, bool tick = false) : answer_(answer), tick_(tick) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
    timer_.start(5);
  }

  QString title, text;
  QStringList buttons;  // left to right
  bool offer = false;
  bool onTop = false;
  int times = 0;

 private:
  void Look() {
    auto* dialog = dynamic_cast<MessageWindow*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) return;
    if (++times == 1) Remember(*dialog);
    QTest::keyClick(dialog->windowHandle(), times == 1 ? answer_ : Qt::Key_Escape);
  }
  void Remember(MessageWindow& dialog) {
    title = dialog.windowTitle();
    text = dialog.findChild<QLabel*>(QStringLiteral("lblMsg"))->text();
    onTop = dialog.windowFlags().testFlag(Qt::WindowStaysOnTopHint);
    for (const char* name : {"btnYes", "btnNo"})
      if (auto* button = dialog.findChild<QAbstractButton*>(QString::fromLatin1(name)))
        buttons.push_back(button->text());
    auto* box = dialog.findChild<QAbstractButton*>(QStringLiteral("chkNoShow"));
    offer = box != nullptr;
    if (box != nullptr && tick_) box->click();
  }

  Qt::Key answer_;
  bool tick_;
  QTimer timer_;
};

struct Case {
  const char* name;
  int number;
  bool question, offer;
  QStringList lines;
  std::function<void(WindowOnStage&)> trigger;
  bool fourAxis = false;
  StoreEntries store = {};
};

const StoreEntries kConfirmed = {{"gHasUserCheckedCarriageZOffset", "1"}};

void Run(WindowOnStage& station, const char* control) { station.program->binder().Run(control); }

std::vector<Case> Cases() {
  const auto type = [](const char* field, const char* text) {
    return [field, text](WindowOnStage& station) {
      station.program->binder().Type(*station.station().FindField(field), QString::fromLatin1(text));
    };
  };
  const auto pressLowStop = [](WindowOnStage& station) {
    station.s().gCarriageOffsetFromRMPFace = "2";
    station.s().txtZ2(1) = "1";
    station.program->binder().Run("txtZ2", Event::Click, 1);
  };
  return {
      {"changed",
       1,
       true,
       false,
       {"This Torvane Design File has changed.", " Do you want to save the changes first ?"},
       [](WindowOnStage& station) {
         station.s().gDirty = true;
         Run(station, "mnuNewFile");
       }},
      {"carriage class",
       5,
       false,
       false,
       {"Speed desired may exceed speed capability of Torvane.", "Max Speed of Torvane is indicated at 16."},
       [=](WindowOnStage& station) {
         station.s().cMaxSpeed = 16;
         Run(station, "mnuSpeeds");
         type("txtcSpeed(0)", "99")(station);
       }},
      {"mandrel speed",
       6,
       false,
       false,
       {"Input Mandrel Speed exceeds Torvane", "Max RPM of 120.0.", "", "Input Slower Mandrel Speed."},
       [=](WindowOnStage& station) {
         station.s().mMaxRPM = 120;
         type("txtMRPM(26)", "121")(station);
       }},
      {"pre-wrap advance",
       11,
       false,
       true,
       {"Carriage Speed may Exceed", " Winder Capability"},
       [=](WindowOnStage& station) {
         station.s().cMaxSpeed = 16;
         station.s().cmbPreWrapRPM(1) = "60";
         type("txtPreWrapAdvance(1)", "17")(station);
       }},
      {"steep angle",
       12,
       false,
       true,
       {"Winding Angles Above 80 deg Should be Set", "to 90 deg to Hoop wind the part"},
       [=](WindowOnStage& station) {
         station.s().txtNumberOfLayers(0) = "1";
         type("txtWA(1)", "81")(station);
       }},
      {"hoop",
       31,
       false,
       true,
       {"Torvane v420 can not yet transition to hoop winding from ",
        "helical winding. The previous layer will be paused first, ",
        "then manually place filament, then hoop wind."},
       [](WindowOnStage& station) {
         station.s().txtNumberOfLayers(1) = "1";
         station.program->binder().Choose(station.s().cmb3D(1), "HOOP");
       },
       true},
      {"flat angle",
       32,
       false,
       true,
       {"WARNING: 2-Axis Torvane May Have Trouble with", "Winding Angles less than 25 Degrees.", "",
        "Proceed with Caution ..."},
       [=](WindowOnStage& station) {
         station.s().txtNumberOfLayers(0) = "1";
         type("txtWA(1)", "24.9")(station);
         station.s().gDirty = false;
         Run(station, "imgBUILD");
       },
       false,
       kConfirmed},
      {"offset before a build",
       33,
       false,
       true,
       {"Before your first winding, you need to measure the carriage",
        "Z-offset distance. Click OK to open the settings page."},
       [](WindowOnStage& station) { Run(station, "imgBUILD"); }},
      {"offset before a trace",
       33,
       false,
       true,
       {"Before first winding, you need to measure the carriage Z-offset distance.",
        "Click OK to open the settings page."},
       [](WindowOnStage& station) { Run(station, "lblGoTrace"); }},
      {"offset before manual operation",
       33,
       false,
       true,
       {"Before first winding, you need to measure the carriage Z-offset distance.",
        "Click OK to open the settings page."},
       [](WindowOnStage& station) { Run(station, "lblManualOperation"); }},
      {"blinking values",
       33,
       false,
       false,
       {"Blinking Red Values Seem Too High.", " Please Check Values ... "},
       [](WindowOnStage& station) {
         station.s().chkHeatGunApp = "1";
         station.s().txtHGSpeed = "10.01";
         Run(station, "imgBUILD");
       },
       false,
       kConfirmed},
      {"to millimetres",
       47,
       true,
       false,
       {"Units are now in millimeters.", "Inputs will be lost.", " Do you wat to proceed ?"},
       [](WindowOnStage& station) { Run(station, "mnuMM"); }},
      {"a band in millimetres",
       47,
       true,
       false,
       {"Units are now in INCHES. ", "Do You Want to use millimeters instead ?"},
       type("txtBandWidthMM(0)", "6")},
      {"stop too low",
       567,
       false,
       false,
       {"Carriage will slam Limit Switch.", "Enter a Z value greater than the Z home position.", "",
        "Go To Settings --> 2-Axis --> Red Highlight"},
       pressLowStop},
      {"stop too low, four axes",
       567,
       false,
       false,
       {"Carriage will slam Limit Switch.", "Enter a Z value greater than the Z home position.", "",
        "Go To Settings --> 4-Axis --> Red Highlight"},
       pressLowStop,
       true},
  };
}

}  // namespace

class MessagesOnScreen : public QObject {
  Q_OBJECT

 private slots:
  void EachIsShownAsAsked_data();
  void EachIsShownAsAsked();
  void InchesAreAskedForToo();
  void KeysAnswer();
  void TickSilences();
  void CellOutlivesTheMessageOfItsOwnKey();
  void FieldsBlinkBehindTheirMessage();
  void SystemBoxesSayWhatFailed();
  void NamesAreSavedAsTyped_data();
  void NamesAreSavedAsTyped();
};

void MessagesOnScreen::EachIsShownAsAsked_data() {
  QTest::addColumn<int>("index");
  int index = 0;
  for (const Case& message : Cases()) QTest::newRow(message.name) << index++;
}

void MessagesOnScreen::EachIsShownAsAsked() {
  QFETCH(int, index);
  const Case message = Cases()[static_cast<std::size_t>(index)];
  Theme theme{false};
  QtMessageDialog dialog(theme);
  StoreEntries store = message.store;
  if (message.fourAxis) store.emplace_back("mnu2Axis", "0");
  WindowOnStage station(store, &dialog);
  const Seen seen(Qt::Key_Escape);
  message.trigger(station);
  QVERIFY(seen.times >= 1);
  QCOMPARE(seen.title, QStringLiteral(" Message"));
  QCOMPARE(seen.text, message.lines.join(QLatin1Char('\n')));
  QCOMPARE(seen.buttons, message.question ? QStringList({"&Yes", "&No"}) : QStringList({"OK"}));
  QCOMPARE(seen.offer, message.offer);
  QVERIFY(seen.onTop);
  QVERIFY(!station.s().gMsgAnswer);
  // Its number is the key that silences it.
  if (message.name == std::string("mandrel speed") || station.station().windows.Find("frmSettings")) return;
  station.stage.store.Write("Settings", "MSG" + std::to_string(message.number), "True");
  const Seen again(Qt::Key_Escape);
  message.trigger(station);
  QVERIFY(again.text != seen.text);
}

void MessagesOnScreen::InchesAreAskedForToo() {
  Theme theme{false};
  QtMessageDialog dialog(theme);
  WindowOnStage station({}, &dialog);
  {
    const Seen yes(Qt::Key_Return);
    Run(station, "mnuMM");
    QVERIFY(station.s().mnuMM);
  }
  {
    const Seen no(Qt::Key_N);
    Run(station, "mnuINCH");
    QCOMPARE(no.text,
             QStringLiteral("Units are now in inches.\nInputs will be lost.\n Do you wat to proceed ?"));
    QVERIFY(station.s().mnuMM);
  }
  const Seen no(Qt::Key_N);
  station.program->binder().Type(station.s().txtBandWidth(0), QStringLiteral("1"));
  QCOMPARE(no.text, QStringLiteral("Units are now in Millimeters. \nDo You Want to use inches instead ?"));
  QVERIFY(station.s().mnuMM);
}

void MessagesOnScreen::KeysAnswer() {
  Theme theme{false};
  QtMessageDialog dialog(theme);
  WindowOnStage station({}, &dialog);
  const struct {
    bool okOnly;
    Qt::Key key;
    bool yes;
  } answers[] = {{false, Qt::Key_Return, true}, {false, Qt::Key_Escape, false}, {false, Qt::Key_Y, true},
                 {false, Qt::Key_N, false},     {true, Qt::Key_Return, false},  {true, Qt::Key_Escape, false},
                 {false, Qt::Key_Space, true}};
  for (const auto& answer : answers) {
    const Seen seen(answer.key);
    QCOMPARE(dialog.Ask({"Question", 900, answer.okOnly, false, false, {}}), answer.yes);
    QCOMPARE(seen.times, 1);
  }
}

void MessagesOnScreen::TickSilences() {
  Theme theme{false};
  QtMessageDialog dialog(theme);
  WindowOnStage station({}, &dialog);
  const Seen seen(Qt::Key_Return, true);
  Run(station, "lblGoTrace");
  QCOMPARE(seen.times, 1);
  QCOMPARE(station.stage.store.Read("Settings", "MSG33").value_or(""), std::string("True"));
}

void MessagesOnScreen::CellOutlivesTheMessageOfItsOwnKey() {
  Theme theme{false};
  QtMessageDialog dialog(theme);
  WindowOnStage station({}, &dialog);
  DesignState& s = station.s();
  station.Type("txtNumberOfLayers(0)", "2");
  station.TypeInCell(s.txtWA(1), "9");
  const QPointer<QLineEdit> cell = station.Grid()->viewport()->findChild<QLineEdit*>();
  QVERIFY(cell != nullptr);
  bool asked = false, lived = false;
  // The dialog's own turns go round a few times before it is answered.
  QTimer::singleShot(200, &station.window(), [&] {
    QWidget* message = QApplication::activeModalWidget();
    asked = message != nullptr;
    lived = cell != nullptr;
    if (asked) QTest::keyClick(message->windowHandle(), Qt::Key_Return);
  });
  station.Keys("0");
  QVERIFY(asked);
  QVERIFY(lived);
  QTRY_VERIFY(cell == nullptr);
  // The keyboard is where it was.
  QVERIFY(station.Activate(station.window()));
  station.Key(Qt::Key_Return);
  station.Keys("45");
  QCOMPARE(s.txtWA(1).text(), std::string("90"));
  QCOMPARE(s.txtWA(2).text(), std::string("45"));
}

// A message stops the operator's input, not the fields that it speaks of.
void MessagesOnScreen::FieldsBlinkBehindTheirMessage() {
  Theme theme{false};
  QtMessageDialog dialog(theme);
  WindowOnStage station(kConfirmed, &dialog);
  DesignState& s = station.s();
  s.chkHeatGunApp = "1";
  s.txtHGSpeed = "10.01";
  station.station().timers.tmrBlink.interval = std::chrono::milliseconds(1);
  bool marked = false;
  WhenShown<MessageWindow>([&](MessageWindow& message) {
    for (int look = 0; look < 500 && !marked; ++look) {
      station.stage.clock.Advance(station.station().timers.tmrBlink.interval);
      QTest::qWait(2);
      marked = s.txtHGSpeed.mark() == Mark::TooHigh;
    }
    QTest::keyClick(message.windowHandle(), Qt::Key_Return);
  });
  Run(station, "imgBUILD");
  QVERIFY(marked);
}

void MessagesOnScreen::SystemBoxesSayWhatFailed() {
  Theme theme{false};
  QtMessageBox box(theme);
  WindowOnStage station(kConfirmed, nullptr, &box);
  const struct {
    const char* control;
    const char* text;
  } failures[] = {
      {"imgBUILD", "Can't Locate TorvaneExecutor.exe or G-Code File.\nBuild cannot proceed."},
      {"Command2",
       "Can't Locate NotePad2.exe to display Torvane G-Code file,\nor Can't Find Torvane G-Code file."},
      {"mnuViewDesignFile",
       "Can't Locate NotePad2.exe to display Torvane Design file\nor Can't locate Torvane Design file\n\n"
       "it is not there"}};
  for (const auto& failure : failures) {
    const Seen seen(Qt::Key_Return);
    station.stage.launcher.FailNext("it is not there");
    Run(station, failure.control);
    QCOMPARE(seen.times, 1);
    QCOMPARE(seen.title, QStringLiteral("Error"));
    QCOMPARE(seen.text, QString::fromLatin1(failure.text));
    QCOMPARE(seen.buttons, QStringList({"OK"}));
    QVERIFY(!seen.offer);
  }
}

void MessagesOnScreen::NamesAreSavedAsTyped_data() {
  QTest::addColumn<QString>("proposed");
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("saved");
  QTest::newRow("bare") << ""
                        << "Tube"
                        << "Tube";
  QTest::newRow("with a dot") << ""
                              << "Tube 1.5"
                              << "Tube 1.5";
  QTest::newRow("whole") << ""
                         << "Tube.T2D"
                         << "Tube.T2D";
  QTest::newRow("of the other family") << ""
                                       << "Tube.t4d"
                                       << "Tube.t4d";
  QTest::newRow("as proposed") << "old"
                               << ""
                               << "old";
}

void MessagesOnScreen::NamesAreSavedAsTyped() {
  QFETCH(const QString, proposed);
  QFETCH(const QString, typed);
  QFETCH(const QString, saved);
  const QTemporaryDir folder;
  // It is there already, and nothing is asked.
  QFile former(folder.filePath(saved));
  QVERIFY(former.open(QIODevice::WriteOnly));
  former.close();
  Theme theme{false};
  QtMessageBox box(theme);
  QtFileDialog dialog(box);
  int asked = 0;
  QTimer questions;
  connect(&questions, &QTimer::timeout, &questions, [&asked] {
    QWidget* top = QApplication::activeModalWidget();
    if (top == nullptr || qobject_cast<QFileDialog*>(top) != nullptr) return;
    ++asked;
    QTest::keyClick(top->windowHandle(), Qt::Key_Escape);
  });
  questions.start(20);
  WhenShown<QFileDialog>([&typed](QFileDialog& shown) {
    auto* name = shown.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (!typed.isEmpty()) name->setText(typed);
    QTest::keyClick(name, Qt::Key_Return);
    // A dialog that asked and was told no is still open.
    if (shown.isVisible()) shown.reject();
  });
  const auto path = dialog.AskSave("Designs (*.t2d)|*.t2d|", StationPath(folder.path().toStdString()).value(),
                                   proposed.toStdString());
  QCOMPARE(asked, 0);
  QVERIFY(path);
  QCOMPARE(QString::fromStdString(path->substr(path->rfind('\\') + 1)), saved);
}

}  // namespace torvane

QTEST_MAIN(torvane::MessagesOnScreen)
#include "messages_on_screen.moc"
