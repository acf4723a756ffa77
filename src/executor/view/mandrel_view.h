// The mandrel twice on one Z scale: from the side, and unrolled, angle against Z. Both fill as it is wound.
#pragma once

#include <QWidget>
#include <cstdint>
#include <vector>

#include "executor/session/session.h"
#include "executor/view/oblique.h"
#include "executor/view/surface.h"

namespace torvane::dryrun {

class MandrelView : public QWidget {
 public:
  explicit MandrelView(Stand stand, QWidget* parent = nullptr);

  // Paints what is missing at once, for pictures and measurements.
  void Finish();
  // The mandrel is shown turned by so many degrees against the machine's; it can be dragged.
  double TurnedByHand() const { return byHand_; }
  // Where the side view is, in the widget.
  QRectF SideBox() const { return room_.side; }
  QRectF UnrolledBox() const { return room_.unrolled; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

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
  // What a pixel of the side view shows: a column of the surface, -1 for none, and a shade.
  struct Sight {
    std::int16_t column = -1;
    std::uint16_t shade = 0;
  };

  // From the mandrel's lower rim to the upper one.
  static std::vector<Shade> Shades(const Theme& theme);
  void Fit();
  Oblique SideGeometry(double ratio) const;
  void FitSights();
  void TurnTo(double byHand);
  void Follow(int milliseconds);
  void RenderUnrolled(const Columns& columns);
  void RenderSide(const Columns& columns);
  void PaintHead(QPainter& painter) const;
  void PaintLegend(QPainter& painter, double x, double room) const;
  void PaintBody(QPainter& painter) const;
  void PaintFilament(QPainter& painter) const;
  void PaintCarriage(QPainter& painter, double x) const;
  void PaintUnrolled(QPainter& painter) const;
  void PaintRuler(QPainter& painter) const;
  void PaintSide(QPainter& painter) const;
  QString Summary() const;
  bool Known() const { return part_.zLeft > part_.zRight && part_.leftRadius > 0; }
  // By what the side view shows the mandrel turned in all.
  double Turned() const { return turned_ + byHand_; }
  // Where the band runs onto the mandrel, in degrees from the middle of the picture upwards.
  double ContactAngle() const;

  Stand stand_;
  executor::Mandrel part_;
  double dome_ = 0;  // depth of a hemispherical end
  Room room_;
  Surface surface_;
  QImage unrolled_, side_;
  std::vector<Shade> shades_;
  std::vector<Sight> sights_;  // of the side view's pixels, row by row
  double turned_ = 0;          // by what the machine has turned it, as far as the eye follows
  double byHand_ = 0;          // by what it has been dragged
  double draggedFrom_ = 0;     // the pointer's height and
  double turnedFrom_ = 0;      // the turn when the drag began
  bool dragging_ = false;
};

}  // namespace torvane::dryrun
