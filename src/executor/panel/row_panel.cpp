#include "executor/panel/row_panel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>

#include "executor/session/words.h"
#include "look/text.h"

namespace torvane::dryrun {

namespace {

// Keeps the scroll bar below the head.
QWidget* HeadRoom(int height) {
  auto* room = new QWidget;
  room->setFixedHeight(height);
  room->setAttribute(Qt::WA_TransparentForMouseEvents);
  return room;
}

}  // namespace

RowPanel::RowPanel(Stand stand, const QString& title, int rowHeight, QWidget* parent)
    : QAbstractScrollArea(parent), stand_(stand), title_(title), rowHeight_(rowHeight) {
  setAccessibleName(title);
  setFrameShape(QFrame::NoFrame);
  setViewportMargins(1, kHead, 1, 1);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  addScrollBarWidget(HeadRoom(kHead), Qt::AlignTop);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setAutoFillBackground(false);
}

void RowPanel::Fit(int pixels) {
  QScrollBar* bar = verticalScrollBar();
  bar->setSingleStep(rowHeight_);
  bar->setPageStep(viewport()->height());
  bar->setRange(0, std::max(0, pixels - viewport()->height()));
}

int RowPanel::RowAt(int y) const { return (verticalScrollBar()->value() + y) / rowHeight_; }

QRect RowPanel::BoxOf(int row) const {
  return {0, row * rowHeight_ - verticalScrollBar()->value(), viewport()->width(), rowHeight_};
}

// The head is the frame's own; the rows are the viewport's.
bool RowPanel::event(QEvent* event) {
  if (event->type() != QEvent::Paint) return QAbstractScrollArea::event(event);
  QPainter painter(this);
  PaintPanelHead(painter, stand_.theme, rect(), kHead, title_);
  PaintHead(painter);
  return true;
}

bool RowPanel::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  QToolTip::showText(help->globalPos(), PlainTip(TipOf(RowAt(help->pos().y()))), viewport());
  return true;
}

}  // namespace torvane::dryrun
