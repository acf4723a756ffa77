// The schedule and what stands beside it: emphasis, bold figures, heads, the end view, a grid without rows.
#include <QAbstractButton>
#include <QHeaderView>
#include <QMenu>
#include <QWhatsThis>

#include "on_stage.h"
#include "workbench/dialog/preview.h"

namespace torvane {

namespace {

class Desktop : public WindowOnStage {
 public:
  explicit Desktop(bool fourAxis = false) : WindowOnStage(StoreEntries{{"mnu2Axis", fourAxis ? "0" : "1"}}) {}

  Binder& binder() { return program->binder(); }
  void Type(const char* field, const char* text) {
    binder().Type(*station().FindField(field), QString::fromLatin1(text));
  }
  // A flat tube of four axes with a pattern in row 1.
  void TypeFlatTube() {
    for (const auto& [field, text] : {std::pair{"txtDia(0)", "4"},
                                      {"txtDia(1)", "4"},
                                      {"txtZ4(0)", "28"},
                                      {"txtZ4(3)", "4"},
                                      {"txtPODia(0)", "2"},
                                      {"txtPODia(1)", "2"},
                                      {"txtBandWidth(1)", "0.25"},
                                      {"txtNumberOfLayers(1)", "2"}})
      Type(field, text);
    binder().Choose(s().cmb3D(1), "REG");
  }
  QRect Cell(int row, int column) const { return Grid()->visualRect(Grid()->model()->index(row, column)); }
  void PressRow(int row, Qt::MouseButton button = Qt::LeftButton) const {
    QTest::mouseClick(Grid()->viewport(), button, {}, Cell(row - 1, 0).center());
  }
  // Whether a row's number stands out.
  bool StandsOut(int row) const {
    QCoreApplication::processEvents();
    const QPoint corner = Cell(row - 1, 0).topLeft() + QPoint(3, 3);
    return Grid()->viewport()->grab().toImage().pixelColor(corner) == theme[Token::Accent];
  }
  QImage PictureOf(const QRect& cell) const { return Grid()->viewport()->grab(cell).toImage(); }
};

}  // namespace

class RowsOnScreen : public QObject {
  Q_OBJECT

