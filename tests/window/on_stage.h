// The real window over a computer in memory, and the `torvane` program beside it: what keys and clicks do in
// the one is written down as lines of a script, which the other follows.
#pragma once

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include "look/style.h"
#include "stage/stage.h"
#include "window/frame/application.h"
#include "window/grid/layers_model.h"

namespace torvane {

inline constexpr const char* kDesigns = "C:\\Torvane\\TV_Design_Files\\";
inline constexpr const char* kPrograms = "C:\\Torvane\\TV_G-Code_Files\\";

// Store entries of the section Settings that stand before the start.
using StoreEntries = std::vector<std::pair<const char*, const char*>>;

class WindowOnStage {
 public:
  // Started, past the start guard and the splash, 1280 by 800 and active.
  explicit WindowOnStage(const StoreEntries& entries = {}, MessageDialog* messages = nullptr,
                         MessageBox* boxes = nullptr);
  ~WindowOnStage();

  Station& station() { return program->station(); }
  DesignState& s() { return program->station().s; }
  MainWindow& window() { return program->mainWindow(); }
  // The dialog over an open window of the station; null if there is none.
  QWidget* DialogOf(const char* name) const;
  // A visible widget of the main window by its object name.
  template <class Kind = QWidget>
  Kind* Find(const QString& name) const {
    for (Kind* widget : program->mainWindow().findChildren<Kind*>(name))
      if (widget->isVisibleTo(&program->mainWindow())) return widget;
    qWarning("no visible widget %s", qPrintable(name));
    return nullptr;
  }
  QTableView* Grid() const;

  // Gives a dialog the keyboard.
  static bool Activate(QWidget& dialog);
  // Keys go to the window that has the keyboard, as from the desk. Each key of a text is one of its own.
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const;
  void Keys(const char* text);
  // The text replaces that of the field that has the focus, as after a Tab.
  void TypeHere(const char* text);
  // Goes to the field first, as with a click.
  void Type(const char* field, const char* text);
  // Opens the list of a field that has the focus, goes down to the entry by keys and takes it.
  void ChooseHere(const char* text);
  void Choose(const char* field, const char* text);
  // A cell of the grid becomes the present one.
  void GoToCell(const Field& field) const;
  void TypeInCell(const Field& field, const char* text);
  void ChooseInCell(const Field& field, const char* text);
  void Click(const QString& widget, Qt::MouseButton button = Qt::LeftButton) const;
  // A line that the script gets beside those of the keys.
  void Note(const std::string& line) { script += line + "\n"; }

  Stage stage;
  Theme theme{false};
  std::unique_ptr<WindowProgram> program;
  std::string script;

 private:
  void TakeChoice(const QString& text);
  void NoteTyping(const std::string& field, const std::string& text);
};

// `torvane` in a station's folder of its own, with the same store and at the same time as the window's stage.
// In what it wrote and printed the folder is called as on the stage.
class TorvaneProgram {
 public:
  explicit TorvaneProgram(const StoreEntries& entries = {});

  // Follows a script from the station's start on; its output.
  std::string Follow(const std::string& script) const;
  // What its station says of its fields behind the script, as StateOf.
  std::string StateAfter(const std::string& script) const;
  // What another of its commands prints.
  std::string Run(const QStringList& arguments) const;
  // Path in the station's folder, with slashes.
  std::string FileAt(const QString& path) const;
  QString home() const { return folder_.filePath(QStringLiteral("home")); }

 private:
  std::string AsOnStage(std::string text) const;

  QTemporaryDir folder_;
};

// Everything that the station says of its fields: texts, marks, what is shown and enabled.
std::string StateOf(Station& station);
// Empty if they are the same, else the first lines that differ.
std::string FirstDifference(const std::string& window, const std::string& program);

// Runs when the next popup or dialog is up. It must close it.
template <class Kind>
void WhenShown(std::function<void(Kind&)> doing, int tries = 200) {
  QTimer::singleShot(5, qApp, [doing = std::move(doing), tries] {
    QWidget* top = QApplication::activePopupWidget() != nullptr ? QApplication::activePopupWidget()
                                                                : QApplication::activeModalWidget();
    if (auto* shown = dynamic_cast<Kind*>(top)) return doing(*shown);
    if (tries > 0) WhenShown<Kind>(doing, tries - 1);
  });
}

}  // namespace torvane
