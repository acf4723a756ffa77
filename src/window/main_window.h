// The station's window: menus, tool bar, the design at the left, the rail at the right, the status line.
#pragma once

#include <QMainWindow>

#include "window/binder.h"

class QStackedWidget;

namespace torvane {

class ChecklistPanel;
class LayersPanel;
class MarksPanel;
class StatusLine;

class MainWindow : public QMainWindow {
 public:
  explicit MainWindow(Desk desk);

  // Puts the keyboard to a field, wherever it stands.
  void GoTo(const Field& field);
  // Takes another palette at once.
  void UseDark(bool dark);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QWidget* MakeDesign();
  QWidget* MakeRail();
  void FollowState();
  void FollowFocus(QWidget* now);
  void Describe(const Field& field);
  void OrderTabs();
  void StorePlace();
  void Blink();
  void ShowRowMenu(const QPoint& at);

  Desk desk_;
  QStackedWidget* families_ = nullptr;
  std::vector<std::vector<QWidget*>> parts_;
  LayersPanel* layers_[2] = {};
  QStackedWidget* totals_ = nullptr;
  QWidget* rail_ = nullptr;
  ChecklistPanel* checklist_ = nullptr;
  MarksPanel* marks_ = nullptr;
  QWidget* build_ = nullptr;
  StatusLine* status_ = nullptr;
  const Field* described_ = nullptr;  // in the status line
  bool placed_ = false;
};

}  // namespace torvane
