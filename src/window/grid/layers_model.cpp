#include "window/grid/layers_model.h"

#include "design/catalogue.h"
#include "look/text.h"
#include "window/field/field_paint.h"
#include "window/field/help.h"
#include "workbench/station/layer_count.h"

namespace torvane {

LayersModel::LayersModel(Desk desk, Family family, QObject* parent)
    : QAbstractTableModel(parent), desk_(desk), family_(family) {
  DesignState& s = desk.station.s;
  for (int column = 0; column < columnCount(); ++column) {
    if (const auto heading = Column(column).heading; heading != nullptr)
      desk.binder.Bind(s.*heading, this,
                       [this, column] { emit headerDataChanged(Qt::Horizontal, column, column); });
    const auto cells = Column(column).cells;
    if (cells == nullptr) continue;
    for (int layer = 1; layer <= kMostLayers; ++layer)
      desk.binder.Bind((s.*cells)(layer), this, [this, column, layer] {
        const QModelIndex cell = index(layer - 1, column);
        if (cell.isValid()) emit dataChanged(cell, cell);
      });
  }
  desk.binder.BindAll(this, [this] { FollowCount(); });
}

void LayersModel::FollowCount() {
  if (desk_.station.s.family() != family_) return;
  const int rows = LayerRows(desk_.station.s);
  if (rows > rows_) {
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
  } else if (rows < rows_) {
    beginRemoveRows({}, rows, rows_ - 1);
    rows_ = rows;
    endRemoveRows();
  }
}

int LayersModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int LayersModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(LayerColumns(family_).size());
}

Field* LayersModel::FieldAt(const QModelIndex& index) const {
  const auto cells = Column(index.column()).cells;
  return cells == nullptr ? nullptr : &(desk_.station.s.*cells)(LayerOf(index));
}

QVariant LayersModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Field* field = FieldAt(index);
  if (Column(index.column()).kind == CellKind::Proof) {
    if (role != Qt::AccessibleTextRole && role != Qt::ToolTipRole) return {};
    return QStringLiteral("Proof: %1").arg(WordsOf(ProofOf(LayerOf(index))));
  }
  if (role == Qt::DisplayRole)
    return field == nullptr ? QString::number(LayerOf(index)) : Shown(field->text());
  if (role == Qt::AccessibleTextRole && field != nullptr)
    return QString(Spoken(*field, desk_.station.s.InInches()) + QStringLiteral(": ") + Shown(field->text()));
  if (role == Qt::WhatsThisRole && field != nullptr)
    return QString(HelpOf(*field).name + QStringLiteral("\n") + HelpOf(*field).sentence);
  if (role == Qt::ToolTipRole && field != nullptr) return TipOf(*field, desk_.station.s.signs);
  return {};
}

ProofState LayersModel::ProofOf(int layer) const {
  return desk_.live == nullptr ? ProofState::NotJudged : RowState(*desk_.live, layer);
}

QString LayersModel::Heading(int section) const {
  const LayerColumn& column = Column(section);
  if (column.kind == CellKind::Proof) return QStringLiteral("Proof");
  if (column.cells == nullptr) return QStringLiteral("#");
  if (column.heading == nullptr) return Shown(WordsOf((desk_.station.s.*column.cells)(1)).name);
  return Shown((desk_.station.s.*column.heading).text());
}

QString LayersModel::CaptionOf(int section) const {
  const QString heading = Heading(section);
  return heading.left(heading.indexOf(QStringLiteral(" (")));
}

QString LayersModel::UnitOf(int section) const {
  const LayerColumn& column = Column(section);
  if (column.cells == nullptr) return {};
  if (column.heading == nullptr) {
    const DesignState& s = desk_.station.s;
    const std::string_view unit = TextOf(WordsOf((s.*column.cells)(1)).unit, s.InInches());
    return unit.empty() ? QString() : QStringLiteral("(%1)").arg(Shown(unit));
  }
  return Heading(section).mid(CaptionOf(section).size() + 1);
}

QVariant LayersModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return Heading(section);
}

Qt::ItemFlags LayersModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return {};
  const Qt::ItemFlags plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  return IsInput(Column(index.column()).kind) ? plain | Qt::ItemIsEditable : plain;
}

}  // namespace torvane
