// What the proof says of the program, worst first; a click goes to the line.
#pragma once

#include "executor/panel/row_panel.h"

namespace torvane::dryrun {

class FindingsList : public RowPanel {
  Q_OBJECT

 public:
  explicit FindingsList(Stand stand, QWidget* parent = nullptr);

 signals:
  void LineChosen(int line);

 protected:
  void PaintHead(QPainter& painter) override;
  QString TipOf(int row) const override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void FitRows();
  void Choose(int row);
  int Count(executor::Level level) const;

  int chosen_ = -1;
};

}  // namespace torvane::dryrun
