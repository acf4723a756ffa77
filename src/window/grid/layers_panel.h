// The schedule: head, rows, "+ Add layer", and a footer with the totals under their columns.
#pragma once

#include <QWidget>

#include "window/grid/layers_view.h"

namespace torvane {

class Button;

class LayersPanel : public QWidget {
 public:
  LayersPanel(Desk desk, Family family, QWidget* parent = nullptr);

  LayersView* view() const { return view_; }
  void Arrange(Arrangement arrangement);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Place();
  void MakeAllRows();
  void FollowState();
  bool AllRowsInView() const;
  int FooterHeight() const;
  // The line of the pressed row's proof stands above the footer.
  bool StripInView() const;
  int AllRowsTop() const;
  void PaintFooter(QPainter& p) const;
  void PaintTotal(QPainter& p, int section, const Field& total) const;

  Desk desk_;
  Family family_;
  int footer_ = 0;  // as it was laid out last
  Arrangement arrangement_ = Arrangement::Open;
  LayersView* view_;
  QWidget* card_;
  QWidget* recalculate_;
  Button* add_;
  QWidget* allRows_;
  std::vector<std::pair<int, QWidget*>> allRowsCells_;  // by column
};

}  // namespace torvane
