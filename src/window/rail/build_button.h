// The only large filled surface: it writes the program and hands it to the executor.
#pragma once

#include <QAbstractButton>

#include "window/desk/binder.h"

namespace torvane {

class BuildButton : public QAbstractButton {
 public:
  explicit BuildButton(Desk desk, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Desk desk_;
};

}  // namespace torvane
