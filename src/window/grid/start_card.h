// What stands in the place of the grid as long as a design has no layers.
#pragma once

#include <QWidget>

#include "window/desk/binder.h"

class QHBoxLayout;

namespace torvane {

class StartCard : public QWidget {
 public:
  StartCard(Desk desk, bool fourAxis, QWidget* parent = nullptr);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QWidget* MakeCounts();
  QWidget* MakeOpen();
  QWidget* MakeLinks();
  QWidget* MakeOffset(bool fourAxis);

  Desk desk_;
  bool fourAxis_;
  QHBoxLayout* columns_ = nullptr;
  QWidget* strip_ = nullptr;
  QWidget* community_ = nullptr;
  std::vector<QWidget*> counts_, links_, seconds_;
  bool offsetConfirmed_ = false;
};

}  // namespace torvane
