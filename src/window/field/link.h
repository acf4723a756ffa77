// Words that open something: underlined, in the accent colour.
#pragma once

#include <QAbstractButton>

#include "look/icons.h"
#include "window/desk/binder.h"

namespace torvane {

class Link : public QAbstractButton {
 public:
  // Runs an operation of the station when clicked; its name becomes the object name.
  Link(Desk desk, Icon icon, const QString& words, const char* control, QWidget* parent);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int WordsFrom() const { return icon_ == Icon::None ? 4 : 26; }

  Desk desk_;
  Icon icon_;
};

}  // namespace torvane
