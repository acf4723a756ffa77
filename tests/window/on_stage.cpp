#include "on_stage.h"

#include <QProcess>

#include "design/catalogue.h"
#include "look/text.h"
#include "text/code_page.h"

namespace torvane {

namespace {

StoreEntries WithDefaults(const StoreEntries& entries) {
  StoreEntries all = {{"gVersionNumber", "420"}, {"mnu2Axis", "1"}};
  all.insert(all.end(), entries.begin(), entries.end());
  return all;
}

// The window alone has a place and size, and hides its row menu again.
bool IsWindowsOwn(const std::string& name) { return name.starts_with("Me.") || name == "mnuPopMenu"; }

}  // namespace

// The application's style looks at the theme, which goes with the stage.
WindowOnStage::~WindowOnStage() {
  program.reset();
  QApplication::setStyle(QStringLiteral("Fusion"));
}

WindowOnStage::WindowOnStage(const StoreEntries& entries, MessageDialog* messages, MessageBox* boxes) {
  stage.files.MakeFolder("C:\\Torvane\\TV_Design_Files");
  stage.files.MakeFolder("C:\\Torvane\\TV_G-Code_Files");
  for (const auto& [key, value] : WithDefaults(entries)) stage.store.Write("Settings", key, value);
  QApplication::setStyle(new Style(theme));
  program = std::make_unique<WindowProgram>(
      Platform{stage.store, stage.clock, stage.locale, stage.files,
               messages != nullptr ? *messages : stage.messageDialog,
               boxes != nullptr ? *boxes : stage.messageBox, stage.fileDialog, stage.launcher},
      theme);
  stage.clock.Advance(std::chrono::seconds(10));
  program->binder().Do([this] { program->station().Tick(); });
  window().resize(1280, 800);
  if (!Activate(window())) qWarning("the window did not become active");
}

QWidget* WindowOnStage::DialogOf(const char* name) const {
  const Window* open = program->station().windows.Find(name);
  return open == nullptr ? nullptr : program->dialogs().DialogOf(*open);
}

bool WindowOnStage::Activate(QWidget& dialog) {
  dialog.activateWindow();
  return QTest::qWaitFor([&dialog] {
    return QApplication::activeWindow() == &dialog && QGuiApplication::focusWindow() == dialog.windowHandle();
  });
}

QTableView* WindowOnStage::Grid() const {
  return Find<QTableView>(program->station().s.gShow4Axis ? QStringLiteral("pic3DGrid")
                                                          : QStringLiteral("pic2DGrid"));
}

void WindowOnStage::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
  QWidget* to = QApplication::activePopupWidget();
  if (to == nullptr) to = QApplication::activeModalWidget();
  if (to == nullptr) to = QApplication::activeWindow();
  if (to == nullptr) to = &program->mainWindow();
  QTest::keyClick(to->window()->windowHandle(), key, modifiers);
}

void WindowOnStage::Keys(const char* text) {
  for (const char* at = text; *at != '\0'; ++at)
    QTest::keyClick(QApplication::activeWindow()->windowHandle(), *at);
}

void WindowOnStage::NoteTyping(const std::string& field, const std::string& text) {
  for (std::size_t i = 1; i <= text.size(); ++i) Note("type " + field + " " + text.substr(0, i));
}

void WindowOnStage::TypeHere(const char* text) {
  QWidget* here = QApplication::focusWidget();
  if (auto* edit = qobject_cast<QLineEdit*>(here)) edit->selectAll();
  NoteTyping(here->objectName().toStdString(), text);
  Keys(text);
}

void WindowOnStage::Type(const char* field, const char* text) {
  auto* edit = Find<QLineEdit>(QString::fromLatin1(field));
  QVERIFY2(edit != nullptr, field);
  edit->setFocus();
  TypeHere(text);
}

void WindowOnStage::TakeChoice(const QString& text) {
  auto* list = qobject_cast<QListWidget*>(QApplication::activePopupWidget());
  QVERIFY2(list != nullptr, "no list has opened");
  for (int i = 0; i < list->count(); ++i) Key(Qt::Key_Up);
  for (int i = 0;
       i < list->count() && (list->currentItem() == nullptr || list->currentItem()->text() != text); ++i)
    Key(Qt::Key_Down);
  QVERIFY2(list->currentItem() != nullptr && list->currentItem()->text() == text, qPrintable(text));
  Key(Qt::Key_Return);
}

void WindowOnStage::ChooseHere(const char* text) {
  const std::string name = QApplication::focusWidget()->objectName().toStdString();
  Key(Qt::Key_Down, Qt::AltModifier);
  TakeChoice(QString::fromUtf8(text));
  Note("choose " + name + " " + text);
}

void WindowOnStage::Choose(const char* field, const char* text) {
  auto* list = Find(QString::fromLatin1(field));
  QVERIFY2(list != nullptr, field);
  list->setFocus();
  ChooseHere(text);
}

void WindowOnStage::GoToCell(const Field& field) const {
  QTableView* grid = Grid();
  const auto* model = static_cast<LayersModel*>(grid->model());
  grid->setFocus();
  for (int row = 0; row < model->rowCount(); ++row)
    for (int column = 0; column < model->columnCount(); ++column)
      if (model->FieldAt(model->index(row, column)) == &field)
        return grid->setCurrentIndex(model->index(row, column));
  QFAIL(NameOf(field).c_str());
}

