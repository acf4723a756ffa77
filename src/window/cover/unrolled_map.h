// The part's surface unrolled below its drawing, on the drawing's scale along Z.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "window/cover/cover_picture.h"

namespace torvane {

class Button;

inline constexpr int kUnrolled = 224;

// A click keeps the place that is pointed at; Left and Right go to the next bare one, Esc lets go.
class UnrolledMap : public QWidget {
 public:
  // `xOf` is where the drawing above has a Z.
  UnrolledMap(Desk desk, std::function<double(double z)> xOf, QWidget* parent);

  void Follow(const CoverPicture* picture);
  // In the order of the focus.
  std::vector<QWidget*> stops();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  std::optional<SurfacePlace> PlaceAt(const QPointF& at) const;
  QPointF PointOf(const SurfacePlace& place) const;
  void GoToBare(bool forward);
  void PaintCovered(QPainter& p, const QRectF& box) const;
  void PaintPlace(QPainter& p, const QRectF& box) const;
  void PaintFigures(QPainter& p, const QRectF& box) const;

  Desk desk_;
  std::function<double(double z)> xOf_;
  const CoverPicture* picture_ = nullptr;
  QRectF box_;          // of the map; empty where there is none
  bool falls_ = false;  // Z falls to the right
  std::optional<SurfacePlace> pointed_, kept_;
  Button *one_, *all_, *next_;
};

}  // namespace torvane
