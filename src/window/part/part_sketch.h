// What the drawings of both families share: a mandrel between two posts over a ruler, to one scale.
#pragma once

#include <QPainter>
#include <functional>
#include <optional>
#include <vector>

#include "design/field.h"
#include "look/theme.h"
#include "window/desk/arrangement.h"

namespace torvane {

// Without figures an example is drawn, so that the place of everything is plain.
inline constexpr double kExampleFar = 28, kExampleHome = 4, kExampleDiameter = 4;

// From this angle on a band is drawn as hoops, degrees.
inline constexpr double kDrawnAsHoop = 89.5;

// The value of a field to be drawn; missing where it is empty, hidden, no number or not above 0.
std::optional<double> DrawnValue(const Field& field);

// Where the parts of a drawing stand, in pixels.
struct SketchFrame {
  QRectF area;
  double postLeft = 0, postRight = 0;  // faces of the posts
  double postWidth = 0;
  double axisY = 0, rulerY = 0;
  double mostDiameter = 0;  // what the mandrel may take in height
};

// A place of a band on the mandrel as seen from the side.
struct BandPoint {
  QPointF at;
  bool front = true;
};

class PartSketch {
 public:
  PartSketch(const Theme& theme, const SketchFrame& frame, Arrangement arrangement, bool homeRight,
             bool zGrowsLeft)
      : t_(theme), f_(frame), arrangement_(arrangement), homeRight_(homeRight), zGrowsLeft_(zGrowsLeft) {}

  // One scale for both directions: `reach` is the largest Z, `diameter` the largest diameter, design units.
  void Scale(double reach, double diameter);
  // Keeps the scale that it had before.
  void Keep(double scale) { scale_ = scale; }
  double scale() const { return scale_; }
  const SketchFrame& frame() const { return f_; }
  double XOf(double z) const { return (zGrowsLeft_ ? f_.postRight - z * scale_ : f_.postLeft + z * scale_); }
  bool zGrowsLeft() const { return zGrowsLeft_; }

  void PaintGround(QPainter& p) const;
  // The shafts, the chucks, the posts.
  void PaintPosts(QPainter& p, double mandrelLeft, double mandrelRight) const;
  // The mandrel's light on an outline; a dashed outline while figures are missing.
  void PaintMandrel(QPainter& p, const QPainterPath& outline, double radius, bool complete) const;
  void PaintAxis(QPainter& p, double from, double to) const;
  void PaintRuler(QPainter& p) const;
  // A place in Z: its line and its foot on the ruler.
  void PaintFoot(QPainter& p, double z, double top, Token token, bool dashed = false) const;
  // FAR and HOME at the drawing's ends. `left` and `right` are figures beside them in the large view.
  void PaintChips(QPainter& p, const QPointF& left, const QPointF& right) const;
  void PaintLargeEnds(QPainter& p, const QString& left, const QString& right) const;
  // A dimension with arrows and its text in the middle.
  void PaintDimension(QPainter& p, double y, double from, double to, const QString& text, Token token) const;
  // A colour of the legend at a place, and its word; where the next one can begin.
  double PaintKey(QPainter& p, const QPointF& at, Token token, const QString& word) const;
  // A band of the true width; its far side shows at 15 %.
  void PaintBand(QPainter& p, const std::vector<BandPoint>& points, double width, Token token,
                 bool front) const;
  // Hoops side by side, each `width` wide.
  void PaintHoops(QPainter& p, double from, double to, double width,
                  const std::function<double(double)>& radiusAt) const;

 private:
  const Theme& t_;
  SketchFrame f_;
  Arrangement arrangement_;
  bool homeRight_, zGrowsLeft_;
  double scale_ = 1;
};

// Lays a band at a constant angle to the axis, from one place to another, and turns `turn` (radians) on with
// it. Radii in pixels by place.
void LayHelix(std::vector<BandPoint>& points, double from, double to, double angle, double axisY,
              const std::function<double(double)>& radiusAt, double& turn);

// Lays a band over a hemispherical end, on the straightest line from where it comes to the other side of the
// end; `turn` goes half a turn on. `cap` is the end's length, its sign the way it points.
void LayDome(std::vector<BandPoint>& points, double base, double cap, double radius, double angle,
             double axisY, double& turn);

}  // namespace torvane
