// The grid itself: keys and presses in it.
#pragma once

#include <QTableView>

#include "window/desk/arrangement.h"
#include "window/grid/layers_delegate.h"
#include "window/grid/layers_model.h"

namespace torvane {

class LayersView : public QTableView {
 public:
  LayersView(Desk desk, Family family, QWidget* parent = nullptr);

  LayersModel& layers() const { return *model_; }
  // Opens the editor of a field's cell, if the grid has it.
  bool GoTo(const Field& field);
  // Told when the widths of the columns have changed.
  std::function<void()> arranged;
  // Told when the row menu is to open.
  std::function<void(const QPoint&)> menuWanted;
  // Told when the keys have arrived at a field's cell.
  std::function<void(const Field&)> arrivedAt;
  // Shares height and width among rows and columns.
  void Arrange();
  void SetArrangement(Arrangement arrangement);
  int headHeight() const;
  int rowHeight() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void currentChanged(const QModelIndex& now, const QModelIndex& before) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void Move(int down, int right);
  void Edit(const QModelIndex& index, const QString& replacement = {});
  // Whether keys go into the cell as text; a list with entries takes a letter as a choice.
  bool IsTyped(const QModelIndex& index) const;
  void Activate(const QModelIndex& index);
  // The width that the columns in view want; hides those that a view of large figures has no room for.
  int ChooseColumns();
  bool RowCommand(const QKeyEvent& event, const QModelIndex& at);
  const char* RowButton() const { return family_ == Family::FourAxes ? "btn4XRow" : "btn2XRow"; }

  Desk desk_;
  Family family_;
  Arrangement arrangement_ = Arrangement::Open;
  LayersModel* model_;
  LayersDelegate* delegate_;
};

}  // namespace torvane
