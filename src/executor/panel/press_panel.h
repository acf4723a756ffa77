// The machine's button: it runs on where the program waits for it.
#pragma once

#include <QAbstractButton>

#include "executor/session/session.h"

namespace torvane::dryrun {

class PressPanel : public QAbstractButton {
 public:
  explicit PressPanel(Stand stand, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Refresh();
  QString Detail() const;

  Stand stand_;
};

}  // namespace torvane::dryrun
