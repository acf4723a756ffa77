// Strokes the picture of a pattern as seen from the part's end.
#pragma once

#include <QPainter>
#include <vector>

#include "calc/polar_walk.h"
#include "look/theme.h"

namespace torvane {

// Where the picture's plane lies in a box: its largest reach touches the nearer edges.
class PolarFrame {
 public:
  PolarFrame(const std::vector<PolarFigure>& figures, const QRectF& box);

  bool empty() const { return reach_ <= 0; }
  // Pixels a unit of the picture.
  double scale() const { return scale_; }
  QPointF At(double x, double y) const { return centre_ + QPointF(x * scale_, -y * scale_); }
  QPointF PlaneOf(const QPointF& pixel) const {
    return {(pixel.x() - centre_.x()) / scale_, (centre_.y() - pixel.y()) / scale_};
  }

 private:
  QPointF centre_;
  double reach_ = 0;
  double scale_ = 1;
};

void PaintPolar(QPainter& painter, const Theme& theme, const std::vector<PolarFigure>& figures,
                const QRectF& box);

}  // namespace torvane
