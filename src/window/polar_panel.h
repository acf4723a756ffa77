// The end view of the row last pressed, and three totals of a four-axis design.
#pragma once

#include <QWidget>

#include "window/binder.h"

namespace torvane {

class PolarPanel : public QWidget {
 public:
  explicit PolarPanel(Desk desk, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  Desk desk_;
  QWidget* enlarge_;
};

}  // namespace torvane
