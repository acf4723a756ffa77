// The lines of a drawing that stand at a place in Z: the mouse drags one, or the arrow keys move it. Each
// place on the way is typed into the line's field.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "window/desk/binder.h"
#include "window/part/part_sketch.h"

namespace torvane {

// How a drawing shows Z, and between which places a line of it can be taken; design units and pixels.
struct LineTrack {
  double zero = 0, perUnit = 1;  // of Z 0, and how far each unit goes to the right
  double least = 0, most = 0;    // as far as the keys go
  double furthest = 0;           // as far as the drawing shows
};

// What can be taken hold of over a line.
class PartLine : public QWidget {
 public:
  // `moved` is told where a drag begins and ends.
  PartLine(Desk desk, Field& field, QWidget* drawing, std::function<void()> moved);

  Field& field() const { return field_; }
  bool dragged() const { return drag_.has_value(); }
  void Follow(const LineTrack& track);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Drag {
    double pressed, line;  // where the mouse and the line were, on the drawing
    bool going = false;    // it has left its place
  };

  double Step(bool fine) const;
  // Types the multiple of the step that is nearest to a place and within reach.
  void MoveTo(double z, double most, bool fine);
  void EndDrag();

  Desk desk_;
  Field& field_;
  std::function<void()> moved_;
  LineTrack track_;
  std::optional<Drag> drag_;
};

// All lines of a drawing, from its left to its right.
class PartLines {
 public:
  PartLines(Desk desk, const std::vector<Field*>& fields, QWidget* drawing,
            const std::function<void()>& moved);

  // In the order of the focus.
  const std::vector<QWidget*>& stops() const { return stops_; }
  // Each stands over its line as it is drawn from `top` on; none where they are not `usable`.
  void Follow(const PartSketch& sketch, double top, bool usable);
  // While a line is dragged the drawing keeps the scale that it had.
  std::optional<double> heldScale() const;

 private:
  std::vector<PartLine*> lines_;
  std::vector<QWidget*> stops_;
  double scale_ = 1;
};

}  // namespace torvane
