// A dialog over a window of the station: it lives as long as that one, and shows its fields.
#pragma once

#include <QDialog>
#include <map>
#include <memory>

#include "look/button.h"
#include "window/desk/binder.h"

namespace torvane {

class Button;

class StationDialog : public QDialog {
 public:
  StationDialog(Desk desk, Window& window, const QString& title, QWidget* parent);

 protected:
  // Its cross and Esc press this control.
  virtual const char* Leaving() const = 0;
  void reject() override { desk_.Run(Leaving()); }
  Field& Of(std::string_view name) const { return *window_.Find(name); }

  // A button of the dialog, which runs its control and has the caption of it.
  Button* MakeButton(ButtonLook look, Icon icon, const char* control, int width, QWidget* owner);
  // The bar at its foot: other buttons at the left, then those that leave it.
  static constexpr int kFoot = 65;
  void FillFoot(QWidget* bar, const std::vector<Button*>& left = {});

  Desk desk_;
  Window& window_;
};

// Opens and closes the dialogs as the station opens and closes its windows.
class DialogHost : public QObject {
 public:
  DialogHost(Desk desk, QWidget* parent);
  ~DialogHost() override;

  QWidget* DialogOf(const Window& window) const;

 private:
  void Drop(const Window& window);
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
