// The windows beside the main one: which of them holds it, whose buttons run, where they open.
#include <QAbstractButton>
#include <QFileDialog>
#include <QPushButton>
#include <QScreen>
#include <cmath>

#include "look/button.h"
#include "look/screen.h"
#include "on_stage.h"

namespace torvane {

namespace {

// The windowing system's way to a widget: blocked by what is modal.
void ClickAt(QWidget& widget) {
  QWindow* window = widget.window()->windowHandle();
  QTest::mouseClick(window, Qt::LeftButton, {}, widget.mapTo(widget.window(), widget.rect().center()));
}

// How much lighter one colour is than another to the eye, from 1 on.
double Contrast(const QColor& one, const QColor& other) {
  const auto light = [](const QColor& colour) {
    const auto part = [](double share) {
      return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
  };
  const auto [less, more] = std::minmax(light(one), light(other));
  return (more + 0.05) / (less + 0.05);
}

}  // namespace

class DialogsOnScreen : public QObject {
  Q_OBJECT

 private slots:
  void SettingsHoldTheMainWindow();
  void SettingsForTheOffsetLeaveItFree();
  void ThePictureOpensOverTheSettings();
  void EachDialogRunsItsOwnButtons();
  void ADoubleClickIsOneClick();
  void AnArrowKeyConfirmsTheOffset();
  void TheWindowComesBackMaximized();
  void ThePreviewOpensAQuarterAndAnEighthIn();
  void EverySpeedHasItsCaption();
  void ButtonsThatAreOffCanBeReadInTheDark();
  void FileDialogsFitTheScreen();
};

void DialogsOnScreen::SettingsHoldTheMainWindow() {
  WindowOnStage station;
  station.program->binder().Run("mnuSpeeds");
  QWidget* settings = station.DialogOf("frmSettings");
  QVERIFY(settings != nullptr && settings->isModal());
  ClickAt(*station.Find(QStringLiteral("optX(1)")));
  QVERIFY2(!station.s().gShow4Axis, "the main window is worked in behind it");
  QTest::mouseClick(settings->findChild<QWidget*>(QStringLiteral("btnCancel")), Qt::LeftButton);
  ClickAt(*station.Find(QStringLiteral("optX(1)")));
  QVERIFY(station.s().gShow4Axis);
}

void DialogsOnScreen::SettingsForTheOffsetLeaveItFree() {
  for (const char* check : {"imgBUILD", "lblGoTrace", "lblManualOperation"}) {
    WindowOnStage station;
    station.program->binder().Run(check);
    const QWidget* settings = station.DialogOf("frmSettings");
    QVERIFY(settings != nullptr && settings->isVisible() && !settings->isModal());
    ClickAt(*station.Find(QStringLiteral("optX(1)")));
    QVERIFY(station.s().gShow4Axis);
  }
}

void DialogsOnScreen::ThePictureOpensOverTheSettings() {
  WindowOnStage station;
  station.program->binder().Run("Label10");
  for (auto* see : station.DialogOf("frmSettings")->findChildren<QAbstractButton*>(QStringLiteral("Label21")))
    if (see->isVisible()) see->click();
  QWidget* picture = station.DialogOf("frmBigPic");
  QVERIFY(picture != nullptr);
  QVERIFY(WindowOnStage::Activate(*picture));
  QTest::keyClick(picture->windowHandle(), Qt::Key_Escape);
  QVERIFY2(station.DialogOf("frmBigPic") == nullptr, "what is modal must not lock its own picture");
}

void DialogsOnScreen::EachDialogRunsItsOwnButtons() {
  WindowOnStage station;
  station.program->binder().Run("imgBUILD");
  station.program->binder().Run("mnuMachine");
  QWidget* settings = station.DialogOf("frmSettings");
  QWidget* machine = station.DialogOf("frmMachine");
  QVERIFY(settings != nullptr && machine != nullptr);
  QTest::mouseClick(settings->findChild<QWidget*>(QStringLiteral("btnOK")), Qt::LeftButton);
  QVERIFY(station.DialogOf("frmSettings") == nullptr);
  QCOMPARE(station.DialogOf("frmMachine"), machine);
  // The cross likewise.
  station.program->binder().Run("imgBUILD");
  machine->close();
  QVERIFY(station.DialogOf("frmMachine") == nullptr);
  QVERIFY(station.DialogOf("frmSettings") != nullptr);
}

void DialogsOnScreen::ADoubleClickIsOneClick() {
  WindowOnStage station;
  DesignState& s = station.s();
  s.gCarriageOffsetFromRMPFace = "2";
  s.txtZ2(1) = "1";
  QCOMPARE(s.txtZ2(1).mark(), Mark::StopTooLow);
  auto* stop = station.Find<QLineEdit>(QStringLiteral("txtZ2(1)"));
  QTest::mouseClick(stop, Qt::LeftButton);
  station.program->binder().Run("btnCancel");
  QVERIFY(station.station().gSlamMessageShown);
  const auto half = [stop](QEvent::Type type) {
    const QPointF at = stop->rect().center();
    QMouseEvent event(type, at, stop->mapToGlobal(at), Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
    QApplication::sendEvent(stop, &event);
  };
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                          QEvent::MouseButtonRelease})
    half(type);
  QVERIFY2(!station.station().gSlamMessageShown, "every other click, not every one");
}

void DialogsOnScreen::AnArrowKeyConfirmsTheOffset() {
  WindowOnStage station;
  station.program->binder().Run("Label10");
  QWidget* settings = station.DialogOf("frmSettings");
  QVERIFY(WindowOnStage::Activate(*settings));
  const auto confirmed = [&] {
    return station.stage.store.Read("Settings", "gHasUserCheckedCarriageZOffset").value_or("0");
  };
  auto* passes = settings->findChild<QLineEdit*>(QStringLiteral("txtAddPasses"));
  passes->setFocus();
  QTest::keyClick(passes, Qt::Key_Left);
  auto* millimetres = settings->findChild<QLineEdit*>(QStringLiteral("Text2"));
  millimetres->setFocus();
  // A key that went down elsewhere only passes by.
  QTest::keyRelease(millimetres, Qt::Key_Tab);
  QCOMPARE(confirmed(), std::string("0"));
  QTest::keyClick(millimetres, Qt::Key_Left);
  QCOMPARE(confirmed(), std::string("1"));
  QCOMPARE(station.station().FindField("Text3")->text(), station.s().gCarriageOffsetFromRMPFace.text());
}

void DialogsOnScreen::TheWindowComesBackMaximized() {
  for (const bool was : {true, false}) {
    WindowOnStage station(StoreEntries{{"Me.WasMaximized", was ? "1" : "0"}, {"Me.Width", "14000"}});
    QCOMPARE(station.window().isMaximized(), was);
    station.program->binder().Run("mnuQuit");
    QCOMPARE(station.stage.store.Read("Settings", "Me.WasMaximized").value_or(""),
             std::string(was ? "1" : "0"));
  }
}

void DialogsOnScreen::ThePreviewOpensAQuarterAndAnEighthIn() {
  WindowOnStage station(StoreEntries{{"mnu2Axis", "0"}});
  // So far to the left and up that the preview has room on this screen.
  station.window().resize(800, 600);
  station.window().move(-140, -30);
  QCoreApplication::processEvents();
  station.program->binder().Run("picPolar");
  const QWidget* preview = station.DialogOf("frmPolar");
  QVERIFY(preview != nullptr);
  const QRect main = station.window().frameGeometry();
  QCOMPARE(preview->pos(), main.topLeft() + QPoint(main.width() / 4, main.height() / 8));
}

void DialogsOnScreen::EverySpeedHasItsCaption() {
  WindowOnStage station;
  station.program->binder().Run("mnuSpeeds");
  const QWidget* settings = station.DialogOf("frmSettings");
  const auto named = [settings](const char* field) {
    return settings->findChild<QWidget*>(QString::fromLatin1(field))->accessibleName();
  };
  QCOMPARE(named("txtcSpeed(0)"), QStringLiteral("Carriage Speed Limit (in/s), slow"));
  QCOMPARE(named("txtcSpeedmm(1)"), QStringLiteral("Carriage Speed Limit (mm/s), med"));
  QCOMPARE(named("txtmSpeed(2)"), QStringLiteral("Mandrel RPM Limit (1/min), fast"));
}

void DialogsOnScreen::ButtonsThatAreOffCanBeReadInTheDark() {
  Theme theme{true};
  QApplication::setStyle(new Style(theme));
  const QString block(QChar(0x2588));  // a letter without thin strokes
  QWidget ground;
  ground.setPalette(theme.Palette());
  QPushButton dialogs(block, &ground);
  dialogs.setDefault(true);
  PlainButton filled(theme, ButtonLook::Filled, Icon::None, block, &ground);
  PlainButton outlined(theme, ButtonLook::Outline, Icon::None, block, &ground);
  for (QAbstractButton* button :
       {static_cast<QAbstractButton*>(&dialogs), static_cast<QAbstractButton*>(&filled),
        static_cast<QAbstractButton*>(&outlined)}) {
    button->setFixedSize(120, 42);
    button->setEnabled(false);
    const QImage seen = button->grab().toImage();
    const QColor behind = seen.pixelColor(15, 21), letter = seen.pixelColor(60, 21);
    QVERIFY2(Contrast(behind, letter) >= 3,
             qPrintable(behind.name() + QStringLiteral(" behind ") + letter.name()));
    // And it does not look like one that can be pressed.
    QVERIFY(Contrast(behind, theme[Token::Accent]) > 1.5);
  }
  QApplication::setStyle(QStringLiteral("Fusion"));
}

void DialogsOnScreen::FileDialogsFitTheScreen() {
  Theme theme{false};
  QtMessageBox box(theme);
  QtFileDialog files(box);
  QSize shown;
  WhenShown<QFileDialog>([&shown](QFileDialog& dialog) {
    shown = dialog.size();
    dialog.reject();
  });
  QVERIFY(!files.AskSave("Torvane 2-Ax Design File (*.t2d)|*.t2d|", "", "Tube"));
  const QSize screen = QGuiApplication::primaryScreen()->availableSize();
  QVERIFY2(shown.isValid() && shown.width() < screen.width() && shown.height() < screen.height(),
           qPrintable(QStringLiteral("%1 x %2").arg(shown.width()).arg(shown.height())));
}

}  // namespace torvane

QTEST_MAIN(torvane::DialogsOnScreen)
#include "dialogs_on_screen.moc"
