// The part: its length, band and count of layers above the drawing of its family.
#pragma once

#include <QWidget>

#include "window/desk/arrangement.h"
#include "window/desk/binder.h"

class QHBoxLayout;
class QSpacerItem;

namespace torvane {

class FourAxisPart;
class PartDrawing;
class UnrolledMap;

class PartPanel : public QWidget {
 public:
  // `panel` 0 two axes, 1 four.
  PartPanel(Desk desk, int panel, QWidget* parent = nullptr);

  // The inputs in the order of the focus.
  const std::vector<QWidget*>& stops() const { return stops_; }
  // Those of the delivery head and the drawing's lines, which come behind the grid.
  const std::vector<QWidget*>& laterStops() const { return laterStops_; }
  // Takes its height in a column of that size, shared with the schedule.
  void Arrange(Arrangement arrangement, const QSize& column);
  // Brings a field into view that a small window keeps on another page.
  void Reveal(const QWidget& field);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  // Where there is room, and where the row is compact.
  struct Widths {
    int open, compact;
  };
  struct Sized {
    QWidget* widget;
    Widths widths;
  };

  bool IsUnrolled() const;
  QWidget* MakeRow();
  // A caption over a line; the line.
  QHBoxLayout* AddGroup(QHBoxLayout& boxes, const QString& caption, const Field* field = nullptr);
  void AddSized(QHBoxLayout& line, QWidget* widget, Widths widths);
  void AddInput(QHBoxLayout& line, Field& field, Widths widths, const QString& unit);
  void AddCount(QHBoxLayout& line);

  Desk desk_;
  int panel_;
  QWidget* row_ = nullptr;
  PartDrawing* twoAxes_ = nullptr;
  FourAxisPart* fourAxes_ = nullptr;
  UnrolledMap* unrolled_ = nullptr;
  Arrangement arrangement_ = Arrangement::Open;
  QSize column_;
  std::vector<Sized> sized_;
  std::vector<QSpacerItem*> gaps_;
  std::vector<QWidget*> stops_, laterStops_;
};

}  // namespace torvane
