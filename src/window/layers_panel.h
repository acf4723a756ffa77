// The schedule: head, rows, "+ Add layer", and a footer with the totals under their columns.
#pragma once

#include <QWidget>

#include "window/layers_view.h"

namespace torvane {

class LayersPanel : public QWidget {
 public:
  LayersPanel(Desk desk, bool fourAxis, QWidget* parent = nullptr);

  LayersView* view() const { return view_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Arrange();
  void PaintFooter(QPainter& p) const;
  void PaintTotal(QPainter& p, int section, const Field& total) const;

  Desk desk_;
  bool fourAxis_;
  LayersView* view_;
  QWidget* card_;
  QWidget* recalculate_;
  QWidget* add_;
};

}  // namespace torvane
