// The end view of a row's pattern with its figures, and three totals of a four-axis design.
#pragma once

#include <QWidget>

#include "window/desk/binder.h"

namespace torvane {

class PolarPanel : public QWidget {
 public:
  explicit PolarPanel(Desk desk, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  int Side() const;
  bool FiguresInLines() const;
  QRect FigureBox(int place) const;
  void PlaceGrazing();
  void PaintFigures(QPainter& painter) const;

  Desk desk_;
  QWidget* enlarge_ = nullptr;
  QWidget* grazing_ = nullptr;
};

}  // namespace torvane
