// What stands in the place of the grid as long as a design has no layers.
#pragma once

#include <QWidget>

#include "window/desk/binder.h"
#include "window/grid/design_cards.h"

class QHBoxLayout;
class QVBoxLayout;

namespace torvane {

class RecentList;
class SampleShelf;

class StartCard : public QWidget {
 public:
  StartCard(Desk desk, Family family, QWidget* parent = nullptr);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QWidget* MakeCounts();
  QWidget* MakeOpen();
  QWidget* MakeRecent();
  QWidget* MakeLinks();
  QWidget* MakeOffset(Family family);
  // Asks anew what recent designs and samples there are.
  void Refresh();
  // Gives everything its room, the columns first.
  void Arrange();
  void PlaceRecent();

  Desk desk_;
  Family family_;
  DesignCards cards_;
  QHBoxLayout* columns_ = nullptr;
  QVBoxLayout* open_ = nullptr;
  QWidget *counted_ = nullptr, *opened_ = nullptr, *linked_ = nullptr;
  QWidget *recent_ = nullptr, *drop_ = nullptr;
  RecentList* list_ = nullptr;
  SampleShelf* shelf_ = nullptr;
  QWidget* strip_ = nullptr;
  QWidget* community_ = nullptr;
  std::vector<QWidget*> counts_, links_, seconds_;
  bool offsetConfirmed_ = false, recentBelowOpen_ = false;
};

}  // namespace torvane
