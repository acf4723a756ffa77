// How many spools the program takes and where the first splice falls; a press asks for a spool's length.
#pragma once

#include <QAbstractButton>

#include "window/desk/binder.h"

namespace torvane {

class SpoolLine : public QAbstractButton {
 public:
  SpoolLine(Desk desk, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  // In feet or metres; the setting keeps feet.
  void AskLength();
  QString Words() const;

  Desk desk_;
};

}  // namespace torvane
