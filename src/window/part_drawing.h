// The drawing of the two-axis part, to scale, with the ends' fields as its children.
#pragma once

#include <QWidget>

#include "window/binder.h"
#include "window/part_scene.h"

namespace torvane {

class PartDrawing : public QWidget {
 public:
  explicit PartDrawing(Desk desk, QWidget* parent = nullptr);

  // The ends' fields in the order of the focus: left diameter, left stop, right diameter, right stop.
  const std::vector<QWidget*>& stops() const { return stops_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct End {
    QWidget *title, *diameterCaption, *diameter, *diameterUnit, *stopCaption, *stop, *stopUnit;
  };

  End MakeEnd(const char* title, const char* side, Field& diameter, Field& stop);
  void PlaceEnd(const End& end, int x);

  Desk desk_;
  PartScene scene_;
  End left_{}, right_{};
  std::vector<QWidget*> stops_;
};

}  // namespace torvane
