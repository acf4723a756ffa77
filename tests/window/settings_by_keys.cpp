// The settings dialog by keys: what OK takes over, what Cancel drops, the twins, and the look of its parts.
#include <QAbstractButton>

#include "on_stage.h"
#include "workbench/dialog/settings_lines.h"

namespace torvane {

class SettingsByKeys : public QObject {
  Q_OBJECT

 private slots:
  void KeysDoWhatTheScriptDoes();
  void CancelKeepsWhatOnlyKeysSet();
  void SwitchesTakeKeysAndClicks();
  void EveryFieldStandsOnItsTab();
  void OffsetStandsOutUntilConfirmed();
  void PictureOpensAndCloses();

 private:
  static QLineEdit* Edit(const WindowOnStage& station, const char* name) {
    return station.DialogOf("frmSettings")->findChild<QLineEdit*>(QString::fromLatin1(name));
  }
  static void TypeIn(WindowOnStage& station, const char* field, const char* text) {
    QWidget* dialog = station.DialogOf("frmSettings");
    QVERIFY(WindowOnStage::Activate(*dialog));
    QLineEdit* edit = Edit(station, field);
    QVERIFY2(edit != nullptr, field);
    edit->setFocus();
    station.TypeHere(text);
  }
  static void Open(WindowOnStage& station, const char* control) {
    station.program->binder().Run(control);
    station.Note(std::string("click ") + control);
    QVERIFY(station.DialogOf("frmSettings") != nullptr);
  }
};

void SettingsByKeys::KeysDoWhatTheScriptDoes() {
  WindowOnStage station;
  Open(station, "Label9");
  TypeIn(station, "txtCarriageOffsetFromRMPFaceMM", "50.8");
  TypeIn(station, "txtDHStructureWidth", "2.5");
  TypeIn(station, "txtNoListPatternDegrees", "30");
  TypeIn(station, "txtDelayTimeInG456ToWaitForMandrelinMS", "501");
  QTRY_COMPARE(Edit(station, "txtCarriageOffsetFromRMPFace")->text(), QStringLiteral("2.00"));
  QTRY_COMPARE(Edit(station, "Text3")->text(), QStringLiteral("2.00"));
  QTRY_COMPARE(Edit(station, "txtDHStructureWidthMM")->text(), QStringLiteral("63.50"));
  QTRY_COMPARE(Edit(station, "txtDelayTimeInG456ToWaitForMandrelinMS")->text(), QStringLiteral("499"));
  QTest::mouseClick(station.DialogOf("frmSettings")->findChild<QWidget*>(QStringLiteral("lblTab(0)")),
                    Qt::LeftButton);
  station.Note("click lblTab(0)");
  TypeIn(station, "txtLimitSwitchApproachSpeed", "3");
  TypeIn(station, "txtMandrelAdvanceAfterPreWrapCarriageStop", "270");
  station.Key(Qt::Key_Return);
  station.Note("click btnOK");
  QVERIFY(station.DialogOf("frmSettings") == nullptr);
  QCOMPARE(station.s().gDelayTimeInG456ToWaitForMandrelinMS, 499.0);
  const TorvaneProgram torvane;
  QCOMPARE(station.s().gNoListPatternDegrees, 30.0);
  QCOMPARE(torvane.Follow(station.script + "get gNoListPatternDegrees\n"),
           std::string("settings tab 2\ngNoListPatternDegrees = 30\n"));
  const std::string same = FirstDifference(StateOf(station.station()), torvane.StateAfter(station.script));
  QVERIFY2(same.empty(), same.c_str());
  QCOMPARE(station.stage.store.Read("Settings", "LastSettingsTab").value_or(""), std::string("0"));
}

void SettingsByKeys::CancelKeepsWhatOnlyKeysSet() {
  WindowOnStage station;
  Open(station, "mnuSpeeds");
  const std::string offset = station.s().gCarriageOffsetFromRMPFace.text();
  TypeIn(station, "txtcSpeed(1)", "5");
  QTRY_COMPARE(Edit(station, "txtcSpeedmm(1)")->text(), QStringLiteral("127.00"));
  Open(station, "Label10");
  TypeIn(station, "Text3", "3.5");
  TypeIn(station, "txtAddPasses", "7");
  station.Key(Qt::Key_Escape);
  QVERIFY(station.DialogOf("frmSettings") == nullptr);
  QCOMPARE(station.s().iMaxCarriageSpeeds[1], 5.0);
  QCOMPARE(station.s().gCarriageOffsetFromRMPFace.text(), offset);
  QVERIFY(station.s().txtAddPasses.text() != "7");
  QCOMPARE(station.stage.store.Read("Settings", "gHasUserCheckedCarriageZOffset").value_or(""),
           std::string("1"));
}

void SettingsByKeys::SwitchesTakeKeysAndClicks() {
  WindowOnStage station;
  Open(station, "mnuProperties");
  QWidget* dialog = station.DialogOf("frmSettings");
  QVERIFY(WindowOnStage::Activate(*dialog));
  auto* keepGoing = dialog->findChild<QWidget*>(QStringLiteral("txtHeatGunJustKeepGoingYN"));
  Field& field = *station.station().FindField("txtHeatGunJustKeepGoingYN");
  keepGoing->setFocus();
  // This field answers to the key: anything but y is N.
  for (const auto& [key, text] : {std::pair{"y", "Y"}, {"n", "N"}, {"Y", "Y"}, {"x", "N"}}) {
    station.Keys(key);
    QCOMPARE(field.text(), std::string(text));
  }
  station.Key(Qt::Key_Left);
  QCOMPARE(field.text(), std::string("Y"));
  QTest::mouseClick(keepGoing, Qt::LeftButton, {}, {keepGoing->width() - 10, 10});
  QCOMPARE(field.text(), std::string("N"));
  Open(station, "Label9");
  auto* pause = dialog->findChild<QWidget*>(QStringLiteral("txtPauseBeforeHoop"));
  Field& pauses = *station.station().FindField("txtPauseBeforeHoop");
  pause->setFocus();
  // This one to the text: anything but n is Y.
  for (const auto& [key, text] : {std::pair{"n", "N"}, {"x", "Y"}, {"N", "N"}, {"y", "Y"}}) {
    station.Keys(key);
    QCOMPARE(pauses.text(), std::string(text));
  }
  QTest::mouseClick(dialog->findChild<QWidget*>(QStringLiteral("btnOK")), Qt::LeftButton);
  QCOMPARE(station.s().txtHeatGunJustKeepGoingYN.text(), std::string("N"));
  QCOMPARE(station.s().gPauseBeforeHoop.text(), std::string("Y"));
}

void SettingsByKeys::EveryFieldStandsOnItsTab() {
  WindowOnStage station;
  Open(station, "mnuProperties");
  QWidget* dialog = station.DialogOf("frmSettings");
  constexpr const char* kPages[] = {"picGeneral", "pic2Axis", "pic4Axis", "picSpeeds"};
  for (const DialogLine& shown : DialogLines()) {
    const SettingLine& line = shown.setting;
    auto* page = dialog->findChild<QWidget*>(QString::fromLatin1(kPages[line.tab]));
    QVERIFY(page != nullptr);
    for (const std::string& field : {std::string(line.field), std::string(line.twin)}) {
      if (field.empty()) continue;
      const auto found = dialog->findChildren<QWidget*>(QString::fromStdString(field));
      QCOMPARE(found.size(), qsizetype{1});
      QVERIFY2(page->isAncestorOf(found.first()), field.c_str());
      QVERIFY2(!found.first()->accessibleName().isEmpty(), field.c_str());
    }
  }
  for (int tab = 0; tab <= 3; ++tab) {
    QTest::mouseClick(dialog->findChild<QWidget*>(QStringLiteral("lblTab(%1)").arg(tab)), Qt::LeftButton);
    for (int other = 0; other <= 3; ++other) {
      QCOMPARE(dialog->findChild<QWidget*>(QString::fromLatin1(kPages[other]))->isVisible(), other == tab);
      // A bar stands over the heading of the page in sight.
      const QImage heading =
          dialog->findChild<QWidget*>(QStringLiteral("lblTab(%1)").arg(other))->grab().toImage();
      QCOMPARE(heading.pixelColor(60, 1) == station.theme[Token::Accent], other == tab);
    }
  }
}

void SettingsByKeys::OffsetStandsOutUntilConfirmed() {
  for (const bool confirmed : {false, true}) {
    WindowOnStage station(StoreEntries{{"gHasUserCheckedCarriageZOffset", confirmed ? "1" : "0"}});
    Open(station, "Label10");
    const QPixmap picture = Edit(station, "Text3")->grab();
    const QColor ground = picture.toImage().pixelColor(picture.width() / 2, 4);
    QCOMPARE(ground, station.theme[confirmed ? Token::Input : Token::NeedsGround]);
  }
}

void SettingsByKeys::PictureOpensAndCloses() {
  WindowOnStage station;
  Open(station, "Label9");
  for (auto* see : station.DialogOf("frmSettings")->findChildren<QAbstractButton*>(QStringLiteral("Label21")))
    if (see->isVisible()) see->click();
  QWidget* picture = station.DialogOf("frmBigPic");
  QVERIFY(picture != nullptr && picture->isVisible());
  QCOMPARE(picture->windowTitle(), QStringLiteral("Carriage Offset Distance"));
  QVERIFY(WindowOnStage::Activate(*picture));
  station.Key(Qt::Key_Escape);
  QVERIFY(station.DialogOf("frmBigPic") == nullptr);
  QVERIFY(station.DialogOf("frmSettings") != nullptr);
}

}  // namespace torvane

QTEST_MAIN(torvane::SettingsByKeys)
#include "settings_by_keys.moc"
