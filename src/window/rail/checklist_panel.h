// The Winding Checklist in the order in which the program runs.
#pragma once

#include <QWidget>

#include "window/desk/arrangement.h"
#include "window/desk/binder.h"

class QGridLayout;

namespace torvane {

class ChecklistPanel : public QWidget {
 public:
  explicit ChecklistPanel(Desk desk, QWidget* parent = nullptr);

  // The inputs in the order of the focus.
  const std::vector<QWidget*>& stops() const { return stops_; }
  // With large figures the boxes alone stay, as targets for a glove.
  void Arrange(Arrangement arrangement);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Line {
    Field& check;
    const char* second;
    Field* speed;
    Field* inches;
    Field* millimetres;
  };
  void AddLine(QGridLayout& grid, int row, const Line& line);
  void AddNotices(QGridLayout& grid, int row);

  Desk desk_;
  std::vector<QWidget*> stops_;
  std::vector<QWidget*> checks_;
  std::vector<QWidget*> details_;  // what large figures leave out
  std::vector<int> rows_;
};

}  // namespace torvane
