// The lines of the drawings, dragged and moved by keys: the fields follow as if they were typed in.
#include <QMouseEvent>
#include <cmath>

#include "on_stage.h"
#include "window/part/part_line.h"

namespace torvane {

class LinesOnDrawing : public QObject {
  Q_OBJECT

 private slots:
  void DragTypesEachPlace();
  void ADragIsOneStepOfUndo();
  void EscapeEndsADragWhereItBegan();
  void ArrowsMoveAndShiftIsFine();
  void TheStationsFormOfANumber_data();
  void TheStationsFormOfANumber();
  void LinesStopAtTheirNeighbours();
  void TheScaleStandsStillWhileDragging();
  void WhatCanBeDraggedShowsIt();
  void TabReachesEachLine();
  void OnlyWhatIsDrawnCanBeTaken();
};

namespace {

void MakeTube(WindowOnStage& station) {
  DesignState& s = station.s();
  station.program->binder().Do([&s] {
    s.txtDiameterLeft = "4";
    s.txtDiameterRight = "4";
    s.txtLengthTotal(0) = "24";
    s.txtBandWidth(0) = "0.25";
    s.txtBandThickness(0) = "0.01";
    s.txtZ2(0) = "28.00";
    s.txtZ2(1) = "4.00";
    s.txtNumberOfLayers(0) = "1";
  });
  station.station().ForgetHistory();
  station.s().gDirty = false;
}

void MakeVessel(WindowOnStage& station) {
  DesignState& s = station.s();
  station.program->binder().Do([&] {
    station.station().Choose(s.optType(1), "True");
    s.txtDia(0) = "4";
    s.txtDia(1) = "4";
    const char* const places[] = {"32.00", "30.00", "6.00", "4.00"};
    for (int i = 0; i < 4; ++i) s.txtZ4(i) = places[i];
  });
  station.station().ForgetHistory();
}

PartLine* LineOf(const WindowOnStage& station, const char* field) {
  auto* line = dynamic_cast<PartLine*>(station.Find(QStringLiteral("line of ") + QString::fromLatin1(field)));
  if (line == nullptr) qFatal("no line of %s", field);
  return line;
}

// A mouse of which only the place counts: it stays over the drawing though the line moves under it.
class Mouse {
 public:
  explicit Mouse(QWidget& line) : line_(line), at_(line.mapToGlobal(line.rect().center())) {}
  void Press() { Send(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton); }
  void Move(double by, Qt::KeyboardModifiers modifiers = {}) {
    at_ += QPointF(by, 0);
    Send(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, modifiers);
  }
  void Release() { Send(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton); }

 private:
  void Send(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons down,
            Qt::KeyboardModifiers modifiers = {}) {
    QMouseEvent event(type, line_.mapFromGlobal(at_), at_, button, down, modifiers);
    QApplication::sendEvent(&line_, &event);
  }

