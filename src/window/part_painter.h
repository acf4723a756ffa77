// Scales and strokes a two-axis part.
#pragma once

#include <QPainter>

#include "look/theme.h"
#include "window/part_scene.h"

namespace torvane {

class PartPainter {
 public:
  PartPainter(const Theme& theme, const PartScene& scene, const QSize& size);

  // Height of the mandrel's axis in a drawing of that height.
  static int AxisY(int height) { return height / 2 - 6; }

  void Paint(QPainter& painter) const;

 private:
  double XOf(double z) const { return zeroX_ + (growsLeft_ ? -z : z) * scale_; }

  void PaintGrid(QPainter& p) const;
  void PaintChips(QPainter& p) const;
  void PaintLegend(QPainter& p) const;
  void PaintPosts(QPainter& p) const;
  void PaintMandrel(QPainter& p) const;
  void PaintBand(QPainter& p) const;
  void PaintHelix(QPainter& p, bool out, bool front) const;
  void PaintHoops(QPainter& p) const;
  void PaintRuler(QPainter& p) const;
  void PaintStop(QPainter& p, double z, Token token) const;
  void PaintDimension(QPainter& p, double y, double from, double to, const QString& text, Token token) const;
  void PaintDiameter(QPainter& p, double x, double diameter, const QString& text, bool left) const;
  // Half the mandrel's height at a place.
  double RadiusAt(double x) const;

  const Theme& t_;
  const PartScene& scene_;
  QSize size_;
  double postLeft_, postRight_;  // faces of the posts
  double axisY_;
  double rulerY_;
  bool growsLeft_;
  double zeroX_;
  double scale_ = 1;  // pixels a unit
  double mandrelLeft_ = 0, mandrelRight_ = 0;
  double leftRadius_ = 0, rightRadius_ = 0;  // pixels
};

}  // namespace torvane
