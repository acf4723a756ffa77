// The list of marks: what is too low, too high or missing, worst first, and where.
#pragma once

#include <QWidget>

#include "window/binder.h"

namespace torvane {

class MarksPanel : public QWidget {
 public:
  explicit MarksPanel(Desk desk, QWidget* parent = nullptr);

  // Told when the operator wants to see a marked field.
  std::function<void(const Field&)> goTo;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  Desk desk_;
};

// Fields of the family in use that are marked and can be seen, worst first.
std::vector<const Field*> MarkedFields(DesignState& s);

}  // namespace torvane
