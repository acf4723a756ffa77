// The drawing of the two-axis part, to scale, with the ends' fields as its children.
#pragma once

#include <QWidget>

#include "window/cover/part_switch.h"
#include "window/desk/arrangement.h"
#include "window/desk/binder.h"
#include "window/field/placed_field.h"
#include "window/part/part_line.h"
#include "window/part/part_painter.h"
#include "window/part/part_scene.h"

namespace torvane {

class PartDrawing : public QWidget {
 public:
  explicit PartDrawing(Desk desk, QWidget* parent = nullptr);

  // The ends' fields in the order of the focus: left diameter, left stop, right diameter, right stop.
  const std::vector<QWidget*>& stops() const { return stops_; }
  // The lines of both stops, which come behind the grid.
  const std::vector<QWidget*>& lineStops() const { return lines_->stops(); }
  PartSwitch* partSwitch() const { return switch_; }
  void Arrange(Arrangement arrangement);
  // Where a Z stands, from the drawing's left edge.
  double XOf(double z) const { return Painter().sketch().XOf(z); }
  // Null where the pattern is shown. `coverFollows` is told of each new one, and of another scale.
  const CoverPicture* cover() const { return cover_ ? &*cover_ : nullptr; }
  std::function<void()> coverFollows;

 protected:
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  // An end's fields stand on a child of the drawing, so that they go and come together.
  struct End {
    QWidget *owner, *title;
    PlacedField diameter, stop;
  };

  End MakeEnd(bool left);
  void PlaceEnd(const End& end, bool left);
  void PlaceEnds();
  PartPainter Painter() const;
  void FollowScene();
  void FollowCover();

  Desk desk_;
  Arrangement arrangement_ = Arrangement::Open;
  PartScene scene_;
  End left_{}, right_{};
  std::vector<QWidget*> stops_;
  std::optional<PartLines> lines_;
  PartSwitch* switch_ = nullptr;
  std::optional<CoverPicture> cover_;
  std::optional<SurfacePlace> pointed_;
};

}  // namespace torvane
