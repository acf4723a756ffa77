// The four-axis part: its types, and the drawing with every place of the delivery head.
#pragma once

#include <QWidget>

#include "window/binder.h"

namespace torvane {

class FourAxisPart : public QWidget {
 public:
  explicit FourAxisPart(Desk desk, QWidget* parent = nullptr);

  const std::vector<QWidget*>& stops() const { return stops_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  // A field with its caption and unit at a place that follows the width: a share of it, and so many pixels.
  struct Placed {
    QWidget *caption, *field, *unit;
    double share;
    int x, y;
  };

  void AddTypes();
  void AddOffset(int i);
  void AddField(const QString& caption, Field& field, double share, int x, int y);

  Desk desk_;
  std::vector<Placed> placed_;
  std::vector<QWidget*> stops_, offsets_, offsetCaptions_;
  QWidget* types_ = nullptr;
};

}  // namespace torvane
