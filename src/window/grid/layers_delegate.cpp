#include "window/grid/layers_delegate.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "look/icons.h"
#include "look/paint.h"
#include "look/text.h"
#include "window/field/field_widgets.h"
#include "workbench/build/marks.h"
#include "workbench/dialog/preview.h"

namespace torvane {

LayersDelegate::LayersDelegate(Desk desk, LayersModel& model, QObject* parent)
    : QStyledItemDelegate(parent), desk_(desk), model_(model) {}

void LayersDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  const Theme& t = desk_.theme;
  const LayerColumn& column = model_.Column(index.column());
  const int layer = LayersModel::LayerOf(index);
  const bool pressed = StandsOut(layer);
  const QRect box = option.rect;
  painter->save();
  QColor ground = t[IsCalculated(column.kind) ? Token::ReadOut : Token::Input];
  if (pressed) ground = t[Token::Selected];
  painter->fillRect(box, ground);
  const bool current = (option.state & QStyle::State_HasFocus) != 0;
  if (column.kind == CellKind::Proof)
    PaintProofState(*painter, t, QRectF(box).center(), model_.ProofOf(layer));
  else if (const Field* field = model_.FieldAt(index); field == nullptr)
    PaintRowButton(*painter, box, layer);
  else if (field->shown())
    PaintCell(*painter, box, column, *field, current);
  painter->setRenderHint(QPainter::Antialiasing, false);
  painter->setPen(t[Token::Hairline]);
  painter->drawLine(box.bottomLeft(), box.bottomRight());
  if (!IsCalculated(column.kind)) painter->drawLine(box.topRight(), box.bottomRight());
  painter->restore();
}

bool LayersDelegate::StandsOut(int layer) const {
  const DesignState& s = desk_.station.s;
  // The row that an open menu works on shows as long as that is open.
  if (s.mnuPopMenu.shown() && s.gCurrentRow == layer) return true;
  return (s.gShow4Axis ? s.lbl4xLayerNo : s.lblL)(layer).bold();
}

void LayersDelegate::PaintRowButton(QPainter& p, const QRect& box, int layer) const {
  const Theme& t = desk_.theme;
  const DesignState& s = desk_.station.s;
  const bool pressed = StandsOut(layer);
  p.fillRect(box, pressed ? t[Token::Accent] : t[Token::Panel]);
  p.setPen(pressed ? t[Token::OnAccent] : t[Token::Text]);
  p.setFont(t.FigureFont(14, Weight::Medium));
  if (!s.gShow4Axis) {
    p.drawText(box, Qt::AlignCenter, QString::number(layer));
    return;
  }
  // Numbers stand below each other, whether a row shows a pattern or not.
  p.drawText(box.adjusted(0, 0, -t.Figure(24), 0), Qt::AlignVCenter | Qt::AlignRight, QString::number(layer));
  if (!HasPreview(s, layer)) return;
  const double size = t.Figure(15);
  PaintIcon(p, Icon::Pattern, {box.right() - t.Figure(20) + 0.5, box.center().y() - size / 2, size, size},
            p.pen().color());
}

void LayersDelegate::PaintCell(QPainter& p, const QRect& box, const LayerColumn& column, const Field& field,
                               bool current) const {
  const Theme& t = desk_.theme;
  const InputLook look{ShownMark(field), field.enabled(), current, true};
  const QRect inner = box.adjusted(0, 0, -1, -1);
  if (IsCalculated(column.kind)) {
    if (current) PaintInput(p, t, inner, {Mark::Plain, true, true, true});
    p.setPen(field.empty() ? t[Token::Off] : t[Token::Figures]);
  } else {
    PaintInput(p, t, inner, look);
    p.setPen(InputTextColour(t, look));
  }
  if (column.kind == CellKind::Check) {
    const double size = t.Figure(20);
    PaintCheckBox(p, t, {box.center().x() - size / 2, box.center().y() - size / 2, size, size},
                  field.checked(), field.enabled(), false);
    return;
  }
  QFont font = t.FigureFont(14, Weight::Medium);
  if (field.bold()) font.setBold(true);
  p.setFont(font);
  const bool list = column.kind == CellKind::List && !field.entries().empty();
  const bool leftSide = column.kind == CellKind::List;
  const int glyph = look.mark == Mark::Plain ? 0 : t.Figure(18);
  const QRect text = box.adjusted(t.Figure(leftSide ? 9 : 4) + (leftSide ? glyph : 0), 0,
                                  list ? -t.Figure(20) : -t.Figure(10), -1);
  const QString shown = IsCalculated(column.kind) ? FigureOf(field) : Shown(field.text());
  const int side = leftSide ? Qt::AlignLeft : Qt::AlignRight;
  p.drawText(text, side | static_cast<int>(Qt::AlignVCenter),
             p.fontMetrics().elidedText(shown, Qt::ElideRight, text.width()));
  if (list) {
    const double size = t.Figure(16);
    PaintIcon(p, Icon::Chevron, {box.right() - size - t.Figure(5), box.center().y() - size / 2, size, size},
              p.pen().color());
  }
  if (column.kind == CellKind::Angle && look.mark == Mark::Plain) PaintAngle(p, box, field);
  if (column.kind == CellKind::Minutes) PaintShare(p, box, field);
}

