// What the proof says of the program, worst first; a click goes to the line.
#pragma once

#include <QAbstractScrollArea>

#include "dryrun/session.h"

namespace torvane::dryrun {

class FindingsList : public QAbstractScrollArea {
  Q_OBJECT

 public:
  explicit FindingsList(Stand stand, QWidget* parent = nullptr);

 signals:
  void LineChosen(int line);

 protected:
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Fit();
  void Choose(int row);
  int RowAt(int y) const;
  int Count(executor::Level level) const;

  Stand stand_;
  int chosen_ = -1;
};

}  // namespace torvane::dryrun
