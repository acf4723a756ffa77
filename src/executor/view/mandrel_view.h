// The mandrel twice on one Z scale: unrolled, angle against Z, and from the side. Both fill as it is wound.
#pragma once

#include <QWidget>
#include <vector>

#include "executor/session/session.h"
#include "executor/view/surface.h"

namespace torvane::dryrun {

class MandrelView : public QWidget {
  Q_OBJECT

 public:
  explicit MandrelView(Stand stand, QWidget* parent = nullptr);

  // Paints what is missing at once, for pictures and measurements.
  void Finish();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  // One height of the side view: what it shows of the surface, and how it is lit.
  struct Shade {
    unsigned light;             // of 256
    unsigned red, green, blue;  // the bare mandrel
    double degrees;             // from the middle of the picture upwards
  };
  struct Room {
    QRectF unrolled, side;  // of the pictures, in logical pixels
    double rail = 0;        // the Y of the carriage's rail
    ZScale scale;
  };

  // From the mandrel's lower rim to the upper one.
  static std::vector<Shade> Shades(const Theme& theme);
  void Fit();
  void Follow(int milliseconds);
  void RenderUnrolled(const Columns& columns);
  void RenderSide(const Columns& columns);
  void PaintHead(QPainter& painter) const;
  void PaintUnrolled(QPainter& painter) const;
  void PaintRuler(QPainter& painter) const;
  void PaintSide(QPainter& painter) const;
  QString Summary() const;
  bool Known() const { return part_.zLeft > part_.zRight && part_.leftRadius > 0; }
  double RadiusAt(double z) const;  // 0 beyond the part
  // Where the band runs onto the mandrel, in degrees from the middle of the picture upwards.
  double ContactAngle() const;

  Stand stand_;
  executor::Mandrel part_;
  double dome_ = 0;  // depth of a hemispherical end
  Room room_;
  Surface surface_;
  QImage unrolled_, side_;
  std::vector<Shade> shades_;
  double turned_ = 0;  // by what the side view shows the mandrel turned
};

}  // namespace torvane::dryrun
