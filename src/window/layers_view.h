// The grid itself: keys and presses in it.
#pragma once

#include <QTableView>

#include "window/layers_delegate.h"
#include "window/layers_model.h"

namespace torvane {

class LayersView : public QTableView {
 public:
  LayersView(Desk desk, bool fourAxis, QWidget* parent = nullptr);

  LayersModel& layers() const { return *model_; }
  // Opens the editor of a field's cell, if the grid has it.
  bool GoTo(const Field& field);
  // Told when the widths of the columns have changed.
  std::function<void()> arranged;
  // Told when the row menu is to open.
  std::function<void(const QPoint&)> menuWanted;
  void Arrange();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  void Move(int down, int right);
  void Edit(const QModelIndex& index, const QString& replacement = {});
  void Activate(const QModelIndex& index);
  bool RowCommand(const QKeyEvent& event, const QModelIndex& at);
  const char* RowButton() const { return fourAxis_ ? "btn4XRow" : "btn2XRow"; }

  Desk desk_;
  bool fourAxis_;
  LayersModel* model_;
  LayersDelegate* delegate_;
};

}  // namespace torvane