  QWidget& line_;
  QPointF at_;
};

bool IsMultiple(const std::string& text, double step) {
  const double steps = std::stod(text) / step;
  return std::abs(steps - std::round(steps)) < 1e-6;
}

}  // namespace

void LinesOnDrawing::DragTypesEachPlace() {
  WindowOnStage station;
  MakeTube(station);
  DesignState& s = station.s();
  PartLine* line = LineOf(station, "txtZ2(1)");
  const auto* field = station.Find<QLineEdit>(QStringLiteral("txtZ2(1)"));
  Mouse mouse(*line);
  mouse.Press();
  mouse.Move(1);
  QCOMPARE(s.txtZ2(1).text(), std::string("4.00"));  // a hand that shakes
  double before = 4;
  for (int i = 0; i < 12; ++i) {
    mouse.Move(-10);
    const double now = std::stod(s.txtZ2(1).text());
    QVERIFY2(now > before, s.txtZ2(1).text().c_str());  // home is at the right
    before = now;
    QVERIFY2(IsMultiple(s.txtZ2(1).text(), 0.05), s.txtZ2(1).text().c_str());
    QCOMPARE(field->text().toStdString(), s.txtZ2(1).text());
    // What a typed stop sets off: the length between both.
    QCOMPARE(std::stod(s.txtZ2(2).text()), 28 - now);
  }
  mouse.Release();
  const std::string left = s.txtZ2(1).text();
  mouse.Move(-50);
  QCOMPARE(s.txtZ2(1).text(), left);
  // A stop within the carriage's offset gets its mark on the way.
  mouse.Press();
  mouse.Move(400);
  QCOMPARE(s.txtZ2(1).mark(), Mark::StopTooLow);
  QVERIFY(std::stod(s.txtZ2(1).text()) > 0);
  mouse.Release();
}

void LinesOnDrawing::ADragIsOneStepOfUndo() {
  WindowOnStage station;
  MakeTube(station);
  DesignState& s = station.s();
  station.Type("txtZ2(0)", "29");
  Mouse mouse(*LineOf(station, "txtZ2(0)"));
  mouse.Press();
  for (int i = 0; i < 150; ++i) mouse.Move(i < 20 ? 4 : i % 2 == 0 ? 6 : -6);
  mouse.Release();
  const std::string dragged = s.txtZ2(0).text();
  QVERIFY(dragged != "29");
  Mouse again(*LineOf(station, "txtZ2(0)"));
  again.Press();
  again.Move(30);
  again.Release();
  QVERIFY(s.txtZ2(0).text() != dragged);
  // The second drag, the first, and what was typed before it.
  for (const std::string& text : {dragged, std::string("29"), std::string("28.00")}) {
    station.Key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(s.txtZ2(0).text(), text);
  }
  QVERIFY(!station.station().CanUndo());
}

void LinesOnDrawing::EscapeEndsADragWhereItBegan() {
  WindowOnStage station;
  MakeTube(station);
  DesignState& s = station.s();
  const std::string before = StateOf(station.station());
  PartLine* line = LineOf(station, "txtZ2(0)");
  Mouse mouse(*line);
  mouse.Press();
  line->setFocus(Qt::MouseFocusReason);
  mouse.Move(60);
  mouse.Move(25);
  QVERIFY(s.txtZ2(0).text() != "28.00" && s.gDirty);
  station.Key(Qt::Key_Escape);
  QCOMPARE(FirstDifference(StateOf(station.station()), before), std::string());
  QVERIFY(!s.gDirty && !station.station().CanUndo() && !station.station().CanRedo());
  mouse.Move(40);
  QCOMPARE(s.txtZ2(0).text(), std::string("28.00"));
  mouse.Release();
  // Where nothing has moved yet there is nothing to take back.
  station.Type("txtZ2(0)", "27");
  mouse.Press();
  line->setFocus(Qt::MouseFocusReason);
  station.Key(Qt::Key_Escape);
  QCOMPARE(s.txtZ2(0).text(), std::string("27"));
}

void LinesOnDrawing::ArrowsMoveAndShiftIsFine() {
  WindowOnStage station;
  MakeTube(station);
  DesignState& s = station.s();
  s.txtZ2(0) = "28.02";
  LineOf(station, "txtZ2(0)")->setFocus(Qt::TabFocusReason);
  // Z grows to the left here. The next place of the step comes first.
  const struct {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    const char* text;
  } strokes[] = {{Qt::Key_Left, {}, "28.05"},
                 {Qt::Key_Left, {}, "28.10"},
                 {Qt::Key_Right, Qt::ShiftModifier, "28.095"},
                 {Qt::Key_Right, Qt::ShiftModifier, "28.09"},
                 {Qt::Key_Right, {}, "28.05"},
                 {Qt::Key_Up, {}, "28.05"}};
  for (const auto& stroke : strokes) {
    station.Key(stroke.key, stroke.modifiers);
    QCOMPARE(s.txtZ2(0).text(), std::string(stroke.text));
  }
  // The keys of one visit are taken back together.
  station.Key(Qt::Key_Z, Qt::ControlModifier);
  QCOMPARE(s.txtZ2(0).text(), std::string("28.02"));
  Mouse mouse(*LineOf(station, "txtZ2(0)"));
  mouse.Press();
  mouse.Move(31, Qt::ShiftModifier);
  const std::string fine = s.txtZ2(0).text();
  mouse.Release();
  QVERIFY2(IsMultiple(fine, 0.005), fine.c_str());
}

void LinesOnDrawing::TheStationsFormOfANumber_data() {
  QTest::addColumn<bool>("comma");
  QTest::addColumn<bool>("millimetres");
  QTest::addColumn<QString>("coarse");
  QTest::addColumn<QString>("fine");
  QTest::newRow("inches, point") << false << false << "28.05"
                                 << "28.055";
  QTest::newRow("inches, comma") << true << false << "28,05"
                                 << "28,055";
  QTest::newRow("millimetres, point") << false << true << "29.00"
                                      << "29.10";
  QTest::newRow("millimetres, comma") << true << true << "29,00"
                                      << "29,10";
}

void LinesOnDrawing::TheStationsFormOfANumber() {
  QFETCH(bool, comma);
  QFETCH(bool, millimetres);
  QFETCH(QString, coarse);
  QFETCH(QString, fine);
  WindowOnStage station;
  if (comma) station.s().signs.decimal = ',';
  MakeTube(station);
  DesignState& s = station.s();
  if (millimetres) s.gUnits = "mm";
  s.txtZ2(0) = "28";
  s.txtZ2(1) = "4";
  station.program->binder().Flush();
  LineOf(station, "txtZ2(0)")->setFocus(Qt::TabFocusReason);
  station.Key(Qt::Key_Left);
  QCOMPARE(QString::fromStdString(s.txtZ2(0).text()), coarse);
  station.Key(Qt::Key_Left, Qt::ShiftModifier);
  QCOMPARE(QString::fromStdString(s.txtZ2(0).text()), fine);
}

void LinesOnDrawing::LinesStopAtTheirNeighbours() {
  WindowOnStage station(StoreEntries{{"mnu2Axis", "0"}});
  MakeVessel(station);
  DesignState& s = station.s();
  const auto drag = [&](const char* field, double by) {
    Mouse mouse(*LineOf(station, field));
    mouse.Press();
    mouse.Move(by / 2);
    mouse.Move(by / 2);
    mouse.Release();
  };
  drag("txtZ4(1)", -2000);
  QCOMPARE(s.txtZ4(1).text(), std::string("31.95"));
  drag("txtZ4(1)", 2000);
  QCOMPARE(s.txtZ4(1).text(), std::string("6.05"));
  drag("txtZ4(3)", -2000);
  QCOMPARE(s.txtZ4(3).text(), std::string("5.95"));
  drag("txtZ4(3)", 2000);
  QCOMPARE(s.txtZ4(3).text(), std::string("0.05"));
  // By keys no further either, and lines one above the other can still be taken apart.
  LineOf(station, "txtZ4(2)")->setFocus(Qt::TabFocusReason);
  station.Key(Qt::Key_Left);
  QCOMPARE(s.txtZ4(2).text(), std::string("6.00"));
  drag("txtZ4(1)", -100);
  QVERIFY(std::stod(s.txtZ4(1).text()) > 7);
}

// Were it drawn anew to fit, the line would run away from the hand.
void LinesOnDrawing::TheScaleStandsStillWhileDragging() {
  WindowOnStage station;
  MakeTube(station);
  // So thin that the length alone decides the scale.
  station.s().txtDiameterLeft = "2";
  station.s().txtDiameterRight = "2";
  station.program->binder().Flush();
  PartLine* line = LineOf(station, "txtZ2(0)");
  const double before = line->geometry().center().x();
  Mouse mouse(*line);
  mouse.Press();
  for (int i = 0; i < 6; ++i) mouse.Move(10);
  const double moved = line->geometry().center().x() - before;
  QVERIFY2(std::abs(moved - 60) < 3, qPrintable(QString::number(moved)));
  const double at = std::stod(station.s().txtZ2(0).text());
  mouse.Release();
  // The far end stands at its place again.
  QVERIFY(std::abs(line->geometry().center().x() - before) < 3);
  QCOMPARE(std::stod(station.s().txtZ2(0).text()), at);
  // Up to the post that is in view, not beyond.
  mouse.Press();
  mouse.Move(-5000);
  const double furthest = std::stod(station.s().txtZ2(0).text());
  QVERIFY2(furthest > at * 1.05 && furthest < at * 1.2, station.s().txtZ2(0).text().c_str());
  mouse.Release();
}

void LinesOnDrawing::WhatCanBeDraggedShowsIt() {
  WindowOnStage station;
  MakeTube(station);
  PartLine* line = LineOf(station, "txtZ2(0)");
  QCOMPARE(line->cursor().shape(), Qt::SizeHorCursor);
  QVERIFY(line->width() >= 12 && line->height() >= 24);
  QVERIFY(!line->accessibleName().isEmpty() && !line->statusTip().isEmpty());
  QVERIFY(line->accessibleDescription().startsWith(QStringLiteral("28.00 in")));
  const auto picture = [&] {
    QCoreApplication::processEvents();
    return station.Find(QStringLiteral("drawing2Axis"))->grab(line->geometry()).toImage();
  };
  const QImage plain = picture();
  QTest::mouseMove(line);
  QTRY_VERIFY(line->underMouse());
  const QImage hovered = picture();
  QVERIFY(hovered != plain);
  line->setFocus(Qt::TabFocusReason);
  QVERIFY(picture() != hovered);
  QTest::mouseMove(&station.window(), QPoint(2, 2));
}

void LinesOnDrawing::TabReachesEachLine() {
  for (const bool fourAxes : {false, true}) {
    WindowOnStage station(StoreEntries{{"mnu2Axis", fourAxes ? "0" : "1"}});
    fourAxes ? MakeVessel(station) : MakeTube(station);
    QStringList walked;
    station
        .Find<QLineEdit>(fourAxes ? QStringLiteral("txtNumberOfLayers(1)")
                                  : QStringLiteral("txtNumberOfLayers(0)"))
        ->setFocus();
    for (int i = 0; i < 60; ++i) {
      station.Key(Qt::Key_Tab);
      if (dynamic_cast<PartLine*>(QApplication::focusWidget()) != nullptr)
        walked << QApplication::focusWidget()->objectName().mid(8);
      if (QApplication::focusWidget()->objectName() == QStringLiteral("imgBUILD")) break;
    }
    QCOMPARE(walked, fourAxes ? QStringList({"txtZ4(0)", "txtZ4(1)", "txtZ4(2)", "txtZ4(3)"})
                              : QStringList({"txtZ2(0)", "txtZ2(1)"}));
  }
}

void LinesOnDrawing::OnlyWhatIsDrawnCanBeTaken() {
  WindowOnStage station(StoreEntries{{"mnu2Axis", "0"}});
  MakeVessel(station);
  const auto lines = [&] {
    QStringList names;
    for (QWidget* widget : station.window().findChildren<QWidget*>())
      if (dynamic_cast<PartLine*>(widget) != nullptr && widget->isVisible())
        names << widget->objectName().mid(8);
    return names;
  };
  QCOMPARE(lines().size(), 4);
  station.s().txtZ4(1) = "";
  station.program->binder().Flush();
  QCOMPARE(lines(), QStringList({"txtZ4(0)", "txtZ4(2)", "txtZ4(3)"}));
  station.Click(QStringLiteral("optType(0)"));  // flat ends have no inner places
  for (const QString& name : lines()) QVERIFY(station.s().txtZ4(name.mid(6, 1).toInt()).shown());
  station.window().UseLargeFigures(true);
  QVERIFY(lines().isEmpty());
}

}  // namespace torvane

QTEST_MAIN(torvane::LinesOnDrawing)
#include "lines_on_drawing.moc"
