// Scales and strokes a two-axis part.
#pragma once

#include "window/cover/cover_picture.h"
#include "window/part/part_scene.h"
#include "window/part/part_sketch.h"

namespace torvane {

// Where the drawing's parts stand in a widget of that size.
SketchFrame TwoAxisFrame(Arrangement arrangement, const QSize& size);

class PartPainter {
 public:
  PartPainter(const Theme& theme, const PartScene& scene, const QSize& size,
              Arrangement arrangement = Arrangement::Open, std::optional<double> heldScale = {},
              const CoverPicture* cover = nullptr);

  void Paint(QPainter& painter) const;
  const PartSketch& sketch() const { return sketch_; }
  // Where the lines of the stops begin; they end on the ruler.
  double LinesTop() const;
  // What stands at a point of the mandrel's near side.
  std::optional<SurfacePlace> PlaceAt(const QPointF& at) const;
  // The near side's point of a place; nothing if it is turned away.
  std::optional<QPointF> PointOf(const SurfacePlace& place) const;

 private:
  double XOf(double z) const { return sketch_.XOf(z); }

  void PaintLegend(QPainter& p) const;
  void PaintCover(QPainter& p) const;
  void PaintCoverLegend(QPainter& p) const;
  void PaintBand(QPainter& p) const;
  // Where the carriage cannot go: hatched, from the post to its offset.
  void PaintOffset(QPainter& p) const;
  void PaintDimensions(QPainter& p) const;
  void PaintDiameter(QPainter& p, double x, double radius, const QString& text, bool left) const;
  // Half the mandrel's height at a place.
  double RadiusAt(double x) const;
  double Radius() const { return std::max(leftRadius_, rightRadius_); }

  const Theme& t_;
  const PartScene& scene_;
  Arrangement arrangement_;
  QSize size_;
  SketchFrame f_;
  PartSketch sketch_;
  double mandrelLeft_ = 0, mandrelRight_ = 0;
  double leftRadius_ = 0, rightRadius_ = 0;  // pixels
  const CoverPicture* cover_;                // null: the pattern is shown
};

}  // namespace torvane
