// What the proof says of the program, worst first; a click goes to the line.
#pragma once

#include <functional>
#include <vector>

#include "executor/panel/row_panel.h"
#include "look/button.h"

namespace torvane::dryrun {

class FindingsList : public RowPanel {
 public:
  explicit FindingsList(Stand stand, QWidget* parent = nullptr);

  // The next note or fault of the program behind the current one, or the one before it; round and round.
  void GoToNext(bool on);
  // Makes that remark the current one and takes the run there.
  void GoTo(int remark);
  // -1 for none.
  int Current() const { return current_; }

  // The operator wants to see a remark's line, or to take the run there.
  std::function<void(int line)> lineChosen, lineSought;

 protected:
  void PaintHead(QPainter& painter) override;
  QString TipOf(int row) const override;
  int RowAt(int y) const override;
  QRect BoxOf(int row) const override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void FitRows();
  void ShowWork();
  QString WorkText() const;
  void PaintRow(QPainter& painter, int row) const;
  // Where a remark's sentence stands in its row.
  QRect SentenceIn(const QRect& row, bool hasLine) const;
  void MakeCurrent(int row);
  void Choose(int row);
  int Count(executor::Level level) const;

  std::vector<int> ends_;  // of the rows, in pixels from the top
  PlainButton* work_;      // gives the proof up, or asks for it again
  int current_ = -1;
};

}  // namespace torvane::dryrun
