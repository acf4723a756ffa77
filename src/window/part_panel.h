// The part: its length, band and count of layers above the drawing of its family.
#pragma once

#include <QWidget>

#include "window/binder.h"

namespace torvane {

class PartPanel : public QWidget {
 public:
  // `panel` 0 two axes, 1 four.
  PartPanel(Desk desk, int panel, QWidget* parent = nullptr);

  // The inputs in the order of the focus.
  const std::vector<QWidget*>& stops() const { return stops_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QWidget* MakeRow(int panel);

  Desk desk_;
  std::vector<QWidget*> stops_;
};

}  // namespace torvane
