// What stands in the place of the grid as long as a design has no layers.
#pragma once

#include <QWidget>

#include "window/binder.h"

namespace torvane {

class StartCard : public QWidget {
 public:
  explicit StartCard(Desk desk, QWidget* parent = nullptr);

 private:
  QWidget* MakeCounts();
  QWidget* MakeOpen();
  QWidget* MakeLinks();
  QWidget* MakeOffset();

  Desk desk_;
};

}  // namespace torvane
