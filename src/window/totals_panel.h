// The totals of a design: build time large, the rest in lines.
#pragma once

#include <QWidget>

#include "window/binder.h"

namespace torvane {

class TotalsPanel : public QWidget {
 public:
  TotalsPanel(Desk desk, int panel, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Desk desk_;
};

}  // namespace torvane
