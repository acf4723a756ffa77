// What the operator reads of the station beside the design: the guide, and each field's own words.
#include <QFile>
#include <QLabel>
#include <QRegularExpression>
#include <QTreeWidget>
#include <QWhatsThis>

#include "design/catalogue.h"
#include "on_stage.h"
#include "window/reader/guide_topics.h"
#include "workbench/document/design_commands.h"

namespace torvane {

namespace {

const QString kDocs = QStringLiteral(SOURCE_FOLDER "/docs");

// Words of the guide's text that are marked.
QString Marked(const GuideText& text) {
  const auto marks = text.extraSelections();
  return marks.isEmpty() ? QString() : marks.front().cursor.selectedText();
}

QString HeadingInView(const GuideText& text) {
  const int at = text.cursorForPosition({30, 20}).position();
  return text.headings()[static_cast<std::size_t>(text.HeadingAt(at))].words;
}

}  // namespace

class HelpOnScreen : public QObject {
  Q_OBJECT
 private slots:
  void EveryFieldHasItsPlaceInTheGuide();
  void TheGuideOpensAtTheFocus_data();
  void TheGuideOpensAtTheFocus();
  void TheGuideIsSearchedAndWalkedByKeys();
  void AQuestionHasItsGuideToo();
  void EveryFieldSaysWhatItIs();
  void AProgramFoldsByLayerAndIsSearched();
  void WithoutAnEditorTheProgramIsShown();
  void AMillionLinesAreReadAtOnce();
};

void HelpOnScreen::EveryFieldHasItsPlaceInTheGuide() {
  const Theme theme{false};
  GuideText guide(theme, nullptr);
  QVERIFY(guide.Read(kDocs));
  QStringList headings;
  for (const auto& heading : guide.headings()) headings.push_back(heading.words);
  for (const FieldRow& row : Catalogue()) {
    const auto about = HeadingAbout(row.name);
    // What no window edits and nobody is told of is none that can be asked about.
    const bool hasWords = !row.words.name.empty() || !row.membersWords.empty();
    QVERIFY2(!about.empty() || !hasWords, row.name.data());
    QVERIFY2(about.empty() || headings.contains(QString::fromLatin1(about)), row.name.data());
  }
  for (const char* window :
       {"frmSettings", "frmMachine", "frmPolar", "message", "programWindow", "startCard"})
    QVERIFY2(headings.contains(QString::fromLatin1(HeadingAbout(window))), window);
  // Its pictures are there.
  QFile file(kDocs + QStringLiteral("/operator-guide.md"));
  QVERIFY(file.open(QIODevice::ReadOnly));
  auto pictures = QRegularExpression(QStringLiteral("!\\[[^]]+\\]\\(([^)]+)\\)"))
                      .globalMatch(QString::fromUtf8(file.readAll()));
  QVERIFY(pictures.hasNext());
  while (pictures.hasNext()) {
    const QString picture = pictures.next().captured(1);
    QVERIFY2(QFile::exists(kDocs + QLatin1Char('/') + picture), qPrintable(picture));
  }
  QVERIFY(!guide.Read(kDocs + QStringLiteral("/nowhere")));
  QCOMPARE(guide.headings().size(), std::size_t{1});
}

void HelpOnScreen::TheGuideOpensAtTheFocus_data() {
  QTest::addColumn<QString>("widget");
  QTest::addColumn<QString>("heading");
  QTest::addColumn<QString>("word");
  QTest::newRow("field") << "txtBandWidth(0)"
                         << "The part"
                         << "Band width";
  QTest::newRow("line of the drawing") << "line of txtZ2(0)"
                                       << "The stops"
                                       << "Left stop";
  QTest::newRow("check") << "chkHeatGunApp"
                         << "The checklist"
                         << "Heat Gun";
  QTest::newRow("cell") << ""
                        << "The schedule"
                        << "Add'l Wrap";
  QTest::newRow("build") << "imgBUILD"
                         << "Save, Open, Build"
                         << "Build";
}

void HelpOnScreen::TheGuideOpensAtTheFocus() {
  QFETCH(QString, widget);
  QFETCH(QString, heading);
  QFETCH(QString, word);
  WindowOnStage station;
  station.program->guideFolder = kDocs;
  for (const auto& [field, text] : {std::pair("txtDiameterLeft", "4"),
                                    {"txtDiameterRight", "4"},
                                    {"txtZ2(0)", "28"},
                                    {"txtZ2(1)", "4"},
                                    {"txtNumberOfLayers(0)", "3"}})
    station.Type(field, text);
  if (widget.isEmpty())
    station.GoToCell(station.s().txtAddRevs(2));
  else
    station.Find(widget)->setFocus();
  station.Key(Qt::Key_F1);
  GuideWindow* guide = station.program->help().guide();
  QVERIFY(guide != nullptr);
  QVERIFY(WindowOnStage::Activate(*guide));
  QCOMPARE(HeadingInView(guide->text()), heading);
  QCOMPARE(Marked(guide->text()).toLower(), word.toLower());
  QCOMPARE(guide->findChild<QTreeWidget*>()->currentItem()->text(0), heading);
  station.Key(Qt::Key_Escape);
  QVERIFY(!guide->isVisible());
}

void HelpOnScreen::TheGuideIsSearchedAndWalkedByKeys() {
  const Theme theme{false};
  GuideWindow guide(theme, kDocs, nullptr);
  guide.resize(800, 600);
  guide.ShowAt(QStringLiteral("The stops"));
  QVERIFY(WindowOnStage::Activate(guide));
  const auto key = [&](Qt::Key pressed, Qt::KeyboardModifiers with = {}) {
    QTest::keyClick(guide.windowHandle(), pressed, with);
  };
  guide.ShowAt(QStringLiteral("Patterns"));
  QCOMPARE(HeadingInView(guide.text()), QStringLiteral("Patterns"));
  key(Qt::Key_Left, Qt::AltModifier);
  QCOMPARE(HeadingInView(guide.text()), QStringLiteral("The stops"));
  key(Qt::Key_Right, Qt::AltModifier);
  QCOMPARE(HeadingInView(guide.text()), QStringLiteral("Patterns"));
  key(Qt::Key_F, Qt::ControlModifier);
  for (const char* at = "limit switch"; *at != '\0'; ++at) QTest::keyClick(guide.windowHandle(), *at);
  QCOMPARE(Marked(guide.text()).toLower(), QStringLiteral("limit switch"));
  const int first = guide.text().extraSelections().front().cursor.position();
  key(Qt::Key_F3);
  QVERIFY(guide.text().extraSelections().front().cursor.position() != first);
  key(Qt::Key_F3, Qt::ShiftModifier);
  QCOMPARE(guide.text().extraSelections().front().cursor.position(), first);
  QTest::keyClick(guide.windowHandle(), 'q');
  QVERIFY(Marked(guide.text()).isEmpty());
  QCOMPARE(guide.findChild<QLabel*>(QStringLiteral("guideFound"))->text(), QStringLiteral("not found"));
}

// The question keeps the keyboard from the main window, and so it would from the guide of that.
void HelpOnScreen::AQuestionHasItsGuideToo() {
  Theme theme{false};
  QtMessageDialog messages(theme);
  WindowOnStage station({}, &messages);
  station.program->guideFolder = kDocs;
  QString heading;
  WhenShown<MessageWindow>([&](MessageWindow& message) {
    QTest::keyClick(message.windowHandle(), Qt::Key_F1);
    if (GuideWindow* guide = station.program->help().guide()) {
      heading = HeadingInView(guide->text());
      if (guide->parentWidget() != &message) heading += QStringLiteral(" out of reach");
    }
    message.done(QDialog::Rejected);
  });
  station.program->binder().Run("imgBUILD");
  QCOMPARE(heading, QStringLiteral("Messages"));
}

void HelpOnScreen::EveryFieldSaysWhatItIs() {
  WindowOnStage station;
  const auto said = [&] {
    station.Key(Qt::Key_F1, Qt::ShiftModifier);
    QWidget* shown = nullptr;
    for (QWidget* top : QApplication::topLevelWidgets())
      if (top->isVisible() && top->inherits("QWhatsThat")) shown = top;
    const bool any = shown != nullptr;
    QWhatsThis::hideText();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return any;
  };
  station.Type("txtNumberOfLayers(0)", "2");
  station.GoToCell(station.s().txtWA(1));
  QVERIFY(said());
  for (int place = 0; place < 3; ++place) {
    station.Key(Qt::Key_Tab);
    QVERIFY2(said(), qPrintable(QApplication::focusWidget()->objectName()));
  }
  // The words are those of the field's help.
  ForEachField(station.s(), [&](const Field& field) {
    const QString name = QString::fromStdString(NameOf(field));
    for (QWidget* widget : station.window().findChildren<QWidget*>(name)) {
      if (widget->whatsThis().isEmpty()) continue;
      QVERIFY2(widget->whatsThis().contains(QString::fromLatin1(WordsOf(field).sentence)), qPrintable(name));
    }
  });
}

void HelpOnScreen::AProgramFoldsByLayerAndIsSearched() {
  ProgramText text(
      "[made by hand]\r\nG20 [Units]\r\n[BEGIN LAYER 1 of 2 ----]\r\nM4 S30 [CW]\r\nG1 F0.13 Z28.00\r\n"
      "[START LAYER #2 ----]\r\nD0 LA=2_of_2 RPM=28.6 [Layer]\r\n\r\n[HEAT GUN ----]\r\nM30\r\n");
  QCOMPARE(text.Lines(), 10);
  text.FoldLayers(true);
  QCOMPARE(text.Rows(), 6);  // the heat gun is no layer
  QCOMPARE(text.LineAt(2), 3);
  QCOMPARE(text.LineAt(3), 6);
  QCOMPARE(text.LineAt(5), 10);
  QCOMPARE(text.RowOf(5), 2);
  QCOMPARE(text.Away(3), 2);
  text.Fold(4, false);
  QCOMPARE(text.Rows(), 8);
  QVERIFY(text.IsFolded(7) && !text.IsFolded(4));
  QCOMPARE(text.Find("layer", 6, true), std::optional(7));
  QCOMPARE(text.Find("UNITS", 6, true), std::optional(2));
  QCOMPARE(text.Find("z28", 3, false), std::optional(5));
  QVERIFY(!text.Find("nowhere", 1, true));
  // A statement's pieces have their colours: command, letters, figures, comment.
  const auto inks = [](std::string_view line) {
    std::string said;
    for (const Piece& piece : PiecesOf(line))
      said += std::string(line.substr(piece.at, piece.length)) + "CLF[H"[static_cast<int>(piece.ink)] + ' ';
    return said;
  };
  QCOMPARE(inks("G1 F0.13 Z-28,00 [a b]"), std::string("G1C FL 0.13F ZL -28,00F [a b][ "));
  QCOMPARE(inks("D0 LA=2_of_2 ST=Go"), std::string("D0C LAL =2_of_2F STL =GoF "));
  QCOMPARE(inks("[BEGIN ----]"), std::string("[BEGIN ----]H "));
  QCOMPARE(inks(""), std::string());
}

void HelpOnScreen::WithoutAnEditorTheProgramIsShown() {
  WindowOnStage station;
  QFile sample(QStringLiteral(SOURCE_FOLDER "/samples/Tube-4x24.t2d"));
  QVERIFY(sample.open(QIODevice::ReadOnly));
  station.stage.files.Put(std::string(kDesigns) + "Tube.t2d", sample.readAll().toStdString());
  station.program->binder().Do([&] { OpenDesign(station.station(), std::string(kDesigns) + "Tube.t2d"); });
  station.program->binder().Run("Command2");
  QVERIFY(station.program->viewer().window() == nullptr);  // the editor has started
  station.stage.launcher.FailNext("there is no editor");
  station.program->binder().Run("Command2");
  QVERIFY(station.stage.messageBox.shown.empty());
  ProgramWindow* window = station.program->viewer().window();
  QVERIFY(window != nullptr && WindowOnStage::Activate(*window));
  QCOMPARE(window->windowTitle(), QStringLiteral("Tube.T2G"));
  const ProgramView& view = window->view();
  const auto key = [&](Qt::Key pressed, Qt::KeyboardModifiers with = {}) {
    QTest::keyClick(window->windowHandle(), pressed, with);
  };
  const auto keys = [&](const char* text) {
    for (; *text != '\0'; ++text) QTest::keyClick(window->windowHandle(), *text);
  };
  key(Qt::Key_G, Qt::ControlModifier);
  keys("25\r");
  QCOMPARE(view.line(), 25);
  key(Qt::Key_Left);  // folds the section, so its first line is the present one
  QVERIFY(view.text().BeginsSection(view.line()) && view.line() < 25);
  key(Qt::Key_F, Qt::ControlModifier);
  keys("begin layer 3");
  QVERIFY(view.text().Line(view.line()).starts_with("[BEGIN LAYER 3"));
  key(Qt::Key_Escape);
  key(Qt::Key_Down, Qt::ShiftModifier);
  QCOMPARE(view.Chosen().count(QLatin1Char('\n')), 2);
  QVERIFY(view.accessibleName().contains(QStringLiteral("D0")));
  key(Qt::Key_Escape);
  QVERIFY(!window->isVisible());
  // A design's text in the same window; what cannot be read leaves the system's own message.
  station.stage.launcher.FailNext("there is no editor");
  station.program->binder().Run("mnuViewDesignFile");
  QCOMPARE(window->windowTitle(), QStringLiteral("Tube.t2d"));
  QVERIFY(window->isVisible());
  station.stage.files.Remove(std::string(kDesigns) + "Tube.t2d");
  station.stage.launcher.FailNext("there is no editor");
  station.program->binder().Run("mnuViewDesignFile");
  QCOMPARE(station.stage.messageBox.shown.size(), std::size_t{1});
}

// Each paint asks for the lines in view alone; what runs through all of them does so once.
void HelpOnScreen::AMillionLinesAreReadAtOnce() {
  std::string bytes;
  for (int i = 0; i < 1'000'000; ++i) bytes += i % 1000 == 0 ? "[BEGIN LAYER 1 ----]\n" : "G1 F6 Z28.00\n";
  Theme theme{true};
  ProgramWindow window(theme);
  window.Show("C:\\Torvane\\Long.T2G", std::move(bytes));
  QVERIFY(WindowOnStage::Activate(window));
  QTest::keyClick(window.windowHandle(), Qt::Key_End, Qt::ControlModifier);
  QCOMPARE(window.view().line(), 1'000'000);
  QTest::mouseClick(window.findChild<QWidget*>(QStringLiteral("foldLayers")), Qt::LeftButton);
  QCOMPARE(window.view().text().Rows(), 1000);
  QVERIFY(window.view().text().BeginsSection(window.view().line()));
}

}  // namespace torvane

QTEST_MAIN(torvane::HelpOnScreen)
#include "help_on_screen.moc"
