// Scales and strokes a four-axis part with the path of its delivery head.
#pragma once

#include "window/part/four_axis_scene.h"
#include "window/part/part_sketch.h"

namespace torvane {

// Where the drawing's parts stand in its area.
SketchFrame FourAxisFrame(Arrangement arrangement, const QRectF& area);

// The number of an offset in its ring.
void PaintRing(QPainter& painter, const Theme& theme, const QPointF& centre, int number);

class FourAxisPainter {
 public:
  FourAxisPainter(const Theme& theme, const FourAxisScene& scene, const QRectF& area,
                  Arrangement arrangement = Arrangement::Open, std::optional<double> heldScale = {});

  void Paint(QPainter& painter) const;
  const PartSketch& sketch() const { return sketch_; }
  // Where the lines of the places in Z begin; they end on the ruler.
  double LinesTop() const { return f_.axisY - Radius() - 4; }

 private:
  double XOf(double z) const { return sketch_.XOf(z); }
  double YOf(double y) const { return f_.axisY - y * sketch_.scale(); }
  double Radius() const { return std::max(leftRadius_, rightRadius_); }
  // Half the part's height at a place between its ends' bases.
  double RadiusAt(double x) const;
  QPainterPath Outline() const;
  void PaintBand(QPainter& p) const;
  void PaintOpenings(QPainter& p) const;
  void PaintPlaces(QPainter& p) const;
  void PaintHeadPath(QPainter& p) const;
  void PaintLegend(QPainter& p) const;

  const Theme& t_;
  const FourAxisScene& scene_;
  Arrangement arrangement_;
  SketchFrame f_;
  PartSketch sketch_;
  double left_ = 0, right_ = 0;        // ends of the part, pixels
  double leftCap_ = 0, rightCap_ = 0;  // lengths of its hemispherical ends
  double leftRadius_ = 0, rightRadius_ = 0;
};

}  // namespace torvane
