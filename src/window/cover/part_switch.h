// Chooses what the drawing of the part shows: pattern, coverage or thickness, and whether it is unrolled.
#pragma once

#include <QWidget>

#include "window/desk/binder.h"
#include "window/desk/live_watch.h"

namespace torvane {

class Button;

// Shows the part so from now on, in all windows.
void ShowPart(const Desk& desk, const PartView& view);

class PartSwitch : public QWidget {
 public:
  PartSwitch(Desk desk, QWidget* parent);

  // Places itself with its right edge there, and the button that unrolls below it.
  void PlaceAt(int right, int top);
  // In the order of the focus, the button that unrolls last.
  std::vector<QWidget*> stops() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Desk desk_;
  std::vector<Button*> choices_;
  Button* unroll_;
};

}  // namespace torvane
