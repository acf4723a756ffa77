// Paints the grid's cells and makes their editors. It goes where the keys send it.
#pragma once

#include <QStyledItemDelegate>

#include "window/grid/layers_model.h"

namespace torvane {

class LayersDelegate : public QStyledItemDelegate {
 public:
  LayersDelegate(Desk desk, LayersModel& model, QObject* parent);

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
  void setEditorData(QWidget*, const QModelIndex&) const override {}
  void setModelData(QWidget*, QAbstractItemModel*, const QModelIndex&) const override {}
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override;

  // Leaves an editor by a key: rows down, inputs to the right.
  std::function<void(int down, int right)> leave;

 protected:
  bool eventFilter(QObject* editor, QEvent* event) override;

 private:
  // A pressed row, until something drops its emphasis.
  bool StandsOut(int layer) const;
  void PaintRowButton(QPainter& p, const QRect& box, int layer) const;
  void PaintCell(QPainter& p, const QRect& box, const LayerColumn& column, const Field& field,
                 bool current) const;
  void PaintAngle(QPainter& p, const QRect& box, const Field& field) const;
  void PaintShare(QPainter& p, const QRect& box, const Field& field) const;

  Desk desk_;
  LayersModel& model_;
  mutable QString arrival_;  // text of the cell when its editor opened, for Esc
};

}  // namespace torvane
