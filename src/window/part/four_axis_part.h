// The four-axis part: its types, and the drawing with every place of the delivery head.
#pragma once

#include <QWidget>

#include "window/desk/arrangement.h"
#include "window/desk/binder.h"
#include "window/field/placed_field.h"
#include "window/part/four_axis_painter.h"
#include "window/part/four_axis_scene.h"
#include "window/part/part_line.h"

namespace torvane {

class Button;

class FourAxisPart : public QWidget {
 public:
  explicit FourAxisPart(Desk desk, QWidget* parent = nullptr);

  // The part's fields in the order of the focus. Those of the delivery head and the lines in Z come behind
  // the grid.
  const std::vector<QWidget*>& stops() const { return stops_; }
  const std::vector<QWidget*>& lineStops() const { return lines_->stops(); }
  const std::vector<QWidget*>& headStops() const { return headStops_; }
  void Arrange(Arrangement arrangement);
  // In a small window places in Z and offsets stand on two pages: turns to the page of a field.
  void Reveal(const QWidget& field);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  // Two fields at each end, and six places in Z below, left to right.
  struct End {
    QWidget* owner;
    PlacedField diameter, opening;
  };

  void AddTypes();
  void AddOffset(int i);
  void AddPages();
  void AddLength();
  End AddEnd(bool left);
  void PlaceOpen();
  void PlaceFolded();
  void Place();
  FourAxisPainter Painter() const;
  void FollowScene();
  void ShowPage(bool head);
  QRect DrawingArea() const;

  Desk desk_;
  Arrangement arrangement_ = Arrangement::Open;
  FourAxisScene scene_;
  QWidget* types_ = nullptr;
  End left_{}, right_{};
  QWidget* places_ = nullptr;
  std::vector<PlacedField> z_;
  QWidget* lengthOwner_ = nullptr;
  PlacedField length_{};  // between the ends, which it follows from
  QWidget* head_ = nullptr;
  std::vector<QWidget*> offsets_, offsetCaptions_;
  QWidget* pages_ = nullptr;
  Button* pageButtons_[2] = {};
  bool headPage_ = false;
  std::vector<QWidget*> stops_, headStops_;
  std::optional<PartLines> lines_;
};

}  // namespace torvane
