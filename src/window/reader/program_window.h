// A program or a design as text, where the computer has no editor to show it.
#pragma once

#include <QPointer>

#include "look/button.h"
#include "platform/files.h"
#include "platform/launcher.h"
#include "window/reader/program_view.h"

class QLabel;
class QLineEdit;

namespace torvane {

class ProgramWindow : public QWidget {
 public:
  explicit ProgramWindow(const Theme& theme);

  // Shows a file's text under its station path.
  void Show(const std::string& path, std::string bytes);
  const ProgramView& view() const { return *view_; }

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QWidget* MakeBar();
  void AddKeys();
  QLineEdit* AddInput(const char* name, const QString& words, const QString& spoken, int width);
  void Find(bool forward, bool fromHere = false);
  void GoToTypedLine();
  void SayPlace();

  const Theme& theme_;
  ProgramView* view_;
  PlainButton *fold_ = nullptr, *unfold_ = nullptr;
  QLineEdit *search_ = nullptr, *line_ = nullptr;
  QLabel *found_ = nullptr, *place_ = nullptr;
};

// Starts programs as the other launcher does. Where that finds no editor, its own window shows the text.
class ViewingLauncher : public Launcher {
 public:
  ViewingLauncher(Launcher& under, const Files& files, const Theme& theme)
      : under_(under), files_(files), theme_(theme) {}
  ~ViewingLauncher() override;

  Outcome Start(std::string_view program, std::string_view arguments, std::string_view folder) override;
  void OpenLink(std::string_view url) override { under_.OpenLink(url); }
  std::string EnvironmentVariable(std::string_view name) const override {
    return under_.EnvironmentVariable(name);
  }

  // Null until something is shown.
  ProgramWindow* window() const { return window_; }

 private:
  Launcher& under_;
  const Files& files_;
  const Theme& theme_;
  QPointer<ProgramWindow> window_;
};

}  // namespace torvane
