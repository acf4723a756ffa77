// A panel whose rows scroll below its head.
#pragma once

#include <QAbstractScrollArea>

#include "executor/session/session.h"

namespace torvane::dryrun {

class RowPanel : public QAbstractScrollArea {
 public:
  RowPanel(Stand stand, const QString& title, int rowHeight, QWidget* parent);

 protected:
  static constexpr int kHead = 36;

  // Paints the head behind its title.
  virtual void PaintHead(QPainter& painter) = 0;
  virtual QString TipOf(int row) const = 0;

  // Follows a new height of all rows, or of the panel.
  void Fit(int pixels);
  // The row at a height of the viewport, counted from 0; it need not exist. Rows have one height unless a
  // panel says otherwise.
  virtual int RowAt(int y) const;
  // Where a row stands in the viewport.
  virtual QRect BoxOf(int row) const;

  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;

  Stand stand_;

 private:
  QString title_;
  int rowHeight_;
};

}  // namespace torvane::dryrun
