// The designs last opened or saved, each with a small picture of its part.
#pragma once

#include <QWidget>

#include "window/desk/binder.h"
#include "window/grid/design_cards.h"

namespace torvane {

class RecentRow;

class RecentList : public QWidget {
 public:
  // `cards` must outlive it.
  RecentList(Desk desk, DesignCards& cards, QWidget* parent = nullptr);

  static constexpr int kMost = 4, kRowHeight = 30;

  // Asks anew what there is.
  void Refresh();
  // Shows at most so many; those beyond stay in the File menu.
  void Limit(int rows);

 private:
  Desk desk_;
  DesignCards& cards_;
  int limit_ = kMost;
  std::vector<RecentRow*> rows_;
  QWidget* none_ = nullptr;
};

}  // namespace torvane
