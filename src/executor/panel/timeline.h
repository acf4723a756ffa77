// The run as a line of time: a segment for each layer and stage, as wide as its time, the findings below
// their places, and a handle that takes the run anywhere. Below it the run's buttons.
#pragma once

#include <functional>
#include <vector>

#include "executor/panel/read_outs.h"
#include "executor/panel/step_bar.h"

namespace torvane::dryrun {

class Timeline : public Strip {
 public:
  explicit Timeline(Stand stand, QWidget* parent = nullptr);

  StepBar& steps() { return *steps_; }

  std::function<void(int remark)> findingChosen;  // its index
  std::function<void()> nextFindingAsked;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  struct Piece {
    QRectF box;
    const executor::Stretch* stretch;
  };

  QRectF Track() const;
  void FitPieces();
  double XAt(double seconds) const;
  // Between two segments it is the moment at which the right one begins.
  double SecondsAt(double x) const;
  double HandleX() const { return XAt(stand_.player().Elapsed()); }
  // The finding whose glyph stands there, the worst of those that share it; -1 for none.
  int FindingAt(const QPointF& at) const;
  QString TipAt(const QPointF& at) const;
  QString PlaceText(int room) const;
  void Refresh();
  void PaintTimes(QPainter& painter) const;
  void PaintFindings(QPainter& painter) const;
  void PaintHandle(QPainter& painter) const;

  std::vector<Piece> pieces_;  // of the course's stretches
  StepBar* steps_;
  PlainButton* next_;
  bool dragging_ = false;
  double grip_ = 0;  // from the pointer to the handle's middle
  double pressedX_ = 0;
  bool moved_ = false;
};

}  // namespace torvane::dryrun
