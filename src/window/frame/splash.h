// What shows while the station is made ready.
#pragma once

#include <QWidget>

#include "window/desk/binder.h"

namespace torvane {

class Splash : public QWidget {
 public:
  explicit Splash(Desk desk);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  Desk desk_;
};

}  // namespace torvane