void LayersDelegate::PaintAngle(QPainter& p, const QRect& box, const Field& field) const {
  const Number angle = number(field);
  if (!holds(angle > 0) || !holds(angle <= 90)) return;
  const Theme& t = desk_.theme;
  p.setRenderHint(QPainter::Antialiasing);
  const QPointF centre(box.left() + t.Figure(18), box.center().y());
  const double reach = t.Figure(8);
  p.setPen(QPen(t[Token::Hairline], 1));
  p.drawLine(centre - QPointF(reach, 0), centre + QPointF(reach, 0));
  const double radians = angle.value() * std::numbers::pi / 180;
  const QPointF along(std::cos(radians) * reach, -std::sin(radians) * reach);
  p.setPen(t.Pen(Token::BandOut, t.Figure(2)));
  p.drawLine(centre - along, centre + along);
}

void LayersDelegate::PaintShare(QPainter& p, const QRect& box, const Field& field) const {
  const auto cells = model_.Column(model_.columnCount() - 3).cells;
  double most = 0;
  for (int layer = 1; layer <= model_.rowCount(); ++layer) {
    const Number minutes = number((desk_.station.s.*cells)(layer));
    if (holds(minutes > most)) most = minutes.value();
  }
  const Number minutes = number(field);
  if (!holds(minutes > 0)) return;
  QColor colour = desk_.theme[Token::Accent];
  colour.setAlphaF(0.35F);
  // Below the figure at the right, however wide the column is.
  const int whole = std::min(box.width() - 12, desk_.theme.Figure(80));
  const int width = static_cast<int>(whole * minutes.value() / most);
  p.fillRect(QRect(box.right() - 6 - whole, box.bottom() - 3, width, 2), colour);
}

QWidget* LayersDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                      const QModelIndex& index) const {
  Field* field = model_.FieldAt(index);
  if (field == nullptr) return nullptr;
  arrival_ = Shown(field->text());
  auto* editor = new FieldEdit(desk_, *field, Place::Grid, parent);
  if (model_.Column(index.column()).kind == CellKind::List)
    editor->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  return editor;
}

void LayersDelegate::destroyEditor(QWidget* editor, const QModelIndex&) const {
  desk_.binder.Discard(editor);
}

void LayersDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                          const QModelIndex&) const {
  editor->setGeometry(option.rect.adjusted(0, 0, -1, -1));
}

bool LayersDelegate::eventFilter(QObject* editor, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QStyledItemDelegate::eventFilter(editor, event);
  auto* edit = static_cast<FieldEdit*>(editor);
  int down = 0, right = 0;
  switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
      down = 1;
      break;
    case Qt::Key_Up:
      down = -1;
      break;
    case Qt::Key_Tab:
      right = 1;
      break;
    case Qt::Key_Backtab:
      right = -1;
      break;
    case Qt::Key_Escape:
      if (edit->text() != arrival_) desk_.binder.Type(edit->field(), arrival_);
      break;
    default:
      return QStyledItemDelegate::eventFilter(editor, event);
  }
  emit closeEditor(edit, NoHint);
  if (leave) leave(down, right);
  return true;
}

}  // namespace torvane