void WindowOnStage::TypeInCell(const Field& field, const char* text) {
  GoToCell(field);
  NoteTyping(NameOf(field), text);
  Keys(text);
}

void WindowOnStage::ChooseInCell(const Field& field, const char* text) {
  GoToCell(field);
  Key(Qt::Key_Down, Qt::AltModifier);
  TakeChoice(QString::fromUtf8(text));
  Note("choose " + NameOf(field) + " " + text);
}

void WindowOnStage::Click(const QString& widget, Qt::MouseButton button) const {
  QWidget* found = Find(widget);
  QVERIFY2(found != nullptr, qPrintable(widget));
  QTest::mouseClick(found, button);
}

TorvaneProgram::TorvaneProgram(const StoreEntries& entries) {
  QDir(folder_.path()).mkpath(QStringLiteral("home/TV_Design_Files"));
  QDir(folder_.path()).mkpath(QStringLiteral("home/TV_G-Code_Files"));
  for (const auto& [key, value] : WithDefaults(entries))
    Run({QStringLiteral("setting"), QStringLiteral("set"), QStringLiteral("Settings"),
         QString::fromLatin1(key), QString::fromLatin1(value)});
}

std::string TorvaneProgram::Run(const QStringList& arguments) const {
  QProcess process;
  process.setWorkingDirectory(home());
  process.start(QStringLiteral(TORVANE_PROGRAM),
                arguments + QStringList{QStringLiteral("--home"), home(), QStringLiteral("--store"),
                                        folder_.filePath(QStringLiteral("station.ini")),
                                        QStringLiteral("--locale"), QStringLiteral("point"),
                                        QStringLiteral("--now"), QStringLiteral("2024-01-02 09:00:00")});
  if (!process.waitForFinished(120'000) || process.exitCode() != 0)
    qWarning("torvane: %s", process.readAllStandardError().constData());
  return AsOnStage(process.readAllStandardOutput().toStdString());
}

std::string TorvaneProgram::AsOnStage(std::string text) const {
  const std::string here = home().replace(u'/', u'\\').toStdString();
  for (auto at = text.find(here); at != std::string::npos; at = text.find(here, at))
    text.replace(at, here.size(), "C:\\Torvane");
  return text;
}

std::string TorvaneProgram::Follow(const std::string& script) const {
  QFile file(folder_.filePath(QStringLiteral("keys.script")));
  if (!file.open(QIODevice::WriteOnly)) return "";
  file.write(("start\nwait 10000\n" + script).c_str());
  file.close();
  return Run({QStringLiteral("script"), file.fileName()});
}

std::string TorvaneProgram::StateAfter(const std::string& script) const {
  // Behind a line that the station never prints by itself.
  std::string questions = "setting Settings noSuchKey\n";
  for (const FieldRow& row : Catalogue()) {
    const bool isArray = std::holds_alternative<FieldArray Fields::*>(row.member);
    for (int place = 0; place < row.indexes.count(); ++place) {
      std::string name(row.name);
      if (isArray) name += "(" + std::to_string(row.indexes.IndexAt(place)) + ")";
      if (IsWindowsOwn(name)) continue;
      for (const char* question : {"get ", "mark ", "shown ", "enabled "})
        questions += question + name + "\n";
    }
  }
  const std::string told = Follow(script + questions);
  const std::string begin = "Settings noSuchKey missing\n";
  const auto at = told.find(begin);
  return at == std::string::npos ? told : told.substr(at + begin.size());
}

std::string TorvaneProgram::FileAt(const QString& path) const {
  QFile file(home() + QLatin1Char('/') + path);
  return file.open(QIODevice::ReadOnly) ? AsOnStage(file.readAll().toStdString()) : "<no file>";
}

std::string StateOf(Station& station) {
  constexpr const char* kMarks[] = {"plain", "needs input", "too high", "stop too low"};
  const auto yesNo = [](bool yes) { return yes ? "yes" : "no"; };
  std::string state;
  ForEachField(station.s, [&](const Field& field) {
    const std::string name = NameOf(field);
    if (IsWindowsOwn(name)) return;
    state += name + " = " + ToUtf8(field.text()) + "\n";
    state += name + ": " + kMarks[static_cast<std::size_t>(field.mark())] + "\n";
    state += name + ": " + yesNo(field.shown()) + "\n";
    state += name + ": " + yesNo(field.enabled()) + "\n";
  });
  return state;
}

std::string FirstDifference(const std::string& window, const std::string& program) {
  const auto linesOf = [](const std::string& text) {
    return QString::fromStdString(text).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
  };
  const QStringList left = linesOf(window), right = linesOf(program);
  for (qsizetype i = 0; i < std::max(left.size(), right.size()); ++i) {
    const QString one = left.value(i, QStringLiteral("<end>"));
    const QString other = right.value(i, QStringLiteral("<end>"));
    if (one != other) return ("window: " + one + "\nprogram: " + other).toStdString();
  }
  return "";
}

}  // namespace torvane
