// The rail of a small window as a bar: totals, marks, the checklist's switch, and room for Build.
#pragma once

#include <QWidget>

#include "window/desk/binder.h"

class QHBoxLayout;

namespace torvane {

class Button;

class FoldedBar : public QWidget {
 public:
  explicit FoldedBar(Desk desk, QWidget* parent = nullptr);

  // Takes the build button in, at the right.
  void Take(QWidget* build);
  Button* checklist() const { return checklist_; }
  // Told when the operator wants to see a marked field.
  std::function<void(const Field&)> goTo;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  // Paints what is marked between two places.
  void PaintMarks(QPainter& p, int from, int to) const;

  Desk desk_;
  QHBoxLayout* row_;
  Button* checklist_;
};

}  // namespace torvane
