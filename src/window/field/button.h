// A push button that can run what the station does.
#pragma once

#include "look/button.h"
#include "window/desk/binder.h"

namespace torvane {

class Button : public PlainButton {
 public:
  Button(Desk desk, ButtonLook look, Icon icon, const QString& caption, QWidget* parent = nullptr)
      : PlainButton(desk.theme, look, icon, caption, parent), desk_(desk) {}

  // Runs an operation of the station when clicked; its name becomes the object name.
  void Runs(const char* control, int index = -1);

 private:
  Desk desk_;
};

}  // namespace torvane
