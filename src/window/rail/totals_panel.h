// The totals of a design: build time large, the rest in lines; and a panel of three to be read from afar.
#pragma once

#include <QWidget>

#include "window/desk/binder.h"
#include "window/desk/live_watch.h"
#include "workbench/schedule/totals.h"

namespace torvane {

// "proven 34.6 to 40.2 min", of the winding's time or of its tow; empty before the proof.
QString ProvenText(const Desk& desk, bool minutes);

class TotalsPanel : public QWidget {
 public:
  TotalsPanel(Desk desk, Family family, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QWidget* CaptionOf(const Total& total, std::size_t place);

  Desk desk_;
};

class LargeTotals : public QWidget {
 public:
  explicit LargeTotals(Desk desk, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Desk desk_;
};

}  // namespace torvane
