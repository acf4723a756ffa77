// A dialog over a window of the station: it lives as long as that one, and shows its fields.
#pragma once

#include <QDialog>
#include <map>
#include <memory>

#include "window/binder.h"

namespace torvane {

class StationDialog : public QDialog {
 public:
  StationDialog(Desk desk, Window& window, const QString& title, QWidget* parent);

  Window& window() const { return window_; }

 protected:
  // Its cross and Esc press this control.
  virtual const char* Leaving() const = 0;
  void reject() override { desk_.binder.Run(Leaving()); }
  Field& Of(std::string_view name) const { return *window_.Find(name); }

  Desk desk_;
  Window& window_;
};

// Opens and closes the dialogs as the station opens and closes its windows.
class DialogHost : public QObject {
 public:
  DialogHost(Desk desk, QWidget* parent);

  QWidget* DialogOf(const Window& window) const;

 private:
  void Follow();

  Desk desk_;
  QWidget* parent_;
  std::map<const Window*, QWidget*> dialogs_;
};

QWidget* MakeSettingsWindow(Desk desk, Window& window, QWidget* parent);
QWidget* MakePictureWindow(Desk desk, Window& window, QWidget* parent);
QWidget* MakeAboutWindow(Desk desk, Window& window, QWidget* parent);
QWidget* MakeMachineWindow(Desk desk, Window& window, QWidget* parent);
QWidget* MakePreviewWindow(Desk desk, Window& window, QWidget* parent);

}  // namespace torvane
