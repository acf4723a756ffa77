// The program's lines with the running one marked.
#pragma once

#include <functional>
#include <map>

#include "executor/panel/row_panel.h"
#include "look/button.h"

namespace torvane::dryrun {

class ProgramList : public RowPanel {
 public:
  explicit ProgramList(Stand stand, QWidget* parent = nullptr);

  // Brings a line into view and stays there until the operator asks to follow the run again.
  void ShowLine(int line);
  int FirstLineShown() const;
  bool Follows() const { return follows_; }

  std::function<void()> openAsked;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void PaintHead(QPainter& painter) override;
  QString TipOf(int row) const override;

 private:
  void FitLines();
  void PaintEmpty(QPainter& painter) const;
  void FollowRun();
  void SetFollows(bool follows);
  void PaintLine(QPainter& painter, const QRect& row, int number) const;

  QFont mono_;
  PlainButton* follow_;
  PlainButton* open_;
  PlainButton* cancel_;
  std::map<int, executor::Level> marks_;  // findings by line
  bool follows_ = true;
  bool scrolling_ = false;  // by the run, not by the operator
  int shown_ = 0;           // the line that was asked for
};

}  // namespace torvane::dryrun