 private slots:
  void EmphasisGoesWhereItIsDropped();
  void AClickOnTheBackgroundReachesTheForm();
  void FiguresWithAddedPassesAreBold();
  void TheMenuAsksWhatsThis();
  void HeadsShowTheirFields();
  void ARowWithoutEndWrapsOpensNoPreview();
  void TheEndViewIsTheRowsOwn();
  void TheCountIsAskedForInAnEmptyGrid();
  void CaptionsAreWhole();
  void TheFirstClickTakesTheWholeText();
  void UndoIsTheStationsInATextToo();
};

void RowsOnScreen::EmphasisGoesWhereItIsDropped() {
  Desktop two;
  two.Type("txtNumberOfLayers(0)", "3");
  two.PressRow(2);
  QVERIFY(two.StandsOut(2) && !two.StandsOut(1));
  QTest::mouseClick(two.Grid()->viewport(), Qt::LeftButton, {},
                    QPoint(20, two.Grid()->viewport()->height() - 2));
  QVERIFY2(!two.StandsOut(2), "a click below the rows");
  QCOMPARE(two.s().gCurrentRow, 2);
  // The row of an open menu stands out until that closes.
  bool during = false;
  WhenShown<QMenu>([&](QMenu& menu) {
    during = two.StandsOut(3);
    menu.close();
  });
  two.PressRow(3, Qt::RightButton);
  QVERIFY(during);
  QVERIFY(!two.StandsOut(3));
  Desktop four(true);
  four.TypeFlatTube();
  four.PressRow(2);
  QVERIFY(four.StandsOut(2));
  four.binder().Choose(four.s().cmbPattern(1), four.s().cmbPattern(1).entries().front());
  QVERIFY2(!four.StandsOut(2), "a chosen pattern");
}

void RowsOnScreen::AClickOnTheBackgroundReachesTheForm() {
  Desktop desktop;
  desktop.stage.store.Write("Settings", "gIsNEMA34", "True");
  desktop.Type("txtNumberOfLayers(0)", "2");
  desktop.PressRow(1);
  QVERIFY(!desktop.s().gIsNEMA34);
  QTest::mouseClick(&desktop.window(), Qt::LeftButton, {}, QPoint(3, desktop.window().height() / 2));
  QVERIFY(desktop.s().gIsNEMA34);
  QVERIFY(!desktop.StandsOut(1));
}

void RowsOnScreen::FiguresWithAddedPassesAreBold() {
  Desktop desktop;
  desktop.Type("txtNumberOfLayers(0)", "1");
  Field& passes = desktop.s().lblPassesToCover(1);
  passes = "10";
  const QRect cell = desktop.Cell(0, 8);
  const QImage plain = desktop.PictureOf(cell);
  passes.SetBold(true);
  QVERIFY(desktop.PictureOf(cell) != plain);
  passes.SetBold(false);
  QCOMPARE(desktop.PictureOf(cell), plain);
}

void RowsOnScreen::TheMenuAsksWhatsThis() {
  Desktop desktop;
  desktop.Type("txtNumberOfLayers(0)", "1");
  QString first;
  WhenShown<QMenu>([&](QMenu& menu) {
    first = menu.actions().front()->text();
    menu.actions().front()->trigger();
    menu.close();
  });
  desktop.PressRow(1, Qt::RightButton);
  QCOMPARE(first, QStringLiteral("&Whats This ?"));
  QVERIFY(QWhatsThis::inWhatsThisMode());
  QWhatsThis::leaveWhatsThisMode();
}

void RowsOnScreen::HeadsShowTheirFields() {
  Desktop desktop;
  const auto heads = [&] {
    QStringList words;
    for (const int column : {7, 10})
      words << desktop.Grid()->model()->headerData(column, Qt::Horizontal).toString();
    return words;
  };
  QCOMPARE(heads(), QStringList({"Carriage Speed (in/s)", "Length (ft)"}));
  const auto picture = [&] { return desktop.Grid()->horizontalHeader()->grab().toImage(); };
  const QImage before = picture();
  desktop.s().lblLengthHeading = "Length (meters)";
  QVERIFY(picture() != before);
  desktop.binder().Choose(desktop.s().optX(1), "True");
  QCOMPARE(heads(), QStringList({"Carriage Speed (in/s)", "Length (feet)"}));
}

void RowsOnScreen::ARowWithoutEndWrapsOpensNoPreview() {
  Desktop desktop(true);
  desktop.TypeFlatTube();
  desktop.Click(QStringLiteral("optType(2)"));
  desktop.Type("cmbPattern(2)", "45");
  desktop.PressRow(2);
  QCOMPARE(desktop.s().gCurrentRow, 2);
  QVERIFY(desktop.StandsOut(2));
  QVERIFY(desktop.DialogOf("frmPolar") == nullptr);
  desktop.Click(QStringLiteral("optType(0)"));
  desktop.PressRow(1);
  QVERIFY2(desktop.DialogOf("frmPolar") == nullptr, "its pattern has to be chosen anew");
  desktop.binder().Choose(desktop.s().cmbPattern(1), "30 | 3 x 4 | 180\xB0");
  desktop.PressRow(1);
  QVERIFY(desktop.DialogOf("frmPolar") != nullptr);
}

void RowsOnScreen::TheEndViewIsTheRowsOwn() {
  Desktop desktop(true);
  desktop.TypeFlatTube();
  QWidget* panel = desktop.Find(QStringLiteral("picPolar"));
  const auto picture = [&] {
    QCoreApplication::processEvents();
    return panel->grab(QRect(16, 32, 180, 180)).toImage();
  };
  const QImage blank = picture();
  desktop.binder().Choose(desktop.s().cmbPattern(1), "30 | 3 x 4 | 180\xB0");
  const QImage first = picture();
  QVERIFY(first != blank);
  desktop.PressRow(1);
  QVERIFY2(picture() == first, "the preview's half-drawn picture shows");
  desktop.binder().Run("btnClose");
  auto* grazing = desktop.Find(QStringLiteral("lblGrazeAngle"));
  QVERIFY(grazing != nullptr);
  // An opening of half the diameter: a band turns by 120 degrees over the end.
  QCOMPARE(grazing->accessibleDescription(), QStringLiteral("120.0 \u00B0"));
  desktop.s().gDirty = false;
  desktop.binder().Run("mnuNewFile");
  QVERIFY(picture() == blank);
}

void RowsOnScreen::TheCountIsAskedForInAnEmptyGrid() {
  Desktop desktop;
  auto* caption = desktop.Find(QStringLiteral("lblNumberOfLayers(0)"));
  const QImage plain = caption->grab().toImage();
  const auto told = [&] { return desktop.stage.messageBox.shown.size(); };
  QTableView* grid = desktop.Grid();
  const QHeaderView* head = grid->horizontalHeader();
  QTest::mouseClick(head->viewport(), Qt::LeftButton, {}, QPoint(head->sectionViewportPosition(2) + 20, 10));
  QCOMPARE(told(), std::size_t{1});
  QCOMPARE(desktop.stage.messageBox.shown.back().title, std::string("Zero Layers Specified"));
  QVERIFY(desktop.Find(QStringLiteral("txtNumberOfLayers(0)"))->hasFocus());
  QVERIFY2(caption->grab().toImage() != plain, "the caption turns red");
  // The ground of what stands in the place of the rows.
  QTest::mouseClick(grid->parentWidget()->childAt(8, 100), Qt::LeftButton, {}, QPoint(8, 60));
  QCOMPARE(told(), std::size_t{2});
  desktop.Type("txtNumberOfLayers(0)", "1");
  QCOMPARE(caption->grab().toImage(), plain);
  QTest::mouseClick(head->viewport(), Qt::LeftButton, {}, QPoint(head->sectionViewportPosition(2) + 20, 10));
  QCOMPARE(told(), std::size_t{2});
}

void RowsOnScreen::TheFirstClickTakesTheWholeText() {
  Desktop desktop;
  desktop.Type("txtLengthTotal(0)", "0");
  auto* edit = desktop.Find<QLineEdit>(QStringLiteral("txtLengthTotal(0)"));
  QCOMPARE(edit->text(), QStringLiteral("0"));
  QTest::mouseClick(edit, Qt::LeftButton, {}, edit->rect().center());
  QCOMPARE(edit->selectedText(), QStringLiteral("0"));
  desktop.Keys("24");
  QCOMPARE(edit->text(), QStringLiteral("24"));
  // A second click sets the cursor.
  QTest::mouseClick(edit, Qt::LeftButton, {}, QPoint(edit->width() - 2, edit->height() / 2));
  QVERIFY(!edit->hasSelectedText());
  desktop.Keys("5");
  QCOMPARE(edit->text(), QStringLiteral("245"));
}

void RowsOnScreen::UndoIsTheStationsInATextToo() {
  Desktop desktop;
  desktop.WindowOnStage::Type("txtLengthTotal(0)", "24");
  desktop.WindowOnStage::Type("txtBandWidth(0)", "0.25");
  const auto text = [&desktop](const char* field) { return desktop.station().FindField(field)->text(); };
  desktop.Key(Qt::Key_Z, Qt::ControlModifier);
  QCOMPARE(text("txtBandWidth(0)"), std::string());
  QCOMPARE(text("txtLengthTotal(0)"), std::string("24"));
  desktop.Key(Qt::Key_Z, Qt::ControlModifier);
  QCOMPARE(text("txtLengthTotal(0)"), std::string());
  desktop.Key(Qt::Key_Y, Qt::ControlModifier);
  desktop.Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  QCOMPARE(text("txtLengthTotal(0)"), std::string("24"));
  QCOMPARE(text("txtBandWidth(0)"), std::string("0.25"));
}

void RowsOnScreen::CaptionsAreWhole() {
  Desktop desktop;
  const auto* community = desktop.Find<QAbstractButton>(QStringLiteral("lblCommunity"));
  QString words = community->text();
  QCOMPARE(words.replace(QLatin1Char('\n'), QLatin1Char(' ')),
           QStringLiteral("Post some pics of your stuff at the Torvane Community"));
  QVERIFY(community->width() >= community->sizeHint().width());
}

}  // namespace torvane

QTEST_MAIN(torvane::RowsOnScreen)
#include "rows_on_screen.moc"
