// Scales and strokes a four-axis part with the path of its delivery head.
#pragma once

#include <QPainter>
#include <optional>

#include "design/state.h"
#include "look/theme.h"

namespace torvane {

class FourAxisPainter {
 public:
  FourAxisPainter(const Theme& theme, const DesignState& state, const QRect& area);

  void Paint(QPainter& painter) const;
  // The number of an offset in its ring.
  void PaintRing(QPainter& painter, const QPointF& centre, int number) const;

 private:
  double XOf(double z) const { return zeroX_ + (homeRight_ ? -z : z) * scale_; }
  double YOf(double y) const { return axisY_ - y * scale_; }
  std::optional<double> ZOf(int i) const;
  void PaintGround(QPainter& p) const;
  void PaintPosts(QPainter& p) const;
  void PaintMandrel(QPainter& p) const;
  void PaintHeadPath(QPainter& p) const;
  void PaintRuler(QPainter& p) const;

  const Theme& t_;
  const DesignState& s_;
  QRect area_;
  bool homeRight_;
  double postLeft_, postRight_, axisY_, rulerY_, zeroX_;
  double scale_ = 1;
  double left_ = 0, right_ = 0;  // ends of the part, pixels
  double leftRadius_ = 0, rightRadius_ = 0;
  bool complete_ = false;
};

}  // namespace torvane
