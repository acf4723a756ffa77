// The rows of the schedule as a model over the state: it holds nothing but the count last shown.
#pragma once

#include <QAbstractTableModel>

#include "window/desk/binder.h"
#include "window/desk/proof_glyph.h"
#include "window/grid/layer_columns.h"

namespace torvane {

class LayersModel : public QAbstractTableModel {
 public:
  LayersModel(Desk desk, Family family, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  const LayerColumn& Column(int section) const {
    return LayerColumns(family_)[static_cast<std::size_t>(section)];
  }
  // Null for the row's button and its proof.
  Field* FieldAt(const QModelIndex& index) const;
  // How the proof of a layer stands; of layer 0 that of all.
  ProofState ProofOf(int layer) const;
  // Layers count from 1.
  static int LayerOf(const QModelIndex& index) { return index.row() + 1; }
  // The first line of a column's head, and the second.
  QString CaptionOf(int section) const;
  QString UnitOf(int section) const;

 private:
  QString Heading(int section) const;
  void FollowCount();

  Desk desk_;
  Family family_;
  int rows_ = 0;
};

}  // namespace torvane
