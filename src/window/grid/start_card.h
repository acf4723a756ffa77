// What stands in the place of the grid as long as a design has no layers.
#pragma once

#include <QWidget>

#include "window/desk/binder.h"

class QHBoxLayout;

namespace torvane {

class StartCard : public QWidget {
 public:
  StartCard(Desk desk, Family family, QWidget* parent = nullptr);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QWidget* MakeCounts();
  QWidget* MakeOpen();
  QWidget* MakeLinks();
  QWidget* MakeOffset(Family family);

  Desk desk_;
  Family family_;
  QHBoxLayout* columns_ = nullptr;
  QWidget* strip_ = nullptr;
  QWidget* community_ = nullptr;
  std::vector<QWidget*> counts_, links_, seconds_;
  bool offsetConfirmed_ = false;
};

}  // namespace torvane
