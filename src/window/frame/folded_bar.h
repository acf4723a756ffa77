// The rail of a small window as a bar: totals, the switches of proof and checklist, and room for Build.
#pragma once

#include <QWidget>

#include "window/desk/binder.h"

class QAbstractButton;
class QHBoxLayout;

namespace torvane {

class Button;

class FoldedBar : public QWidget {
 public:
  explicit FoldedBar(Desk desk, QWidget* parent = nullptr);

  // Takes the build button in, at the right.
  void Take(QWidget* build);
  Button* checklist() const { return checklist_; }
  // With the worst that it has to say, and how many of that.
  QAbstractButton* proof() const { return proof_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintProven(QPainter& p, int from, int to) const;

  Desk desk_;
  QHBoxLayout* row_;
  Button* checklist_;
  QAbstractButton* proof_;
};

}  // namespace torvane
