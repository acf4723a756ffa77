// The station's window: menus, tool bar, the design at the left, the rail at the right, the status line.
#pragma once

#include <QMainWindow>
#include <QPointer>

#include "window/desk/arrangement.h"
#include "window/desk/binder.h"
#include "window/frame/appearance.h"

class QHBoxLayout;
class QSpacerItem;
class QStackedWidget;
class QVBoxLayout;

namespace torvane {

class ChecklistPanel;
class FoldedBar;
class LayersPanel;
class ProofPanel;
class PartPanel;
class StatusLine;
class ToolBar;

class MainWindow : public QMainWindow {
 public:
  explicit MainWindow(Desk desk);
  ~MainWindow() override;

  // Puts the keyboard to a field, wherever it stands.
  void GoTo(const Field& field);
  // Takes another palette at once, and keeps the choice.
  void Use(Appearance appearance);
  // Figures that can be read from the machine, or the whole window.
  void UseLargeFigures(bool large);

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QWidget* MakeDesign();
  QWidget* MakeRail();
  void FollowState();
  void UseDark(bool dark);
  // Lays the window out for its size.
  void Arrange();
  void MoveRail(Arrangement arrangement);
  void PlaceFolded();
  // The checklist or the proof above the folded rail; null closes what stands open.
  void OpenFolded(QWidget* panel);
  // By Esc: the keys go back to its switch.
  void CloseFolded();
  // Opens it above the folded rail or closes it, else puts the keyboard to it.
  void ShowProof();
  void FollowFocus(QWidget* now);
  // Says in the status line what a field is.
  void Describe(const Field& field);
  void OrderTabs();
  void Blink();
  void ShowRowMenu(const QPoint& at);

  Desk desk_;
  Arrangement arrangement_ = Arrangement::Open;
  Appearance appearance_;
  ToolBar* tools_ = nullptr;
  QStackedWidget* families_ = nullptr;
  PartPanel* parts_[2] = {};
  LayersPanel* layers_[2] = {};
  QWidget* rail_ = nullptr;
  QVBoxLayout* railColumn_ = nullptr;
  QSpacerItem* blank_ = nullptr;
  QStackedWidget* totals_ = nullptr;
  ChecklistPanel* checklist_ = nullptr;
  QWidget* folded_ = nullptr;  // what stands open above the folded rail
  ProofPanel* marks_ = nullptr;
  QWidget* build_ = nullptr;
  QPointer<QWidget> focusOfSmall_;  // where the keys were before the large figures
  QHBoxLayout* barRow_ = nullptr;
  FoldedBar* bar_ = nullptr;
  StatusLine* status_ = nullptr;
  const Field* described_ = nullptr;  // in the status line
  bool placed_ = false;
};

}  // namespace torvane
